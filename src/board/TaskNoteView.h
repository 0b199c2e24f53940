// SPDX-License-Identifier: MIT
// The full editor of a note on the board.
#pragma once

#include "board/NotePage.h"
#include "model/Task.h"

#include <functional>

namespace tarnwick {

class TaskNoteView final : public NotePage {
  Q_OBJECT

 public:
  TaskNoteView(const BoardServices& services, std::function<void()> onClosed, QWidget* parent);
  void begin(const TaskPtr& task, const QStringList& boards);
  [[nodiscard]] const TaskPtr& task() const { return m_task; }
  /// Writes the fields back and closes. Stays open with what was typed for blank text and after a failed save.
  void save();
  /// Saves, puts the note on the desktop and closes.
  void tearOff();

 protected:
  void submit() override { save(); }
  void leave() override { m_onClosed(); }

 private:
  bool write();

  std::function<void()> m_onClosed;
  TaskPtr m_task;
};

}  // namespace tarnwick
