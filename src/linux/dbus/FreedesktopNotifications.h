// SPDX-License-Identifier: MIT
// Notifications through the desktop's server. The servers know no later delivery, so requests wait here and fire while
// Tarnwick runs; they are planned anew when the clock is moved. What is due while there is no server waits for one.
#pragma once

#include "linux/Observers.h"
#include "platform/UserNotifications.h"

#include <QHash>
#include <QObject>
#include <QSet>

#include <chrono>

namespace tarnwick {

class Clock;
class Power;
class Scheduler;

class FreedesktopNotifications final : public QObject, public UserNotifications {
  Q_OBJECT
 public:
  FreedesktopNotifications(const Clock& clock, Scheduler& scheduler, Power& power);
  ~FreedesktopNotifications() override;

  [[nodiscard]] PortTraits traits() const override;
  /// Asks the server what it understands; there is no permission to be had.
  void requestAuthorization() override;
  void add(const NotificationRequest& request) override;
  void remove(const QStringList& identifiers) override;
  void removeAll() override;
  [[nodiscard]] std::vector<NotificationRequest> pending() const override { return m_pending; }
  [[nodiscard]] Registration onActedOn(ActedOn observer) override;

 private Q_SLOTS:
  void actionInvoked(uint id, const QString& action);
  void notificationClosed(uint id, uint reason);
  void serviceChanged(const QString& name, const QString& oldOwner, const QString& newOwner);

 private:
  void plan();
  void fireDue();
  void show(const NotificationRequest& request);
  void withdraw(uint id);
  void askCapabilities();

  const Clock& m_clock;
  Scheduler& m_scheduler;
  std::vector<NotificationRequest> m_pending;  // soonest first
  QHash<uint, QString> m_shown;                // server's number -> identifier
  QSet<QString> m_asked;                       // on their way to the server
  QSet<QString> m_unwanted;                    // of those, what was removed meanwhile
  std::vector<NotificationRequest> m_missed;   // due while nobody could show them
  bool m_hasBus = false;
  bool m_isAbsent = false;  // by the last answer
  bool m_hasMarkup = false;
  bool m_hasActions = true;
  Registration m_timer;
  Registration m_clockChanges;
  Observers<const QString&, const QString&> m_actedOn;
};

}  // namespace tarnwick
