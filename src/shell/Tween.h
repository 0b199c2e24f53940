// SPDX-License-Identifier: MIT
// One number on its way, eased out, as a function of the media time. Holds no timer.
#pragma once

#include "shell/BoardMotion.h"

#include <chrono>

namespace tarnwick {

class Tween final {
 public:
  using Time = std::chrono::nanoseconds;

  explicit Tween(double value) : m_from(value), m_to(value) {}

  void start(double to, Time now, Time duration) {
    if (to == m_to) return;
    m_from = value(now);
    m_to = to;
    m_start = now;
    m_duration = duration;
  }
  [[nodiscard]] double target() const { return m_to; }
  [[nodiscard]] bool isRunning(Time now) const { return now < m_start + m_duration; }
  [[nodiscard]] double value(Time now) const {
    if (!isRunning(now)) return m_to;
    const auto way = static_cast<double>((now - m_start).count()) / static_cast<double>(m_duration.count());
    return m_from + (m_to - m_from) * easeOut(way);
  }

 private:
  double m_from;
  double m_to;
  Time m_start{0};
  Time m_duration{0};
};

}  // namespace tarnwick
