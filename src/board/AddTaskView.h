// SPDX-License-Identifier: MIT
// The composer of a new note.
#pragma once

#include "board/BoardServices.h"
#include "board/NoteEditing.h"

#include <QWidget>

#include <functional>

namespace tarnwick {

class NoteForm;
class PrimaryButton;
class ToolButton;

class AddTaskView final : public QWidget {
  Q_OBJECT

 public:
  struct Actions {
    std::function<void()> onCancel;
    std::function<void()> onCreated;
  };

  AddTaskView(const BoardServices& services, Actions actions, QWidget* parent);
  /// A blank sheet.
  void begin(const NoteDraft& draft, const QStringList& boards);
  [[nodiscard]] bool isEmpty() const;
  /// Stores the note and sticks it to the desktop. Nothing at all for blank text.
  void create();
  [[nodiscard]] NoteForm& form() { return *m_form; }
  void takeFocus();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void cancel();

  const BoardServices& m_services;
  Actions m_actions;
  NoteForm* m_form;
  ToolButton* m_close;
  PrimaryButton* m_stick;
};

}  // namespace tarnwick
