// SPDX-License-Identifier: MIT
#include "linux/qt/QtScreens.h"

#include "linux/qt/ScreenSignals.h"

namespace tarnwick {

QtScreens::QtScreens() {
  observeScreens(this, [this] { m_changed.notify(); });
}

std::vector<ScreenFacts> QtScreens::all() const {
  const auto screens = orderedScreens();
  if (screens.isEmpty()) return {};
  const DesktopSpace space(screens.front()->geometry().height());
  std::vector<ScreenFacts> facts;
  for (const auto* screen : screens) {
    facts.push_back({screen->name(), space.fromQt(QRectF(screen->geometry())),
                     space.fromQt(QRectF(screen->availableGeometry())), screen->devicePixelRatio()});
  }
  return facts;
}

Registration QtScreens::onChanged(std::function<void()> observer) { return m_changed.add(std::move(observer)); }

}  // namespace tarnwick
