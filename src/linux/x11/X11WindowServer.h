// SPDX-License-Identifier: MIT
// Level, desktops, input shape, stacking and keyboard of our own windows, by the window manager's protocol. Works on
// Qt's own connection, so that requests keep their order with what Qt sends.
#pragma once

#include "platform/WindowServer.h"

#include <QHash>
#include <QObject>

#include <xcb/xcb.h>

#include <initializer_list>
#include <vector>

namespace tarnwick {

class X11WindowServer final : public QObject, public WindowServer {
 public:
  X11WindowServer();

  void applyLevel(QWindow& window, WindowLevel level) override;
  void setClickThrough(QWindow& window, ClickThrough clickThrough) override;
  void setOpacity(QWindow& window, double opacity) override;
  void setShadowMargins(QWindow& window, const QMargins& margins) override;
  void raiseWithoutActivating(QWindow& window) override;
  void activate(QWindow& window) override;
  /// X11 lets every client read the screen: the wish is kept with the window, nothing enforces it.
  void setSharing(QWindow& window, SharingType sharing) override;
  [[nodiscard]] std::optional<DesktopRect> frameOf(QWindow& window) const override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Wishes {
    ClickThrough clickThrough = ClickThrough::Off;
    QMargins margins;
  };
  Wishes& wishesOf(QWindow& window);
  /// What must stand before a window is first seen by the window manager and by panels.
  void prepare(QWindow& window, WindowLevel level);
  void applyExtents(QWindow& window);
  void applyShape(QWindow& window);
  void sendToRoot(QWindow& window, xcb_atom_t type, std::initializer_list<uint32_t> data);
  void setState(QWindow& window, bool isOn, xcb_atom_t first, xcb_atom_t second = XCB_NONE);
  void requestStackingAboveAll(QWindow& window);
  [[nodiscard]] std::vector<uint32_t> rootProperty(xcb_atom_t name) const;
  [[nodiscard]] bool hasWindowManager() const;

  xcb_connection_t* m_connection;
  xcb_window_t m_root;
  struct Atoms {
    xcb_atom_t desktop, activeWindow, restack, state, below, above, skipTaskbar, skipPager, gtkExtents, wmCheck, supported, stacking;  // as their names are listed
  } m_atoms;
  QHash<const QObject*, Wishes> m_wishes;
};

}  // namespace tarnwick
