// SPDX-License-Identifier: MIT
// Where the Trash is on screen: asked of the desktop, else as last seen, else estimated. Always gives a rectangle.
#pragma once

#include "platform/Accessibility.h"
#include "platform/DockPreferences.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"

#include <optional>
#include <vector>

namespace tarnwick {

class UserDefaults;

class DockTrashLocator final {
 public:
  struct Ports {
    const Accessibility& accessibility;
    const DockPreferences& dock;
    const Screens& screens;
    const Workspace& workspace;
  };

  DockTrashLocator(Ports ports, UserDefaults& defaults) : m_ports(ports), m_defaults(defaults) {}

  /// Desktop coordinates. The user's own picked target goes first; without a screen the primary one is used.
  [[nodiscard]] DesktopRect trashFrame(const std::optional<ScreenFacts>& screen = std::nullopt);
  [[nodiscard]] std::optional<DesktopRect> axTrashFrame() const;
  [[nodiscard]] DesktopRect estimatedFrame(const ScreenFacts& screen) const;
  [[nodiscard]] DesktopPoint geometricFallback(const ScreenFacts& screen) const;

 private:
  [[nodiscard]] std::optional<DesktopRect> pickedTarget(const std::vector<ScreenFacts>& screens) const;
  [[nodiscard]] std::optional<DesktopRect> find(const ElementRef& element, int depth) const;

  Ports m_ports;
  UserDefaults& m_defaults;
};

}  // namespace tarnwick
