// SPDX-License-Identifier: MIT
#include "linux/dbus/PlankDock.h"

#include "linux/dbus/BusCall.h"

#include <QFileInfo>
#include <QUrl>

namespace tarnwick {

namespace {

const QString kService = QStringLiteral("net.launchpad.plank");
const QString kTrashItem = QStringLiteral("docklet://trash");
constexpr int kTile = 48;         // plank's own default; its setting is not on the bus
constexpr int kHoverGap = 9;      // the hover position lies this far from the icon
enum DockSide { kLeftSide, kRightSide, kTopSide, kBottomSide };

QRect tileAt(int x, int y, int side) {
  switch (side) {
    case kLeftSide: return {x - kHoverGap - kTile, y - kTile / 2, kTile, kTile};
    case kRightSide: return {x + kHoverGap, y - kTile / 2, kTile, kTile};
    case kTopSide: return {x - kTile / 2, y - kHoverGap - kTile, kTile, kTile};
    default: return {x - kTile / 2, y + kHoverGap, kTile, kTile};
  }
}

}  // namespace

PlankDock::PlankDock() {
  auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  bus.connect(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
              QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameOwnerChanged"), {kService}, QString(), this,
              SLOT(serviceChanged(QString, QString, QString)));
  refresh();
}

void PlankDock::refresh() {
  ask(QStringLiteral("GetPersistentApplications"), {}, [this](const QVariantList& values) {
    m_isRunning = true;
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
      m_trash = tileAt(values[0].toInt(), values[1].toInt(), values[2].toInt());
    }
  });
}

void PlankDock::ask(const QString& method, const QVariantList& arguments, std::function<void(const QVariantList&)> answer) {
  auto message = QDBusMessage::createMethodCall(kService, QStringLiteral("/net/launchpad/plank/dock1"),
                                                QStringLiteral("net.launchpad.plank.Items"), method);
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
  m_isRunning = false;
  m_state = {};
  m_trash.reset();
}

}  // namespace tarnwick
