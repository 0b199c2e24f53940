// SPDX-License-Identifier: MIT
#include "linux/x11/X11FocusWatch.h"

#include <utility>

namespace tarnwick {

struct X11FocusWatch::Watch {
  qint64 pid = 0;
  std::function<void()> observer;
  xcb_window_t window = XCB_NONE;
  Registration events;
};

X11FocusWatch::X11FocusWatch(XcbConnection& connection)
    : m_x(connection), m_clients(connection), m_watches(std::make_shared<Watches>()) {
  m_handles.push_back(m_x.select(m_x.root(), XCB_EVENT_MASK_PROPERTY_CHANGE));
  m_handles.push_back(m_x.onEvent([this](const auto& event) { handle(event); }));
}

X11FocusWatch::~X11FocusWatch() = default;

Registration X11FocusWatch::add(qint64 pid, std::function<void()> observer) {
  if (pid < 1) return {};
  auto watch = std::make_shared<Watch>();
  watch->pid = pid;
  watch->observer = std::move(observer);
  attach(*watch);
  m_watches->push_back(watch);
  return Registration([watch, weak = std::weak_ptr(m_watches)] {
    watch->events.cancel();
    watch->observer = nullptr;
    if (const auto watches = weak.lock()) std::erase(*watches, watch);
  });
}

void X11FocusWatch::tell(qint64 pid) const {
  for (const auto& watch : Watches(*m_watches)) {
    if (watch->pid != pid || !watch->observer) continue;
    const auto observer = watch->observer;  // it may end the watch
    observer();
  }
}

void X11FocusWatch::handle(const xcb_generic_event_t& event) {
  if (m_watches->empty() || eventKind(event) != XCB_PROPERTY_NOTIFY) return;
  const auto& change = eventAs<xcb_property_notify_event_t>(event);
  const bool isOfRoot = change.window == m_x.root();
  const auto is = [&](const char* name) { return change.atom == m_x.atom(name); };
  if (isOfRoot ? !is("_NET_ACTIVE_WINDOW") && !is("_NET_CLIENT_LIST") : !is("_NET_WM_NAME") && !is("WM_NAME")) return;
  std::vector<qint64> changed;
  for (const auto& watch : *m_watches) {
    if (isOfRoot ? attach(*watch) : watch->window == change.window) changed.push_back(watch->pid);
  }
  for (const auto pid : changed) tell(pid);
}

bool X11FocusWatch::attach(Watch& watch) const {
  const auto window = m_clients.focusedOf(watch.pid, watch.window);
  if (window == std::exchange(watch.window, window)) return false;
  watch.events = window == XCB_NONE ? Registration() : m_x.select(window, XCB_EVENT_MASK_PROPERTY_CHANGE);
  return true;
}

}  // namespace tarnwick
