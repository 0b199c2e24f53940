// SPDX-License-Identifier: MIT
#include "shell/CaptureVeil.h"

namespace tarnwick {

namespace {
// A cast that is being reconfigured stops for a moment; nothing may flash up in between.
constexpr std::chrono::seconds kLinger(4);
}  // namespace

CaptureVeil::CaptureVeil(CaptureWatch& capture, Scheduler& scheduler) : m_capture(capture), m_scheduler(scheduler) {
  m_observer = m_capture.onChanged([this] { captureChanged(); });
  captureChanged();
}

void CaptureVeil::captureChanged() {
  if (m_capture.isCasting() && m_capture.exclusion() == CaptureExclusion::HiddenWhileSharing) {
    m_lifting.cancel();
    set(true);
  } else if (m_isDrawn) {
    m_lifting = m_scheduler.after(kLinger, [this] { set(false); });
  }
}

void CaptureVeil::set(bool isDrawn) {
  if (m_isDrawn == isDrawn) return;
  m_isDrawn = isDrawn;
  Q_EMIT changed();
}

}  // namespace tarnwick
