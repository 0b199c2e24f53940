// SPDX-License-Identifier: MIT
#include "linux/x11/X11Clients.h"

#include <QStringDecoder>
#include <QSysInfo>

#include <algorithm>

namespace tarnwick {

qint64 X11Clients::pidOf(xcb_window_t window) const {
  // The server knows who is connected; the property is the program's own word, and means something else when it was
  // written inside a sandbox with process numbers of its own or on another machine.
  if (const auto pid = m_x.localPid(window)) return *pid;
  const auto claimed = m_x.cardinal(window, "_NET_WM_PID").value_or(0);
  if (claimed == 0) return 0;
  const auto machine = m_x.property(window, "WM_CLIENT_MACHINE");
  return machine.isEmpty() || QString::fromLocal8Bit(machine) == QSysInfo::machineHostName() ? claimed : 0;
}

ClientClass X11Clients::classOf(xcb_window_t window) const {
  const auto parts = m_x.property(window, "WM_CLASS").split('\0');
  return {QString::fromLatin1(parts.value(0)), QString::fromLatin1(parts.value(1))};
}

QString X11Clients::desktopIdOf(xcb_window_t window) const {
  for (const char* name : {"_GTK_APPLICATION_ID", "_KDE_NET_WM_DESKTOP_FILE"}) {
    auto id = QString::fromUtf8(m_x.property(window, name)).section(u'/', -1);  // some write the file's path
    if (id.endsWith(u".desktop")) id.chop(8);
    if (!id.isEmpty()) return id;
  }
  return {};
}

QString X11Clients::titleOf(xcb_window_t window) const {
  const auto title = m_x.property(window, "_NET_WM_NAME");
  if (!title.isEmpty()) return QString::fromUtf8(title);
  // The older property is Latin-1 by its rules; what is valid UTF-8 in it is hardly meant otherwise.
  const auto plain = m_x.property(window, "WM_NAME");
  QStringDecoder decode(QStringDecoder::Utf8);
  const QString text = decode(plain);
  return decode.hasError() ? QString::fromLatin1(plain) : text;
}

ClientKind X11Clients::kindOf(xcb_window_t window) const {
  for (const auto type : m_x.cardinals(window, "_NET_WM_WINDOW_TYPE")) {
    if (type == m_x.atom("_NET_WM_WINDOW_TYPE_NORMAL") || type == m_x.atom("_NET_WM_WINDOW_TYPE_DIALOG")) {
      return ClientKind::Ordinary;
    }
    if (type == m_x.atom("_NET_WM_WINDOW_TYPE_DOCK")) return ClientKind::Dock;
    if (type == m_x.atom("_NET_WM_WINDOW_TYPE_DESKTOP")) return ClientKind::Desktop;
    if (type == m_x.atom("_NET_WM_WINDOW_TYPE_UTILITY")) return ClientKind::Other;
  }
  return ClientKind::Ordinary;
}

bool X11Clients::hasState(xcb_window_t window, const char* state) const {
  const auto states = m_x.cardinals(window, "_NET_WM_STATE");
  return std::find(states.begin(), states.end(), m_x.atom(state)) != states.end();
}

xcb_window_t X11Clients::active() const { return m_x.cardinal(m_x.root(), "_NET_ACTIVE_WINDOW").value_or(XCB_NONE); }

xcb_window_t X11Clients::focusedOf(qint64 pid, xcb_window_t present) const {
  if (const auto window = active(); window != XCB_NONE && pidOf(window) == pid) return window;
  if (present != XCB_NONE && m_x.isViewable(present)) return present;
  const auto windows = m_x.clients();
  for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
    if (pidOf(*window) == pid && kindOf(*window) == ClientKind::Ordinary && m_x.isViewable(*window)) return *window;
  }
  return XCB_NONE;
}

}  // namespace tarnwick
