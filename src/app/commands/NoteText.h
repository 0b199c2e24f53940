// SPDX-License-Identifier: MIT
// How the command line writes a note, and how it finds one by what the user wrote.
#pragma once

#include "model/Task.h"
#include "platform/Result.h"

#include <QByteArray>
#include <QString>

namespace tarnwick {

class ModelContext;

/// Upper case, without braces.
[[nodiscard]] QString idText(const QUuid& id);
/// "2026-03-01T09:00:00.000+01:00", the moment as the zone's clocks show it.
[[nodiscard]] QString isoText(const QDateTime& moment, const QTimeZone& zone);
/// One line to choose from: the beginning of the id, the first line of the text, what else matters in brackets.
[[nodiscard]] QString listLine(const Task& task, const QDateTime& now, const Calendar& calendar);
/// The note as a JSON object on one line: its fields by name and in order, those that are absent left out.
[[nodiscard]] QByteArray noteJson(const TaskRecord& record, const QTimeZone& zone);
/// Every field that is present, one a line; further lines of a text are indented.
[[nodiscard]] QString noteLines(const TaskRecord& record, const QTimeZone& zone);

/// By the whole id or a beginning of four or more characters that only one note has; case does not matter.
[[nodiscard]] Result<TaskPtr> findNote(const ModelContext& context, const QString& word);

}  // namespace tarnwick
