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

template <class Predicate>
TaskList only(const TaskList& tasks, const Predicate& isWanted) {
  TaskList wanted;
  std::ranges::copy_if(tasks, std::back_inserter(wanted), [&](const TaskPtr& task) { return isWanted(*task); });
  return wanted;
}

// Whether a note is on the board, of the tag and with the words that are wanted.
class Match {
 public:
  Match(const BoardFilter& filter, const Calendar& calendar)
      : m_filter(filter),
        m_search(filter.search, calendar.locale()),
        m_isTagged(filter.showTags == TagFilter::On && filter.selectedTag != TaskTag::none) {}

  [[nodiscard]] bool isOf(const Task& task) const {
    if (m_isTagged && task.tag() != m_filter.selectedTag) return false;
    return isOnBoard(task, m_filter.selectedBoard) && m_search.isIn(task.text());
  }

 private:
  const BoardFilter& m_filter;
  TextSearch m_search;
  bool m_isTagged;
};

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
  const Match match(filter, calendar);
  return only(tasks, [&](const Task& task) { return match.isOf(task); });
}

TaskList activeTasks(const TaskList& tasks, const BoardFilter& filter, const QDateTime& now, const Calendar& calendar) {
  const QDateTime tomorrow = Task::startOfTomorrow(now, calendar);
  const Match match(filter, calendar);
  TaskList shown = only(tasks, [&](const Task& task) {
    return !task.isCompleted() && !task.isBurned() && !task.isSleeping(tomorrow) && match.isOf(task);
  });
  if (filter.gitRoot) {
    std::ranges::stable_partition(shown, [&](const TaskPtr& task) { return task->record().gitRepoPath == filter.gitRoot; });
  }
  return shown;
}

int completedTasksCount(const TaskList& tasks) {
  return count(tasks, [](const Task& task) { return task.isCompleted(); });
}

TaskList burnedTasks(const TaskList& tasks) {
  return only(tasks, [](const Task& task) { return task.isBurned(); });
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

QStringList boards(const TaskList& tasks) {
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
  const QSet<QString> reserved{QString(), kAllBoards, kFocusBoard, kDefaultBoard};
  for (const Use& use : uses) {
    if (use.isOpen && !reserved.contains(use.name)) names.append(use.name);
  }
  return names;
}

QStringList withKept(QStringList names, const QStringList& kept) {
  for (const QString& name : kept) {
    if (!name.isEmpty() && !names.contains(name)) names.append(name);
  }
  return names;
}

}  // namespace tarnwick
