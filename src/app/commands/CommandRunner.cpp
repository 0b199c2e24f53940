// SPDX-License-Identifier: MIT
#include "app/commands/CommandRunner.h"

#include "app/commands/CommandReplies.h"
#include "app/commands/NoteOptions.h"
#include "app/commands/SettingsCommand.h"
#include "board/DeskDuties.h"
#include "context/GitRunner.h"
#include "model/UserDefaults.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>

#include <memory>

namespace tarnwick {

using namespace Qt::StringLiterals;
using replies::done;
using replies::failed;
using replies::wrong;

namespace {

struct Words {
  Q_DECLARE_TR_FUNCTIONS(tarnwick::CommandRunner)
};

bool needsRunningProgram(Verb verb) {
  switch (verb) {
    case Verb::Toggle:
    case Verb::Board:
    case Verb::New:
    case Verb::Quit:
    case Verb::Undo:
    case Verb::Tear:
    case Verb::Redock:
    case Verb::Status: return true;
    default: return false;
  }
}

CommandReply runSettings(const CommandLine& line, SettingsCommand settings) {
  const QStringList& words = line.operands;
  if (words.isEmpty()) return done(settings.all().toUtf8());
  if (words.size() == 1) {
    const auto value = settings.value(words[0]);
    if (!value) return wrong(Words::tr("unknown key %1").arg(words[0]));
    return done(value->toUtf8() + '\n');
  }
  if (const auto set = settings.set(words[0], words[1]); !set) {
    return set.error().kind == ErrorKind::Refused ? wrong(set.error().text) : failed(set.error().text);
  }
  return done();
}

}  // namespace

CommandReply CommandRunner::run(const CommandCall& call) {
  const auto parsed = CommandLine::parse(call.arguments);
  if (!parsed) return wrong(parsed.error().text);
  const CommandLine& line = parsed.value();
  if (needsRunningProgram(line.verb) && !m_environment.running) return failed(Words::tr("not running"));
  switch (line.verb) {
    case Verb::Start:
    case Verb::Background: return done();
    case Verb::Open:
      if (m_environment.running) m_environment.running->open(filesOf(line.operands, call.workingDirectory));
      return done();
    case Verb::Version: return done("tarnwick " TARNWICK_VERSION "\n");
    case Verb::Help: return done(helpText(line.helpFor).toUtf8());
    case Verb::Toggle:
    case Verb::Board:
    case Verb::New:
    case Verb::Quit:
    case Verb::Status: return runProgramVerb(line);
    case Verb::Settings:
      return runSettings(line, SettingsCommand(m_environment.defaults, m_environment.center, m_environment.clock));
    case Verb::Add: return add(line, call);
    case Verb::Edit: return edit(line, call);
    default: return runStoreVerb(line, call);
  }
}

CommandReply CommandRunner::runProgramVerb(const CommandLine& line) {
  const RunningProgram& program = *m_environment.running;
  switch (line.verb) {
    case Verb::Toggle: program.toggle(); break;
    case Verb::Board: program.board(); break;
    case Verb::New: program.newNote(); break;
    case Verb::Quit: program.quit(); break;
    default: {
      const StatusReport report = program.status();
      return done(line.has(u"--json"_s) ? statusJson(report, calendar()) : statusText(report, calendar()));
    }
  }
  return done();
}

CommandReply CommandRunner::runStoreVerb(const CommandLine& line, const CommandCall& call) {
  if (const auto fault = valueFault(line)) return wrong(*fault);
  const auto opened = m_environment.services();
  if (!opened) return failed(opened.error().text);
  const BoardServices& services = *opened.value();
  switch (line.verb) {
    case Verb::List: return list(line, services);
    case Verb::Show: return show(line, services);
    case Verb::Crush: return crush(line, services);
    case Verb::Undo: return undoLastCrush(services) ? done() : failed(Words::tr("there is nothing to undo"));
    case Verb::Check: return check(line, services);
    case Verb::Revive: return revive(line, services);
    case Verb::Sweep: return sweep(services);
    case Verb::Tear:
    case Verb::Redock: return tear(line, services);
    case Verb::Export: return exportNotes(line, call, services);
    default: return importNotes(line, call, services);
  }
}

Calendar CommandRunner::calendar() const { return Calendar::of(m_environment.clock); }

Result<void> CommandRunner::findRepository(const NoteOptions& options, const CommandCall& call, NoteExtras& extras) {
  if (!options.repositoryFolder) return {};
  const QString folder = QDir(call.workingDirectory).absoluteFilePath(*options.repositoryFolder);
  const auto root = git({u"-C"_s, folder, u"rev-parse"_s, u"--show-toplevel"_s});
  if (!root) {
    return Error{ErrorKind::NotFound, Words::tr("%1 is inside no repository").arg(*options.repositoryFolder)};
  }
  extras.gitRepoPath = *root;
  extras.gitBranch = git({u"-C"_s, *root, u"branch"_s, u"--show-current"_s}).value_or(QString());
  return {};
}

std::optional<QString> CommandRunner::git(const QStringList& arguments) {
  struct Wait {
    QEventLoop loop;
    std::optional<QString> answer;
    bool isOver = false;
  };
  const auto wait = std::make_shared<Wait>();
  m_environment.git.run(arguments, [wait](std::optional<QString> answer) {
    wait->answer = std::move(answer);
    wait->isOver = true;
    wait->loop.quit();
  });
  // The reply has to wait for git, the rest of the program has not.
  if (!wait->isOver) wait->loop.exec(QEventLoop::ExcludeUserInputEvents);
  return wait->answer;
}

}  // namespace tarnwick
