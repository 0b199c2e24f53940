// SPDX-License-Identifier: MIT
#include "linux/xdg/AppCatalog.h"

#include <QFileInfo>

namespace tarnwick {

using namespace Qt::StringLiterals;

AppCatalog::AppCatalog(ProcessEntry processes, DesktopEntries entries)
    : m_processes(std::move(processes)), m_entries(std::move(entries)) {
  // Without a desktop's platform theme Qt has no idea of icon themes: applications install theirs in hicolor.
  if (QIcon::fallbackThemeName().isEmpty()) QIcon::setFallbackThemeName(QStringLiteral("hicolor"));
  auto themes = QIcon::themeSearchPaths();
  auto loose = QIcon::fallbackSearchPaths();
  for (const auto& folder : xdgDataFolders()) {
    if (const QString path = folder + u"/icons"_s; !themes.contains(path)) themes.append(path);
    if (const QString path = folder + u"/pixmaps"_s; !loose.contains(path)) loose.append(path);
  }
  QIcon::setThemeSearchPaths(themes);
  QIcon::setFallbackSearchPaths(loose);
}

std::pair<QString, QIcon> AppCatalog::identity(const QString& id) const {
  const auto* entry = m_entries.byId(id);
  if (!entry) return {id, {}};
  auto icon = m_icons.constFind(id);
  if (icon == m_icons.constEnd()) {
    icon = m_icons.insert(id, QFileInfo(entry->icon).isAbsolute() ? QIcon(entry->icon) : QIcon::fromTheme(entry->icon));
  }
  return {entry->name, *icon};
}

const DesktopEntry* AppCatalog::entryOf(qint64 pid, const WindowNames& names) const {
  if (const auto* entry = m_entries.byId(m_processes.certain(pid))) return entry;
  if (const auto* entry = m_entries.byId(names.desktopId)) return entry;
  if (const auto* entry = m_entries.byWindowClass(names.instance, names.windowClass)) return entry;
  return m_entries.byId(m_processes.ofWrapper(pid));
}

}  // namespace tarnwick
