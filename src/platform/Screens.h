// SPDX-License-Identifier: MIT
// Port: the monitors, with what panels leave of them.
#pragma once

#include "platform/DesktopGeometry.h"
#include "platform/Registration.h"

#include <functional>
#include <vector>

namespace tarnwick {

struct ScreenFacts {
  QString name;
  DesktopRect frame;
  DesktopRect visibleFrame;  // without docks and panels
  double scale = 1;          // device pixels per device-independent pixel
  bool operator==(const ScreenFacts&) const = default;
};

class Screens {
 public:
  virtual ~Screens() = default;
  /// The primary screen first; empty when there is none.
  [[nodiscard]] virtual std::vector<ScreenFacts> all() const = 0;
  /// Whether transparency and opacity reach the screen.
  [[nodiscard]] virtual bool isComposited() const = 0;
  /// Monitors, struts or the compositor changed.
  [[nodiscard]] virtual Registration onChanged(std::function<void()> observer) = 0;

  /// Conversion for the present arrangement.
  [[nodiscard]] DesktopSpace space() const;
  /// The screen whose frame holds the point, else the primary one, else an empty one.
  [[nodiscard]] ScreenFacts screenAt(DesktopPoint point) const;
};

}  // namespace tarnwick
