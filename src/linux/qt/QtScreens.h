// SPDX-License-Identifier: MIT
// The monitors as Qt sees them, for platforms without X11: no struts, no compositor to ask.
#pragma once

#include "linux/Observers.h"
#include "platform/Screens.h"

#include <QObject>

namespace tarnwick {

class QtScreens final : public QObject, public Screens {
 public:
  QtScreens();

  [[nodiscard]] std::vector<ScreenFacts> all() const override;
  [[nodiscard]] bool isComposited() const override { return true; }
  [[nodiscard]] Registration onChanged(std::function<void()> observer) override;

 private:
  Observers<> m_changed;
};

}  // namespace tarnwick
