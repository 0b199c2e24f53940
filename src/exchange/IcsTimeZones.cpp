// SPDX-License-Identifier: MIT
#include "exchange/IcsTimeZones.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>

namespace tarnwick::ics {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kDayNames("MOTUWETHFRSASU");

/// Wall times are kept as if they were UTC: they only meet one another.
QDateTime wallTime(const QString& text) {
  const auto time = QTime::fromString(text.mid(8, 7), u"'T'HHmmss"_s);
  return {QDate::fromString(text.left(8), u"yyyyMMdd"_s), time.isValid() ? time : QTime(0, 0), Qt::UTC};
}

QString wallText(const QDateTime& wall) { return wall.toString(u"yyyyMMdd'T'HHmmss"_s); }

/// "+0130" or "-051500" in seconds.
int offsetOf(const QString& text) {
  const auto digits = text.trimmed();
  const int seconds = digits.mid(1, 2).toInt() * 3600 + digits.mid(3, 2).toInt() * 60 + digits.mid(5, 2).toInt();
  return digits.startsWith(u'-') ? -seconds : seconds;
}

QString offsetText(int seconds) {
  const int size = std::abs(seconds);
  const auto twoDigits = [](int number) { return u"%1"_s.arg(number, 2, 10, QChar(u'0')); };
  const auto text = QChar(seconds < 0 ? u'-' : u'+') + twoDigits(size / 3600) + twoDigits(size / 60 % 60);
  return size % 60 == 0 ? text : text + twoDigits(size % 60);
}

std::optional<QTimeZone> knownZone(const QString& name) {
  if (name.isEmpty()) return std::nullopt;
  const auto available = [](const QByteArray& id) { return QTimeZone::isTimeZoneIdAvailable(id); };
  if (available(name.toUtf8())) return QTimeZone(name.toUtf8());
  // Some programs put their own name before it.
  const auto parts = name.split(u'/', Qt::SkipEmptyParts);
  for (qsizetype count = std::min<qsizetype>(parts.size(), 3); count >= 2; --count) {
    const auto id = parts.last(count).join(u'/').toUtf8();
    if (available(id)) return QTimeZone(id);
  }
  const auto id = QTimeZone::windowsIdToDefaultIanaId(name.toUtf8());
  return id.isEmpty() ? std::nullopt : std::optional(QTimeZone(id));
}

}  // namespace

void TimeZones::Observance::add(const Property& property) {
  const auto value = property.value.trimmed();
  if (property.name == "DTSTART"_L1) start = wallTime(value);
  if (property.name == "TZOFFSETFROM"_L1) offsetFrom = offsetOf(value);
  if (property.name == "TZOFFSETTO"_L1) offsetTo = offsetOf(value);
  if (property.name == "RDATE"_L1) {
    for (const auto& date : value.split(u',')) others.append(wallTime(date));
  }
  if (property.name != "RRULE"_L1 || !value.contains("FREQ=YEARLY"_L1, Qt::CaseInsensitive)) return;
  YearlyRule yearly;
  for (const auto& part : value.toUpper().split(u';')) {
    const auto key = part.section(u'=', 0, 0);
    const auto text = part.section(u'=', 1);
    if (key == "BYMONTH"_L1) yearly.month = text.toInt();
    if (key == "UNTIL"_L1) yearly.until = QDate::fromString(text.left(8), u"yyyyMMdd"_s);
    if (key == "BYDAY"_L1) {
      yearly.weekday = static_cast<int>(kDayNames.indexOf(text.right(2)) / 2 + 1);
      yearly.which = text.chopped(std::min<qsizetype>(text.size(), 2)).toInt();
    }
    if (key == "BYMONTHDAY"_L1) {
      for (const auto& day : text.split(u',')) yearly.days.append(day.toInt());
    }
  }
  rule = yearly;
}

std::optional<QDateTime> TimeZones::Observance::onset(const QDateTime& wall) const {
  std::optional<QDateTime> last;
  const auto consider = [&](const QDateTime& each) {
    if (each.isValid() && each <= wall && (!last || each > *last)) last = each;
  };
  consider(start);
  for (const auto& other : others) consider(other);
  if (!rule || !start.isValid()) return last;
  for (const int year : {wall.date().year(), wall.date().year() - 1}) {
    const QDate first(year, rule->month == 0 ? start.date().month() : rule->month, 1);
    QList<QDate> dates;
    for (int day = 0; first.isValid() && day < first.daysInMonth(); ++day) {
      const auto date = first.addDays(day);
      const bool isAsked = (rule->weekday == 0 || date.dayOfWeek() == rule->weekday) &&
                           (rule->days.isEmpty() || rule->days.contains(date.day())) &&
                           (rule->weekday != 0 || !rule->days.isEmpty() || date.day() == start.date().day());
      if (isAsked) dates.append(date);
    }
    const auto index = rule->which < 0 ? dates.size() + rule->which : std::max(rule->which, 1) - 1;
    if (index < 0 || index >= dates.size()) continue;
    const auto date = dates[index];
    if (date >= start.date() && (!rule->until.isValid() || date <= rule->until))
      consider(QDateTime(date, start.time(), Qt::UTC));
  }
  return last;
}

QDateTime TimeZones::Zone::at(const QDateTime& wall) const {
  const Observance* now = nullptr;
  QDateTime since;
  const Observance* first = nullptr;
  for (const auto& each : observances) {
    if (!first || each.start < first->start) first = &each;
    const auto onset = each.onset(wall);
    if (onset && (!now || *onset > since)) {
      now = &each;
      since = *onset;
    }
  }
  if (!now) return wall.addSecs(-first->offsetFrom);
  const bool isInGap = wall < since.addSecs(now->offsetTo - now->offsetFrom);
  return isInGap ? since.addSecs(-now->offsetFrom) : wall.addSecs(-now->offsetTo);
}

TimeZones::TimeZones(const std::vector<Property>& content) {
  std::optional<QString> name;
  std::optional<Zone> zone;
  std::optional<Observance> observance;
  for (const auto& property : content) {
    const auto value = property.value.trimmed();
    const bool isPart = value.compare("STANDARD"_L1, Qt::CaseInsensitive) == 0 ||
                        value.compare("DAYLIGHT"_L1, Qt::CaseInsensitive) == 0;
    const bool isZone = value.compare("VTIMEZONE"_L1, Qt::CaseInsensitive) == 0;
    if (property.name == "BEGIN"_L1 && isZone) {
      zone.emplace();
      name.reset();
    } else if (!zone) {
      continue;
    } else if (property.name == "BEGIN"_L1 && isPart) {
      observance.emplace();
    } else if (property.name == "END"_L1 && isPart && observance) {
      if (observance->start.isValid()) zone->observances.push_back(*observance);
      observance.reset();
    } else if (property.name == "END"_L1 && isZone) {
      if (name) m_zones.emplace(*name, *zone);
      zone.reset();
    } else if (observance) {
      observance->add(property);
    } else if (property.name == "TZID"_L1) {
      name = unescaped(value);
    } else if (property.name == "X-LIC-LOCATION"_L1) {
      zone->location = unescaped(value);
    }
  }
}

QDateTime TimeZones::at(const QString& zone, QDate day, QTime time, const Calendar& calendar) const {
  const auto described = m_zones.find(zone);
  auto known = knownZone(zone);
  if (!known && described != m_zones.end()) known = knownZone(described->second.location);
  if (known) return Calendar(*known, calendar.locale()).at(day, time);
  if (described == m_zones.end() || described->second.observances.empty()) return calendar.at(day, time);
  return described->second.at(QDateTime(day, time, Qt::UTC));
}

QByteArray TimeZones::component(const QTimeZone& zone, const QDateTime& from, const QDateTime& to) {
  // Onsets that change the same offsets under the same name are one observance.
  using Kind = std::tuple<bool, int, int, QString>;
  std::vector<std::pair<Kind, QStringList>> kinds;
  const auto add = [&](const QTimeZone::OffsetData& data, int before) {
    const Kind kind(data.daylightTimeOffset != 0, before, data.offsetFromUtc, data.abbreviation);
    auto found = std::find_if(kinds.begin(), kinds.end(), [&](const auto& each) { return each.first == kind; });
    if (found == kinds.end()) found = kinds.insert(kinds.end(), {kind, {}});
    found->second.append(wallText(data.atUtc.addSecs(before)));
  };
  auto now = zone.offsetData(from);
  now.atUtc = from.toUTC();
  add(now, now.offsetFromUtc);
  int before = now.offsetFromUtc;
  for (const auto& transition : zone.transitions(from.addSecs(1), to)) {
    add(transition, before);
    before = transition.offsetFromUtc;
  }

  QByteArray result = line(u"BEGIN"_s, u"VTIMEZONE"_s) + line(u"TZID"_s, QString::fromUtf8(zone.id()));
  for (const auto& [kind, onsets] : kinds) {
    const auto& [isDaylight, offsetFrom, offsetTo, name] = kind;
    const auto component = isDaylight ? u"DAYLIGHT"_s : u"STANDARD"_s;
    result += line(u"BEGIN"_s, component) + line(u"DTSTART"_s, onsets.first());
    if (onsets.size() > 1) result += line(u"RDATE"_s, onsets.mid(1).join(u','));
    result += line(u"TZOFFSETFROM"_s, offsetText(offsetFrom)) + line(u"TZOFFSETTO"_s, offsetText(offsetTo));
    if (!name.isEmpty()) result += line(u"TZNAME"_s, escaped(name));
    result += line(u"END"_s, component);
  }
  return result + line(u"END"_s, u"VTIMEZONE"_s);
}

}  // namespace tarnwick::ics
