// SPDX-License-Identifier: MIT
// What a running process was started with, as far as the process file system lets us read it.
#pragma once

#include <QString>
#include <QStringList>

namespace tarnwick {

struct ProcessFacts {
  QString workingFolder;  // empty when it cannot be read
  QStringList arguments;  // without the program itself
};

[[nodiscard]] ProcessFacts processFacts(qint64 pid);

}  // namespace tarnwick
