// SPDX-License-Identifier: MIT
#include "linux/xdg/ProcessFiles.h"

#include <QFile>

namespace tarnwick {

QByteArray processFile(qint64 pid, const char* name, const QString& processFolder) {
  constexpr qint64 kMostBytes = 1 << 20;
  if (pid < 1) return {};
  QFile file(QStringLiteral("%1/%2/%3").arg(processFolder).arg(pid).arg(QLatin1StringView(name)));
  return file.open(QIODevice::ReadOnly) ? file.read(kMostBytes) : QByteArray();
}

ProcessFacts processFacts(qint64 pid) {
  if (pid < 1) return {};
  ProcessFacts facts;
  facts.workingFolder = QFile::symLinkTarget(QStringLiteral("%1/%2/cwd").arg(kProcessFolder).arg(pid));
  const auto words = processFile(pid, "cmdline").split('\0');
  for (const auto& word : words.mid(1)) {
    if (!word.isEmpty()) facts.arguments.append(QFile::decodeName(word));
  }
  return facts;
}

}  // namespace tarnwick
