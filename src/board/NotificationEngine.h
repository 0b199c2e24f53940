// SPDX-License-Identifier: MIT
// Turns a note's due date into at most three pending notifications, and takes them away again.
#pragma once

#include "model/Task.h"
#include "platform/Clock.h"
#include "platform/UserNotifications.h"

#include <vector>

namespace tarnwick {

class NotificationEngine final {
 public:
  /// Keys of the actions that each reminder offers beside opening the note.
  static const QString kCrush;
  static const QString kRemindLater;

  NotificationEngine(UserNotifications& notifications, const Clock& clock)
      : m_notifications(notifications), m_clock(clock) {}

  void requestPermission();
  /// Replaces the note's pending requests.
  void schedule(const Task& task);
  void cancel(const QUuid& id);
  /// Plans everything anew; what is on the screen stays there, and what was put off comes as it was put off.
  void rescheduleAll(const TaskList& tasks);
  /// Asks again in an hour, until the note is scheduled anew.
  void remindLater(const Task& task, const QString& identifier);

  /// What a note asks for at a moment; past moments are left out.
  [[nodiscard]] static std::vector<NotificationRequest> requests(const TaskRecord& record, const QDateTime& now,
                                                                 const Calendar& calendar);
  /// The note that a request's identifier belongs to; null when it is none of ours.
  [[nodiscard]] static QUuid noteOf(const QString& identifier);

 private:
  std::vector<NotificationRequest> m_later;  // put off by the user
  UserNotifications& m_notifications;
  const Clock& m_clock;
};

}  // namespace tarnwick
