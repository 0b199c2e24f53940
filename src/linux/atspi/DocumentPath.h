// SPDX-License-Identifier: MIT
// Which file a window shows, as far as its title and its process tell: editors publish it nowhere else.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace tarnwick {

struct DocumentClues {
  QString title;
  QStringList commandLine;  // without the program
  QString workingDirectory;
  QString home;
};

enum class PathKind { None, File, Folder };
using PathProbe = std::function<PathKind(const QString& path)>;

/// The first path that exists. For a folder alone the path ends in "/.", so that its last component can be cut off as
/// that of a file.
[[nodiscard]] std::optional<QString> documentFromClues(const DocumentClues& clues, const PathProbe& probe);

/// Clues of a running process; the title is the caller's.
[[nodiscard]] DocumentClues cluesOfProcess(qint64 pid, const QString& title);
[[nodiscard]] PathKind pathKindOnDisk(const QString& path);

}  // namespace tarnwick
