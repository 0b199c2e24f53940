// SPDX-License-Identifier: MIT
// What an editor keeps of the folders and files it had open: the place to look a project's name in a title up.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tarnwick {

struct UserFolders {
  QString home;
  QString config;
  QString data;

  [[nodiscard]] static UserFolders current();
};

/// Absolute paths of the editor's list, in its order; none for an editor that keeps none. Reads at most a megabyte.
[[nodiscard]] QStringList recentPaths(const QString& bundleID, const UserFolders& folders);

/// Paths and file URLs in a text of any format: lists, XML, JSON. Without doubles, a few hundred at most.
[[nodiscard]] QStringList pathsIn(const QByteArray& text, const QString& home);

}  // namespace tarnwick
