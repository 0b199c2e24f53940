// SPDX-License-Identifier: MIT
// Port: what time it is, for people (wall time, zone, locale) and for motion (media time, which never jumps).
#pragma once

#include <QDateTime>
#include <QLocale>
#include <QTimeZone>

#include <chrono>

namespace tarnwick {

class Clock {
 public:
  virtual ~Clock() = default;
  /// Wall time, UTC, millisecond resolution.
  [[nodiscard]] virtual QDateTime now() const = 0;
  /// Monotonic, from an arbitrary origin.
  [[nodiscard]] virtual std::chrono::nanoseconds mediaTime() const = 0;
  /// Read anew at each call: the user may travel.
  [[nodiscard]] virtual QTimeZone timeZone() const = 0;
  [[nodiscard]] virtual QLocale locale() const = 0;
};

}  // namespace tarnwick
