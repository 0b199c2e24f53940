// SPDX-License-Identifier: MIT
#include "app/StoreLocation.h"

#include "platform/Workspace.h"

#include <QDir>
#include <QStandardPaths>

namespace tarnwick {
namespace {

QString inFolder(QStandardPaths::StandardLocation location, const QString& file) {
  QString base = QStandardPaths::writableLocation(location);
  if (base.isEmpty()) base = QDir::tempPath();
  return base + u'/' + kApplicationID + u'/' + file;
}

}  // namespace

QString persistentStorePath() {
  return inFolder(QStandardPaths::GenericDataLocation, QStringLiteral("Tarnwick.store"));
}

QString settingsPath() { return inFolder(QStandardPaths::GenericConfigLocation, QStringLiteral("settings.json")); }

}  // namespace tarnwick
