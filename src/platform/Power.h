// SPDX-License-Identifier: MIT
// Port: sleep, session and calendar events of the machine.
#pragma once

#include "platform/PortTraits.h"
#include "platform/Registration.h"

#include <functional>

namespace tarnwick {

enum class PowerEvent { DidWake, ScreensDidWake, SessionBecameActive, DayChanged, ClockChanged };

class Power {
 public:
  virtual ~Power() = default;
  [[nodiscard]] virtual PortTraits traits() const = 0;
  /// The day changed at local midnight, by a moved clock or by a new time zone.
  [[nodiscard]] virtual Registration observe(std::function<void(PowerEvent)> observer) = 0;
};

}  // namespace tarnwick
