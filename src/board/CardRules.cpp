// SPDX-License-Identifier: MIT
#include "board/CardRules.h"

#include "board/Ashes.h"
#include "model/Color.h"

#include <QCoreApplication>

#include <algorithm>

namespace tarnwick {

namespace {

constexpr double kSmolderingHours = 7;
constexpr double kMillisecondsPerHour = 3'600'000;

struct Words {
  Q_DECLARE_TR_FUNCTIONS(tarnwick::CardRules)
};

/// One of an odd number of steps around zero, by the note's id.
int step(const QUuid& id, int steps) {
  return static_cast<int>(qHash(id, size_t{0}) % static_cast<size_t>(steps)) - steps / 2;
}

struct Field {
  qsizetype start = -1;
  qsizetype end = -1;
};

/// Where a run of the letter stands in a date format, quoted literals skipped.
Field field(const QString& format, QChar letter) {
  bool isQuoted = false;
  for (qsizetype i = 0; i < format.size(); ++i) {
    if (format[i] == u'\'') isQuoted = !isQuoted;
    if (isQuoted || format[i] != letter) continue;
    qsizetype end = i;
    while (end < format.size() && format[end] == letter) ++end;
    // A day's name is no day number.
    if (letter == u'd' && end - i > 2) {
      i = end - 1;
      continue;
    }
    return {i, end};
  }
  return {};
}

/// The part of the locale's long date that holds day and month, the month abbreviated: "MMM d", "d. MMM", "M月d日".
QString monthDayFormat(const QLocale& locale) {
  const QString format = locale.dateFormat(QLocale::LongFormat);
  const Field day = field(format, u'd');
  const Field month = field(format, u'M');
  if (day.start < 0 || month.start < 0) return QStringLiteral("MMM d");
  const qsizetype start = std::min(day.start, month.start);
  qsizetype end = std::max(day.end, month.end);
  // What is written onto the last of the two belongs to it: a full stop, a character for "day".
  while (end < format.size() && !format[end].isSpace() && format[end] != u',' && format[end] != u'\'' &&
         !format[end].isLetter()) {
    ++end;
  }
  if (end < format.size() && format[end].script() == QChar::Script_Han) ++end;
  return format.mid(start, end - start).replace(QStringLiteral("MMMM"), QStringLiteral("MMM"));
}

}  // namespace

double naturalAngle(const QUuid& id) { return step(id, 9) * 0.4; }

double tornTilt(const QUuid& id) { return step(id, 5) * 0.45; }

double hoursUntilMidnight(const QDateTime& now, const Calendar& calendar) {
  const QDateTime end = calendar.at(calendar.day(now), QTime(23, 59, 59));
  if (!end.isValid()) return 24.0;
  return std::max(0.0, static_cast<double>(now.msecsTo(end)) / kMillisecondsPerHour);
}

bool isSmoldering(const Task& task, DailyBurn dailyBurn, const QDateTime& now, const Calendar& calendar) {
  return dailyBurn == DailyBurn::On && isBurnable(task) && hoursUntilMidnight(now, calendar) <= kSmolderingHours;
}

bool isOverdue(const Task& task, const QDateTime& due, const QDateTime& now, const Calendar& calendar) {
  return due < (task.recurrence() == Recurrence::none ? now : calendar.startOfDay(now));
}

QString dueLabel(const QDateTime& date, const QDateTime& now, const Calendar& calendar) {
  const QDate day = calendar.day(date);
  const QDate today = calendar.day(now);
  if (day == today) return Words::tr("Today");
  if (day == today.addDays(1)) return Words::tr("Tomorrow");
  return calendar.locale().toString(day, monthDayFormat(calendar.locale()));
}

QString nextColor(const QString& colorHex) {
  const auto current = std::ranges::find(kPaperPalette, colorHex);
  if (current == kPaperPalette.end() || std::next(current) == kPaperPalette.end()) return kPaperPalette.front();
  return *std::next(current);
}

void cycleColor(Task& task) { task.set(&TaskRecord::colorHex, nextColor(task.colorHex())); }

void toggleDaily3(Task& task) { task.set(&TaskRecord::isDaily3, !task.isDaily3()); }

}  // namespace tarnwick
