// SPDX-License-Identifier: MIT
#include "context/ProcessFacts.h"

#include <QFile>

namespace tarnwick {

ProcessFacts processFacts(qint64 pid) {
  if (pid < 1) return {};
  const auto folder = QStringLiteral("/proc/%1").arg(pid);
  ProcessFacts facts;
  facts.workingFolder = QFile::symLinkTarget(folder + QStringLiteral("/cwd"));
  QFile commandLine(folder + QStringLiteral("/cmdline"));
  if (commandLine.open(QIODevice::ReadOnly)) {
    constexpr qint64 kEnough = 64 * 1024;
    auto words = commandLine.read(kEnough).split('\0');
    words.removeFirst();
    for (const auto& word : words) {
      if (!word.isEmpty()) facts.arguments.append(QFile::decodeName(word));
    }
  }
  return facts;
}

}  // namespace tarnwick
