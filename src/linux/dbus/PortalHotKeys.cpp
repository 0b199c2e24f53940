// SPDX-License-Identifier: MIT
#include "linux/dbus/PortalHotKeys.h"

#include "linux/dbus/BusCall.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMetaType>
#include <QKeySequence>

namespace tarnwick {

/// One entry of the portal's list of shortcuts, (sa{sv}).
struct PortalShortcut {
  QString id;
  QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut) {
  argument.beginStructure();
  argument << shortcut.id << shortcut.properties;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut) {
  argument.beginStructure();
  argument >> shortcut.id >> shortcut.properties;
  argument.endStructure();
  return argument;
}

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kShortcuts = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const QString kRequest = QStringLiteral("org.freedesktop.portal.Request");
constexpr int kNoChord = 2;

}  // namespace

QString portalTrigger(const QString& chord) {
  const auto sequence = QKeySequence::fromString(chord, QKeySequence::PortableText);
  if (sequence.count() != 1 || sequence[0].key() == Qt::Key_unknown) return {};
  const auto modifiers = sequence[0].keyboardModifiers();
  QString trigger;
  if (modifiers.testFlag(Qt::ControlModifier)) trigger += QStringLiteral("CTRL+");
  if (modifiers.testFlag(Qt::AltModifier)) trigger += QStringLiteral("ALT+");
  if (modifiers.testFlag(Qt::MetaModifier)) trigger += QStringLiteral("LOGO+");
  if (modifiers.testFlag(Qt::ShiftModifier)) trigger += QStringLiteral("SHIFT+");
  const auto key = QKeySequence(sequence[0].key()).toString(QKeySequence::PortableText);
  return trigger + (key.size() == 1 ? key.toLower() : key);
}

PortalHotKeys::PortalHotKeys() : m_works(std::make_shared<Works>()) {
  qDBusRegisterMetaType<PortalShortcut>();
  qDBusRegisterMetaType<QList<PortalShortcut>>();
  auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) {
    fail(QCoreApplication::translate("HotKeys", "no session bus"));
    return;
  }
  m_hasBus = true;
  // As the message is: a slot that takes an object path cannot be connected.
  bus.connect(kService, kPath, kShortcuts, QStringLiteral("Activated"), this, SLOT(activated(QDBusMessage)));
}

PortalHotKeys::~PortalHotKeys() {
  m_works.reset();
  closeSession();
}

void PortalHotKeys::closeSession() {
  if (m_session.isEmpty()) return;
  QDBusConnection::sessionBus().send(QDBusMessage::createMethodCall(
      kService, m_session, QStringLiteral("org.freedesktop.portal.Session"), QStringLiteral("Close")));
  m_session.clear();
}

void PortalHotKeys::createSession() {
  m_isAsking = true;
  const auto token = QStringLiteral("tarnwick_session%1").arg(++m_serial);
  request(QStringLiteral("CreateSession"), {}, {{QStringLiteral("session_handle_token"), token}},
          SLOT(sessionAnswered(uint, QVariantMap)));
}

PortTraits PortalHotKeys::traits() const {
  return m_failure.isEmpty() ? PortTraits::served(QStringLiteral("portal")) : PortTraits::unavailable(m_failure);
}

HotKeyRegistration PortalHotKeys::registerChord(const QString& chord, std::function<void()> work) {
  if (portalTrigger(chord).isEmpty()) return {kNoChord, {}};
  if (!m_hasBus) return {-1, {}};
  m_failure.clear();  // what was refused once may be granted now
  m_works->insert_or_assign(chord, std::move(work));
  if (!m_isAsking) {
    // A session is bound once: other shortcuts need another one.
    closeSession();
    createSession();
  }
  return {0, Registration([chord, weak = std::weak_ptr(m_works)] {
            if (const auto works = weak.lock()) works->erase(chord);
          })};
}

void PortalHotKeys::request(const QString& method, QVariantList arguments, QVariantMap options, const char* answerSlot) {
  auto bus = QDBusConnection::sessionBus();
  const auto token = QStringLiteral("tarnwick%1").arg(++m_serial);
  options.insert(QStringLiteral("handle_token"), token);
  // The path follows from our name and the token, so that the answer cannot come before we listen.
  const auto sender = bus.baseService().mid(1).replace(u'.', u'_');
  const auto path = QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
  bus.connect(kService, path, kRequest, QStringLiteral("Response"), this, answerSlot);
  auto message = QDBusMessage::createMethodCall(kService, kPath, kShortcuts, method);
  arguments.append(options);
  message.setArguments(arguments);
  ask(bus, message, this, [this](const QDBusMessage& reply) {
    if (reply.type() == QDBusMessage::ReplyMessage) return;
    fail(QCoreApplication::translate("HotKeys", "the desktop portal has no global shortcuts"));
  });
}

void PortalHotKeys::sessionAnswered(uint response, const QVariantMap& results) {
  m_isAsking = false;
  const auto handle = results.value(QStringLiteral("session_handle"));
  m_session = handle.canConvert<QDBusObjectPath>() ? handle.value<QDBusObjectPath>().path() : QString();
  if (m_session.isEmpty()) m_session = handle.toString();  // a text in the protocol as it is written
  if (response != 0 || m_session.isEmpty()) {
    fail(QCoreApplication::translate("HotKeys", "the desktop refused global shortcuts"));
    return;
  }
  bind();
}

void PortalHotKeys::bind() {
  QList<PortalShortcut> shortcuts;
  for (const auto& [chord, work] : *m_works) {
    shortcuts.append({chord,
                      {{QStringLiteral("description"), QCoreApplication::translate("HotKeys", "Show or hide the board")},
                       {QStringLiteral("preferred_trigger"), portalTrigger(chord)}}});
  }
  request(QStringLiteral("BindShortcuts"),
          {QVariant::fromValue(QDBusObjectPath(m_session)), QVariant::fromValue(shortcuts), QString()}, {},
          SLOT(bindAnswered(uint, QVariantMap)));
}

void PortalHotKeys::bindAnswered(uint response, const QVariantMap&) {
  if (response != 0) fail(QCoreApplication::translate("HotKeys", "the desktop refused global shortcuts"));
}

void PortalHotKeys::activated(const QDBusMessage& message) {
  const auto words = message.arguments();
  if (words.size() < 2 || words.at(0).value<QDBusObjectPath>().path() != m_session) return;
  const auto shortcut = words.at(1).toString();
  if (const auto found = m_works->find(shortcut); found != m_works->end()) {
    const auto work = found->second;  // it may end the registration
    work();
  }
}

void PortalHotKeys::fail(const QString& reason) {
  m_failure = reason;
  m_isAsking = false;
}

}  // namespace tarnwick

Q_DECLARE_METATYPE(tarnwick::PortalShortcut)
