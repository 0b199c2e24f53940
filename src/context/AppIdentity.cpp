// SPDX-License-Identifier: MIT
#include "context/AppIdentity.h"

namespace tarnwick {

AppIdentity AppIdentity::of(const Workspace& workspace, const QString& bundleID) {
  auto [name, icon] = workspace.identity(bundleID);
  if (name.trimmed().isEmpty()) name = bundleID;
  return {std::move(name), std::move(icon)};
}

}  // namespace tarnwick
