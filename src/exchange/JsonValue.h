// SPDX-License-Identifier: MIT
// Single values in their JSON form, and back. Objects are written by hand because their keys have an order.
#pragma once

#include "model/Calendar.h"

#include <QJsonValue>
#include <QString>
#include <QUuid>

#include <optional>

namespace tarnwick::json {

/// Quoted and escaped; lone surrogates as escapes, so that no text is lost.
[[nodiscard]] QString quoted(const QString& text);
/// ISO 8601 with milliseconds and the local offset. A year that ISO has no four digits for is written as the number of
/// milliseconds since 1970 instead.
[[nodiscard]] QString written(const QDateTime& moment, const Calendar& calendar);
[[nodiscard]] QString written(const QUuid& id, const Calendar& calendar);
[[nodiscard]] QString written(const QString& text, const Calendar& calendar);
[[nodiscard]] QString written(bool isSet, const Calendar& calendar);  // NOLINT: the value is a bool
[[nodiscard]] QString written(qint64 number, const Calendar& calendar);

/// ISO 8601 with milliseconds and offset, unquoted; nothing where ISO has no four digits for the year.
[[nodiscard]] std::optional<QString> isoText(const QDateTime& moment, const Calendar& calendar);

/// False when the value is of another kind; the target is left alone then. A date without an offset is local.
[[nodiscard]] bool read(const QJsonValue& value, const Calendar& calendar, QDateTime& target);
[[nodiscard]] bool read(const QJsonValue& value, const Calendar& calendar, QUuid& target);
[[nodiscard]] bool read(const QJsonValue& value, const Calendar& calendar, QString& target);
[[nodiscard]] bool read(const QJsonValue& value, const Calendar& calendar, bool& target);
[[nodiscard]] bool read(const QJsonValue& value, const Calendar& calendar, qint64& target);

}  // namespace tarnwick::json
