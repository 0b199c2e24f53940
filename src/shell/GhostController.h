// SPDX-License-Identifier: MIT
// Watches pointer and option key while notes are see-through, and tells when either changed.
#pragma once

#include "platform/OtherWindows.h"
#include "platform/Scheduler.h"

namespace tarnwick {

class NotificationCenter;

class GhostController final {
 public:
  GhostController(const OtherWindows& windows, Scheduler& scheduler, NotificationCenter& center)
      : m_windows(windows), m_scheduler(scheduler), m_center(center) {}

  /// Harmless when it runs.
  void start();
  void stop();
  [[nodiscard]] bool isRunning() const { return m_timer.isHeld(); }
  [[nodiscard]] bool isOptionDown() const { return m_isOptionDown; }
  [[nodiscard]] DesktopPoint mouse() const { return m_mouse; }

 private:
  void tick();

  const OtherWindows& m_windows;
  Scheduler& m_scheduler;
  NotificationCenter& m_center;
  bool m_isOptionDown = false;
  DesktopPoint m_mouse;
  Registration m_timer;
};

}  // namespace tarnwick
