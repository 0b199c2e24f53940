// SPDX-License-Identifier: MIT
#include "linux/x11/X11Screens.h"

#include "linux/qt/ScreenSignals.h"
#include "linux/x11/Struts.h"
#include "linux/x11/XcbConnection.h"

#include <xcb/xfixes.h>

#include <algorithm>

namespace tarnwick {

X11Screens::X11Screens(XcbConnection& connection) : m_x(connection) {
  m_compositorAtom = m_x.atom(QByteArray("_NET_WM_CM_S" + QByteArray::number(m_x.screenNumber())).constData());
  if (const auto* extension = xcb_get_extension_data(m_x.get(), &xcb_xfixes_id); extension && extension->present) {
    const XcbReply<xcb_xfixes_query_version_reply_t> version(
        xcb_xfixes_query_version_reply(m_x.get(), xcb_xfixes_query_version(m_x.get(), 5, 0), nullptr));
    m_selectionEvent = extension->first_event + XCB_XFIXES_SELECTION_NOTIFY;
    xcb_xfixes_select_selection_input(m_x.get(), m_x.root(), m_compositorAtom,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
  }
  m_handles.push_back(m_x.select(m_x.root(), XCB_EVENT_MASK_PROPERTY_CHANGE));
  m_handles.push_back(m_x.onEvent([this](const auto& event) { handle(event); }));
  observeScreens(this, [this] { refresh(); });
  watchPanels();
  m_facts = compute();
  m_isComposited = hasCompositor();
}

X11Screens::~X11Screens() = default;

Registration X11Screens::onChanged(std::function<void()> observer) { return m_changed.add(std::move(observer)); }

void X11Screens::handle(const xcb_generic_event_t& event) {
  if (eventKind(event) == m_selectionEvent) {
    refresh();
  } else if (eventKind(event) == XCB_PROPERTY_NOTIFY) {
    const auto& change = eventAs<xcb_property_notify_event_t>(event);
    if (change.window == m_x.root()) {
      if (change.atom == m_x.atom("_NET_CLIENT_LIST")) {
        if (watchPanels()) refresh();
      } else if (change.atom == m_x.atom("_NET_WORKAREA")) {
        refresh();
      }
    } else if (change.atom == m_x.atom("_NET_WM_STRUT_PARTIAL") || change.atom == m_x.atom("_NET_WM_STRUT")) {
      refresh();
    }
  }
}

bool X11Screens::watchPanels() {
  const auto clients = m_x.cardinals(m_x.root(), "_NET_CLIENT_LIST");
  bool hasChanged = std::erase_if(m_panels, [&](const auto& entry) {
    return std::find(clients.begin(), clients.end(), entry.first) == clients.end();
  }) > 0;
  for (const auto window : clients) {
    if (m_panels.contains(window)) continue;
    const auto types = m_x.cardinals(window, "_NET_WM_WINDOW_TYPE");
    const bool isDock = std::find(types.begin(), types.end(), m_x.atom("_NET_WM_WINDOW_TYPE_DOCK")) != types.end();
    const auto keepsRoom = [&] {
      return !m_x.property(window, "_NET_WM_STRUT_PARTIAL").isEmpty() || !m_x.property(window, "_NET_WM_STRUT").isEmpty();
    };
    if (isDock || keepsRoom()) {
      m_panels.emplace(window, m_x.select(window, XCB_EVENT_MASK_PROPERTY_CHANGE));
      hasChanged = true;
    }
  }
  return hasChanged;
}

void X11Screens::refresh() {
  auto facts = compute();
  const bool isComposited = hasCompositor();
  if (facts == m_facts && isComposited == m_isComposited) return;
  m_facts = std::move(facts);
  m_isComposited = isComposited;
  m_changed.notify();
}

std::vector<ScreenFacts> X11Screens::compute() const {
  const auto screens = orderedScreens();
  if (screens.isEmpty()) return {};
  const auto root = m_x.geometry(m_x.root()).value_or(QRect());
  std::vector<StrutBand> bands;
  for (const auto window : m_x.cardinals(m_x.root(), "_NET_CLIENT_LIST")) {
    auto strut = m_x.cardinals(window, "_NET_WM_STRUT_PARTIAL");
    if (strut.empty()) strut = m_x.cardinals(window, "_NET_WM_STRUT");
    const auto more = bandsOfStrut(strut, root.size());
    bands.insert(bands.end(), more.begin(), more.end());
  }
  const DesktopSpace space(screens.front()->geometry().height());
  std::vector<ScreenFacts> facts;
  for (const auto* screen : screens) {
    const double scale = screen->devicePixelRatio();
    const QPoint origin = screen->geometry().topLeft();
    const QRect native(origin, screen->geometry().size() * scale);
    const QRect visible = withoutBands(native, bands);
    const QRectF visibleInPoints(QPointF(origin) + QPointF(visible.topLeft() - origin) / scale, QSizeF(visible.size()) / scale);
    facts.push_back({screen->name(), space.fromQt(QRectF(screen->geometry())), space.fromQt(visibleInPoints), scale});
  }
  return facts;
}

bool X11Screens::hasCompositor() const {
  const XcbReply<xcb_get_selection_owner_reply_t> reply(
      xcb_get_selection_owner_reply(m_x.get(), xcb_get_selection_owner(m_x.get(), m_compositorAtom), nullptr));
  m_x.keepEvents();
  return reply && reply->owner != XCB_NONE;
}

}  // namespace tarnwick
