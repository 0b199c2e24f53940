// SPDX-License-Identifier: MIT
// One number on its way from where it is to where it shall be, as a function of the media time. Holds no timer.
#pragma once

#include <algorithm>
#include <chrono>

namespace tarnwick {

class Glide final {
 public:
  using Time = std::chrono::nanoseconds;
  enum class Curve { EaseOut, EaseIn, EaseInOut };

  explicit Glide(double value = 0) : m_from(value), m_to(value) {}

  void jumpTo(double value) {
    m_from = m_to = value;
    m_duration = Time{0};
  }
  void start(double to, Time now, Time duration, Curve curve = Curve::EaseOut) {
    if (to == m_to) return;
    m_from = at(now);
    m_to = to;
    m_start = now;
    m_duration = duration;
    m_curve = curve;
  }
  [[nodiscard]] double target() const { return m_to; }
  [[nodiscard]] bool isRunning(Time now) const { return now < m_start + m_duration; }
  [[nodiscard]] double at(Time now) const {
    if (!isRunning(now)) return m_to;
    const double t =
        std::clamp(static_cast<double>((now - m_start).count()) / static_cast<double>(m_duration.count()), 0.0, 1.0);
    return m_from + (m_to - m_from) * eased(t);
  }

 private:
  [[nodiscard]] double eased(double t) const {
    switch (m_curve) {
      case Curve::EaseOut:
        return 1 - (1 - t) * (1 - t) * (1 - t);
      case Curve::EaseIn:
        return t * t * t;
      case Curve::EaseInOut:
        return t < 0.5 ? 4 * t * t * t : 1 - 4 * (1 - t) * (1 - t) * (1 - t);
    }
    return t;
  }

  double m_from;
  double m_to;
  Time m_start{0};
  Time m_duration{0};
  Curve m_curve = Curve::EaseOut;
};

}  // namespace tarnwick
