// SPDX-License-Identifier: MIT
#include "exchange/IcsExchange.h"

#include "exchange/ExchangeWords.h"
#include "exchange/ForeignNote.h"
#include "exchange/IcsText.h"
#include "exchange/IcsTimeZones.h"
#include "exchange/JsonRecord.h"

#include <QJsonDocument>
#include <QRegularExpression>
#include <QTimeZone>

#include <algorithm>
#include <array>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kFacts("X-TARNWICK-NOTE");
constexpr std::array kDayNames{"MO", "TU", "WE", "TH", "FR", "SA", "SU"};

/// Nothing where four digits do not hold the year.
std::optional<QString> utcText(const QDateTime& moment) {
  const auto utc = moment.toUTC();
  if (utc.date().year() < 1 || utc.date().year() > 9999) return std::nullopt;
  return utc.toString(u"yyyyMMdd'T'HHmmss'Z'"_s);
}

QDateTime wholeSeconds(const QDateTime& moment) {
  return moment.addMSecs(-moment.time().msec());
}

QString workingDays(const Calendar& calendar) {
  QStringList days;
  for (const auto day : calendar.locale().weekdays()) days.append(QLatin1StringView(kDayNames.at(day - 1U)));
  return days.join(u',');
}

QString repeatRule(Recurrence recurrence, const Calendar& calendar) {
  switch (recurrence) {
    case Recurrence::none:
      return {};
    case Recurrence::daily:
      return u"FREQ=DAILY"_s;
    case Recurrence::weekdays:
      return u"FREQ=WEEKLY;BYDAY="_s + workingDays(calendar);
    case Recurrence::weekly:
      return u"FREQ=WEEKLY"_s;
    case Recurrence::every3Days:
      return u"FREQ=DAILY;INTERVAL=3"_s;
    case Recurrence::monthly:
      return u"FREQ=MONTHLY"_s;
  }
  return {};
}

/// A rule in one order, without what says the same again: an interval of one, the day that the rule starts on. The start
/// of the week changes nothing here.
QString plainRule(const QString& rule, QDate start) {
  QStringList parts;
  for (const auto& part : rule.toUpper().split(u';', Qt::SkipEmptyParts)) {
    const auto name = part.section(u'=', 0, 0);
    auto values = part.section(u'=', 1).split(u',');
    values.sort();
    const auto value = values.join(u',');
    const bool isSaidAgain = name == "WKST"_L1 || (name == "INTERVAL"_L1 && value == "1"_L1) ||
                             (name == "BYDAY"_L1 && value == QLatin1StringView(kDayNames.at(start.dayOfWeek() - 1U))) ||
                             (name == "BYMONTHDAY"_L1 && value == QString::number(start.day()));
    if (!isSaidAgain) parts.append(name + u'=' + value);
  }
  parts.sort();
  return parts.join(u';');
}

/// Rules that no note can have count as none.
Recurrence recurrenceOf(const QString& rule, const QDateTime& due, const Calendar& calendar) {
  const auto start = calendar.day(due);
  const auto plain = plainRule(rule, start);
  if (plain.isEmpty()) return Recurrence::none;
  for (const auto recurrence : kRecurrences) {
    if (plain == plainRule(repeatRule(recurrence, calendar), start)) return recurrence;
  }
  const bool isWorkingWeek = plain == plainRule(u"FREQ=WEEKLY;BYDAY=MO,TU,WE,TH,FR"_s, start);
  return isWorkingWeek ? Recurrence::weekdays : Recurrence::none;
}

/// The text survives as a value of the format when it is made of characters that the format allows.
bool isPlain(const QString& text) {
  return std::none_of(
             text.begin(), text.end(),
             [](QChar c) { return (c.unicode() < 0x20 && c != u'\n' && c != u'\t') || c.unicode() == 0x7F; }) &&
         QString::fromUtf8(text.toUtf8()) == text;
}

/// How a due date is written; without a value where the format has no form for it.
struct DueText {
  QString parameters;
  QString value;
};

/// A due date at midnight is a day, as everywhere. Any other is a wall time, so that what repeats keeps its hour when the
/// clocks change; one that occurs twice that night, and a zone without a name, are written in UTC.
DueText dueText(const QDateTime& due, const Calendar& calendar) {
  const auto wall = calendar.local(due);
  if (!utcText(due) || wall.date().year() < 1 || wall.date().year() > 9999) return {};
  if (due == calendar.startOfDay(due)) return {u";VALUE=DATE"_s, wall.toString(u"yyyyMMdd"_s)};
  const auto& zone = calendar.timeZone();
  if (zone == QTimeZone::utc() || !QTimeZone::isTimeZoneIdAvailable(zone.id()) || calendar.at(wall.date(), wall.time()) != due)
    return {{}, *utcText(due)};
  return {u";TZID="_s + QString::fromUtf8(zone.id()), wall.toString(u"yyyyMMdd'T'HHmmss"_s)};
}

void appendDue(QByteArray& result, const QDateTime& due, Recurrence recurrence, const Calendar& calendar) {
  const auto [parameters, value] = dueText(due, calendar);
  if (value.isEmpty()) return;
  // A rule counts from the start, so a repeating to-do has one.
  if (recurrence != Recurrence::none) result += ics::line(u"DTSTART"_s + parameters, value);
  result += ics::line(u"DUE"_s + parameters, value);
}

/// The zone that the due dates are written in, from the first to some years after the last: what repeats goes on. Beyond
/// a lifetime the name has to do.
QByteArray zoneOf(const std::vector<TaskRecord>& tasks, const Calendar& calendar) {
  constexpr int kYearsAfter = 10;
  constexpr int kMostYears = 100;
  static const QDateTime kEarliest(QDate(1900, 1, 1), QTime(0, 0), Qt::UTC);
  QDateTime first;
  QDateTime last;
  for (const auto& task : tasks) {
    if (!task.dueDate || !dueText(*task.dueDate, calendar).parameters.startsWith(";TZID="_L1)) continue;
    if (!first.isValid() || *task.dueDate < first) first = *task.dueDate;
    if (!last.isValid() || *task.dueDate > last) last = *task.dueDate;
  }
  if (!first.isValid()) return {};
  const auto from = std::max(first.addYears(-1), kEarliest);
  return ics::TimeZones::component(calendar.timeZone(), from, std::min(last.addYears(kYearsAfter), from.addYears(kMostYears)));
}

QByteArray todo(const TaskRecord& record, const Calendar& calendar) {
  const Task task(record);
  QByteArray result = "BEGIN:VTODO\r\n";
  result += ics::line(u"UID"_s, idText(record.id));
  const auto created = utcText(record.createdAt).value_or(u"19700101T000000Z"_s);
  result += ics::line(u"DTSTAMP"_s, created);
  result += ics::line(u"CREATED"_s, created);
  auto title = record.text.trimmed().section(u'\n', 0, 0).trimmed();
  if (!isPlain(title)) title = title.simplified();
  result += ics::line(u"SUMMARY"_s, ics::escaped(title));
  result += ics::line(u"DESCRIPTION"_s, ics::escaped(record.text));
  if (record.dueDate) appendDue(result, *record.dueDate, task.recurrence(), calendar);
  if (record.dueDate && task.recurrence() != Recurrence::none)
    result += ics::line(u"RRULE"_s, repeatRule(task.recurrence(), calendar));
  result += ics::line(u"STATUS"_s, record.isCompleted ? u"COMPLETED"_s
                                   : task.isBurned()  ? u"CANCELLED"_s
                                                      : u"NEEDS-ACTION"_s);
  if (const auto moment = record.completedAt ? utcText(*record.completedAt) : std::nullopt;
      moment && record.isCompleted)
    result += ics::line(u"COMPLETED"_s, *moment);
  result += ics::line(u"CATEGORIES"_s, ics::escaped(task.board()));
  if (task.isPrivate()) result += ics::line(u"CLASS"_s, u"PRIVATE"_s);
  const auto facts = isPlain(record.text) ? json::object(kTaskColumns, record, calendar, {"id"_L1, "text"_L1})
                                          : json::object(kTaskColumns, record, calendar, {"id"_L1});
  result += ics::line(kFacts, ics::escaped(facts));
  return result + "END:VTODO\r\n";
}

/// What the dates of a file are read by.
struct Times {
  const Calendar& calendar;
  const ics::TimeZones& zones;
  QDateTime now;
};

std::optional<QDateTime> momentOf(const ics::Property& property, const Times& times) {
  const auto text = property.value.trimmed();
  if (text.size() == 8) {
    const auto day = times.calendar.startOfDay(QDate::fromString(text, u"yyyyMMdd"_s));
    return day.isValid() ? std::optional(day) : std::nullopt;
  }
  const auto day = QDate::fromString(text.left(8), u"yyyyMMdd"_s);
  const auto time = QTime::fromString(text.mid(8, 7), u"'T'HHmmss"_s);
  if (!day.isValid() || !time.isValid()) return std::nullopt;
  if (text.endsWith(u'Z')) return QDateTime(day, time, Qt::UTC);
  const auto moment = times.zones.at(property.parameters.value(u"TZID"_s), day, time, times.calendar);
  return moment.isValid() ? std::optional(moment) : std::nullopt;
}

/// The moment that lies a duration later: days as the calendar counts them, hours as the clock does.
std::optional<QDateTime> after(const QDateTime& start, const QString& duration, const Calendar& calendar) {
  static const QRegularExpression form(
      u"^\\+?P(?=T?\\d)(?:(\\d{1,4})W|(?:(\\d{1,5})D)?(?:T(?:(\\d{1,6})H)?(?:(\\d{1,8})M)?(?:(\\d{1,9})S)?)?)$"_s);
  const auto match = form.match(duration.trimmed().toUpper());
  if (!match.hasMatch()) return std::nullopt;
  const auto part = [&](int index) { return match.captured(index).toLongLong(); };
  const auto day = calendar.addDays(start, static_cast<int>(7 * part(1) + part(2)));
  const auto end = day.addSecs(3600 * part(3) + 60 * part(4) + part(5));
  return end.isValid() ? std::optional(end) : std::nullopt;
}

/// One to-do, taken apart.
class Todo {
 public:
  void add(const ics::Property& property) { m_properties.insert(property.name, property); }

  [[nodiscard]] Result<std::optional<TaskRecord>> record(const Times& times) const {
    return m_properties.contains(kFacts) ? ours(times) : foreign(times);
  }

 private:
  [[nodiscard]] QString text(const QString& name) const { return ics::unescaped(m_properties.value(name).value); }
  [[nodiscard]] std::optional<QDateTime> moment(const QString& name, const Times& times) const {
    const auto found = m_properties.constFind(name);
    return found == m_properties.constEnd() ? std::nullopt : momentOf(*found, times);
  }
  /// As the file says it: at a time, or so long after its start.
  [[nodiscard]] std::optional<QDateTime> due(const Times& times) const {
    if (m_properties.contains(u"DUE"_s)) return moment(u"DUE"_s, times);
    const auto start = moment(u"DTSTART"_s, times);
    return start ? after(*start, m_properties.value(u"DURATION"_s).value, times.calendar) : std::nullopt;
  }
  /// A note has one board; a to-do may have several categories.
  [[nodiscard]] QString firstCategory() const {
    const auto value = m_properties.value(u"CATEGORIES"_s).value;
    qsizetype end = 0;
    while (end < value.size() && value[end] != u',') end += value[end] == u'\\' ? 2 : 1;
    return ics::unescaped(value.left(end)).trimmed();
  }
  [[nodiscard]] bool isCompleted() const {
    return text(u"STATUS"_s).toUpper() == "COMPLETED"_L1 ||
           (!m_properties.contains(u"STATUS"_s) && m_properties.contains(u"COMPLETED"_s));
  }

  [[nodiscard]] Result<std::optional<TaskRecord>> ours(const Times& times) const {
    TaskRecord record;
    record.createdAt = times.now;
    record.text = text(u"DESCRIPTION"_s);
    const auto facts = QJsonDocument::fromJson(text(kFacts).toUtf8());
    if (!facts.isObject()) return Error{ErrorKind::Damaged, ExchangeWords::tr("“%1” cannot be read").arg(kFacts)};
    if (const auto read = json::readObject(facts.object(), kTaskColumns, times.calendar, json::Fields::Some, record); !read)
      return read.error();
    record.id = QUuid::fromString(text(u"UID"_s).trimmed());
    if (record.id.isNull()) return Error{ErrorKind::Damaged, ExchangeWords::tr("“%1” is missing").arg(u"UID"_s)};
    // Where another program has changed what it knows of, that holds. The format counts whole seconds.
    const auto due = moment(u"DUE"_s, times);
    if (due && (!record.dueDate || wholeSeconds(*record.dueDate) != *due)) record.dueDate = due;
    if (isCompleted() != record.isCompleted) {
      record.isCompleted = isCompleted();
      record.completedAt =
          record.isCompleted ? moment(u"COMPLETED"_s, times).value_or(times.now) : std::optional<QDateTime>();
    }
    return std::optional(record);
  }

  [[nodiscard]] Result<std::optional<TaskRecord>> foreign(const Times& times) const {
    auto words = text(u"SUMMARY"_s).trimmed();
    const auto more = text(u"DESCRIPTION"_s).trimmed();
    if (!more.isEmpty() && more != words) words = words.isEmpty() ? more : words + u'\n' + more;
    if (words.isEmpty()) return std::optional<TaskRecord>();
    const auto uid = text(u"UID"_s).trimmed();
    auto record = foreignNote(uid.isEmpty() ? words : uid, words, moment(u"CREATED"_s, times).value_or(times.now));
    if (const auto id = QUuid::fromString(uid); !id.isNull()) record.id = id;
    record.dueDate = due(times);
    if (record.dueDate) record.recurrenceRaw = rawValue(recurrenceOf(text(u"RRULE"_s), *record.dueDate, times.calendar));
    record.isCompleted = isCompleted();
    if (record.isCompleted) record.completedAt = moment(u"COMPLETED"_s, times).value_or(times.now);
    // Given up there is ashes here: out of sight, and it can be revived.
    if (text(u"STATUS"_s).toUpper() == "CANCELLED"_L1) {
      record.isBurned = true;
      record.burnedAt = moment(u"LAST-MODIFIED"_s, times).value_or(times.now);
    }
    if (const auto board = firstCategory(); !board.isEmpty()) record.boardRaw = board;
    if (const auto visibility = text(u"CLASS"_s).toUpper(); !visibility.isEmpty() && visibility != "PUBLIC"_L1)
      record.isPrivate = true;
    return std::optional(record);
  }

  QHash<QString, ics::Property> m_properties;
};

}  // namespace

QByteArray IcsExchange::write(const std::vector<TaskRecord>& tasks, const Calendar& calendar) {
  QByteArray result = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n";
  result += ics::line(u"PRODID"_s, u"-//Tarnwick//Tarnwick %1//EN"_s.arg(QStringLiteral(TARNWICK_VERSION)));
  result += zoneOf(tasks, calendar);
  for (const auto& task : tasks) result += todo(task, calendar);
  return result + "END:VCALENDAR\r\n";
}

Result<std::vector<TaskRecord>> IcsExchange::read(const QByteArray& bytes, const Calendar& calendar,
                                                  const QDateTime& now) {
  std::vector<TaskRecord> tasks;
  QStringList open;  // components, outermost first
  std::optional<Todo> current;
  int number = 0;
  const auto content = ics::properties(bytes);
  const ics::TimeZones zones(content);
  const Times times{calendar, zones, now};
  for (const auto& property : content) {
    if (property.name == "BEGIN"_L1) {
      open.append(property.value.trimmed().toUpper());
      if (open.last() == "VTODO"_L1) current.emplace();
    } else if (property.name == "END"_L1) {
      const auto name = property.value.trimmed().toUpper();
      if (open.isEmpty() || open.takeLast() != name)
        return Error{ErrorKind::Damaged, ExchangeWords::tr("“END:%1” has no beginning").arg(name)};
      if (name != "VTODO"_L1 || !current) continue;
      ++number;
      auto read = current->record(times);
      current.reset();
      if (!read) return Error{ErrorKind::Damaged, ExchangeWords::tr("to-do %1: %2").arg(number).arg(read.error().text)};
      if (read.value()) tasks.push_back(*read.take());
    } else if (current && !open.isEmpty() && open.last() == "VTODO"_L1) {
      current->add(property);
    }
  }
  if (!open.isEmpty()) return Error{ErrorKind::Damaged, ExchangeWords::tr("the file ends inside “%1”").arg(open.last())};
  return tasks;
}

}  // namespace tarnwick
