// SPDX-License-Identifier: MIT
// The time zones of an iCalendar file: known ones by name, others by the rules that the file brings along.
#pragma once

#include "exchange/IcsText.h"
#include "model/Calendar.h"

#include <QDateTime>
#include <QTimeZone>

#include <map>
#include <optional>

namespace tarnwick::ics {

class TimeZones final {
 public:
  /// Takes the zones that a file's content describes.
  explicit TimeZones(const std::vector<Property>& content);

  /// The moment of a wall time in a zone, UTC; inside a gap the first moment after it. A zone that is neither known nor
  /// described is the calendar's own.
  [[nodiscard]] QDateTime at(const QString& zone, QDate day, QTime time, const Calendar& calendar) const;

  /// The component that describes a zone between two moments.
  [[nodiscard]] static QByteArray component(const QTimeZone& zone, const QDateTime& from, const QDateTime& to);

 private:
  /// When an offset begins to hold each year; absent parts are those of the first time.
  struct YearlyRule {
    int month = 0;
    int weekday = 0;  // 1 Monday to 7 Sunday, 0 any
    int which = 0;    // 1 the first such day of the month, -1 the last
    QList<int> days;  // of the month
    QDate until;
  };
  /// An offset and the wall times, in the offset before, from which it holds.
  struct Observance {
    QDateTime start;
    QList<QDateTime> others;
    std::optional<YearlyRule> rule;
    int offsetFrom = 0;  // seconds east of Greenwich
    int offsetTo = 0;

    void add(const Property& property);
    /// The last onset that is not after the wall time.
    [[nodiscard]] std::optional<QDateTime> onset(const QDateTime& wall) const;
  };
  struct Zone {
    QString location;  // a known name for it, where the file gives one
    std::vector<Observance> observances;

    [[nodiscard]] QDateTime at(const QDateTime& wall) const;
  };

  std::map<QString, Zone> m_zones;
};

}  // namespace tarnwick::ics
