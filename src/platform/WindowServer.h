// SPDX-License-Identifier: MIT
// Port: what Tarnwick asks of the window system for its own windows beyond what Qt gives.
#pragma once

#include "platform/PortTraits.h"

#include <QMargins>

class QWindow;

namespace tarnwick {

enum class WindowLevel { Floating, Desktop, Overlay };
enum class SharingType { ReadOnly, None };
enum class ClickThrough { Off, On };

class WindowServer {
 public:
  virtual ~WindowServer() = default;
  /// Sets the flags that must stand before the window is first shown.
  virtual void prepare(QWindow& window, WindowLevel level) = 0;
  /// Level of a window that may be on screen; also puts it on all desktops. To be repeated after each show.
  virtual void applyLevel(QWindow& window, WindowLevel level) = 0;
  /// Whether clicks pass through, without unmapping the window.
  virtual void setClickThrough(QWindow& window, ClickThrough clickThrough) = 0;
  /// Opacity that reaches the screen at once.
  virtual void setOpacity(QWindow& window, double opacity) = 0;
  /// Transparent margin (device-independent pixels) that is no part of the frame and takes no input.
  virtual void setShadowMargins(QWindow& window, const QMargins& margins) = 0;
  /// To the front without the keyboard.
  virtual void raiseWithoutActivating(QWindow& window) = 0;
  /// To the front with the keyboard, also when another program has it.
  virtual void activate(QWindow& window) = 0;
  /// Wish that the window stays out of screen captures, kept and carried out as far as the desktop can.
  virtual void setSharing(QWindow& window, SharingType sharing) = 0;
};

}  // namespace tarnwick
