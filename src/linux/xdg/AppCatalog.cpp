// SPDX-License-Identifier: MIT
#include "linux/xdg/AppCatalog.h"

#include <QFile>
#include <QFileInfo>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostEnvironment = 1 << 20;

QByteArray readProcessFile(qint64 pid, const char* name) {
  QFile file(QStringLiteral("/proc/%1/%2").arg(pid).arg(QLatin1String(name)));
  return file.open(QIODevice::ReadOnly) ? file.read(kMostEnvironment) : QByteArray();
}

/// The launcher's own word for which entry it started; inherited by children, hence the check of the process.
QString idFromLauncher(qint64 pid) {
  QByteArray file;
  qint64 launched = 0;
  for (const auto& variable : readProcessFile(pid, "environ").split('\0')) {
    if (variable.startsWith("GIO_LAUNCHED_DESKTOP_FILE=")) file = variable.mid(26);
    if (variable.startsWith("GIO_LAUNCHED_DESKTOP_FILE_PID=")) launched = variable.mid(30).toLongLong();
  }
  if (launched != pid || !file.endsWith(".desktop")) return {};
  return QFileInfo(QString::fromUtf8(file)).completeBaseName();
}

QString idFromSandbox(qint64 pid) {
  for (const auto& line : readProcessFile(pid, "root/.flatpak-info").split('\n')) {
    if (line.startsWith("name=")) return QString::fromUtf8(line.mid(5).trimmed());
  }
  return {};
}

}  // namespace

AppCatalog::AppCatalog() {
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

const DesktopEntry* AppCatalog::entryOf(qint64 pid, const QString& instance, const QString& windowClass) const {
  if (pid > 0) {
    if (const auto* entry = m_entries.byId(idFromLauncher(pid))) return entry;
    if (const auto* entry = m_entries.byId(idFromSandbox(pid))) return entry;
  }
  return m_entries.byWindowClass(instance, windowClass);
}

}  // namespace tarnwick
