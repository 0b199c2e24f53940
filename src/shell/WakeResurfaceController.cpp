// SPDX-License-Identifier: MIT
#include "shell/WakeResurfaceController.h"

#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"

namespace tarnwick {

namespace {
// Lets the window system settle after the machine woke.
constexpr std::chrono::milliseconds kSettle(600);
}  // namespace

WakeResurfaceController::WakeResurfaceController(Power& power, Scheduler& scheduler, const UserDefaults& defaults,
                                                 std::function<void()> resurface)
    : m_power(power), m_scheduler(scheduler), m_defaults(defaults), m_resurface(std::move(resurface)) {}

void WakeResurfaceController::start() {
  stop();
  m_observer = m_power.observe([this](PowerEvent event) {
    if (event == PowerEvent::DidWake) machineDidWake();
  });
}

void WakeResurfaceController::stop() {
  m_observer.cancel();
  m_pending.cancel();
}

void WakeResurfaceController::machineDidWake() {
  m_pending = m_scheduler.after(kSettle, [this] {
    if (m_defaults.boolean(keys::kWakeResurface) && m_resurface) m_resurface();
  });
}

}  // namespace tarnwick
