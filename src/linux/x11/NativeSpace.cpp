// SPDX-License-Identifier: MIT
#include "linux/x11/NativeSpace.h"

#include <QGuiApplication>
#include <QScreen>

namespace tarnwick {

namespace {

// Qt keeps a monitor's origin in device pixels and scales its size.
QRect nativeGeometry(const QScreen& screen) {
  return QRect(screen.geometry().topLeft(), screen.geometry().size() * screen.devicePixelRatio());
}

const QScreen* screenAt(QPoint native) {
  for (const auto* screen : QGuiApplication::screens()) {
    if (nativeGeometry(*screen).contains(native)) return screen;
  }
  return QGuiApplication::primaryScreen();
}

QPointF scaled(const QScreen& screen, QPointF native) {
  const QPointF origin = screen.geometry().topLeft();
  return (native - origin) / screen.devicePixelRatio() + origin;
}

DesktopSpace presentSpace() { return DesktopSpace(QGuiApplication::primaryScreen()->geometry().height()); }

}  // namespace

DesktopRect desktopFromNative(const QRect& native) {
  const auto* screen = screenAt(native.center());
  if (!screen) return {};
  const QSizeF size = QSizeF(native.size()) / screen->devicePixelRatio();
  return presentSpace().fromQt(QRectF(scaled(*screen, native.topLeft()), size));
}

DesktopPoint desktopFromNative(QPoint native) {
  const auto* screen = screenAt(native);
  if (!screen) return {};
  return presentSpace().fromQt(scaled(*screen, native));
}

}  // namespace tarnwick
