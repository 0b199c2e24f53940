// SPDX-License-Identifier: MIT
// Port: what Tarnwick asks of the window system for its own windows beyond what Qt gives.
#pragma once

#include "platform/DesktopGeometry.h"

#include <QMargins>

#include <optional>

class QWindow;

namespace tarnwick {

enum class WindowLevel { Floating, Desktop, Overlay };
enum class SharingType { ReadOnly, None };
enum class ClickThrough { Off, On };

class WindowServer {
 public:
  virtual ~WindowServer() = default;
  /// Level of a window, on all desktops and in no list of tasks. Before each show, and again after it.
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
  /// Where a window that is shown really is, without its margin: what was reported may be older. Waits for an answer.
  [[nodiscard]] virtual std::optional<DesktopRect> frameOf(QWindow& window) const = 0;
};

}  // namespace tarnwick
