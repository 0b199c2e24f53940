// SPDX-License-Identifier: MIT
// Names and icons of applications by identifier, running or not, and the identifier of a process.
#pragma once

#include "linux/xdg/DesktopEntries.h"
#include "linux/xdg/ProcessEntry.h"

#include <QHash>
#include <QIcon>

#include <utility>

namespace tarnwick {

/// What a window says of the application it belongs to; each may be empty.
struct WindowNames {
  QString desktopId;
  QString instance;
  QString windowClass;
};

class AppCatalog final {
 public:
  explicit AppCatalog(ProcessEntry processes = ProcessEntry(), DesktopEntries entries = DesktopEntries());

  /// The identifier itself and a null icon for an application that is not installed.
  [[nodiscard]] std::pair<QString, QIcon> identity(const QString& id) const;
  /// The entry of a process with a window of those names; null when no entry fits.
  [[nodiscard]] const DesktopEntry* entryOf(qint64 pid, const WindowNames& names) const;

 private:
  ProcessEntry m_processes;
  DesktopEntries m_entries;
  mutable QHash<QString, QIcon> m_icons;
};

}  // namespace tarnwick
