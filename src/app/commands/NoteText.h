// SPDX-License-Identifier: MIT
// How the command line writes a note, and how it finds one by what the user wrote.
#pragma once

#include "model/Task.h"
#include "platform/Result.h"

#include <QString>

namespace tarnwick {

class ModelContext;

/// "2026-03-01T09:00:00.000+01:00", the moment as the zone's clocks show it.
[[nodiscard]] QString momentText(const QDateTime& moment, const Calendar& calendar);
/// One line to choose from: the beginning of the id, the first line of the text, what else matters in brackets.
[[nodiscard]] QString listLine(const Task& task, const QDateTime& now, const Calendar& calendar);
/// Every field that is present, one a line; further lines of a text are indented.
[[nodiscard]] QString noteLines(const TaskRecord& record, const Calendar& calendar);

/// By the whole id or a beginning of four or more characters that only one note has; case does not matter.
[[nodiscard]] Result<TaskPtr> findNote(const ModelContext& context, const QString& word);

}  // namespace tarnwick
