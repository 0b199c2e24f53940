// SPDX-License-Identifier: MIT
#include "linux/dbus/PlankDock.h"

#include "linux/dbus/BusCall.h"
#include "platform/Scheduler.h"

#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace tarnwick {

namespace {

const QString kService = QStringLiteral("net.launchpad.plank");
const QString kPath = QStringLiteral("/net/launchpad/plank/dock1");
const QString kItems = QStringLiteral("net.launchpad.plank.Items");
const QString kTrashItem = QStringLiteral("docklet://trash");
constexpr std::chrono::milliseconds kAfterStart(300);
constexpr double kTile = 48;  // plank's own default; its setting is not on the bus
enum DockSide { kLeftSide, kRightSide, kTopSide, kBottomSide };

}  // namespace

PlankDock::PlankDock(Scheduler& scheduler) {
  m_later = scheduler.after(kAfterStart, [this] { listen(); });
}

void PlankDock::listen() {
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
      m_trash = Hover{{values[0].toInt(), values[1].toInt()}, values[2].toInt()};
    }
  });
}

std::optional<QRect> PlankDock::trash(const std::vector<QRect>& windows) const {
  if (!m_trash) return std::nullopt;
  const auto& [hover, side] = *m_trash;
  const bool isUpright = side == kLeftSide || side == kRightSide;
  const auto dock = std::ranges::find_if(
      windows, [&](const QRect& window) { return (window.height() > window.width()) == isUpright; });
  if (dock == windows.end()) return std::nullopt;

  // Shares of plank's own themes, within two pixels at the usual size: an icon of its window, room for zooming included,
  // and of the icon how deep its middle lies.
  constexpr double kWindowOfIcon = 2.93;
  constexpr double kMiddleOfIcon = 0.75;
  const double edge = (isUpright ? dock->width() : dock->height()) / kWindowOfIcon;
  const bool isFarSide = side == kRightSide || side == kBottomSide;
  const int rim = isUpright ? (isFarSide ? dock->x() + dock->width() : dock->x())
                            : (isFarSide ? dock->y() + dock->height() : dock->y());

  // Its toolkit's pixels are larger on a desktop that is drawn larger. A hover position lies above its icon, and higher
  // where icons zoom: only the right scale brings it there.
  constexpr double kLeastHeight = 1.2;
  constexpr double kMostHeight = 2.5;
  constexpr int kLargestScale = 4;
  int scale = 1;
  for (int tried = 1; tried <= kLargestScale; ++tried) {
    const double height = std::abs(rim - tried * (isUpright ? hover.x() : hover.y()));
    if (height < kLeastHeight * edge || height > kMostHeight * edge) continue;
    scale = tried;
    break;
  }
  const double across = rim + (isFarSide ? -1 : 1) * kMiddleOfIcon * edge;
  const double along = scale * (isUpright ? hover.y() : hover.x());
  const QPointF middle = isUpright ? QPointF(across, along) : QPointF(along, across);
  return QRectF(middle.x() - edge / 2, middle.y() - edge / 2, edge, edge).toRect();
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
