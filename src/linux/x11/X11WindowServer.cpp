// SPDX-License-Identifier: MIT
#include "linux/x11/X11WindowServer.h"

#include "linux/qt/QtWindowServer.h"
#include "linux/x11/NativeSpace.h"
#include "linux/x11/XcbConnection.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWindow>
#include <QtGui/qguiapplication_platform.h>

#include <xcb/xfixes.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace tarnwick {

namespace {

constexpr uint32_t kSourcePager = 2;  // a request on the user's behalf: no focus-stealing prevention
constexpr uint32_t kAllDesktops = 0xFFFFFFFF;
constexpr xcb_xfixes_region_t kInputShape = 2;  // ShapeInput

xcb_connection_t* qtConnection() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 ? x11->connection() : nullptr;
}

xcb_window_t idOf(QWindow& window) { return static_cast<xcb_window_t>(window.winId()); }

QMargins toNative(const QMargins& margins, double scale) {
  const auto pixels = [scale](int points) { return static_cast<int>(std::lround(points * scale)); };
  return {pixels(margins.left()), pixels(margins.top()), pixels(margins.right()), pixels(margins.bottom())};
}

// KWin hides the utility windows of a group while another program is in front, unless the group is of one window only.
void giveOwnGroup(xcb_connection_t* connection, xcb_window_t window) {
  constexpr uint32_t kWords = 9;
  constexpr uint32_t kGroupFlag = 1U << 6;
  const XcbReply<xcb_get_property_reply_t> reply(
      xcb_get_property_reply(connection,
                             xcb_get_property(connection, 0, window, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 0, kWords),
                             nullptr));
  std::array<uint32_t, kWords> hints{};
  if (reply) {
    const auto length = static_cast<size_t>(xcb_get_property_value_length(reply.get()));
    std::memcpy(hints.data(), xcb_get_property_value(reply.get()), std::min(length, sizeof hints));
  }
  hints.front() |= kGroupFlag;
  hints.back() = window;
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 32, kWords,
                      hints.data());
}

}  // namespace

X11WindowServer::X11WindowServer()
    : m_connection(qtConnection()), m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root) {
  constexpr std::array kNames = {
      "_NET_WM_DESKTOP", "_NET_ACTIVE_WINDOW", "_NET_RESTACK_WINDOW", "_NET_WM_STATE", "_NET_WM_STATE_BELOW",
      "_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER", "_GTK_FRAME_EXTENTS",
      "_NET_SUPPORTING_WM_CHECK", "_NET_SUPPORTED", "_NET_CLIENT_LIST_STACKING"};
  const auto atoms = internAtoms(m_connection, kNames);
  m_atoms = {atoms[0], atoms[1], atoms[2], atoms[3], atoms[4], atoms[5],
             atoms[6], atoms[7], atoms[8], atoms[9], atoms[10], atoms[11]};
  const XcbReply<xcb_xfixes_query_version_reply_t> version(
      xcb_xfixes_query_version_reply(m_connection, xcb_xfixes_query_version(m_connection, 5, 0), nullptr));
}

void X11WindowServer::prepare(QWindow& window, WindowLevel level) {
  window.setProperty("_q_showWithoutActivating", true);
  if (level == WindowLevel::Overlay) return;
  const auto id = idOf(window);
  giveOwnGroup(m_connection, id);
  // A panel that reads a new window's state before it listens for changes would show it among the tasks for good.
  const xcb_atom_t states[] = {m_atoms.skipTaskbar, m_atoms.skipPager,
                               level == WindowLevel::Desktop ? m_atoms.below : m_atoms.above};
  xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, id, m_atoms.state, XCB_ATOM_ATOM, 32, 3, states);
  xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, id, m_atoms.desktop, XCB_ATOM_CARDINAL, 32, 1, &kAllDesktops);
}

void X11WindowServer::applyLevel(QWindow& window, WindowLevel level) {
  // Qt rewrites type and state from its flags whenever one changes, so the level must live in the flags as well.
  const auto flags = flagsForLevel(window.flags(), level);
  if (window.flags() != flags) window.setFlags(flags);
  if (!window.isVisible()) {
    prepare(window, level);
  } else if (level != WindowLevel::Overlay) {
    setState(window, level == WindowLevel::Desktop, m_atoms.below);
    setState(window, level == WindowLevel::Floating, m_atoms.above);
    setState(window, true, m_atoms.skipTaskbar, m_atoms.skipPager);
    // Window managers forget it at each hide, and some ignore the property before the first show.
    sendToRoot(window, m_atoms.desktop, {kAllDesktops, kSourcePager});
  }
  // Qt may have made another native window for this show.
  applyExtents(window);
  applyShape(window);
  xcb_flush(m_connection);
}

void X11WindowServer::setClickThrough(QWindow& window, ClickThrough clickThrough) {
  // Through the shape and not through Qt's flag: that one would rewrite state and knows no margins.
  wishesOf(window).clickThrough = clickThrough;
  applyShape(window);
  xcb_flush(m_connection);
}

void X11WindowServer::setOpacity(QWindow& window, double opacity) {
  window.setOpacity(opacity);
  xcb_flush(m_connection);  // a property alone would wait in the buffer for the next event
}

void X11WindowServer::setShadowMargins(QWindow& window, const QMargins& margins) {
  wishesOf(window).margins = margins;
  applyExtents(window);
  applyShape(window);
  xcb_flush(m_connection);
}

void X11WindowServer::raiseWithoutActivating(QWindow& window) {
  if (window.flags().testFlag(Qt::BypassWindowManagerHint) || !hasWindowManager()) {
    const uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_connection, idOf(window), XCB_CONFIG_WINDOW_STACK_MODE, &above);
  } else if (const auto known = rootProperty(m_atoms.supported);
             std::find(known.begin(), known.end(), m_atoms.restack) != known.end()) {
    sendToRoot(window, m_atoms.restack, {kSourcePager, XCB_NONE, XCB_STACK_MODE_ABOVE});
  } else {
    requestStackingAboveAll(window);
  }
  xcb_flush(m_connection);
}

void X11WindowServer::activate(QWindow& window) {
  if (hasWindowManager()) {
    sendToRoot(window, m_atoms.activeWindow, {kSourcePager, XCB_CURRENT_TIME, XCB_NONE});
  } else {
    window.raise();
    window.requestActivate();
  }
  xcb_flush(m_connection);
}

void X11WindowServer::setSharing(QWindow& window, SharingType sharing) {
  window.setProperty("tarnwickSharing", sharing == SharingType::None ? QStringLiteral("none") : QStringLiteral("readOnly"));
}

std::optional<DesktopRect> X11WindowServer::frameOf(QWindow& window) const {
  const auto id = idOf(window);
  const auto geometryAsked = xcb_get_geometry(m_connection, id);
  const auto placeAsked = xcb_translate_coordinates(m_connection, id, m_root, 0, 0);
  const XcbReply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(m_connection, geometryAsked, nullptr));
  const XcbReply<xcb_translate_coordinates_reply_t> place(
      xcb_translate_coordinates_reply(m_connection, placeAsked, nullptr));
  if (!geometry || !place) return std::nullopt;
  const QRect whole(place->dst_x, place->dst_y, geometry->width, geometry->height);
  const auto margins = m_wishes.value(&window).margins;
  return desktopFromNative(whole.marginsRemoved(toNative(margins, window.devicePixelRatio())));
}

// A window manager that reads the shape while it frames a window misses one that is set meanwhile; by the first exposure
// it has framed it, and listens.
bool X11WindowServer::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Expose && m_wishes.contains(watched)) {
    applyShape(static_cast<QWindow&>(*watched));
    xcb_flush(m_connection);
  }
  return QObject::eventFilter(watched, event);
}

X11WindowServer::Wishes& X11WindowServer::wishesOf(QWindow& window) {
  const auto found = m_wishes.find(&window);
  if (found != m_wishes.end()) return *found;
  connect(&window, &QObject::destroyed, this, [this](const QObject* gone) { m_wishes.remove(gone); });
  const auto reshape = [this, &window] {
    if (window.handle()) applyShape(window);
  };
  connect(&window, &QWindow::widthChanged, this, reshape);
  connect(&window, &QWindow::heightChanged, this, reshape);
  window.installEventFilter(this);
  return *m_wishes.insert(&window, {});
}

void X11WindowServer::applyExtents(QWindow& window) {
  const auto found = m_wishes.constFind(&window);
  if (found == m_wishes.constEnd()) return;
  const auto native = toNative(found->margins, window.devicePixelRatio());
  if (native.isNull()) {
    xcb_delete_property(m_connection, idOf(window), m_atoms.gtkExtents);
    return;
  }
  const uint32_t extents[] = {static_cast<uint32_t>(native.left()), static_cast<uint32_t>(native.right()),
                              static_cast<uint32_t>(native.top()), static_cast<uint32_t>(native.bottom())};
  xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, idOf(window), m_atoms.gtkExtents, XCB_ATOM_CARDINAL, 32, 4,
                      extents);
}

void X11WindowServer::applyShape(QWindow& window) {
  const auto found = m_wishes.constFind(&window);
  if (found == m_wishes.constEnd()) return;
  if (found->clickThrough == ClickThrough::Off && found->margins.isNull()) {
    xcb_xfixes_set_window_shape_region(m_connection, idOf(window), kInputShape, 0, 0, XCB_NONE);
    return;
  }
  const double scale = window.devicePixelRatio();
  const QRect inner = QRect(QPoint(0, 0), window.size() * scale).marginsRemoved(toNative(found->margins, scale));
  const xcb_rectangle_t rectangle{static_cast<int16_t>(inner.x()), static_cast<int16_t>(inner.y()),
                                  static_cast<uint16_t>(std::max(inner.width(), 0)),
                                  static_cast<uint16_t>(std::max(inner.height(), 0))};
  const auto region = xcb_generate_id(m_connection);
  xcb_xfixes_create_region(m_connection, region, found->clickThrough == ClickThrough::On ? 0 : 1, &rectangle);
  xcb_xfixes_set_window_shape_region(m_connection, idOf(window), kInputShape, 0, 0, region);
  xcb_xfixes_destroy_region(m_connection, region);
}

void X11WindowServer::sendToRoot(QWindow& window, xcb_atom_t type, std::initializer_list<uint32_t> data) {
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = idOf(window);
  event.type = type;
  std::copy(data.begin(), data.end(), event.data.data32);
  xcb_send_event(m_connection, 0, m_root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&event));
}

void X11WindowServer::setState(QWindow& window, bool isOn, xcb_atom_t first, xcb_atom_t second) {
  sendToRoot(window, m_atoms.state, {isOn ? 1U : 0U, first, second, kSourcePager});
}

// A plain raise is taken for a wish for the keyboard where restacking is not known; one above a named window is not.
void X11WindowServer::requestStackingAboveAll(QWindow& window) {
  const auto stack = rootProperty(m_atoms.stacking);
  const auto top = std::find_if(stack.rbegin(), stack.rend(), [&](xcb_window_t each) { return each != idOf(window); });
  if (top == stack.rend()) return;
  xcb_configure_request_event_t event{};
  event.response_type = XCB_CONFIGURE_REQUEST;
  event.stack_mode = XCB_STACK_MODE_ABOVE;
  event.parent = m_root;
  event.window = idOf(window);
  event.sibling = *top;
  event.value_mask = XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE;
  // Framed windows are no siblings for the server, so the request goes to the window manager as an event.
  xcb_send_event(m_connection, 0, m_root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&event));
}

std::vector<uint32_t> X11WindowServer::rootProperty(xcb_atom_t name) const {
  constexpr uint32_t kMostWords = 4096;
  const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
      m_connection, xcb_get_property(m_connection, 0, m_root, name, XCB_GET_PROPERTY_TYPE_ANY, 0, kMostWords), nullptr));
  if (!reply) return {};
  const auto* first = static_cast<const uint32_t*>(xcb_get_property_value(reply.get()));
  return {first, first + xcb_get_property_value_length(reply.get()) / static_cast<int>(sizeof(uint32_t))};
}

bool X11WindowServer::hasWindowManager() const { return !rootProperty(m_atoms.wmCheck).empty(); }

}  // namespace tarnwick
