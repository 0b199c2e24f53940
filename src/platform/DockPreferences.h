// SPDX-License-Identifier: MIT
// Port: what the dock says of itself, where it can be read.
#pragma once

#include <QStringList>

#include <optional>

namespace tarnwick {

struct DockState {
  std::optional<double> tileSize;       // "tilesize", points
  QStringList persistentApps;           // bundle identifiers of "persistent-apps"
  int persistentOthers = 0;             // count of "persistent-others"
  std::optional<bool> isShowingRecents;  // "show-recents"
  int recentApps = 0;                   // count of "recent-apps"
};

class DockPreferences {
 public:
  virtual ~DockPreferences() = default;
  /// An empty state when no readable dock runs.
  [[nodiscard]] virtual DockState read() const = 0;
};

}  // namespace tarnwick
