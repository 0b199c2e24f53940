// SPDX-License-Identifier: MIT
#include "linux/dbus/FreedesktopNotifications.h"

#include "linux/dbus/BusCall.h"
#include "platform/Clock.h"
#include "platform/Power.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"

#include <QCoreApplication>
#include <QDBusError>
#include <QDBusReply>

#include <algorithm>

namespace tarnwick {

namespace {

using namespace std::chrono_literals;

const QString kService = QStringLiteral("org.freedesktop.Notifications");
const QString kDefaultAction = QStringLiteral("default");
const QString kPath = QStringLiteral("/org/freedesktop/Notifications");
constexpr uchar kUrgencyNormal = 1;
// A clock that is moved without anybody saying so is noticed after this at the latest.
constexpr std::chrono::milliseconds kLongestWait = 1h;

/// Whether an answer says that nobody serves notifications now.
bool isAbsence(const QDBusError& error) {
  return error.type() == QDBusError::ServiceUnknown || error.type() == QDBusError::NoReply ||
         error.name().startsWith(u"org.freedesktop.DBus.Error.Spawn.");
}

QDBusMessage callTo(const QString& method) {
  return QDBusMessage::createMethodCall(kService, kPath, kService, method);
}

}  // namespace

FreedesktopNotifications::FreedesktopNotifications(const Clock& clock, Scheduler& scheduler, Power& power)
    : m_clock(clock), m_scheduler(scheduler) {
  m_clockChanges = power.observe([this](PowerEvent event) {
    if (event != PowerEvent::SessionBecameActive && event != PowerEvent::ScreensDidWake) fireDue();
  });
  auto bus = QDBusConnection::sessionBus();
  m_hasBus = bus.isConnected();
  if (!m_hasBus) return;
  bus.connect(kService, kPath, kService, QStringLiteral("ActionInvoked"), this, SLOT(actionInvoked(uint, QString)));
  bus.connect(kService, kPath, kService, QStringLiteral("NotificationClosed"), this, SLOT(notificationClosed(uint, uint)));
  bus.connect(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
              QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameOwnerChanged"), {kService}, QString(), this,
              SLOT(serviceChanged(QString, QString, QString)));
}

FreedesktopNotifications::~FreedesktopNotifications() = default;

PortTraits FreedesktopNotifications::traits() const {
  if (!m_hasBus) return PortTraits::unavailable(QCoreApplication::translate("Notifications", "no session bus"));
  if (m_isAbsent) {
    return PortTraits::unavailable(QCoreApplication::translate("Notifications", "this desktop shows no notifications"));
  }
  return PortTraits::served(QStringLiteral("freedesktop"));
}

void FreedesktopNotifications::requestAuthorization() { askCapabilities(); }

void FreedesktopNotifications::add(const NotificationRequest& request) {
  for (auto* waiting : {&m_pending, &m_missed}) {
    std::erase_if(*waiting, [&](const auto& each) { return each.identifier == request.identifier; });
  }
  const auto place = std::upper_bound(m_pending.begin(), m_pending.end(), request,
                                      [](const auto& a, const auto& b) { return a.firesAt < b.firesAt; });
  m_pending.insert(place, request);
  plan();
}

void FreedesktopNotifications::remove(const QStringList& identifiers) {
  for (auto* waiting : {&m_pending, &m_missed}) {
    std::erase_if(*waiting, [&](const auto& each) { return identifiers.contains(each.identifier); });
  }
  m_shown.removeIf([&](const auto& shown) {
    if (!identifiers.contains(shown.value())) return false;
    withdraw(shown.key());
    return true;
  });
  for (const auto& identifier : identifiers) {
    if (m_asked.contains(identifier)) m_unwanted.insert(identifier);
  }
  plan();
}

void FreedesktopNotifications::removeAll() {
  m_pending.clear();
  plan();
}

Registration FreedesktopNotifications::onActedOn(ActedOn observer) {
  return m_actedOn.add(std::move(observer));
}

void FreedesktopNotifications::plan() {
  m_timer.cancel();
  if (m_pending.empty()) return;
  const std::chrono::milliseconds left(m_clock.now().msecsTo(m_pending.front().firesAt));
  m_timer = m_scheduler.after(std::clamp(left, 0ms, kLongestWait), [this] { fireDue(); });
}

void FreedesktopNotifications::fireDue() {
  const auto now = m_clock.now();
  std::vector<NotificationRequest> due;
  while (!m_pending.empty() && m_pending.front().firesAt <= now) {
    due.push_back(std::move(m_pending.front()));
    m_pending.erase(m_pending.begin());
  }
  for (const auto& request : due) show(request);
  plan();
}

void FreedesktopNotifications::show(const NotificationRequest& request) {
  if (!m_hasBus) return;
  uint replaces = 0;
  for (auto shown = m_shown.cbegin(); shown != m_shown.cend(); ++shown) {
    if (shown.value() == request.identifier) replaces = shown.key();
  }
  const QVariantMap hints{{QStringLiteral("desktop-entry"), kApplicationID},
                          {QStringLiteral("urgency"), QVariant::fromValue(kUrgencyNormal)},
                          {QStringLiteral("category"), QStringLiteral("x-tarnwick.reminder")},
                          {QStringLiteral("sound-name"), QStringLiteral("message-new-instant")}};
  QStringList actions;
  if (m_hasActions) {
    actions << kDefaultAction << QCoreApplication::translate("Notifications", "Open");
    for (const auto& action : request.actions) actions << action.key << action.label;
  }
  auto call = callTo(QStringLiteral("Notify"));
  call << QStringLiteral("Tarnwick") << replaces << kApplicationID << request.title
       << (m_hasMarkup ? request.body.toHtmlEscaped() : request.body) << actions << hints << -1;
  m_asked.insert(request.identifier);
  m_unwanted.remove(request.identifier);
  ask(QDBusConnection::sessionBus(), call, this, [this, request](const QDBusMessage& answer) {
    const QDBusReply<uint> id = answer;
    const QString& identifier = request.identifier;
    m_asked.remove(identifier);
    const bool isUnwanted = m_unwanted.remove(identifier);
    m_isAbsent = isAbsence(id.error());
    if (m_isAbsent && !isUnwanted) m_missed.push_back(request);
    if (!id.isValid()) return;
    // A slow server shows what was removed before it answered.
    if (isUnwanted) {
      withdraw(id.value());
    } else {
      m_shown.insert(id.value(), identifier);
    }
  });
}

void FreedesktopNotifications::withdraw(uint id) {
  auto call = callTo(QStringLiteral("CloseNotification"));
  call.setAutoStartService(false);
  call << id;
  QDBusConnection::sessionBus().send(call);
}

void FreedesktopNotifications::askCapabilities() {
  if (!m_hasBus) return;
  ask(QDBusConnection::sessionBus(), callTo(QStringLiteral("GetCapabilities")), this, [this](const QDBusMessage& answer) {
    const QDBusReply<QStringList> words = answer;
    m_isAbsent = isAbsence(words.error());
    if (!words.isValid()) return;
    m_hasMarkup = words.value().contains(u"body-markup");
    m_hasActions = words.value().contains(u"actions");
  });
}

void FreedesktopNotifications::actionInvoked(uint id, const QString& action) {
  const auto identifier = m_shown.take(id);
  if (!identifier.isEmpty()) m_actedOn.notify(identifier, action == kDefaultAction ? QString() : action);
}

void FreedesktopNotifications::notificationClosed(uint id, uint) { m_shown.remove(id); }

void FreedesktopNotifications::serviceChanged(const QString&, const QString&, const QString& newOwner) {
  m_shown.clear();  // numbers of a server that is gone
  if (newOwner.isEmpty()) return;
  askCapabilities();
  for (const auto& request : std::exchange(m_missed, {})) show(request);
}

}  // namespace tarnwick
