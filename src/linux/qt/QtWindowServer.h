// SPDX-License-Identifier: MIT
// What plain Qt can do for our windows where there is no X11: flags, opacity, raise.
#pragma once

#include "platform/WindowServer.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace tarnwick {

/// Flags of a window of ours at a level; its own hints beyond them stay.
[[nodiscard]] inline Qt::WindowFlags flagsForLevel(Qt::WindowFlags present, WindowLevel level) {
  constexpr Qt::WindowFlags decided = Qt::WindowType_Mask | Qt::WindowStaysOnTopHint | Qt::WindowStaysOnBottomHint |
                                      Qt::BypassWindowManagerHint | Qt::WindowTransparentForInput;
  const auto kept = (present & ~decided) | Qt::FramelessWindowHint;
  switch (level) {
    case WindowLevel::Floating: return kept | Qt::Tool | Qt::WindowStaysOnTopHint;
    case WindowLevel::Desktop: return kept | Qt::Tool | Qt::WindowStaysOnBottomHint;
    case WindowLevel::Overlay:
      return kept | Qt::Window | Qt::WindowStaysOnTopHint | Qt::BypassWindowManagerHint | Qt::WindowTransparentForInput;
  }
  return kept;
}

class QtWindowServer final : public WindowServer {
 public:
  void applyLevel(QWindow& window, WindowLevel level) override { window.setFlags(flagsForLevel(window.flags(), level)); }
  void setClickThrough(QWindow& window, ClickThrough clickThrough) override {
    window.setFlag(Qt::WindowTransparentForInput, clickThrough == ClickThrough::On);
  }
  void setOpacity(QWindow& window, double opacity) override { window.setOpacity(opacity); }
  void setShadowMargins(QWindow&, const QMargins&) override {}
  void raiseWithoutActivating(QWindow& window) override { window.raise(); }
  void activate(QWindow& window) override {
    window.raise();
    window.requestActivate();
  }
  void setSharing(QWindow&, SharingType) override {}
  /// What Qt knows: there is nobody to ask.
  [[nodiscard]] std::optional<DesktopRect> frameOf(QWindow& window) const override {
    const auto* primary = QGuiApplication::primaryScreen();
    if (!primary) return std::nullopt;
    return DesktopSpace(primary->geometry().height()).fromQt(QRectF(window.geometry()));
  }
};

}  // namespace tarnwick
