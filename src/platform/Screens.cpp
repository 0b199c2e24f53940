// SPDX-License-Identifier: MIT
#include "platform/Screens.h"

namespace tarnwick {

DesktopSpace Screens::space() const {
  const auto screens = all();
  return DesktopSpace(screens.empty() ? 0 : screens.front().frame.height);
}

ScreenFacts Screens::screenAt(DesktopPoint point) const {
  const auto screens = all();
  for (const auto& screen : screens) {
    if (screen.frame.contains(point)) return screen;
  }
  return screens.empty() ? ScreenFacts{} : screens.front();
}

}  // namespace tarnwick
