// SPDX-License-Identifier: MIT
// Port: being the one Tarnwick of the session, and hearing from the others.
#pragma once

#include "platform/PortTraits.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>

namespace tarnwick {

struct CommandReply {
  int exitStatus = 0;
  QByteArray output;
  QByteArray error;
};

struct CommandCall {
  QStringList arguments;
  QByteArray standardInput;
  QString workingDirectory;
};

struct InstanceHandlers {
  QString storePath;  // told to whoever asks on the bus (property "StorePath" of app.tarnwick.Tarnwick1): the command talks
                      // only to a program that holds its own store
  std::function<CommandReply(const CommandCall&)> command;
  std::function<void()> reopen;                         // Activate
  std::function<void(const QString& action)> action;    // "toggle-board", "new-note", "settings"
  std::function<void(const QStringList& uris)> open;    // files that a file manager hands over
  std::function<void()> sessionEnds;                    // the session manager or a signal asks to quit
};

enum class InstanceRole { First, Second, NoBus };

class Instance {
 public:
  virtual ~Instance() = default;
  [[nodiscard]] virtual PortTraits traits() const = 0;
  /// Takes the session's name. Second: another Tarnwick with this store has it. NoBus: there is nobody to ask, or somebody
  /// with a store of their own; the store's lock decides.
  [[nodiscard]] virtual InstanceRole acquire(InstanceHandlers handlers) = 0;
  /// Sends a command to the one that has the name.
  [[nodiscard]] virtual CommandReply forward(const CommandCall& call) = 0;
};

}  // namespace tarnwick
