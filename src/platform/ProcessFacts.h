// SPDX-License-Identifier: MIT
// What a running process was started with.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace tarnwick {

struct ProcessFacts {
  QString workingFolder;  // empty when it cannot be read
  QStringList arguments;  // without the program itself
};

using ProcessReader = std::function<ProcessFacts(qint64 pid)>;

/// For desktops that do not let one read processes.
[[nodiscard]] inline ProcessFacts noProcessFacts(qint64) { return {}; }

}  // namespace tarnwick
