// SPDX-License-Identifier: MIT
#include "linux/dbus/LogindPower.h"

#include "linux/dbus/BusCall.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"

#include <QCoreApplication>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QSocketNotifier>

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace tarnwick {

namespace {

using namespace std::chrono_literals;

const QString kLogin = QStringLiteral("org.freedesktop.login1");
const QString kLoginPath = QStringLiteral("/org/freedesktop/login1");
const QString kManager = QStringLiteral("org.freedesktop.login1.Manager");
const QString kSession = QStringLiteral("org.freedesktop.login1.Session");
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");
const QString kPropertiesChanged = QStringLiteral("PropertiesChanged");
const QString kScreenSaver = QStringLiteral("org.freedesktop.ScreenSaver");
const QString kTimedate = QStringLiteral("org.freedesktop.timedate1");
const QString kZoneFolder = QStringLiteral("/etc");

}  // namespace

LogindPower::LogindPower(const Clock& clock, Scheduler& scheduler) : m_clock(clock), m_scheduler(scheduler) {
  m_zone = m_clock.timeZone().id();
  m_day = m_clock.now().toTimeZone(m_clock.timeZone()).date();
  listenToBuses();
  watchClock();
  watchZoneFile();
  planMidnight();
}

LogindPower::~LogindPower() {
  m_clockNotifier.reset();
  if (m_clockTimer >= 0) close(m_clockTimer);
}

PortTraits LogindPower::traits() const {
  return PortTraits::served(m_hasLogin ? QStringLiteral("logind") : QStringLiteral("clock"));
}

Registration LogindPower::observe(std::function<void(PowerEvent)> observer) { return m_observers.add(std::move(observer)); }

void LogindPower::listenToBuses() {
  auto session = QDBusConnection::sessionBus();
  if (session.isConnected()) {
    for (const auto& path : {QStringLiteral("/org/freedesktop/ScreenSaver"), QStringLiteral("/ScreenSaver")}) {
      session.connect(QString(), path, kScreenSaver, QStringLiteral("ActiveChanged"), this, SLOT(screenSaverChanged(bool)));
    }
  }
  auto system = QDBusConnection::systemBus();
  m_hasLogin = system.isConnected();
  if (!m_hasLogin) return;
  system.connect(kLogin, kLoginPath, kManager, QStringLiteral("PrepareForSleep"), this, SLOT(prepareForSleep(bool)));
  system.connect(kTimedate, QStringLiteral("/org/freedesktop/timedate1"), kProperties, kPropertiesChanged, this,
                 SLOT(timedateChanged(QString, QVariantMap, QStringList)));
  auto which = QDBusMessage::createMethodCall(kLogin, kLoginPath, kManager, QStringLiteral("GetSession"));
  const auto sessionID = qEnvironmentVariable("XDG_SESSION_ID");
  which << (sessionID.isEmpty() ? QStringLiteral("auto") : sessionID);
  ask(system, which, this, [this](const QDBusMessage& answer) {
    const QDBusReply<QDBusObjectPath> path = answer;
    if (path.isValid()) followSession(path.value().path());
  });
}

void LogindPower::followSession(const QString& path) {
  QDBusConnection::systemBus().connect(kLogin, path, kProperties, kPropertiesChanged, this,
                                       SLOT(sessionChanged(QString, QVariantMap, QStringList)));
}

void LogindPower::prepareForSleep(bool isGoingDown) {
  if (isGoingDown) return;
  m_observers.notify(PowerEvent::DidWake);
  checkDay();
}

void LogindPower::sessionChanged(const QString& interface, const QVariantMap& values, const QStringList&) {
  if (interface == kSession && values.value(QStringLiteral("Active")).toBool()) {
    m_observers.notify(PowerEvent::SessionBecameActive);
  }
}

void LogindPower::screenSaverChanged(bool isActive) {
  if (!isActive) m_observers.notify(PowerEvent::ScreensDidWake);
}

void LogindPower::timedateChanged(const QString&, const QVariantMap& values, const QStringList&) {
  if (values.contains(QStringLiteral("Timezone"))) clockChanged();
}

void LogindPower::watchClock() {
  m_clockTimer = timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC);
  if (m_clockTimer < 0) return;
  armClockTimer();
  m_clockNotifier = std::make_unique<QSocketNotifier>(m_clockTimer, QSocketNotifier::Read);
  connect(m_clockNotifier.get(), &QSocketNotifier::activated, this, [this] {
    uint64_t expirations = 0;
    const auto got = read(m_clockTimer, &expirations, sizeof expirations);
    const bool isMoved = got < 0 && errno == ECANCELED;
    armClockTimer();
    if (isMoved) clockChanged();
  });
}

void LogindPower::armClockTimer() {
  // A moment that never comes: only the cancellation by a set clock is wanted.
  itimerspec never = {};
  never.it_value.tv_sec = static_cast<time_t>(1) << 40;
  timerfd_settime(m_clockTimer, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &never, nullptr);
}

void LogindPower::watchZoneFile() {
  m_zoneFile.addPath(kZoneFolder);  // the file is replaced, not written
  connect(&m_zoneFile, &QFileSystemWatcher::directoryChanged, this, [this] {
    if (m_clock.timeZone().id() != m_zone) clockChanged();
  });
}

void LogindPower::clockChanged() {
  m_zone = m_clock.timeZone().id();
  m_observers.notify(PowerEvent::ClockChanged);
  checkDay();
}

void LogindPower::checkDay() {
  const auto today = m_clock.now().toTimeZone(m_clock.timeZone()).date();
  planMidnight();
  if (std::exchange(m_day, today) != today) m_observers.notify(PowerEvent::DayChanged);
}

void LogindPower::planMidnight() {
  const auto zone = m_clock.timeZone();
  const auto now = m_clock.now();
  const auto midnight = now.toTimeZone(zone).date().addDays(1).startOfDay(zone);
  const std::chrono::milliseconds left(now.msecsTo(midnight));
  // Timers stand still while the machine sleeps: a long wait is done in pieces.
  m_midnight = m_scheduler.after(std::clamp<std::chrono::milliseconds>(left, 1ms, 1h), [this] { checkDay(); });
}

}  // namespace tarnwick
