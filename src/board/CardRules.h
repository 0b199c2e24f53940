// SPDX-License-Identifier: MIT
// The small rules of a note on the wall: its tilt, what warns of the burn, how a due date reads, the colour cycle.
#pragma once

#include "board/PlanNudge.h"
#include "model/Task.h"

#include <QString>
#include <QUuid>

namespace tarnwick {

/// Degrees: one of nine tilts between -1.6 and 1.6, always the same for a note.
[[nodiscard]] double naturalAngle(const QUuid& id);
/// Degrees, of a note on the desktop: one of five between -0.9 and 0.9.
[[nodiscard]] double tornTilt(const QUuid& id);
/// Until 23:59:59; never below zero.
[[nodiscard]] double hoursUntilMidnight(const QDateTime& now, const Calendar& calendar);
/// Tonight's burn will take the note and the day is in its last seven hours.
[[nodiscard]] bool isSmoldering(const Task& task, DailyBurn dailyBurn, const QDateTime& now, const Calendar& calendar);
/// A repeating note is never overdue on its own day.
[[nodiscard]] bool isOverdue(const Task& task, const QDateTime& due, const QDateTime& now, const Calendar& calendar);
/// "Today", "Tomorrow", or month and day as the locale writes them.
[[nodiscard]] QString dueLabel(const QDateTime& date, const QDateTime& now, const Calendar& calendar);
/// The palette's colour after this one; its first for a colour that is not in it.
[[nodiscard]] QString nextColor(const QString& colorHex);
/// Changes the note; the caller saves.
void cycleColor(Task& task);
/// Changes the note; the caller saves and plays the stick sound.
void toggleDaily3(Task& task);

}  // namespace tarnwick
