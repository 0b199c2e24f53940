// SPDX-License-Identifier: MIT
// Follows a program's focused window by the events of the window system.
#pragma once

#include "platform/Accessibility.h"
#include "platform/OtherWindows.h"
#include "shell/WindowTracking.h"

#include <memory>

namespace tarnwick {

class AppWindowTracker final : public WindowTracking {
 public:
  /// Null when frames may not be read or this process cannot be followed.
  [[nodiscard]] static std::unique_ptr<AppWindowTracker> make(const Accessibility& accessibility, OtherWindows& windows,
                                                              qint64 pid, FrameObserver onFrame);
  [[nodiscard]] std::optional<DesktopRect> lastFrame() const override { return m_lastFrame; }
  void stop() override { m_follow.cancel(); }

 private:
  explicit AppWindowTracker(FrameObserver onFrame) : m_onFrame(std::move(onFrame)) {}
  void report(std::optional<DesktopRect> frame);

  FrameObserver m_onFrame;
  std::optional<DesktopRect> m_lastFrame;
  Registration m_follow;
};

}  // namespace tarnwick
