// SPDX-License-Identifier: MIT
// What has to be done for the desk when a day or the program begins, and after a change: the application says when.
#pragma once

#include "model/Task.h"

#include <QObject>

#include <functional>

namespace tarnwick {

class Clock;
class ModelContext;
class NotificationCenter;
class NotificationEngine;
class TornNotes;
class UserDefaults;
struct BoardServices;

/// Puts torn-off notes whose day has come back on the desktop.
void restickDueNotes(const ModelContext& context, TornNotes& torn, const Clock& clock);

/// The board panel, as far as the morning needs it.
struct BoardPresence {
  std::function<bool()> isVisible;
  std::function<void()> present;
};
/// Drops the board once a day, from five in the morning on; true when it did.
bool planNudgeIfDue(UserDefaults& defaults, const Clock& clock, const BoardPresence& board);

/// Reschedules a note's reminders whenever the note was edited, for as long as `owner` lives.
void followEdits(NotificationCenter& center, ModelContext& context, NotificationEngine& reminders, QObject* owner);

/// Takes the last crush back and brings the note's reminders back with it; false when there was nothing to undo.
bool undoLastCrush(const BoardServices& services);

}  // namespace tarnwick
