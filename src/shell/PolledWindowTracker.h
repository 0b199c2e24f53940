// SPDX-License-Identifier: MIT
// Follows a program's front window by looking four times a second, where nothing tells of changes.
#pragma once

#include "platform/OtherWindows.h"
#include "platform/Scheduler.h"
#include "shell/WindowTracking.h"

#include <memory>
#include <vector>

namespace tarnwick {

class PolledWindowTracker final : public WindowTracking {
 public:
  /// Null for what is no process.
  [[nodiscard]] static std::unique_ptr<PolledWindowTracker> make(const OtherWindows& windows, Scheduler& scheduler,
                                                                 qint64 pid, FrameObserver onFrame);
  [[nodiscard]] std::optional<DesktopRect> lastFrame() const override { return m_lastFrame; }
  void stop() override { m_timer.cancel(); }

  /// The process's foremost ordinary window that is larger than a palette.
  [[nodiscard]] static std::optional<DesktopRect> frontWindowFrame(const std::vector<OtherWindow>& frontToBack,
                                                                   qint64 pid);

 private:
  PolledWindowTracker(const OtherWindows& windows, qint64 pid, FrameObserver onFrame)
      : m_windows(windows), m_pid(pid), m_onFrame(std::move(onFrame)) {}
  void poll();

  const OtherWindows& m_windows;
  qint64 m_pid;
  FrameObserver m_onFrame;
  bool m_hasReported = false;
  std::optional<DesktopRect> m_lastFrame;
  Registration m_timer;
};

}  // namespace tarnwick
