// SPDX-License-Identifier: MIT
#include "shell/PolledWindowTracker.h"

namespace tarnwick {

namespace {
constexpr std::chrono::milliseconds kPeriod(250);
constexpr DesktopSize kPalette{160, 120};
}  // namespace

std::unique_ptr<PolledWindowTracker> PolledWindowTracker::make(const OtherWindows& windows, Scheduler& scheduler,
                                                               qint64 pid, FrameObserver onFrame) {
  if (pid < 1) return nullptr;
  std::unique_ptr<PolledWindowTracker> tracker(new PolledWindowTracker(windows, pid, std::move(onFrame)));
  tracker->m_timer = scheduler.every(kPeriod, [raw = tracker.get()] { raw->poll(); });
  return tracker;
}

std::optional<DesktopRect> PolledWindowTracker::frontWindowFrame(const std::vector<OtherWindow>& frontToBack,
                                                                 qint64 pid) {
  for (const auto& window : frontToBack) {
    if (window.pid == pid && window.layer == 0 && window.bounds.width > kPalette.width &&
        window.bounds.height > kPalette.height) {
      return window.bounds;
    }
  }
  return std::nullopt;
}

void PolledWindowTracker::poll() {
  const auto frame = frontWindowFrame(m_windows.onScreen(), m_pid);
  if (m_hasReported && frame == m_lastFrame) return;
  m_hasReported = true;
  m_lastFrame = frame;
  // The observer may drop this tracker.
  const auto observer = m_onFrame;
  observer(frame);
}

}  // namespace tarnwick
