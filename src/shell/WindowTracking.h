// SPDX-License-Identifier: MIT
// Follows the window of another program that a pinned note is docked to.
#pragma once

#include "platform/DesktopGeometry.h"

#include <functional>
#include <optional>

namespace tarnwick {

class WindowTracking {
 public:
  /// Nothing: the program has no window to dock to.
  using FrameObserver = std::function<void(std::optional<DesktopRect>)>;

  virtual ~WindowTracking() = default;
  /// The last frame that was reported.
  [[nodiscard]] virtual std::optional<DesktopRect> lastFrame() const = 0;
  /// No further reports.
  virtual void stop() = 0;
};

}  // namespace tarnwick
