// SPDX-License-Identifier: MIT
#include "linux/dbus/DBusInstance.h"

#include "linux/dbus/InstanceAdaptors.h"
#include "platform/Workspace.h"

#include <QDBusMessage>
#include <QDBusReply>
#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <csignal>

namespace tarnwick {

namespace {

const QString kPath = QStringLiteral("/app/tarnwick/Tarnwick");
const QString kCommandInterface = QStringLiteral("app.tarnwick.Tarnwick1");
constexpr int kReachTimeout = 2000;  // ms
constexpr int kForwardTimeout = 30000;  // ms: a save on a slow disk, an export of every note
constexpr std::array kEndingSignals = {SIGTERM, SIGINT, SIGHUP};

// A signal handler may only write to a descriptor; the event loop reads the other end.
std::array<int, 2> signalSockets = {-1, -1};

void onSignal(int) {
  const char byte = 1;
  [[maybe_unused]] const auto written = write(signalSockets[0], &byte, sizeof byte);
}

}  // namespace

void ApplicationAdaptor::Activate(const QVariantMap&) {
  if (m_instance.handlers().reopen) m_instance.handlers().reopen();
}

void ApplicationAdaptor::Open(const QStringList& uris, const QVariantMap&) {
  if (m_instance.handlers().open) m_instance.handlers().open(uris);
}

void ApplicationAdaptor::ActivateAction(const QString& name, const QVariantList&, const QVariantMap&) {
  if (m_instance.handlers().action) m_instance.handlers().action(name);
}

int CommandAdaptor::Command(const QStringList& arguments, const QString& standardInput, const QString& workingDirectory,
                            QString& output, QString& error) {
  if (!m_instance.handlers().command) return 1;
  const auto reply = m_instance.handlers().command({arguments, standardInput.toUtf8(), workingDirectory});
  output = QString::fromUtf8(reply.output);
  error = QString::fromUtf8(reply.error);
  return reply.exitStatus;
}

DBusInstance::DBusInstance() : m_bus(QDBusConnection::sessionBus()) {}

DBusInstance::~DBusInstance() {
  if (m_signals) {
    for (const int number : kEndingSignals) std::signal(number, SIG_DFL);
    m_signals.reset();
    for (int& socket : signalSockets) {
      close(socket);
      socket = -1;
    }
  }
  if (m_isOwner) {
    m_bus.unregisterObject(kPath);
    m_bus.unregisterService(kApplicationID);
  }
}

PortTraits DBusInstance::traits() const {
  return m_bus.isConnected() ? PortTraits::served(QStringLiteral("dbus"))
                             : PortTraits::unavailable(QObject::tr("no session bus"));
}

InstanceRole DBusInstance::acquire(InstanceHandlers handlers) {
  m_handlers = std::move(handlers);
  auto role = InstanceRole::NoBus;
  if (m_bus.isConnected()) {
    if (findChildren<QDBusAbstractAdaptor*>().isEmpty()) {
      new ApplicationAdaptor(this, *this);
      new CommandAdaptor(this, *this);
    }
    // The object first: whoever sees the name may call at once.
    m_bus.registerObject(kPath, this);
    m_isOwner = m_bus.registerService(kApplicationID);
    if (m_isOwner) {
      role = InstanceRole::First;
    } else {
      m_bus.unregisterObject(kPath);
      // Whoever shares the bus but not the notes is none of ours; whoever does not answer may still be starting.
      if (const auto path = storePathOfOwner(); path.isEmpty() || path == m_handlers.storePath) {
        m_handlers = {};
        return InstanceRole::Second;
      }
    }
  }
  listenForSignals();
  connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this](const QSessionManager&) {
    if (m_handlers.sessionEnds) m_handlers.sessionEnds();
  });
  return role;
}

QString DBusInstance::storePathOfOwner() {
  auto get = QDBusMessage::createMethodCall(kApplicationID, kPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                                            QStringLiteral("Get"));
  get.setAutoStartService(false);
  get << kCommandInterface << QStringLiteral("StorePath");
  const auto values = m_bus.call(get, QDBus::Block, kReachTimeout).arguments();
  return values.size() == 1 ? values[0].value<QDBusVariant>().variant().toString() : QString();
}

CommandReply DBusInstance::forward(const CommandCall& call) {
  if (call.arguments.isEmpty()) {  // a start by hand while it runs
    auto activate = QDBusMessage::createMethodCall(kApplicationID, kPath, QStringLiteral("org.freedesktop.Application"),
                                                   QStringLiteral("Activate"));
    activate.setAutoStartService(false);
    activate << QVariantMap();
    return {m_bus.call(activate, QDBus::Block, kForwardTimeout).type() == QDBusMessage::ReplyMessage ? 0 : 1, {}, {}};
  }
  auto message = QDBusMessage::createMethodCall(kApplicationID, kPath, kCommandInterface, QStringLiteral("Command"));
  message.setAutoStartService(false);
  message << call.arguments << QString::fromUtf8(call.standardInput) << call.workingDirectory;
  const auto reply = m_bus.call(message, QDBus::Block, kForwardTimeout);
  const auto values = reply.arguments();
  if (reply.type() != QDBusMessage::ReplyMessage || values.size() != 3) return {1, {}, "tarnwick: not running\n"};
  return {values[0].toInt(), values[1].toString().toUtf8(), values[2].toString().toUtf8()};
}

void DBusInstance::listenForSignals() {
  if (m_signals || socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, signalSockets.data()) != 0) return;
  m_signals = std::make_unique<QSocketNotifier>(signalSockets[1], QSocketNotifier::Read);
  connect(m_signals.get(), &QSocketNotifier::activated, this, [this] {
    char bytes[16];
    [[maybe_unused]] const auto got = read(signalSockets[1], bytes, sizeof bytes);
    if (m_handlers.sessionEnds) m_handlers.sessionEnds();
  });
  struct sigaction action = {};
  action.sa_handler = onSignal;
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  for (const int number : kEndingSignals) sigaction(number, &action, nullptr);
}

}  // namespace tarnwick
