// SPDX-License-Identifier: MIT
// Harmless answers about other programs, for platforms that do not let one see them.
#pragma once

#include "platform/OtherWindows.h"
#include "platform/Workspace.h"

#include <QCursor>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QScreen>

namespace tarnwick {

class NoOtherWindows final : public OtherWindows {
 public:
  [[nodiscard]] WindowSight sight() const override { return WindowSight::None; }
  [[nodiscard]] std::vector<OtherWindow> onScreen() const override { return {}; }
  [[nodiscard]] Registration followFocusedWindow(qint64, FrameObserver) override { return {}; }
  [[nodiscard]] PointerState pointer() const override {
    const auto* primary = QGuiApplication::primaryScreen();
    const DesktopSpace space(primary ? primary->geometry().height() : 0);
    return {space.fromQt(QPointF(QCursor::pos())),
            QGuiApplication::queryKeyboardModifiers().testFlag(Qt::AltModifier)};
  }
};

class NoWorkspace final : public Workspace {
 public:
  [[nodiscard]] std::optional<RunningApplication> frontmost() const override { return std::nullopt; }
  [[nodiscard]] std::vector<RunningApplication> running() const override { return {}; }
  [[nodiscard]] Registration onActivated(Observer) override { return {}; }
  [[nodiscard]] Registration onDeactivated(Observer) override { return {}; }
  [[nodiscard]] Registration onTerminated(Observer) override { return {}; }
  [[nodiscard]] std::pair<QString, QIcon> identity(const QString& bundleID) const override { return {bundleID, {}}; }
  bool openUrl(const QUrl& url) override { return QDesktopServices::openUrl(url); }
  [[nodiscard]] bool isMotionReduced() const override { return false; }
};

}  // namespace tarnwick
