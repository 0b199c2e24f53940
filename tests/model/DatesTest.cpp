// SPDX-License-Identifier: MIT
#include "model/Calendar.h"
#include "model/Task.h"

#include "fakes/ManualTime.h"
#include "support/Notes.h"

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

const QLocale kUs(QLocale::English, QLocale::UnitedStates);
const QLocale kEgypt(QLocale::Arabic, QLocale::Egypt);

Calendar calendarOf(const char* zone, const QLocale& locale = kUs) {
  return {QTimeZone(zone), locale};
}

/// Wall time with the offset: "2026-03-29T03:00 +02:00" tells the two sides of an overlap apart.
QString shown(const QDateTime& moment, const Calendar& calendar) {
  if (!moment.isValid()) return u"invalid"_s;
  return calendar.local(moment)
      .toOffsetFromUtc(calendar.timeZone().offsetFromUtc(moment))
      .toString(u"yyyy-MM-dd'T'HH:mm t"_s);
}

/// A wall time given as text; local to the calendar.
QDateTime local(const QString& text, const Calendar& calendar) {
  return calendar.at(QDate::fromString(text.left(10), Qt::ISODate), QTime::fromString(text.mid(11), u"HH:mm"_s));
}

TEST(Calendar, findsWallTimesAcrossClockChanges) {
  const struct {
    const char* zone;
    const char* wall;
    const char* found;
  } rows[] = {
      {"Europe/Berlin", "2026-01-15T09:00", "2026-01-15T09:00 UTC+01:00"},
      {"Europe/Berlin", "2026-03-29T01:59", "2026-03-29T01:59 UTC+01:00"},
      {"Europe/Berlin", "2026-03-29T02:00", "2026-03-29T03:00 UTC+02:00"},
      {"Europe/Berlin", "2026-03-29T02:30", "2026-03-29T03:00 UTC+02:00"},
      {"Europe/Berlin", "2026-03-29T03:00", "2026-03-29T03:00 UTC+02:00"},
      {"Europe/Berlin", "2026-10-25T02:30", "2026-10-25T02:30 UTC+02:00"},
      {"Europe/Berlin", "2026-10-25T03:00", "2026-10-25T03:00 UTC+01:00"},
      // Half an hour only.
      {"Australia/Lord_Howe", "2026-10-04T02:15", "2026-10-04T02:30 UTC+11:00"},
      {"Australia/Lord_Howe", "2026-04-05T01:45", "2026-04-05T01:45 UTC+11:00"},
      // A day that never was.
      {"Pacific/Apia", "2011-12-30T12:00", "2011-12-31T00:00 UTC+14:00"},
      {"Pacific/Kiritimati", "2026-06-01T00:00", "2026-06-01T00:00 UTC+14:00"},
      {"Pacific/Niue", "2026-06-01T23:59", "2026-06-01T23:59 UTC-11:00"},
  };
  for (const auto& row : rows) {
    const auto calendar = calendarOf(row.zone);
    EXPECT_EQ(shown(local(QString::fromLatin1(row.wall), calendar), calendar), QString::fromLatin1(row.found))
        << row.zone;
  }
}

TEST(Calendar, aDayStartsWithItsFirstMoment) {
  const struct {
    const char* zone;
    const char* during;
    const char* start;
  } rows[] = {
      {"Europe/Berlin", "2026-03-29T15:00", "2026-03-29T00:00 UTC+01:00"},
      {"America/Sao_Paulo", "2018-11-04T15:00", "2018-11-04T01:00 UTC-02:00"},
      {"America/Havana", "2026-11-01T15:00", "2026-11-01T00:00 UTC-04:00"},
      {"America/Sao_Paulo", "2018-02-17T15:00", "2018-02-17T00:00 UTC-02:00"},
      {"Asia/Beirut", "2026-03-29T12:00", "2026-03-29T01:00 UTC+03:00"},
  };
  for (const auto& row : rows) {
    const auto calendar = calendarOf(row.zone);
    const auto moment = local(QString::fromLatin1(row.during), calendar);
    EXPECT_EQ(shown(calendar.startOfDay(moment), calendar), QString::fromLatin1(row.start)) << row.zone;
  }
}

TEST(Calendar, givesUpWhereDatesEnd) {
  const auto calendar = calendarOf("Europe/Berlin");
  EXPECT_FALSE(calendar.at(QDate(), QTime(0, 0)).isValid());
  const auto last = QDateTime::fromMSecsSinceEpoch(std::numeric_limits<qint64>::max(), Qt::UTC);
  EXPECT_FALSE(calendar.addDays(last, 1).isValid());
  EXPECT_FALSE(
      calendar.addDays(QDateTime::fromMSecsSinceEpoch(std::numeric_limits<qint64>::min(), Qt::UTC), -1).isValid());
}

TEST(Calendar, weekendsAreTheLocalesOwn) {
  const auto friday = utc("2026-03-06T12:00:00");
  const auto berlin = calendarOf("Europe/Berlin");
  const auto cairo = calendarOf("Africa/Cairo", kEgypt);
  const QList<bool> western{false, true, true, false};
  const QList<bool> egyptian{true, true, false, false};
  for (int day = 0; day < 4; ++day) {
    EXPECT_EQ(berlin.isWeekend(friday.addDays(day)), western[day]) << day;
    EXPECT_EQ(cairo.isWeekend(friday.addDays(day)), egyptian[day]) << day;
  }
}

TEST(NextDate, addsCalendarUnitsAndKeepsTheTimeOfDay) {
  const struct {
    const char* zone;
    const char* from;
    Recurrence rule;
    const char* next;
  } rows[] = {
      {"Europe/Berlin", "2026-01-31T18:45", Recurrence::daily, "2026-02-01T18:45 UTC+01:00"},
      {"Europe/Berlin", "2026-03-28T09:00", Recurrence::daily, "2026-03-29T09:00 UTC+02:00"},
      {"Europe/Berlin", "2026-10-24T09:00", Recurrence::daily, "2026-10-25T09:00 UTC+01:00"},
      {"Europe/Berlin", "2026-03-28T02:30", Recurrence::daily, "2026-03-29T03:00 UTC+02:00"},
      {"Australia/Lord_Howe", "2026-10-03T02:15", Recurrence::daily, "2026-10-04T02:30 UTC+11:00"},
      {"Europe/Berlin", "2026-03-06T09:00", Recurrence::weekdays, "2026-03-09T09:00 UTC+01:00"},
      {"Europe/Berlin", "2026-03-07T09:00", Recurrence::weekdays, "2026-03-09T09:00 UTC+01:00"},
      {"Europe/Berlin", "2026-03-04T09:00", Recurrence::weekdays, "2026-03-05T09:00 UTC+01:00"},
      {"Europe/Berlin", "2026-12-28T09:00", Recurrence::weekly, "2027-01-04T09:00 UTC+01:00"},
      {"Europe/Berlin", "2024-02-27T09:00", Recurrence::every3Days, "2024-03-01T09:00 UTC+01:00"},
      {"Europe/Berlin", "2026-01-31T09:00", Recurrence::monthly, "2026-02-28T09:00 UTC+01:00"},
      {"Europe/Berlin", "2028-01-31T09:00", Recurrence::monthly, "2028-02-29T09:00 UTC+01:00"},
      {"Europe/Berlin", "2026-12-15T09:00", Recurrence::monthly, "2027-01-15T09:00 UTC+01:00"},
      {"Europe/Berlin", "2026-02-28T02:30", Recurrence::monthly, "2026-03-28T02:30 UTC+01:00"},
  };
  for (const auto& row : rows) {
    const auto calendar = calendarOf(row.zone);
    const auto next = Task::nextDate(local(QString::fromLatin1(row.from), calendar), row.rule, calendar);
    ASSERT_TRUE(next);
    EXPECT_EQ(shown(*next, calendar), QString::fromLatin1(row.next)) << row.from;
  }
  const auto cairo = calendarOf("Africa/Cairo", kEgypt);
  const auto sunday = Task::nextDate(local(u"2026-03-05T09:00"_s, cairo), Recurrence::weekdays, cairo);
  EXPECT_EQ(shown(sunday.value_or(QDateTime()), cairo), u"2026-03-08T09:00 UTC+02:00"_s);
}

TEST(NextDate, isNoneWithoutARuleOrBeyondTheCalendar) {
  const auto calendar = calendarOf("Europe/Berlin");
  const auto end = QDateTime::fromMSecsSinceEpoch(std::numeric_limits<qint64>::max(), Qt::UTC);
  EXPECT_EQ(Task::nextDate(utc("2026-01-01T00:00:00"), Recurrence::none, calendar), std::nullopt);
  for (const auto rule : {Recurrence::daily, Recurrence::weekly, Recurrence::every3Days, Recurrence::monthly})
    EXPECT_EQ(Task::nextDate(end, rule, calendar), std::nullopt);
  EXPECT_EQ(Task::nextDate(end, Recurrence::weekdays, calendar), end);
}

struct Crush {
  const char* rule;
  const char* due;  // empty = none
  const char* now;
  const char* next;  // empty = completed
};

class CrushTest : public testing::TestWithParam<Crush> {};

TEST_P(CrushTest, completesOrMovesToTomorrowOrLater) {
  const auto calendar = calendarOf("Europe/Berlin");
  const auto& row = GetParam();
  const auto now = local(QString::fromLatin1(row.now), calendar);
  auto record = note();
  record.recurrenceRaw = QString::fromLatin1(row.rule);
  if (*row.due != 0) record.dueDate = local(QString::fromLatin1(row.due), calendar);
  Task task(record);
  const bool isMoved = task.applyCrush(now, calendar);
  if (*row.next == 0) {
    EXPECT_FALSE(isMoved);
    EXPECT_TRUE(task.isCompleted());
    EXPECT_EQ(task.record().completedAt, now);
    EXPECT_EQ(task.dueDate(), record.dueDate);
    return;
  }
  EXPECT_TRUE(isMoved);
  EXPECT_FALSE(task.isCompleted());
  EXPECT_EQ(task.record().completedAt, std::nullopt);
  EXPECT_EQ(shown(*task.dueDate(), calendar).left(16), QString::fromLatin1(row.next));
  EXPECT_TRUE(task.isSleeping(now, calendar));
  EXPECT_FALSE(task.isSleeping(calendar.startOfDay(*task.dueDate()), calendar)) << "it wakes on its day";
}

INSTANTIATE_TEST_SUITE_P(
    Task, CrushTest,
    testing::Values(Crush{"none", "2026-03-02T09:00", "2026-03-03T15:00", ""},
                    Crush{"none", "", "2026-03-03T15:00", ""},
                    Crush{"fortnightly", "2026-03-02T09:00", "2026-03-03T15:00", ""},
                    Crush{"daily", "2026-03-02T09:00", "2026-03-03T15:00", "2026-03-04T09:00"},
                    Crush{"daily", "", "2026-03-03T15:00", "2026-03-04T15:00"},
                    Crush{"daily", "2026-03-03T00:00", "2026-03-03T00:00", "2026-03-04T00:00"},
                    Crush{"daily", "2026-03-10T09:00", "2026-03-03T15:00", "2026-03-11T09:00"},
                    Crush{"daily", "2026-03-27T02:30", "2026-03-29T12:00", "2026-03-30T03:00"},
                    Crush{"weekdays", "2026-03-06T09:00", "2026-03-06T10:00", "2026-03-09T09:00"},
                    Crush{"weekdays", "2026-03-07T09:00", "2026-03-07T10:00", "2026-03-09T09:00"},
                    Crush{"monthly", "2026-01-31T09:00", "2026-01-31T10:00", "2026-02-28T09:00"},
                    Crush{"monthly", "2026-02-28T09:00", "2026-02-28T10:00", "2026-03-28T09:00"},
                    Crush{"monthly", "2028-02-29T09:00", "2028-02-29T10:00", "2028-03-29T09:00"},
                    Crush{"every3Days", "2026-02-21T07:30", "2026-03-03T15:00", "2026-03-05T07:30"},
                    Crush{"weekly", "2026-03-03T09:00", "2026-03-03T08:00", "2026-03-10T09:00"},
                    // Dates of long ago: the steps stay those of the rule.
                    Crush{"weekly", "1970-01-01T09:00", "2026-03-03T08:00", "2026-03-05T09:00"},
                    Crush{"every3Days", "1970-01-01T09:00", "2026-03-03T08:00", "2026-03-05T09:00"},
                    Crush{"monthly", "0001-01-31T09:00", "2026-03-03T08:00", "2026-03-28T09:00"}));

TEST(Task, aDamagedDateOfLongAgoCostsNoEndlessWalk) {
  const auto calendar = calendarOf("Europe/Berlin");
  for (const auto recurrence : {"daily", "weekdays", "monthly"}) {
    auto record = note();
    record.recurrenceRaw = QString::fromLatin1(recurrence);
    record.dueDate = QDateTime(QDate(-200'000, 6, 15), QTime(9, 0), Qt::UTC);
    Task task(record);
    const auto now = utc("2026-03-03T15:00:00");
    EXPECT_TRUE(task.applyCrush(now, calendar));
    EXPECT_GT(*task.dueDate(), now);
    EXPECT_LT(*task.dueDate(), now.addDays(33));
  }
}

TEST(Task, onlyRepeatingNotesSleepAndOnlyUntilTheirDay) {
  const auto calendar = calendarOf("Europe/Berlin");
  const auto now = local(u"2026-03-28T23:59"_s, calendar);
  const struct {
    const char* rule;
    const char* due;
    bool isSleeping;
  } rows[] = {
      {"daily", "2026-03-29T00:00", true}, {"daily", "2026-03-28T23:59", false}, {"daily", "", false},
      {"none", "2026-04-10T00:00", false}, {"weekly", "2027-01-01T12:00", true}, {"odd", "2027-01-01T12:00", false}};
  for (const auto& row : rows) {
    auto record = note();
    record.recurrenceRaw = QString::fromLatin1(row.rule);
    if (*row.due != 0) record.dueDate = local(QString::fromLatin1(row.due), calendar);
    EXPECT_EQ(Task(record).isSleeping(now, calendar), row.isSleeping) << row.rule << row.due;
  }
}

TEST(Task, tomorrowFollowsTheTravellersZone) {
  ManualTime time;
  time.setLocal(u"2026-03-03T23:30:00"_s);
  const auto berlin = Task::startOfTomorrow(time.now(), Calendar::of(time));
  time.setZone(QTimeZone("Asia/Tokyo"));
  const auto tokyo = Task::startOfTomorrow(time.now(), Calendar::of(time));
  EXPECT_EQ(berlin, utc("2026-03-03T23:00:00"));
  EXPECT_EQ(tokyo, utc("2026-03-04T15:00:00"));
}

}  // namespace
}  // namespace tarnwick::test
