// SPDX-License-Identifier: MIT
#include "board/Ashes.h"

#include "board/NotificationEngine.h"
#include "board/TornNotes.h"
#include "model/SettingsKeys.h"
#include "model/store/ModelContext.h"

namespace tarnwick {

bool isBurnable(const Task& task) {
  return !task.isCompleted() && !task.isBurned() && task.isOneOff() && !task.dueDate();
}

void burn(Task& task, const QDateTime& now) {
  task.set(&TaskRecord::isBurned, true);
  task.set(&TaskRecord::burnedAt, now);
  task.set(&TaskRecord::isTornOff, false);
}

void revive(Task& task, const QDateTime& now) {
  task.set(&TaskRecord::isBurned, false);
  task.set(&TaskRecord::burnedAt, std::nullopt);
  task.set(&TaskRecord::isCompleted, false);
  task.set(&TaskRecord::completedAt, std::nullopt);
  if (isBurnable(task)) task.set(&TaskRecord::createdAt, now);
}

Result<void> reviveNotes(ModelContext& context, const TaskList& notes, NotificationEngine& reminders,
                         const QDateTime& now) {
  std::vector<TaskRecord> before;
  for (const TaskPtr& note : notes) {
    before.push_back(note->record());
    revive(*note, now);
  }
  if (auto saved = context.save(); !saved) {
    for (size_t i = 0; i < notes.size(); ++i) notes[i]->restore(before[i]);
    return saved;
  }
  for (const TaskPtr& note : notes) reminders.schedule(*note);
  return {};
}

Result<void> sweepNotes(ModelContext& context, const TaskList& notes, TornNotes* torn, UserDefaults& defaults) {
  if (notes.empty()) return {};
  for (const TaskPtr& note : notes) {
    if (torn && torn->isOpen(note->id())) torn->closePanel(note->id());
    context.remove(note);
  }
  auto saved = context.save();
  if (!saved) {
    context.rollback();
    return saved;
  }
  for (const TaskPtr& note : notes) forgetNote(defaults, note->id());
  return saved;
}

}  // namespace tarnwick
