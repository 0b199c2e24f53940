// SPDX-License-Identifier: MIT
// What can be read of another program's top-level window.
#pragma once

#include "linux/x11/XcbConnection.h"

#include <QString>

namespace tarnwick {

enum class ClientKind { Ordinary, Dock, Desktop, Other };

struct ClientClass {
  QString instance;
  QString name;
};

class X11Clients final {
 public:
  explicit X11Clients(const XcbConnection& connection) : m_x(connection) {}

  /// The process on this machine that the window belongs to; 0 for a window of another machine.
  [[nodiscard]] qint64 pidOf(xcb_window_t window) const;
  [[nodiscard]] ClientClass classOf(xcb_window_t window) const;
  /// The desktop id that the window itself names, as toolkits write it; mostly empty.
  [[nodiscard]] QString desktopIdOf(xcb_window_t window) const;
  [[nodiscard]] QString titleOf(xcb_window_t window) const;
  [[nodiscard]] ClientKind kindOf(xcb_window_t window) const;
  [[nodiscard]] bool hasState(xcb_window_t window, const char* state) const;
  /// The window with the keyboard; none between two windows.
  [[nodiscard]] xcb_window_t active() const;
  /// The window of a process that has, or had last, the keyboard; `present` is kept while another program has it.
  [[nodiscard]] xcb_window_t focusedOf(qint64 pid, xcb_window_t present = XCB_NONE) const;

 private:
  const XcbConnection& m_x;
};

}  // namespace tarnwick
