// SPDX-License-Identifier: MIT
// A note's window as the pinning rules see it.
#pragma once

#include "platform/DesktopGeometry.h"

namespace tarnwick {

class PinnedWindow {
 public:
  virtual ~PinnedWindow() = default;
  [[nodiscard]] virtual DesktopRect frame() const = 0;
  virtual void moveTo(DesktopPoint origin) = 0;
  /// To the front without the keyboard.
  virtual void orderFront() = 0;
  virtual void orderOut() = 0;
  [[nodiscard]] virtual bool isOrderedIn() const = 0;
  /// The window has just been docked: it may fold itself.
  virtual void didDock() = 0;
};

}  // namespace tarnwick
