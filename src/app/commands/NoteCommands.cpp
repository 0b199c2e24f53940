// SPDX-License-Identifier: MIT
// The verbs on single notes.
#include "app/commands/CommandReplies.h"
#include "app/commands/CommandRunner.h"
#include "app/commands/NoteOptions.h"
#include "app/commands/NoteText.h"
#include "board/Ashes.h"
#include "board/BoardQueries.h"
#include "board/NoteCrush.h"
#include "board/TornNotes.h"
#include "exchange/JsonExchange.h"
#include "model/NotificationCenter.h"
#include "model/StickyChecklist.h"
#include "model/store/ModelContainer.h"
#include "platform/Clock.h"

#include <QCoreApplication>

namespace tarnwick {

using namespace Qt::StringLiterals;
using replies::done;
using replies::failed;
using replies::wrong;

namespace {

struct Words {
  Q_DECLARE_TR_FUNCTIONS(tarnwick::CommandRunner)
};

QString isOver(const Task& task) {
  return task.isBurned() ? Words::tr("the note %1 is burned").arg(idText(task.id()))
                         : Words::tr("the note %1 is finished").arg(idText(task.id()));
}

}  // namespace

CommandReply CommandRunner::add(const CommandLine& line, const CommandCall& call) {
  const auto options = NoteOptions::parse(line, m_environment.clock.now(), calendar());
  if (!options) return wrong(options.error().text);
  QString text = line.operands.front();
  if (text == u"-") {
    const auto input = CommandLine::decode(call.standardInput);
    if (!input) return wrong(Words::tr("standard input is not valid UTF-8 text"));
    text = *input;
  }
  if (NoteEditing::trimmed(text).isEmpty()) return wrong(Words::tr("TEXT is blank"));
  if (line.has(u"--tear"_s) && !m_environment.running) return failed(Words::tr("--tear: not running"));

  const auto opened = m_environment.services();
  if (!opened) return failed(opened.error().text);
  const BoardServices& services = *opened.value();
  NoteDraft draft = NoteDraft::forNewNote(services.defaults);
  NoteExtras extras;
  draft.text = text;
  options.value().applyTo(draft, extras);
  if (const auto found = findRepository(options.value(), call, extras); !found) return failed(found.error().text);
  NoteEditing editing(services);
  const auto created = editing.create(draft, extras);
  if (!created) return failed(created.error().text);
  if (m_environment.running && !line.has(u"--no-tear"_s)) editing.stick(created.value());
  return done(idText(created.value()->id()).toLatin1() + '\n');
}

CommandReply CommandRunner::edit(const CommandLine& line, const CommandCall& call) {
  const auto options = NoteOptions::parse(line, m_environment.clock.now(), calendar());
  if (!options) return wrong(options.error().text);
  const auto opened = m_environment.services();
  if (!opened) return failed(opened.error().text);
  const BoardServices& services = *opened.value();
  NoteExtras extras;
  extras.unchanged = NoteExtras::Unchanged::Keep;
  // Looked up first: while git runs, the note may change under the user's hands.
  if (const auto found = findRepository(options.value(), call, extras); !found) return failed(found.error().text);
  const auto found = findNote(services.container.mainContext(), line.operands.front());
  if (!found) return failed(found.error().text);
  Task& task = *found.value();
  NoteDraft draft = NoteDraft::of(task);
  options.value().applyTo(draft, extras);
  const auto saved = NoteEditing(services).save(task, draft, extras);
  if (!saved) return failed(saved.error().text);
  if (!saved.value()) return failed(Words::tr("the note %1 has no text").arg(idText(task.id())));
  return done();
}

CommandReply CommandRunner::show(const CommandLine& line, const BoardServices& services) const {
  const auto found = findNote(services.container.mainContext(), line.operands.front());
  if (!found) return failed(found.error().text);
  const TaskRecord& record = found.value()->record();
  return done(line.has(u"--json"_s) ? JsonExchange::note(record, calendar()) : noteLines(record, calendar()).toUtf8());
}

CommandReply CommandRunner::crush(const CommandLine& line, const BoardServices& services) const {
  const auto found = findNote(services.container.mainContext(), line.operands.front());
  if (!found) return failed(found.error().text);
  Task& task = *found.value();
  if (task.isCompleted() || task.isBurned()) return failed(isOver(task));
  if (const auto crushed = crushAtOnce(services, task); !crushed) return failed(crushed.error().text);
  return done();
}

CommandReply CommandRunner::check(const CommandLine& line, const BoardServices& services) const {
  ModelContext& context = services.container.mainContext();
  const auto found = findNote(context, line.operands[0]);
  if (!found) return failed(found.error().text);
  Task& task = *found.value();
  bool isNumber = false;
  const int index = line.operands[1].toInt(&isNumber);
  const QStringList lines = StickyChecklist::lines(task.text());
  if (!isNumber || index >= lines.size()) return failed(Words::tr("the note has no line %1").arg(line.operands[1]));
  if (!StickyChecklist::isChecklistLine(lines[index])) {
    return failed(Words::tr("line %1 has no checkbox").arg(line.operands[1]));
  }
  const TaskRecord before = task.record();
  task.set(&TaskRecord::text, StickyChecklist::toggle(task.text(), index));
  if (const auto saved = context.save(); !saved) {
    task.restore(before);
    return failed(saved.error().text);
  }
  Q_EMIT services.center.taskDidUpdate(task.id());
  return done();
}

CommandReply CommandRunner::revive(const CommandLine& line, const BoardServices& services) const {
  ModelContext& context = services.container.mainContext();
  TaskList notes;
  if (line.has(u"--all"_s)) notes = burnedTasks(newestFirst(context.fetchTasks()));
  for (const QString& word : line.operands) {
    const auto found = findNote(context, word);
    if (!found) return failed(found.error().text);
    if (!found.value()->isBurned()) return failed(Words::tr("the note %1 is not burned").arg(word));
    if (std::ranges::find(notes, found.value()) == notes.end()) notes.push_back(found.value());
  }
  const auto revived = reviveNotes(context, notes, services.reminders, services.clock.now());
  return revived ? done() : failed(revived.error().text);
}

CommandReply CommandRunner::sweep(const BoardServices& services) const {
  ModelContext& context = services.container.mainContext();
  const auto swept = sweepNotes(context, burnedTasks(context.fetchTasks()), services.torn ? services.torn() : nullptr,
                                services.defaults);
  return swept ? done() : failed(swept.error().text);
}

CommandReply CommandRunner::tear(const CommandLine& line, const BoardServices& services) const {
  const auto found = findNote(services.container.mainContext(), line.operands.front());
  if (!found) return failed(found.error().text);
  const TaskPtr& task = found.value();
  TornNotes* const torn = services.torn ? services.torn() : nullptr;
  if (!torn) return failed(Words::tr("not running"));
  if (line.verb == Verb::Redock) {
    torn->redockTask(task);
    return done();
  }
  if (task->isCompleted() || task->isBurned()) return failed(isOver(*task));
  torn->tearOffTask(task, std::nullopt);
  return done();
}

}  // namespace tarnwick
