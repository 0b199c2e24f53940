// SPDX-License-Identifier: MIT
// Brings the torn-off notes back shortly after the machine woke, if the user wants that.
#pragma once

#include "platform/Power.h"
#include "platform/Scheduler.h"

#include <functional>

namespace tarnwick {

class UserDefaults;

class WakeResurfaceController final {
 public:
  WakeResurfaceController(Power& power, Scheduler& scheduler, const UserDefaults& defaults,
                          std::function<void()> resurface);

  void start();
  void stop();

 private:
  void machineDidWake();

  Power& m_power;
  Scheduler& m_scheduler;
  const UserDefaults& m_defaults;
  std::function<void()> m_resurface;
  Registration m_observer;
  Registration m_pending;
};

}  // namespace tarnwick
