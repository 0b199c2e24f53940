// SPDX-License-Identifier: MIT
// A connection to the X server of the session before anything listens to it: what is needed ahead of Qt's own connection
// is asked on it, and later it becomes the `XcbConnection`. To connect is dear while the server has other things to do.
#pragma once

#include <QtGlobal>

#include <xcb/xcb.h>

#include <memory>

namespace tarnwick {

class XcbLink {
 public:
  XcbLink() = default;  // not connected
  /// Not connected where the environment names no server.
  [[nodiscard]] static XcbLink opened() {
    XcbLink link;
    if (!qEnvironmentVariableIsEmpty("DISPLAY")) link.m_connection.reset(xcb_connect(nullptr, &link.m_screenNumber));
    return link;
  }

  [[nodiscard]] bool isUsable() const { return m_connection && xcb_connection_has_error(m_connection.get()) == 0; }
  /// Null when not connected.
  [[nodiscard]] xcb_connection_t* get() const { return m_connection.get(); }
  [[nodiscard]] int screenNumber() const { return m_screenNumber; }

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };

  int m_screenNumber = 0;
  std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
};

}  // namespace tarnwick
