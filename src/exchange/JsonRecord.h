// SPDX-License-Identifier: MIT
// Records as JSON objects, from the column descriptors: keys are field names in their order, absent fields left out.
#pragma once

#include "exchange/ExchangeWords.h"
#include "exchange/JsonValue.h"
#include "model/store/TaskColumns.h"
#include "platform/Result.h"

#include <QJsonObject>
#include <QStringList>

#include <algorithm>
#include <type_traits>

namespace tarnwick::json {

template <typename T>
struct IsOptional : std::false_type {};
template <typename T>
struct IsOptional<std::optional<T>> : std::true_type {};

/// `without` names the columns to leave out.
template <typename Columns, typename Record>
[[nodiscard]] QString object(const Columns& columns, const Record& record, const Calendar& calendar,
                             std::initializer_list<QLatin1StringView> without = {}) {
  QStringList members;
  for (const auto& column : columns) {
    if (std::find(without.begin(), without.end(), column.name) != without.end()) continue;
    const auto add = [&](const QString& value) { members.append(u'"' + column.name + QStringLiteral("\": ") + value); };
    std::visit(
        [&](auto member) {
          const auto& value = record.*member;
          if constexpr (IsOptional<std::remove_cvref_t<decltype(value)>>::value) {
            if (value) add(written(*value, calendar));
          } else {
            add(written(value, calendar));
          }
        },
        column.field);
  }
  return u'{' + members.join(QStringLiteral(", ")) + u'}';
}

/// Whether a field that is not optional may be missing from the object.
enum class Fields { All, Some };

/// Unknown keys are ignored, null counts as absent. The error names the field.
template <typename Columns, typename Record>
[[nodiscard]] Result<void> readObject(const QJsonObject& source, const Columns& columns, const Calendar& calendar,
                                      Fields fields, Record& record) {
  for (const auto& column : columns) {
    const auto value = source.value(column.name);
    if (value.isUndefined() || value.isNull()) {
      if (column.isOptional() || fields == Fields::Some) continue;
      return Error{ErrorKind::Damaged,
                   ExchangeWords::tr("“%1” is missing").arg(QString(column.name))};
    }
    const bool isRead = std::visit(
        [&](auto member) {
          auto& target = record.*member;
          if constexpr (IsOptional<std::remove_cvref_t<decltype(target)>>::value) {
            return read(value, calendar, target.emplace());
          } else {
            return read(value, calendar, target);
          }
        },
        column.field);
    if (!isRead) {
      return Error{ErrorKind::Damaged,
                   ExchangeWords::tr("“%1” has a value that does not fit").arg(QString(column.name))};
    }
  }
  return {};
}

}  // namespace tarnwick::json
