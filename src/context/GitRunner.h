// SPDX-License-Identifier: MIT
// Runs git on a serial queue: one child process at a time, answers on the main thread.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace tarnwick {

class GitRunner {
 public:
  /// Trimmed standard output; nothing for a failure, a non-zero exit, output that is not UTF-8, or none.
  using Answer = std::function<void(std::optional<QString>)>;

  virtual ~GitRunner() = default;
  virtual void run(const QStringList& arguments, Answer answer) = 0;
};

}  // namespace tarnwick
