// SPDX-License-Identifier: MIT
// Name and icon of an application by its identifier, running or not.
#pragma once

#include "platform/Workspace.h"

#include <QIcon>
#include <QString>

namespace tarnwick {

struct AppIdentity {
  QString name;  // never empty for an identifier that is not
  QIcon icon;    // null when the application has none

  [[nodiscard]] static AppIdentity of(const Workspace& workspace, const QString& bundleID);
};

}  // namespace tarnwick
