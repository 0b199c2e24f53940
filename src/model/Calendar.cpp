// SPDX-License-Identifier: MIT
#include "model/Calendar.h"

#include <algorithm>
#include <limits>

namespace tarnwick {

namespace {

constexpr qint64 kDayMs = 24LL * 60 * 60 * 1000;

qint64 offsetMs(const QTimeZone& zone, qint64 utcMs) {
  return 1000LL * zone.offsetFromUtc(QDateTime::fromMSecsSinceEpoch(utcMs, Qt::UTC));
}

/// The moment the offset changes, between one that has the old offset and one that has the new.
qint64 transition(const QTimeZone& zone, qint64 before, qint64 after) {
  const auto old = offsetMs(zone, before);
  while (after - before > 1) {
    const auto middle = before + (after - before) / 2;
    (offsetMs(zone, middle) == old ? before : after) = middle;
  }
  return after;
}

}  // namespace

QDateTime Calendar::at(QDate day, QTime time) const {
  const QDateTime wall(day, time, Qt::UTC);
  if (!wall.isValid()) return {};
  const auto wallMs = wall.toMSecsSinceEpoch();
  // Where Qt's own range ends there is no neighbouring day to ask for its offset.
  constexpr auto kLimit = std::numeric_limits<qint64>::max() - 4 * kDayMs;
  if (wallMs > kLimit || wallMs < -kLimit) return {};

  // The offsets a day away on either side are the only two that can be in force at this wall time.
  const auto early = wallMs - offsetMs(m_zone, wallMs - kDayMs);
  if (offsetMs(m_zone, early) == wallMs - early) return QDateTime::fromMSecsSinceEpoch(early, Qt::UTC);
  const auto late = wallMs - offsetMs(m_zone, wallMs + kDayMs);
  if (offsetMs(m_zone, late) == wallMs - late) return QDateTime::fromMSecsSinceEpoch(late, Qt::UTC);
  return QDateTime::fromMSecsSinceEpoch(transition(m_zone, std::min(early, late), std::max(early, late)), Qt::UTC);
}

QDateTime Calendar::startOfDay(QDate day) const {
  return at(day, QTime(0, 0));
}

QDateTime Calendar::addDays(const QDateTime& moment, int days) const {
  const auto wall = local(moment);
  return at(wall.date().addDays(days), wall.time());
}

QDateTime Calendar::addMonths(const QDateTime& moment, int months) const {
  const auto wall = local(moment);
  return at(wall.date().addMonths(months), wall.time());
}

bool Calendar::isWeekend(const QDateTime& moment) const {
  const auto weekday = static_cast<Qt::DayOfWeek>(day(moment).dayOfWeek());
  const auto working = m_locale.weekdays();
  if (working.isEmpty()) return weekday == Qt::Saturday || weekday == Qt::Sunday;
  return !working.contains(weekday);
}

}  // namespace tarnwick
