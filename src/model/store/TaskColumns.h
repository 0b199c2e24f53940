// SPDX-License-Identifier: MIT
// The fields of the stored records, each named once: this table drives the SQL, the JSON form and the command line.
#pragma once

#include "model/ClipboardItem.h"
#include "model/Task.h"

#include <QLatin1StringView>

#include <array>
#include <variant>

namespace tarnwick {

/// Whether a text column holds few different values, which are then kept in memory once.
enum class ColumnValues { Varied, Few };

template <typename Record>
struct Column {
  using Field = std::variant<QUuid Record::*, QString Record::*, std::optional<QString> Record::*, bool Record::*,
                             std::optional<bool> Record::*, QDateTime Record::*, std::optional<QDateTime> Record::*,
                             std::optional<qint64> Record::*>;
  QLatin1StringView name;
  Field field;
  ColumnValues values = ColumnValues::Varied;

  [[nodiscard]] constexpr bool isOptional() const {
    return std::holds_alternative<std::optional<QString> Record::*>(field) ||
           std::holds_alternative<std::optional<bool> Record::*>(field) ||
           std::holds_alternative<std::optional<QDateTime> Record::*>(field) ||
           std::holds_alternative<std::optional<qint64> Record::*>(field);
  }
};

using TaskColumn = Column<TaskRecord>;
using ClipboardColumn = Column<ClipboardItem>;

inline constexpr std::array kTaskColumns{
    TaskColumn{QLatin1StringView("id"), &TaskRecord::id},
    TaskColumn{QLatin1StringView("text"), &TaskRecord::text},
    TaskColumn{QLatin1StringView("colorHex"), &TaskRecord::colorHex, ColumnValues::Few},
    TaskColumn{QLatin1StringView("dueDate"), &TaskRecord::dueDate},
    TaskColumn{QLatin1StringView("recurrence"), &TaskRecord::recurrenceRaw, ColumnValues::Few},
    TaskColumn{QLatin1StringView("isCompleted"), &TaskRecord::isCompleted},
    TaskColumn{QLatin1StringView("isBurned"), &TaskRecord::isBurned},
    TaskColumn{QLatin1StringView("burnedAt"), &TaskRecord::burnedAt},
    TaskColumn{QLatin1StringView("createdAt"), &TaskRecord::createdAt},
    TaskColumn{QLatin1StringView("completedAt"), &TaskRecord::completedAt},
    TaskColumn{QLatin1StringView("tag"), &TaskRecord::tagRaw, ColumnValues::Few},
    TaskColumn{QLatin1StringView("pinnedBundleID"), &TaskRecord::pinnedBundleID, ColumnValues::Few},
    TaskColumn{QLatin1StringView("gitRepoPath"), &TaskRecord::gitRepoPath, ColumnValues::Few},
    TaskColumn{QLatin1StringView("gitBranch"), &TaskRecord::gitBranch, ColumnValues::Few},
    TaskColumn{QLatin1StringView("paperThemeRaw"), &TaskRecord::paperThemeRaw, ColumnValues::Few},
    TaskColumn{QLatin1StringView("stampRaw"), &TaskRecord::stampRaw, ColumnValues::Few},
    TaskColumn{QLatin1StringView("isTornOff"), &TaskRecord::isTornOff},
    TaskColumn{QLatin1StringView("boardRaw"), &TaskRecord::boardRaw, ColumnValues::Few},
    TaskColumn{QLatin1StringView("isDaily3"), &TaskRecord::isDaily3},
    TaskColumn{QLatin1StringView("isNorthStar"), &TaskRecord::isNorthStar},
    TaskColumn{QLatin1StringView("attachmentPathsRaw"), &TaskRecord::attachmentPathsRaw},
    TaskColumn{QLatin1StringView("focusSeconds"), &TaskRecord::focusSeconds},
    TaskColumn{QLatin1StringView("isPrivate"), &TaskRecord::isPrivate},
};

inline constexpr std::array kClipboardColumns{
    ClipboardColumn{QLatin1StringView("id"), &ClipboardItem::id},
    ClipboardColumn{QLatin1StringView("content"), &ClipboardItem::content},
    ClipboardColumn{QLatin1StringView("contentTypeRaw"), &ClipboardItem::contentTypeRaw},
    ClipboardColumn{QLatin1StringView("copiedAt"), &ClipboardItem::copiedAt},
    ClipboardColumn{QLatin1StringView("sourceBundleID"), &ClipboardItem::sourceBundleID},
    ClipboardColumn{QLatin1StringView("isPinned"), &ClipboardItem::isPinned},
};

}  // namespace tarnwick
