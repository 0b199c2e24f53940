// SPDX-License-Identifier: MIT
#include "board/CrushUndoStore.h"

#include "board/TornNotes.h"
#include "model/store/ModelContext.h"

namespace tarnwick {

bool CrushUndoStore::undo(ModelContext& context) {
  if (!last) return false;
  const Snapshot snapshot = *last;
  const TaskPtr task = context.findTask(snapshot.id);
  if (!task) return false;

  task->set(&TaskRecord::isCompleted, false);
  task->set(&TaskRecord::completedAt, std::nullopt);
  if (snapshot.recurrenceAdvanced) task->set(&TaskRecord::dueDate, snapshot.previousDueDate);
  task->set(&TaskRecord::isTornOff, snapshot.wasTornOff);
  (void)context.save();
  last.reset();
  TornNotes* const torn = m_torn ? m_torn() : nullptr;
  if (torn && snapshot.wasTornOff) torn->tearOffTask(task, std::nullopt);
  // A repeating note may have been torn off since.
  if (torn && !snapshot.wasTornOff && torn->isOpen(task->id())) torn->closePanel(task->id());
  return true;
}

}  // namespace tarnwick
