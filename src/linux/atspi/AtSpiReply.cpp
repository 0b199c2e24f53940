// SPDX-License-Identifier: MIT
#include "linux/atspi/AtSpiReply.h"

#include "linux/dbus/BusCall.h"

#include <QDBusArgument>
#include <QDBusVariant>

#include <optional>

namespace tarnwick::atspi {

namespace {

constexpr std::chrono::milliseconds kAnswerTime(100);

std::optional<ElementRef> takeRef(const QDBusArgument& argument) {
  if (argument.currentType() != QDBusArgument::StructureType) return std::nullopt;
  QString service;
  QDBusObjectPath path;
  argument.beginStructure();
  argument >> service >> path;
  argument.endStructure();
  return ElementRef{service, path.path()};
}

}  // namespace

void call(const QDBusConnection& bus, const QDBusMessage& message, QObject* owner,
          std::function<void(const QDBusMessage&)> answer) {
  ask(bus, message, owner, std::move(answer), kAnswerTime);
}

std::vector<ElementRef> refsFrom(const QDBusMessage& reply) {
  std::vector<ElementRef> refs;
  const auto values = reply.arguments();
  if (values.isEmpty() || !values.front().canConvert<QDBusArgument>()) return refs;
  const auto argument = values.front().value<QDBusArgument>();  // const: a writable one would be written to
  if (argument.currentType() == QDBusArgument::ArrayType) {
    argument.beginArray();
    while (!argument.atEnd() && refs.size() < kMostChildren) {
      const auto ref = takeRef(argument);
      if (!ref) break;
      refs.push_back(*ref);
    }
    argument.endArray();
  } else if (const auto ref = takeRef(argument)) {
    refs.push_back(*ref);
  }
  return refs;
}

QVariant propertyFrom(const QDBusMessage& reply) {
  const auto values = reply.arguments();
  return values.isEmpty() ? QVariant() : values.front().value<QDBusVariant>().variant();
}

QDBusMessage getter(const ElementRef& element, const QString& property) {
  auto message = QDBusMessage::createMethodCall(element.service, element.path,
                                                QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
  message << QStringLiteral("org.a11y.atspi.Accessible") << property;
  return message;
}

QDBusMessage applications() {
  return QDBusMessage::createMethodCall(QStringLiteral("org.a11y.atspi.Registry"),
                                        QStringLiteral("/org/a11y/atspi/accessible/root"),
                                        QStringLiteral("org.a11y.atspi.Accessible"), QStringLiteral("GetChildren"));
}

QDBusMessage processOf(const ElementRef& application) {
  auto message = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetConnectionUnixProcessID"));
  message << application.service;
  return message;
}

qint64 processFrom(const QDBusMessage& reply) {
  if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) return 0;
  return reply.arguments().front().toUInt();
}

}  // namespace tarnwick::atspi
