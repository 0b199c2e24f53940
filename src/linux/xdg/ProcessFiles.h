// SPDX-License-Identifier: MIT
// The process file system, as far as it lets us read about other processes.
#pragma once

#include "platform/ProcessFacts.h"

#include <QByteArray>
#include <QString>

namespace tarnwick {

inline const QString kProcessFolder = QStringLiteral("/proc");

/// A file of a process, at most a megabyte of it; empty when it cannot be read.
[[nodiscard]] QByteArray processFile(qint64 pid, const char* name, const QString& processFolder = kProcessFolder);

[[nodiscard]] ProcessFacts processFacts(qint64 pid);

}  // namespace tarnwick
