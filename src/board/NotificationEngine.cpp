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

struct Words {
  Q_DECLARE_TR_FUNCTIONS(tarnwick::NotificationEngine)
};

QString identifier(const QUuid& id, const QString& suffix) {
  return id.toString(QUuid::WithoutBraces).toUpper() + suffix;
}

/// At local midnight, or at the first moment of a day that has none.
bool isDateOnly(const QDateTime& due, const Calendar& calendar) {
  const QTime time = calendar.local(due).time();
  return (time.hour() == 0 && time.minute() == 0) || due == calendar.startOfDay(due);
}

}  // namespace

void NotificationEngine::requestPermission() { m_notifications.requestAuthorization(); }

void NotificationEngine::schedule(const Task& task) {
  cancel(task.id());
  for (const auto& request : requests(task.record(), m_clock.now(), Calendar::of(m_clock))) m_notifications.add(request);
}

void NotificationEngine::cancel(const QUuid& id) {
  QStringList identifiers;
  for (const QString& suffix : kSuffixes) identifiers.append(identifier(id, suffix));
  m_notifications.remove(identifiers);
}

void NotificationEngine::rescheduleAll(const TaskList& tasks) {
  m_notifications.removeAll();
  for (const TaskPtr& task : tasks) schedule(*task);
}

std::vector<NotificationRequest> NotificationEngine::requests(const TaskRecord& record, const QDateTime& now,
                                                              const Calendar& calendar) {
  std::vector<NotificationRequest> wanted;
  if (!record.dueDate || record.isCompleted || record.isBurned.value_or(false)) return wanted;
  const auto add = [&](const QString& suffix, const QString& title, const QDateTime& firesAt) {
    if (firesAt > now) wanted.push_back({identifier(record.id, suffix), title, record.text, firesAt.toUTC()});
  };
  const QDateTime due = *record.dueDate;
  const QDateTime morning = calendar.at(calendar.day(due), kMorningTime);
  if (isDateOnly(due, calendar)) {
    add(kDay, Words::tr("Due today"), morning);
    return wanted;
  }
  add(kEarly, Words::tr("Due in 15 minutes"), due.addSecs(-kEarlySeconds));
  add(kDue, Words::tr("Due now"), due);
  if (!calendar.isSameDay(due, now)) add(kMorning, Words::tr("Deadline today"), morning);
  return wanted;
}

QUuid NotificationEngine::noteOf(const QString& identifier) {
  for (const QString& suffix : kSuffixes) {
    if (identifier.endsWith(suffix)) return QUuid::fromString(identifier.chopped(suffix.size()));
  }
  return {};
}

}  // namespace tarnwick
