// SPDX-License-Identifier: MIT
// Port: the windows of other programs, and the pointer, for docking and for see-through notes.
#pragma once

#include "platform/DesktopGeometry.h"
#include "platform/Registration.h"

#include <functional>
#include <optional>
#include <vector>

namespace tarnwick {

struct OtherWindow {
  qint64 pid = 0;
  int layer = 0;  // 0 = ordinary application window
  DesktopRect bounds;
  bool operator==(const OtherWindow&) const = default;
};

struct PointerState {
  DesktopPoint position;
  bool isOptionDown = false;
  bool operator==(const PointerState&) const = default;
};

/// Whose windows can be seen on this desktop.
enum class WindowSight { All, SomePrograms, None };

class OtherWindows {
 public:
  using FrameObserver = std::function<void(std::optional<DesktopRect>)>;

  virtual ~OtherWindows() = default;
  [[nodiscard]] virtual WindowSight sight() const = 0;
  /// On screen, front to back, without desktop elements and without our own.
  [[nodiscard]] virtual std::vector<OtherWindow> onScreen() const = 0;
  /// Reports the frame of the focused window of a process, at once and on each change; nothing when it goes.
  /// An empty handle when frames cannot be followed here.
  [[nodiscard]] virtual Registration followFocusedWindow(qint64 pid, FrameObserver observer) = 0;
  [[nodiscard]] virtual PointerState pointer() const = 0;
};

}  // namespace tarnwick
