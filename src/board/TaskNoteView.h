// SPDX-License-Identifier: MIT
// The full editor of a note on the board.
#pragma once

#include "board/BoardServices.h"
#include "model/Task.h"

#include <QWidget>

#include <functional>

namespace tarnwick {

class NoteForm;
class PrimaryButton;
class ToolButton;

class TaskNoteView final : public QWidget {
  Q_OBJECT

 public:
  TaskNoteView(const BoardServices& services, std::function<void()> onClosed, QWidget* parent);
  void begin(const TaskPtr& task, const QStringList& boards);
  [[nodiscard]] const TaskPtr& task() const { return m_task; }
  /// Writes the fields back and closes. Stays open with what was typed for blank text and after a failed save.
  void save();
  /// Saves, puts the note on the desktop and closes.
  void tearOff();
  [[nodiscard]] NoteForm& form() { return *m_form; }
  void takeFocus();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void cancel();
  bool write();

  const BoardServices& m_services;
  std::function<void()> m_onClosed;
  TaskPtr m_task;
  NoteForm* m_form;
  ToolButton* m_back;
  ToolButton* m_tear;
  PrimaryButton* m_save;
};

}  // namespace tarnwick
