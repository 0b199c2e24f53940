// SPDX-License-Identifier: MIT
// Every signal by which Qt says that the monitors are no longer what they were, as one call.
#pragma once

#include <QGuiApplication>
#include <QObject>
#include <QScreen>

#include <functional>

namespace tarnwick {

inline void observeScreens(QObject* owner, const std::function<void()>& changed) {
  const auto watch = [owner, changed](const QScreen* screen) {
    QObject::connect(screen, &QScreen::geometryChanged, owner, changed);
    QObject::connect(screen, &QScreen::availableGeometryChanged, owner, changed);
    QObject::connect(screen, &QScreen::physicalDotsPerInchChanged, owner, changed);
    QObject::connect(screen, &QScreen::logicalDotsPerInchChanged, owner, changed);
  };
  for (const auto* screen : QGuiApplication::screens()) watch(screen);
  QObject::connect(qGuiApp, &QGuiApplication::screenAdded, owner, [watch, changed](const QScreen* screen) {
    watch(screen);
    changed();
  });
  QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, owner, changed);
  QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, owner, changed);
}

/// The primary one first.
inline QList<QScreen*> orderedScreens() {
  auto screens = QGuiApplication::screens();
  if (auto* primary = QGuiApplication::primaryScreen(); primary && screens.removeOne(primary)) screens.prepend(primary);
  return screens;
}

}  // namespace tarnwick
