// SPDX-License-Identifier: MIT
#include "board/BoardQueries.h"

#include "board/Ashes.h"
#include "board/TextSearch.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>

#include <algorithm>

namespace tarnwick {

namespace {

constexpr int kUrgentMinutes = 119;

struct Words {
  Q_DECLARE_TR_FUNCTIONS(tarnwick::BoardQueries)
};

bool isOnBoard(const Task& task, const QString& board) {
  if (board == kFocusBoard) return task.isDaily3();
  return board == kAllBoards || task.board() == board;
}

int count(const TaskList& tasks, bool (*isCounted)(const Task&)) {
  return static_cast<int>(std::ranges::count_if(tasks, [&](const TaskPtr& task) { return isCounted(*task); }));
}

}  // namespace

TaskList newestFirst(TaskList tasks) {
  struct Key {
    qint64 createdAt;  // read once: comparing dates is dear when there are many
    size_t index;
  };
  std::vector<Key> order;
  order.reserve(tasks.size());
  for (size_t i = 0; i < tasks.size(); ++i) order.push_back({tasks[i]->record().createdAt.toMSecsSinceEpoch(), i});
  std::ranges::sort(order, [&tasks](const Key& a, const Key& b) {
    if (a.createdAt != b.createdAt) return a.createdAt > b.createdAt;
    return tasks[a.index]->id() < tasks[b.index]->id();
  });
  TaskList sorted;
  sorted.reserve(tasks.size());
  for (const Key& key : order) sorted.push_back(std::move(tasks[key.index]));
  return sorted;
}

TaskList matchingTasks(const TaskList& tasks, const BoardFilter& filter, const Calendar& calendar) {
  const TextSearch search(filter.search, calendar.locale());
  const bool isTagFiltered = filter.showTags == TagFilter::On && filter.selectedTag != TaskTag::none;
  TaskList matching;
  for (const TaskPtr& task : tasks) {
    if (!isOnBoard(*task, filter.selectedBoard) || !search.isIn(task->text())) continue;
    if (isTagFiltered && task->tag() != filter.selectedTag) continue;
    matching.push_back(task);
  }
  return matching;
}

TaskList activeTasks(const TaskList& tasks, const BoardFilter& filter, const QDateTime& now, const Calendar& calendar) {
  const QDateTime tomorrow = Task::startOfTomorrow(now, calendar);
  TaskList shown;
  std::ranges::copy_if(tasks, std::back_inserter(shown), [&](const TaskPtr& task) {
    return !task->isCompleted() && !task->isBurned() && !task->isSleeping(tomorrow);
  });
  shown = matchingTasks(shown, filter, calendar);
  if (filter.gitRoot) {
    std::ranges::stable_partition(shown, [&](const TaskPtr& task) { return task->record().gitRepoPath == filter.gitRoot; });
  }
  return shown;
}

int completedTasksCount(const TaskList& tasks) {
  return count(tasks, [](const Task& task) { return task.isCompleted(); });
}

TaskList burnedTasks(const TaskList& tasks) {
  TaskList burned;
  std::ranges::copy_if(tasks, std::back_inserter(burned), [](const TaskPtr& task) { return task->isBurned(); });
  return burned;
}

int burnableTonight(const TaskList& tasks) { return count(tasks, isBurnable); }

int ashesFromLastNight(const TaskList& tasks, const QDateTime& now, const Calendar& calendar) {
  const QDate today = calendar.day(now);
  const QDateTime start = calendar.startOfDay(today);
  const QDateTime end = calendar.startOfDay(today.addDays(1));
  return static_cast<int>(std::ranges::count_if(tasks, [&](const TaskPtr& task) {
    const auto& burnedAt = task->record().burnedAt;
    return task->isBurned() && burnedAt && *burnedAt >= start && *burnedAt < end;
  }));
}

QString countdownDuration(int minutes) {
  if (minutes < 60) return Words::tr("%1m").arg(minutes);
  return Words::tr("%1h %2m").arg(minutes / 60).arg(minutes % 60);
}

BurnCountdown burnCountdown(int count, const QDateTime& now, const Calendar& calendar) {
  const QDateTime midnight = calendar.startOfDay(calendar.day(now).addDays(1));
  BurnCountdown countdown;
  countdown.minutes = static_cast<int>(std::max<qint64>(0, now.msecsTo(midnight) / 60000));
  const QString duration = countdownDuration(countdown.minutes);
  countdown.label = (count == 1 ? Words::tr("%1 burns in %2") : Words::tr("%1 burn in %2")).arg(count).arg(duration);
  countdown.isUrgent = countdown.minutes <= kUrgentMinutes;
  return countdown;
}

QStringList boards(const TaskList& tasks, const QStringList& kept) {
  struct Use {
    QString name;
    bool isOpen = false;  // a note on it is neither finished nor burned
  };
  std::vector<Use> uses;  // by first use
  QHash<QString, size_t> places;
  size_t last = 0;
  for (auto task = tasks.rbegin(); task != tasks.rend(); ++task) {
    const QString name = (*task)->board();
    // Notes of one board mostly follow one another.
    if (uses.empty() || uses[last].name != name) {
      const auto found = places.constFind(name);
      last = found == places.cend() ? uses.size() : *found;
      if (last == uses.size()) {
        places.insert(name, last);
        uses.push_back({name});
      }
    }
    uses[last].isOpen = uses[last].isOpen || (!(*task)->isCompleted() && !(*task)->isBurned());
  }
  QStringList names{kAllBoards, kFocusBoard, kDefaultBoard};
  QSet<QString> seen(names.begin(), names.end());
  seen.insert(QString());
  const auto add = [&](const QString& name) {
    if (seen.contains(name)) return;
    seen.insert(name);
    names.append(name);
  };
  for (const Use& use : uses) {
    if (use.isOpen) add(use.name);
  }
  std::ranges::for_each(kept, add);
  return names;
}

}  // namespace tarnwick
