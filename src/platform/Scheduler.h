// SPDX-License-Identifier: MIT
// Port: work done later. Handles cancel when they go; nothing else in the house owns a timer.
#pragma once

#include "platform/Registration.h"

#include <chrono>
#include <functional>

namespace tarnwick {

class Scheduler {
 public:
  using Work = std::function<void()>;
  using FrameWork = std::function<void(std::chrono::nanoseconds mediaTime)>;

  virtual ~Scheduler() = default;
  /// Runs the work once after the delay. From one second up the adapter may be some per cent late, to wake less.
  [[nodiscard]] virtual Registration after(std::chrono::milliseconds delay, Work work) = 0;
  /// Runs the work again and again, first after one period.
  [[nodiscard]] virtual Registration every(std::chrono::milliseconds period, Work work) = 0;
  /// Runs the work once from the event loop, as soon as that turns.
  [[nodiscard]] virtual Registration post(Work work) = 0;
  /// Calls the work once a display frame (about 60 a second) with the media time, until cancelled.
  [[nodiscard]] virtual Registration frames(FrameWork work) = 0;
};

}  // namespace tarnwick
