// SPDX-License-Identifier: MIT
#include "linux/xdg/ProcessEntry.h"

#include "linux/xdg/ProcessFiles.h"

#include <QFileInfo>

namespace tarnwick {

ProcessEntry::ProcessEntry() : m_folder(kProcessFolder) {}

QString ProcessEntry::certain(qint64 pid) const {
  if (pid <= 0) return {};
  if (const auto launch = launchOf(pid); launch.pid == pid) return launch.id;
  if (const auto id = flatpak(pid); !id.isEmpty()) return id;
  return snap(pid);
}

QString ProcessEntry::ofWrapper(qint64 pid) const {
  if (pid <= 0) return {};
  const auto launch = launchOf(pid);
  return launch.pid > 0 && launch.pid == parentOf(pid) ? launch.id : QString();
}

QByteArray ProcessEntry::read(qint64 pid, const char* name) const {
  return processFile(pid, name, m_folder);
}

/// Every child inherits these variables, hence the process number in them.
ProcessEntry::Launch ProcessEntry::launchOf(qint64 pid) const {
  QByteArray file;
  Launch launch;
  for (const auto& variable : read(pid, "environ").split('\0')) {
    if (variable.startsWith("GIO_LAUNCHED_DESKTOP_FILE=")) file = variable.mid(26);
    if (variable.startsWith("GIO_LAUNCHED_DESKTOP_FILE_PID=")) launch.pid = variable.mid(30).toLongLong();
  }
  if (!file.endsWith(".desktop")) return {};
  launch.id = QFileInfo(QString::fromUtf8(file)).completeBaseName();
  return launch;
}

qint64 ProcessEntry::parentOf(qint64 pid) const {
  const auto stat = read(pid, "stat");
  // "12 (a name, with ) in it) S 11 ..."
  const auto end = stat.lastIndexOf(')');
  return end < 0 ? 0 : stat.mid(end + 1).simplified().split(' ').value(1).toLongLong();
}

QString ProcessEntry::flatpak(qint64 pid) const {
  bool isApplication = false;
  for (const auto& line : read(pid, "root/.flatpak-info").split('\n')) {
    if (line.startsWith('[')) isApplication = line.trimmed() == "[Application]";
    if (isApplication && line.startsWith("name=")) return QString::fromUtf8(line.mid(5).trimmed());
  }
  return {};
}

/// The confinement's label "snap.NAME.APP (enforce)"; its entries are named "NAME_APP".
QString ProcessEntry::snap(qint64 pid) const {
  const auto label = QString::fromUtf8(read(pid, "attr/current")).section(u' ', 0, 0).trimmed();
  const auto parts = label.split(u'.');
  if (parts.size() != 3 || parts[0] != u"snap" || parts[1].isEmpty() || parts[2].isEmpty()) return {};
  return parts[1] + u'_' + parts[2];
}

}  // namespace tarnwick
