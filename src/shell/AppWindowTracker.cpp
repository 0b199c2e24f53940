// SPDX-License-Identifier: MIT
#include "shell/AppWindowTracker.h"

namespace tarnwick {

std::unique_ptr<AppWindowTracker> AppWindowTracker::make(const Accessibility& accessibility, OtherWindows& windows,
                                                         qint64 pid, FrameObserver onFrame) {
  if (pid < 1 || !accessibility.isTrusted(AccessNeed::Frames)) return nullptr;
  std::unique_ptr<AppWindowTracker> tracker(new AppWindowTracker(std::move(onFrame)));
  tracker->m_follow =
      windows.followFocusedWindow(pid, [raw = tracker.get()](std::optional<DesktopRect> frame) { raw->report(frame); });
  if (!tracker->m_follow.isHeld()) return nullptr;
  return tracker;
}

void AppWindowTracker::report(std::optional<DesktopRect> frame) {
  m_lastFrame = frame;
  m_onFrame(frame);
}

}  // namespace tarnwick
