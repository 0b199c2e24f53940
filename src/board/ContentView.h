// SPDX-License-Identifier: MIT
// The whole board: rail, wall of cards, plan nudge, ashes, composer and editor, on its own rounded surface.
// The window around it is the board panel's; every list and count comes from BoardQueries.
#pragma once

#include "board/BoardServices.h"
#include "model/Task.h"

#include <QWidget>

#include <memory>

namespace tarnwick {

class ContentView final : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kSide = 390;

  /// What lies on the board is built by `prepare()`, or when it is shown or somebody asks.
  explicit ContentView(const BoardServices& services, QWidget* parent = nullptr);
  ~ContentView() override;
  void prepare();

  enum class ViewState { list, add, edit };
  [[nodiscard]] ViewState viewState() const;
  /// Open a blank composer; one that is open already keeps what was typed.
  void showComposer();
  /// Back to the wall; what composer or editor held is dropped.
  void showList();
  void showEditor(const TaskPtr& task);
  void showAshes();
  /// Selects the note on the wall and takes filters away that hide it. What is being written is not disturbed.
  void showNote(const QUuid& id);
  /// Gives the keyboard to what the user will type into first: the wall, or the open editor's text.
  void takeFocus();

  void setVisible(bool isVisible) override;
  [[nodiscard]] QSize sizeHint() const override { return {kSide, kSide}; }

 Q_SIGNALS:
  /// The wall, the composer or the editor came up.
  void viewStateChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  struct Content;
  /// Has another thread draw what is the same for all notes.
  void drawAhead() const;
  [[nodiscard]] Content& content();

  BoardServices m_services;
  bool m_wasShown = false;
  std::unique_ptr<Content> m_content;
};

}  // namespace tarnwick
