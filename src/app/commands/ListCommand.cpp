// SPDX-License-Identifier: MIT
// `list`, and what is wrong with the values of the verbs that only read or move notes.
#include "app/commands/CommandReplies.h"
#include "app/commands/CommandRunner.h"
#include "app/commands/NoteText.h"
#include "board/BoardQueries.h"
#include "context/ContextEngine.h"
#include "exchange/Exchange.h"
#include "exchange/JsonExchange.h"
#include "model/store/ModelContainer.h"
#include "platform/Clock.h"

#include <QCoreApplication>

#include <algorithm>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

struct Words {
  Q_DECLARE_TR_FUNCTIONS(tarnwick::CommandRunner)
};

const QStringList& states() {
  static const QStringList words{u"active"_s, u"sleeping"_s, u"completed"_s, u"burned"_s, u"all"_s};
  return words;
}

bool isIn(const QString& state, const Task& task, const QDateTime& tomorrow) {
  if (state == u"sleeping") return !task.isCompleted() && !task.isBurned() && task.isSleeping(tomorrow);
  if (state == u"completed") return task.isCompleted();
  if (state == u"burned") return task.isBurned();
  return true;
}

bool isLineNumber(const QString& word) {
  return !word.isEmpty() && std::ranges::all_of(word, [](QChar unit) { return unit >= u'0' && unit <= u'9'; });
}

}  // namespace

std::optional<QString> CommandRunner::valueFault(const CommandLine& line) {
  const auto noValue = [](const QString& value, const QString& option) {
    return Words::tr("%1 is no value for %2").arg(value, option);
  };
  if (const auto state = line.value(u"--state"_s); state && !states().contains(*state)) {
    return noValue(*state, u"--state"_s);
  }
  if (const auto tag = line.value(u"--tag"_s); tag && !fromRawValue<TaskTag>(*tag)) return noValue(*tag, u"--tag"_s);
  if (const auto format = line.value(u"--format"_s); format && !exchangeFormatFromName(*format)) {
    return noValue(*format, u"--format"_s);
  }
  if (line.verb == Verb::Check && !isLineNumber(line.operands[1])) {
    return Words::tr("%1 is no line number").arg(line.operands[1]);
  }
  for (const auto& option : {u"--output"_s, u"--board"_s}) {
    if (const auto value = line.value(option); value && value->trimmed().isEmpty()) {
      return Words::tr("the value of %1 is blank").arg(option);
    }
  }
  return std::nullopt;
}

CommandReply CommandRunner::list(const CommandLine& line, const BoardServices& services) const {
  const QDateTime now = services.clock.now();
  const Calendar calendar = Calendar::of(services.clock);
  BoardFilter filter;
  filter.selectedBoard = line.value(u"--board"_s).value_or(kAllBoards);
  filter.search = line.value(u"--search"_s).value_or(QString());
  if (const auto tag = line.value(u"--tag"_s)) {
    filter.showTags = TagFilter::On;
    filter.selectedTag = fromRawValue<TaskTag>(*tag).value_or(TaskTag::none);
  }
  const QString state = line.value(u"--state"_s).value_or(states().front());
  TaskList notes = newestFirst(services.container.mainContext().fetchTasks());
  if (state == states().front()) {
    filter.gitRoot = services.context.snapshot().gitRoot;
    notes = activeTasks(notes, filter, now, calendar);
  } else {
    const QDateTime tomorrow = Task::startOfTomorrow(now, calendar);
    notes = matchingTasks(notes, filter, calendar);
    std::erase_if(notes, [&](const TaskPtr& note) { return !isIn(state, *note, tomorrow); });
  }

  if (!line.has(u"--json"_s)) {
    QByteArray lines;
    for (const TaskPtr& note : notes) lines += listLine(*note, now, calendar).toUtf8() + '\n';
    return replies::done(lines);
  }
  std::vector<TaskRecord> records;
  for (const TaskPtr& note : notes) records.push_back(note->record());
  return replies::done(JsonExchange::list(records, calendar));
}

}  // namespace tarnwick
