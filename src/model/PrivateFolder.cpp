// SPDX-License-Identifier: MIT
#include "model/PrivateFolder.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace tarnwick {

void makePrivateFolder(const QString& path) {
  if (path.isEmpty() || QFileInfo::exists(path)) return;
  const auto parent = QFileInfo(path).path();
  if (parent != path) makePrivateFolder(parent);
  ::mkdir(QFile::encodeName(path).constData(), S_IRWXU);
}

}  // namespace tarnwick
