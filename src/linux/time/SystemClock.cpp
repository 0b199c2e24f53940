// SPDX-License-Identifier: MIT
#include "linux/time/SystemClock.h"

namespace tarnwick {

QDateTime SystemClock::now() const { return QDateTime::currentDateTimeUtc(); }

std::chrono::nanoseconds SystemClock::mediaTime() const {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::steady_clock::now().time_since_epoch());
}

QTimeZone SystemClock::timeZone() const { return QTimeZone::systemTimeZone(); }

QLocale SystemClock::locale() const {
  const QLocale locale;
  // The C locale numbers the days of the week and counts seconds in every time: made for programs, not for readers.
  return locale.language() == QLocale::C ? QLocale(QLocale::English, QLocale::World) : locale;
}

}  // namespace tarnwick
