// SPDX-License-Identifier: MIT
// Burned notes: which notes burn, and the two ways out of the ashes, back to the board or gone for good.
#pragma once

#include "model/Task.h"
#include "platform/Result.h"

namespace tarnwick {

class ModelContext;
class NotificationEngine;
class TornNotes;
class UserDefaults;

/// Neither finished nor dated nor repeating: midnight would take it.
[[nodiscard]] bool isBurnable(const Task& task);
void burn(Task& task, const QDateTime& now);
/// Active again. One that the next pass would take at once counts as made now, and so lives until the coming midnight.
void revive(Task& task, const QDateTime& now);

/// Revives, saves, brings back reminders. After a failed save the notes are as they were.
Result<void> reviveNotes(ModelContext& context, const TaskList& notes, NotificationEngine& reminders,
                         const QDateTime& now);
/// Closes the notes' windows, deletes them and what is kept for them, saves. After a failed save they are still there.
/// `torn` may be null.
Result<void> sweepNotes(ModelContext& context, const TaskList& notes, TornNotes* torn, UserDefaults& defaults);

}  // namespace tarnwick
