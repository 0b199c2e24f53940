// SPDX-License-Identifier: MIT
#include "linux/xdg/XdgAutostartLoginItem.h"

#include "platform/Workspace.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

/// A word of an Exec line: quoted, with what is special between quotes escaped, once for the word and once for the line.
QString execWord(const QString& word) {
  QString quoted;
  for (const QChar c : word) {
    if (c == u'"' || c == u'`' || c == u'$') quoted += u"\\\\";
    if (c == u'\\') quoted += u"\\\\\\";
    if (c == u'%') quoted += u'%';
    quoted += c;
  }
  return u'"' + quoted + u'"';
}

Error failure(const QFileDevice& file) { return {ErrorKind::Failed, file.errorString()}; }

}  // namespace

XdgAutostartLoginItem::XdgAutostartLoginItem(QString command) : m_command(std::move(command)) {}

LoginItemStatus XdgAutostartLoginItem::status() const {
  QFile file(path());
  if (!file.open(QIODevice::ReadOnly)) return LoginItemStatus::NotRegistered;
  const auto text = file.read(1 << 16);
  // Session tools switch an entry off by a line in it.
  const bool isOff = text.contains("\nHidden=true") || text.contains("\nX-GNOME-Autostart-enabled=false");
  return isOff ? LoginItemStatus::NotRegistered : LoginItemStatus::Enabled;
}

Result<void> XdgAutostartLoginItem::registerItem() {
  const auto file = path();
  if (!QDir().mkpath(QFileInfo(file).path())) {
    return Error{ErrorKind::NotPermitted, QCoreApplication::translate("LoginItem", "The autostart folder cannot be made.")};
  }
  QSaveFile entry(file);
  if (!entry.open(QIODevice::WriteOnly)) return failure(entry);
  entry.write(QStringLiteral("[Desktop Entry]\n"
                             "Type=Application\n"
                             "Name=Tarnwick\n"
                             "Icon=%1\n"
                             "Exec=%2 --background\n"
                             "NoDisplay=true\n"
                             "X-GNOME-Autostart-enabled=true\n"
                             "X-KDE-autostart-after=panel\n")
                  .arg(kApplicationID, execWord(m_command))
                  .toUtf8());
  if (!entry.commit()) return failure(entry);
  return {};
}

Result<void> XdgAutostartLoginItem::unregisterItem() {
  QFile entry(path());
  if (!entry.exists()) return {};
  if (!entry.remove()) return failure(entry);
  return {};
}

QString XdgAutostartLoginItem::defaultCommand() {
  const QDir folder(QCoreApplication::applicationDirPath());
  for (const auto& candidate : {QStringLiteral("tarnwick"), QStringLiteral("../bin/tarnwick"), QStringLiteral("../../bin/tarnwick")}) {
    if (QFileInfo::exists(folder.filePath(candidate))) return QDir::cleanPath(folder.filePath(candidate));
  }
  const auto installed = QStandardPaths::findExecutable(QStringLiteral("tarnwick"));
  return installed.isEmpty() ? QCoreApplication::applicationFilePath() : installed;
}

QString XdgAutostartLoginItem::path() {
  auto folder = qEnvironmentVariable("XDG_CONFIG_HOME");
  if (folder.isEmpty()) folder = QDir::homePath() + u"/.config"_s;
  return folder + u"/autostart/"_s + kApplicationID + u".desktop"_s;
}

}  // namespace tarnwick
