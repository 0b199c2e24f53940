// SPDX-License-Identifier: MIT
// The installed applications, from the desktop entries in the data folders. Files are listed at the first question and
// read one by one as they are needed; a folder that changed is listed again.
#pragma once

#include <QDateTime>
#include <QHash>
#include <QLocale>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

namespace tarnwick {

struct DesktopEntry {
  QString id;    // file name without suffix, folders below applications/ joined by '-'
  QString name;  // in the user's language
  QString icon;  // name in the icon theme, or a path
  QString windowClass;
  QStringList categories;
  bool isHidden = false;
};

/// The main group of a desktop file; nothing when it is no application's.
[[nodiscard]] std::optional<DesktopEntry> parseDesktopEntry(const QByteArray& text, const QString& id, const QLocale& locale);

/// $XDG_DATA_HOME and $XDG_DATA_DIRS, best first.
[[nodiscard]] QStringList xdgDataFolders();

class DesktopEntries final {
 public:
  explicit DesktopEntries(QStringList dataFolders = xdgDataFolders());

  [[nodiscard]] const DesktopEntry* byId(const QString& id) const;
  /// By what a window says of itself: file name, then StartupWMClass, then the last component of a reversed-domain name.
  [[nodiscard]] const DesktopEntry* byWindowClass(const QString& instance, const QString& windowClass) const;

 private:
  void listAgainIfChanged() const;
  const DesktopEntry* read(const QString& id) const;

  QStringList m_folders;
  mutable QMap<QString, QString> m_files;  // id -> path
  mutable QHash<QString, std::optional<DesktopEntry>> m_entries;
  mutable QHash<QString, QDateTime> m_listedAt;
  mutable bool m_isListed = false;
};

}  // namespace tarnwick
