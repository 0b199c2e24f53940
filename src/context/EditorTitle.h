// SPDX-License-Identifier: MIT
// The folder that an editor works in, read out of its window title: most editors say nothing else to other programs.
// Pure: what exists on disk and what the process was started with is handed in.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace tarnwick {

enum class PathKind { None, File, Folder };
/// What is at an absolute path.
using PathProbe = std::function<PathKind(const QString& path)>;

/// What an editor's process can tell about names in its titles.
struct EditorProcess {
  QString applicationName;  // as it may end the title
  QString workingFolder;    // empty when unknown
  QStringList arguments;    // without the program itself
  QString home;
  /// Paths that the editor had open, asked for only when a name has to be looked up.
  std::function<QStringList()> recentPaths = {};
};

/// The texts between a title's separators and brackets, without marks of unsaved changes and without the application's
/// name, in reading order. Paths that hold a separator themselves come first, whole.
[[nodiscard]] QStringList titlePieces(const QString& title, const QString& applicationName);

/// Folder of the document that the title names, else the folder it names; checked to exist. Nothing rather than a guess
/// that the title contradicts.
[[nodiscard]] std::optional<QString> folderFromTitle(const QString& title, const EditorProcess& process,
                                                     const PathProbe& probe);

/// The real file system.
[[nodiscard]] PathKind probePath(const QString& path);

}  // namespace tarnwick
