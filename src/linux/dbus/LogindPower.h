// SPDX-License-Identifier: MIT
// Sleep and the session from the login manager, the screen from the screen saver, a moved clock from the kernel, a new
// zone from the zone file, and the change of day from all of them and the local midnight.
#pragma once

#include "linux/Observers.h"
#include "platform/Power.h"

#include <QDBusObjectPath>
#include <QDate>
#include <QFileSystemWatcher>
#include <QObject>
#include <QVariantMap>

#include <memory>

class QSocketNotifier;

namespace tarnwick {

class Clock;
class Scheduler;

class LogindPower final : public QObject, public Power {
  Q_OBJECT
 public:
  LogindPower(const Clock& clock, Scheduler& scheduler);
  ~LogindPower() override;

  [[nodiscard]] PortTraits traits() const override;
  [[nodiscard]] Registration observe(std::function<void(PowerEvent)> observer) override;

 private Q_SLOTS:
  void prepareForSleep(bool isGoingDown);
  void sessionChanged(const QString& interface, const QVariantMap& values, const QStringList& invalidated);
  void screenSaverChanged(bool isActive);
  void timedateChanged(const QString& interface, const QVariantMap& values, const QStringList& invalidated);

 private:
  void listenToBuses();
  void followSession(const QString& path);
  void watchClock();
  void armClockTimer();
  void watchZoneFile();
  void clockChanged();
  void checkDay();
  void planMidnight();

  const Clock& m_clock;
  Scheduler& m_scheduler;
  bool m_hasLogin = false;
  int m_clockTimer = -1;
  std::unique_ptr<QSocketNotifier> m_clockNotifier;
  QFileSystemWatcher m_zoneFile;
  QByteArray m_zone;
  QDate m_day;
  Registration m_midnight;
  Observers<PowerEvent> m_observers;
};

}  // namespace tarnwick
