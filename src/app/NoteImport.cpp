// SPDX-License-Identifier: MIT
#include "app/NoteImport.h"

#include "board/Ashes.h"
#include "board/BoardServices.h"
#include "board/DeskDuties.h"
#include "board/NotificationEngine.h"
#include "board/TornNotes.h"
#include "model/store/ModelContainer.h"
#include "platform/Clock.h"

namespace tarnwick {

Result<ImportCount> takeIn(const NoteExport& notes, const BoardServices& services) {
  auto count = importInto(services.container, notes);
  if (!count) return count;
  ModelContext& context = services.container.mainContext();
  for (const TaskRecord& record : notes.tasks) {
    if (const TaskPtr task = context.findTask(record.id)) services.reminders.schedule(*task);
  }
  if (TornNotes* const torn = services.torn ? services.torn() : nullptr) restickDueNotes(context, *torn, services.clock);
  return count;
}

Result<int> takeBack(const std::vector<TaskRecord>& asTheyCame, const BoardServices& services) {
  ModelContext& context = services.container.mainContext();
  TaskList notes;
  for (const TaskRecord& record : asTheyCame) {
    if (TaskPtr task = context.findTask(record.id); task && task->record() == record) notes.push_back(std::move(task));
  }
  TornNotes* const torn = services.torn ? services.torn() : nullptr;
  if (const auto swept = sweepNotes(context, notes, torn, services.defaults); !swept) return swept.error();
  for (const TaskPtr& note : notes) services.reminders.cancel(note->id());
  return static_cast<int>(notes.size());
}

}  // namespace tarnwick
