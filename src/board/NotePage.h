// SPDX-License-Identifier: MIT
// What composer and editor have in common: the form, and above it a head with title, way out and actions.
#pragma once

#include "board/BoardServices.h"

#include <QWidget>

class QAbstractButton;

namespace tarnwick {

class NoteForm;
class ToolButton;

class NotePage : public QWidget {
  Q_OBJECT

 public:
  [[nodiscard]] NoteForm& form() { return *m_form; }
  [[nodiscard]] const NoteForm& form() const { return *m_form; }
  void takeFocus();

 protected:
  struct Head {
    QString title;
    QString symbol;  // of the way out
    QString wayOut;
  };
  NotePage(const BoardServices& services, const Head& head, QWidget* parent);
  /// At the head's trailing end, the outermost first.
  void setActions(const QList<QAbstractButton*>& actions);
  /// What the command and Return do.
  virtual void submit() = 0;
  /// Closes the page and drops what was typed.
  virtual void leave() = 0;
  [[nodiscard]] const BoardServices& services() const { return m_services; }

  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// An open date block closes first.
  void cancel();

  const BoardServices& m_services;
  NoteForm* m_form;
  ToolButton* m_wayOut;
  QList<QAbstractButton*> m_actions;
};

}  // namespace tarnwick
