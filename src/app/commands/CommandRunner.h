// SPDX-License-Identifier: MIT
// Carries out the command line's verbs: over the running program, or over a store opened for one command.
// Nothing has changed when the exit status is not 0.
#pragma once

#include "app/StatusReport.h"
#include "app/commands/CommandLine.h"
#include "board/BoardServices.h"
#include "model/Task.h"
#include "platform/Instance.h"
#include "platform/Result.h"

#include <functional>
#include <optional>

namespace tarnwick {

class GitRunner;
class NotificationCenter;
struct NoteExtras;
struct NoteOptions;

/// The verbs that only a running program has. `quit` must let the reply go out first.
struct RunningProgram {
  std::function<void()> toggle;
  std::function<void()> board;
  std::function<void()> newNote;
  std::function<void(const QStringList& paths)> open;
  std::function<void()> quit;
  std::function<StatusReport()> status;
};

struct CommandEnvironment {
  UserDefaults& defaults;
  NotificationCenter& center;
  const Clock& clock;
  GitRunner& git;
  /// Asked for by verbs on the store only; may open it. Never null when it succeeds.
  std::function<Result<const BoardServices*>()> services;
  std::optional<RunningProgram> running;
};

class CommandRunner final {
 public:
  explicit CommandRunner(CommandEnvironment environment) : m_environment(std::move(environment)) {}

  [[nodiscard]] CommandReply run(const CommandCall& call);

 private:
  [[nodiscard]] CommandReply runProgramVerb(const CommandLine& line);
  [[nodiscard]] CommandReply runStoreVerb(const CommandLine& line, const CommandCall& call);
  [[nodiscard]] CommandReply add(const CommandLine& line, const CommandCall& call);
  [[nodiscard]] CommandReply edit(const CommandLine& line, const CommandCall& call);
  [[nodiscard]] CommandReply list(const CommandLine& line, const BoardServices& services) const;
  [[nodiscard]] CommandReply show(const CommandLine& line, const BoardServices& services) const;
  [[nodiscard]] CommandReply crush(const CommandLine& line, const BoardServices& services) const;
  [[nodiscard]] CommandReply check(const CommandLine& line, const BoardServices& services) const;
  [[nodiscard]] CommandReply revive(const CommandLine& line, const BoardServices& services) const;
  [[nodiscard]] CommandReply sweep(const BoardServices& services) const;
  [[nodiscard]] CommandReply tear(const CommandLine& line, const BoardServices& services) const;
  [[nodiscard]] CommandReply exportNotes(const CommandLine& line, const CommandCall& call,
                                         const BoardServices& services) const;
  [[nodiscard]] CommandReply importNotes(const CommandLine& line, const CommandCall& call,
                                         const BoardServices& services) const;

  /// What is wrong with the words' values, for the verbs other than add and edit.
  [[nodiscard]] static std::optional<QString> valueFault(const CommandLine& line);
  [[nodiscard]] Calendar calendar() const;
  /// Looks the repository up with git and puts it among the extras.
  [[nodiscard]] Result<void> findRepository(const NoteOptions& options, const CommandCall& call, NoteExtras& extras);
  [[nodiscard]] std::optional<QString> git(const QStringList& arguments);

  CommandEnvironment m_environment;
};

}  // namespace tarnwick
