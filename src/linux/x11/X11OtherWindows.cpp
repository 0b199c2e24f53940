// SPDX-License-Identifier: MIT
#include "linux/x11/X11OtherWindows.h"

#include "linux/Observers.h"
#include "linux/x11/NativeSpace.h"

#include <QMetaObject>

#include <unistd.h>

#include <algorithm>

namespace tarnwick {

namespace {

constexpr int kFloatingLayer = 3;
constexpr int kDockLayer = 20;
constexpr int kBelowLayer = -1;

}  // namespace

struct X11OtherWindows::Follower {
  qint64 pid = 0;
  Observers<std::optional<DesktopRect>> observers;  // all notes at one window share the reading of its frame
  xcb_window_t client = XCB_NONE;
  xcb_window_t around = XCB_NONE;  // the window manager's frame
  std::vector<Registration> events;
  std::optional<DesktopRect> last;
  bool hasReported = false;
  bool isReportDue = false;
};

X11OtherWindows::X11OtherWindows(XcbConnection& connection, WindowSight sight)
    : m_x(connection), m_sight(sight), m_clients(connection), m_followers(std::make_shared<Followers>()) {
  m_handles.push_back(m_x.select(m_x.root(), XCB_EVENT_MASK_PROPERTY_CHANGE));
  m_handles.push_back(m_x.onEvent([this](const auto& event) { handle(event); }));
}

X11OtherWindows::~X11OtherWindows() = default;

std::vector<OtherWindow> X11OtherWindows::onScreen() const {
  std::vector<OtherWindow> windows;
  const auto clients = m_x.clients();
  for (auto client = clients.rbegin(); client != clients.rend(); ++client) {
    const auto pid = m_clients.pidOf(*client);
    const auto kind = m_clients.kindOf(*client);
    if (pid == getpid() || kind == ClientKind::Desktop || !m_x.isViewable(*client)) continue;
    const auto frame = m_x.frame(*client);
    if (!frame) continue;
    int layer = 0;
    if (kind == ClientKind::Dock) {
      layer = kDockLayer;
    } else if (m_clients.hasState(*client, "_NET_WM_STATE_ABOVE")) {
      layer = kFloatingLayer;
    } else if (m_clients.hasState(*client, "_NET_WM_STATE_BELOW")) {
      layer = kBelowLayer;
    }
    windows.push_back({pid, layer, desktopFromNative(*frame)});
  }
  return windows;
}

Registration X11OtherWindows::followFocusedWindow(qint64 pid, FrameObserver observer) {
  if (pid < 1) return {};
  const auto known = std::find_if(m_followers->begin(), m_followers->end(), [&](const auto& each) { return each->pid == pid; });
  auto follower = known == m_followers->end() ? std::make_shared<Follower>() : *known;
  if (known == m_followers->end()) {
    follower->pid = pid;
    m_followers->push_back(follower);
    attach(*follower);
  }
  report(*follower);
  const auto handle = std::make_shared<Registration>(follower->observers.add(observer));
  observer(follower->last);
  return Registration([follower, handle, weak = std::weak_ptr(m_followers)] {
    handle->cancel();
    if (!follower->observers.isEmpty()) return;
    follower->events.clear();
    if (const auto followers = weak.lock()) std::erase(*followers, follower);
  });
}

PointerState X11OtherWindows::pointer() const {
  const XcbReply<xcb_query_pointer_reply_t> reply(
      xcb_query_pointer_reply(m_x.get(), xcb_query_pointer(m_x.get(), m_x.root()), nullptr));
  m_x.keepEvents();
  if (!reply) return {};
  return {desktopFromNative(QPoint(reply->root_x, reply->root_y)), (reply->mask & XCB_MOD_MASK_1) != 0};
}

void X11OtherWindows::handle(const xcb_generic_event_t& event) {
  const int kind = eventKind(event);
  // All structure events name the window that they are about in the same place.
  xcb_window_t about = XCB_NONE;
  switch (kind) {
    case XCB_PROPERTY_NOTIFY: {
      const auto& change = eventAs<xcb_property_notify_event_t>(event);
      const bool isFocusChange = change.window == m_x.root() && (change.atom == m_x.atom("_NET_ACTIVE_WINDOW") ||
                                                                 change.atom == m_x.atom("_NET_CLIENT_LIST"));
      if (isFocusChange) {
        for (const auto& follower : Followers(*m_followers)) {
          attach(*follower);
          reportLater(follower);
        }
        return;
      }
      if (change.atom != m_x.atom("_NET_FRAME_EXTENTS") && change.atom != m_x.atom("_GTK_FRAME_EXTENTS")) return;
      about = change.window;
      break;
    }
    case XCB_CONFIGURE_NOTIFY:
    case XCB_REPARENT_NOTIFY:
    case XCB_UNMAP_NOTIFY:
    case XCB_MAP_NOTIFY:
    case XCB_DESTROY_NOTIFY: about = eventAs<xcb_unmap_notify_event_t>(event).window; break;
    default: return;
  }
  for (const auto& follower : Followers(*m_followers)) {
    if (about != follower->client && about != follower->around) continue;
    if (kind == XCB_REPARENT_NOTIFY || kind == XCB_DESTROY_NOTIFY) {
      if (kind == XCB_DESTROY_NOTIFY && about == follower->client) follower->client = XCB_NONE;
      follower->around = XCB_NONE;
      attach(*follower);
    }
    reportLater(follower);
  }
}

void X11OtherWindows::attach(Follower& follower) {
  const auto client = m_clients.focusedOf(follower.pid, follower.client);
  if (client == follower.client && follower.around != XCB_NONE) return;
  follower.client = client;
  follower.around = XCB_NONE;
  std::vector<Registration> events;
  if (client != XCB_NONE) {
    events.push_back(m_x.select(client, XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE));
    if (const auto around = m_x.topmostAncestor(client)) {
      follower.around = *around;
      events.push_back(m_x.select(*around, XCB_EVENT_MASK_STRUCTURE_NOTIFY));
    }
  }
  follower.events = std::move(events);
}

void X11OtherWindows::reportLater(const std::shared_ptr<Follower>& follower) {
  if (std::exchange(follower->isReportDue, true)) return;
  QMetaObject::invokeMethod(
      this,
      [this, follower] {
        follower->isReportDue = false;
        if (!follower->observers.isEmpty()) report(*follower);
      },
      Qt::QueuedConnection);
}

void X11OtherWindows::report(Follower& follower) {
  std::optional<DesktopRect> frame;
  if (follower.client != XCB_NONE && m_x.isViewable(follower.client)) {
    if (const auto native = m_x.frame(follower.client)) frame = desktopFromNative(*native);
  }
  if (follower.hasReported && frame == follower.last) return;
  follower.hasReported = true;
  follower.last = frame;
  follower.observers.notify(frame);
}

}  // namespace tarnwick
