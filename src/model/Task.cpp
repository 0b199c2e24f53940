// SPDX-License-Identifier: MIT
#include "model/Task.h"

#include <limits>

namespace tarnwick {

namespace {

/// A date that lies far back is first moved by whole periods, so that a damaged one costs no endless walk. Enough steps
/// remain for the clamping of short months and leap days to settle as in the full walk.
QDateTime nearer(const QDateTime& base, const QDateTime& limit, Recurrence recurrence, const Calendar& calendar) {
  constexpr qint64 kYearDays = 365;
  const auto distance = base.daysTo(limit);
  if (distance < 10 * kYearDays || distance > std::numeric_limits<int>::max()) return base;
  const auto skipped = static_cast<int>(distance - 8 * kYearDays);
  const auto moved = recurrence == Recurrence::monthly ? calendar.addMonths(base, skipped / 31)
                                                       : calendar.addDays(base, skipped / 21 * 21);
  return moved.isValid() ? moved : base;
}

}  // namespace

QString idText(const QUuid& id) {
  return id.toString(QUuid::WithoutBraces).toUpper();
}

Recurrence Task::recurrence() const {
  return fromRawValue<Recurrence>(m_record.recurrenceRaw).value_or(Recurrence::none);
}

TaskTag Task::tag() const {
  return m_record.tagRaw ? fromRawValue<TaskTag>(*m_record.tagRaw).value_or(TaskTag::none) : TaskTag::none;
}

PaperTheme Task::paperTheme() const {
  return fromRawValue<PaperTheme>(m_record.paperThemeRaw.value_or(QString())).value_or(PaperTheme::plain);
}

TaskStamp Task::stamp() const {
  return fromRawValue<TaskStamp>(m_record.stampRaw.value_or(QString())).value_or(TaskStamp::none);
}

void Task::restore(const TaskRecord& record) {
  if (m_record == record) return;
  m_record = record;
  if (m_changed) m_changed(*this);
}

std::optional<QDateTime> Task::nextDate(const QDateTime& from, Recurrence recurrence, const Calendar& calendar) {
  QDateTime next;
  switch (recurrence) {
    case Recurrence::none:
      return std::nullopt;
    case Recurrence::daily:
      next = calendar.addDays(from, 1);
      break;
    case Recurrence::weekdays: {
      next = calendar.addDays(from, 1);
      if (!next.isValid()) return from;
      // No locale has a weekend of a whole week; the count only bounds a broken one.
      for (int step = 0; step < 7 && calendar.isWeekend(next); ++step) {
        const auto later = calendar.addDays(next, 1);
        if (!later.isValid()) break;
        next = later;
      }
      break;
    }
    case Recurrence::weekly:
      next = calendar.addDays(from, 7);
      break;
    case Recurrence::every3Days:
      next = calendar.addDays(from, 3);
      break;
    case Recurrence::monthly:
      next = calendar.addMonths(from, 1);
      break;
  }
  if (!next.isValid()) return std::nullopt;
  return next;
}

QDateTime Task::startOfTomorrow(const QDateTime& now, const Calendar& calendar) {
  const auto tomorrow = calendar.startOfDay(calendar.day(now).addDays(1));
  return tomorrow.isValid() ? tomorrow : now;
}

bool Task::isSleeping(const QDateTime& now, const Calendar& calendar) const {
  return m_record.dueDate && recurrence() != Recurrence::none && isSleeping(startOfTomorrow(now, calendar));
}

bool Task::isSleeping(const QDateTime& startOfTomorrow) const {
  return m_record.dueDate && *m_record.dueDate >= startOfTomorrow && recurrence() != Recurrence::none;
}

bool Task::applyCrush(const QDateTime& now, const Calendar& calendar) {
  const auto rule = recurrence();
  const auto limit = startOfTomorrow(now, calendar);
  std::optional<QDateTime> next;
  if (rule != Recurrence::none) {
    next = nextDate(nearer(m_record.dueDate.value_or(now), limit, rule, calendar), rule, calendar);
    while (next && *next < limit) {
      const auto later = nextDate(*next, rule, calendar);
      // A calendar at its end gives the same date back for weekdays.
      if (later == next) {
        next.reset();
        break;
      }
      next = later;
    }
  }
  if (next) {
    set(&TaskRecord::dueDate, next);
    set(&TaskRecord::isCompleted, false);
    return true;
  }
  set(&TaskRecord::isCompleted, true);
  set(&TaskRecord::completedAt, now);
  return false;
}

}  // namespace tarnwick
