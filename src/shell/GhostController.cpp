// SPDX-License-Identifier: MIT
#include "shell/GhostController.h"

#include "model/NotificationCenter.h"

namespace tarnwick {

namespace {
constexpr std::chrono::milliseconds kPeriod(67);  // 15 a second
}

void GhostController::start() {
  if (m_timer.isHeld()) return;
  m_timer = m_scheduler.every(kPeriod, [this] { tick(); });
}

void GhostController::stop() {
  m_timer.cancel();
  m_isOptionDown = false;
}

void GhostController::tick() {
  const auto pointer = m_windows.pointer();
  if (pointer.isOptionDown == m_isOptionDown && pointer.position == m_mouse) return;
  m_isOptionDown = pointer.isOptionDown;
  m_mouse = pointer.position;
  Q_EMIT m_center.ghostTick();
}

}  // namespace tarnwick
