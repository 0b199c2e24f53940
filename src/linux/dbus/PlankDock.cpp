// SPDX-License-Identifier: MIT
#include "linux/dbus/PlankDock.h"

#include "linux/dbus/BusCall.h"
#include "linux/x11/NativeSpace.h"

#include <QFileInfo>
#include <QUrl>

namespace tarnwick {

namespace {

const QString kService = QStringLiteral("net.launchpad.plank");
const QString kPath = QStringLiteral("/net/launchpad/plank/dock1");
const QString kItems = QStringLiteral("net.launchpad.plank.Items");
const QString kTrashItem = QStringLiteral("docklet://trash");
constexpr double kTile = 48;  // plank's own default; its setting is not on the bus
enum DockSide { kLeftSide, kRightSide, kTopSide, kBottomSide };

/// The icon under a hover position, which lies on the dock's inner edge: a theme's margins grow with its icons, so the
/// distance to the screen's edge tells their size, within two pixels in each of plank's own themes.
QRect tileAt(QPoint hover, int side) {
  constexpr double kIconShare = 0.74;
  constexpr double kMiddleShare = 0.53;
  const QRect screen = nativeScreenAt(hover);
  QPointF middle = hover;
  double depth = 0;
  switch (side) {
    case kLeftSide:
      depth = hover.x() - screen.left();
      middle.setX(screen.left() + kMiddleShare * depth);
      break;
    case kRightSide:
      depth = screen.left() + screen.width() - hover.x();
      middle.setX(hover.x() + (1 - kMiddleShare) * depth);
      break;
    case kTopSide:
      depth = hover.y() - screen.top();
      middle.setY(screen.top() + kMiddleShare * depth);
      break;
    default:
      depth = screen.top() + screen.height() - hover.y();
      middle.setY(hover.y() + (1 - kMiddleShare) * depth);
      break;
  }
  const double edge = kIconShare * depth;
  return QRectF(middle.x() - edge / 2, middle.y() - edge / 2, edge, edge).toRect();
}

}  // namespace

PlankDock::PlankDock() {
  auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  bus.connect(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
              QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameOwnerChanged"), {kService}, QString(), this,
              SLOT(serviceChanged(QString, QString, QString)));
  // Its trash moves with every program that comes or goes.
  bus.connect(kService, kPath, kItems, QStringLiteral("Changed"), this, SLOT(refresh()));
  refresh();
}

void PlankDock::refresh() {
  ask(QStringLiteral("GetPersistentApplications"), {}, [this](const QVariantList& values) {
    m_state.tileSize = kTile;
    m_state.isShowingRecents = false;
    m_state.persistentApps.clear();
    m_state.persistentOthers = 0;
    for (const auto& item : values.value(0).toStringList()) {
      if (item == kTrashItem) continue;
      if (item.endsWith(u".desktop")) {
        m_state.persistentApps << QFileInfo(QUrl(item).path()).completeBaseName();
      } else {
        ++m_state.persistentOthers;
      }
    }
  });
  ask(QStringLiteral("GetHoverPosition"), {kTrashItem}, [this](const QVariantList& values) {
    m_trash.reset();
    if (values.size() >= 4 && values[3].toBool()) {
      m_trash = tileAt({values[0].toInt(), values[1].toInt()}, values[2].toInt());
    }
  });
}

void PlankDock::ask(const QString& method, const QVariantList& arguments, std::function<void(const QVariantList&)> answer) {
  auto message = QDBusMessage::createMethodCall(kService, kPath, kItems, method);
  message.setAutoStartService(false);
  message.setArguments(arguments);
  tarnwick::ask(QDBusConnection::sessionBus(), message, this, [answer = std::move(answer)](const QDBusMessage& reply) {
    if (reply.type() == QDBusMessage::ReplyMessage) answer(reply.arguments());
  });
}

void PlankDock::serviceChanged(const QString&, const QString&, const QString& newOwner) {
  forget();
  if (!newOwner.isEmpty()) refresh();
}

void PlankDock::forget() {
  m_state = {};
  m_trash.reset();
}

}  // namespace tarnwick
