// SPDX-License-Identifier: MIT
// What the board shows, as pure functions of the notes, the filter and the moment. Nothing is kept.
// Every list goes in and comes out in the board's order: see newestFirst.
#pragma once

#include "model/Task.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace tarnwick {

/// The two tabs that are no boards.
inline const QString kAllBoards = QStringLiteral("All");
inline const QString kFocusBoard = QStringLiteral("Focus");

enum class TagFilter { Off, On };

struct BoardFilter {
  QString selectedBoard = kAllBoards;
  QString search{};                     // as typed: blanks count
  TagFilter showTags = TagFilter::Off;  // off: selectedTag has no effect
  TaskTag selectedTag = TaskTag::none;
  std::optional<QString> gitRoot{};     // of the current context; its notes come first
  bool operator==(const BoardFilter&) const = default;
};

/// Newest first; notes of one moment by their ids, so that the order is the same at each draw.
[[nodiscard]] TaskList newestFirst(TaskList tasks);

/// The notes of the filter's board, search and tag, whatever their state.
[[nodiscard]] TaskList matchingTasks(const TaskList& tasks, const BoardFilter& filter, const Calendar& calendar);
/// The notes on the wall.
[[nodiscard]] TaskList activeTasks(const TaskList& tasks, const BoardFilter& filter, const QDateTime& now,
                                   const Calendar& calendar);
/// Over all boards, whatever the filter.
[[nodiscard]] int completedTasksCount(const TaskList& tasks);
[[nodiscard]] TaskList burnedTasks(const TaskList& tasks);
/// Notes that midnight would turn to ash.
[[nodiscard]] int burnableTonight(const TaskList& tasks);
/// Notes that burned on the day of `now`.
[[nodiscard]] int ashesFromLastNight(const TaskList& tasks, const QDateTime& now, const Calendar& calendar);

struct BurnCountdown {
  int minutes = 0;  // whole ones until the next midnight
  QString label;    // "3 burn in 2h 5m"
  bool isUrgent = false;
  bool operator==(const BurnCountdown&) const = default;
};
[[nodiscard]] BurnCountdown burnCountdown(int count, const QDateTime& now, const Calendar& calendar);
/// "45m", "2h 5m".
[[nodiscard]] QString countdownDuration(int minutes);

/// The tab row: All, Focus, General, then the boards of unfinished notes in order of first use.
[[nodiscard]] QStringList boards(const TaskList& tasks);
/// The tabs followed by those kept without a note: the selected one, one just added.
[[nodiscard]] QStringList withKept(QStringList names, const QStringList& kept);

}  // namespace tarnwick
