// SPDX-License-Identifier: MIT
#include "board/NotificationEngine.h"

#include <QCoreApplication>

#include <array>

namespace tarnwick {

namespace {

const QString kEarly = QStringLiteral("-early");
const QString kDue = QStringLiteral("-due");
const QString kMorning = QStringLiteral("-morning");
const QString kDay = QStringLiteral("-day");
const std::array<QString, 4> kSuffixes{kEarly, kDue, kMorning, kDay};

constexpr qint64 kEarlySeconds = 900;
const QTime kMorningTime(9, 0);

constexpr qint64 kLaterSeconds = 3600;

struct Words {
  Q_DECLARE_TR_FUNCTIONS(tarnwick::NotificationEngine)
};

QString identifier(const QUuid& id, const QString& suffix) {
  return id.toString(QUuid::WithoutBraces).toUpper() + suffix;
}

QString titleOf(const QString& suffix) {
  if (suffix == kEarly) return Words::tr("Due in 15 minutes");
  if (suffix == kDue) return Words::tr("Due now");
  return suffix == kMorning ? Words::tr("Deadline today") : Words::tr("Due today");
}

NotificationRequest requestFor(const TaskRecord& record, const QString& suffix, const QDateTime& firesAt) {
  return {identifier(record.id, suffix),
          titleOf(suffix),
          record.text,
          firesAt.toUTC(),
          {{NotificationEngine::kCrush, Words::tr("Crush")},
           {NotificationEngine::kRemindLater, Words::tr("Remind me in an hour")}}};
}

/// At local midnight, or at the first moment of a day that has none.
bool isDateOnly(const QDateTime& due, const Calendar& calendar) {
  const QTime time = calendar.local(due).time();
  return (time.hour() == 0 && time.minute() == 0) || due == calendar.startOfDay(due);
}

}  // namespace

const QString NotificationEngine::kCrush = QStringLiteral("crush");
const QString NotificationEngine::kRemindLater = QStringLiteral("remind-later");

void NotificationEngine::requestPermission() { m_notifications.requestAuthorization(); }

void NotificationEngine::schedule(const Task& task) {
  cancel(task.id());
  for (const auto& request : requests(task.record(), m_clock.now(), Calendar::of(m_clock))) m_notifications.add(request);
}

void NotificationEngine::cancel(const QUuid& id) {
  QStringList identifiers;
  for (const QString& suffix : kSuffixes) identifiers.append(identifier(id, suffix));
  m_notifications.remove(identifiers);
  std::erase_if(m_later, [&](const auto& each) { return identifiers.contains(each.identifier); });
}

void NotificationEngine::rescheduleAll(const TaskList& tasks) {
  m_notifications.removeAll();
  const auto now = m_clock.now();
  const auto calendar = Calendar::of(m_clock);
  std::erase_if(m_later, [&](const auto& each) { return each.firesAt <= now; });
  for (const auto& request : m_later) m_notifications.add(request);
  for (const TaskPtr& task : tasks) {
    for (const auto& request : requests(task->record(), now, calendar)) m_notifications.add(request);
  }
}

void NotificationEngine::remindLater(const Task& task, const QString& identifier) {
  for (const QString& suffix : kSuffixes) {
    if (!identifier.endsWith(suffix)) continue;
    std::erase_if(m_later, [&](const auto& each) { return each.identifier == identifier; });
    m_later.push_back(requestFor(task.record(), suffix, m_clock.now().addSecs(kLaterSeconds)));
    m_notifications.add(m_later.back());
  }
}

std::vector<NotificationRequest> NotificationEngine::requests(const TaskRecord& record, const QDateTime& now,
                                                              const Calendar& calendar) {
  std::vector<NotificationRequest> wanted;
  if (!record.dueDate || record.isCompleted || record.isBurned.value_or(false)) return wanted;
  const auto add = [&](const QString& suffix, const QDateTime& firesAt) {
    if (firesAt > now) wanted.push_back(requestFor(record, suffix, firesAt));
  };
  const QDateTime due = *record.dueDate;
  const QDateTime morning = calendar.at(calendar.day(due), kMorningTime);
  if (isDateOnly(due, calendar)) {
    add(kDay, morning);
    return wanted;
  }
  add(kEarly, due.addSecs(-kEarlySeconds));
  add(kDue, due);
  if (!calendar.isSameDay(due, now)) add(kMorning, morning);
  return wanted;
}

QUuid NotificationEngine::noteOf(const QString& identifier) {
  for (const QString& suffix : kSuffixes) {
    if (identifier.endsWith(suffix)) return QUuid::fromString(identifier.chopped(suffix.size()));
  }
  return {};
}

}  // namespace tarnwick
