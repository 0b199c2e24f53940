// SPDX-License-Identifier: MIT
// Local calendar arithmetic for one time zone and locale. A value: make it anew for each decision.
#pragma once

#include "platform/Clock.h"

#include <QDateTime>
#include <QLocale>
#include <QTimeZone>

namespace tarnwick {

class Calendar final {
 public:
  Calendar(QTimeZone zone, QLocale locale) : m_zone(std::move(zone)), m_locale(std::move(locale)) {}
  [[nodiscard]] static Calendar of(const Clock& clock) { return {clock.timeZone(), clock.locale()}; }

  [[nodiscard]] const QTimeZone& timeZone() const { return m_zone; }
  [[nodiscard]] const QLocale& locale() const { return m_locale; }

  [[nodiscard]] QDateTime local(const QDateTime& moment) const { return moment.toTimeZone(m_zone); }
  [[nodiscard]] QDate day(const QDateTime& moment) const { return local(moment).date(); }
  /// Same wall time on another day; inside a gap the first moment after it. UTC.
  [[nodiscard]] QDateTime at(QDate day, QTime time) const;
  /// First moment of the day, which is not midnight everywhere. UTC.
  [[nodiscard]] QDateTime startOfDay(QDate day) const;
  [[nodiscard]] QDateTime startOfDay(const QDateTime& moment) const { return startOfDay(day(moment)); }
  [[nodiscard]] QDateTime addDays(const QDateTime& moment, int days) const;
  /// Clamps to the last day of a shorter month.
  [[nodiscard]] QDateTime addMonths(const QDateTime& moment, int months) const;
  [[nodiscard]] bool isSameDay(const QDateTime& a, const QDateTime& b) const { return day(a) == day(b); }
  /// By the locale's own rule.
  [[nodiscard]] bool isWeekend(const QDateTime& moment) const;
  /// Hour 0-23.
  [[nodiscard]] int hour(const QDateTime& moment) const { return local(moment).time().hour(); }

 private:
  QTimeZone m_zone;
  QLocale m_locale;
};

}  // namespace tarnwick
