// SPDX-License-Identifier: MIT
#include "linux/x11/XcbConnection.h"

#include <QMetaObject>
#include <QSocketNotifier>

#include <xcb/res.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace tarnwick {

namespace {

/// What nearly every session asks for.
constexpr std::array kUsualAtoms = {
    "WM_CLASS", "_GTK_APPLICATION_ID", "_GTK_FRAME_EXTENTS", "_KDE_NET_WM_DESKTOP_FILE", "_NET_ACTIVE_WINDOW",
    "_NET_CLIENT_LIST", "_NET_CLIENT_LIST_STACKING", "_NET_FRAME_EXTENTS", "_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR",
    "_NET_WM_STRUT", "_NET_WM_STRUT_PARTIAL", "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DESKTOP",
    "_NET_WM_WINDOW_TYPE_DIALOG", "_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_NORMAL", "_NET_WM_WINDOW_TYPE_UTILITY",
    "_NET_WORKAREA"};

}  // namespace

std::vector<xcb_atom_t> internAtoms(xcb_connection_t* connection, std::span<const char* const> names) {
  std::vector<xcb_intern_atom_cookie_t> cookies;
  for (const char* name : names) {
    cookies.push_back(xcb_intern_atom(connection, 0, static_cast<uint16_t>(std::strlen(name)), name));
  }
  std::vector<xcb_atom_t> atoms;
  for (const auto cookie : cookies) {
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    atoms.push_back(reply ? reply->atom : xcb_atom_t{XCB_NONE});
  }
  return atoms;
}

struct XcbConnection::Selections {
  xcb_connection_t* connection = nullptr;
  std::map<xcb_window_t, std::vector<uint32_t>> masks;

  void apply(xcb_window_t window) const {
    uint32_t all = 0;
    if (const auto found = masks.find(window); found != masks.end()) {
      for (const uint32_t mask : found->second) all |= mask;
    }
    xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &all);
    xcb_flush(connection);
  }
};

XcbConnection::XcbConnection(XcbLink link) : m_link(std::move(link)), m_selections(std::make_shared<Selections>()) {
  if (!m_link.isUsable()) return;
  m_selections->connection = get();
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(get()));
  for (int i = 0; i < screenNumber() && screens.rem > 1; ++i) xcb_screen_next(&screens);
  m_root = screens.data->root;
  if (const auto* resources = xcb_get_extension_data(get(), &xcb_res_id); resources && resources->present) {
    const XcbReply<xcb_res_query_version_reply_t> version(
        xcb_res_query_version_reply(get(), xcb_res_query_version(get(), 1, 2), nullptr));
    m_knowsClients = version && (version->server_major > 1 || version->server_minor >= 2);
  }
  learnAtoms(kUsualAtoms);
  m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(get()), QSocketNotifier::Read);
  connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] { drain(); });
}

XcbConnection::~XcbConnection() {
  m_notifier.reset();
  m_selections.reset();
}

xcb_atom_t XcbConnection::atom(const char* name) const {
  const QByteArray key(name);
  if (const auto found = m_atoms.constFind(key); found != m_atoms.constEnd()) return *found;
  learnAtoms({&name, 1});
  return m_atoms.value(key);
}

void XcbConnection::learnAtoms(std::span<const char* const> names) const {
  const auto atoms = internAtoms(get(), names);
  for (size_t i = 0; i < names.size(); ++i) m_atoms.insert(QByteArray(names[i]), atoms[i]);
  keepEvents();
}

QByteArray XcbConnection::property(xcb_window_t window, const char* name) const {
  constexpr uint32_t kMostWords = 16384;
  const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
      get(), xcb_get_property(get(), 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, kMostWords),
      nullptr));
  keepEvents();
  if (!reply) return {};
  return QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                    xcb_get_property_value_length(reply.get()));
}

std::vector<uint32_t> XcbConnection::cardinals(xcb_window_t window, const char* name) const {
  const auto bytes = property(window, name);
  std::vector<uint32_t> values(static_cast<size_t>(bytes.size()) / sizeof(uint32_t));
  if (!values.empty()) std::memcpy(values.data(), bytes.constData(), values.size() * sizeof(uint32_t));
  return values;
}

std::optional<uint32_t> XcbConnection::cardinal(xcb_window_t window, const char* name) const {
  const auto values = cardinals(window, name);
  if (values.empty()) return std::nullopt;
  return values.front();
}

std::optional<qint64> XcbConnection::localPid(xcb_window_t window) const {
  if (!m_knowsClients) return std::nullopt;
  const xcb_res_client_id_spec_t wanted{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
  const XcbReply<xcb_res_query_client_ids_reply_t> reply(
      xcb_res_query_client_ids_reply(get(), xcb_res_query_client_ids(get(), 1, &wanted), nullptr));
  keepEvents();
  if (!reply) return std::nullopt;
  for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem > 0; xcb_res_client_id_value_next(&ids)) {
    if ((ids.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) == 0) continue;
    if (xcb_res_client_id_value_value_length(ids.data) < 1) continue;
    if (const auto pid = *xcb_res_client_id_value_value(ids.data); pid > 0) return pid;
  }
  return std::nullopt;
}

std::vector<xcb_window_t> XcbConnection::clients() const {
  auto windows = cardinals(m_root, "_NET_CLIENT_LIST_STACKING");
  return windows.empty() ? cardinals(m_root, "_NET_CLIENT_LIST") : windows;
}

std::optional<QRect> XcbConnection::geometry(xcb_window_t window) const {
  const auto sizeCookie = xcb_get_geometry(get(), window);
  const auto placeCookie = xcb_translate_coordinates(get(), window, m_root, 0, 0);
  const XcbReply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(get(), sizeCookie, nullptr));
  const XcbReply<xcb_translate_coordinates_reply_t> place(
      xcb_translate_coordinates_reply(get(), placeCookie, nullptr));
  keepEvents();
  if (!size || !place) return std::nullopt;
  return QRect(place->dst_x, place->dst_y, size->width, size->height);
}

std::optional<QRect> XcbConnection::frame(xcb_window_t window) const {
  auto rect = geometry(window);
  if (!rect) return std::nullopt;
  const auto side = [](const std::vector<uint32_t>& extents, size_t i) { return static_cast<int>(extents[i]); };
  if (const auto around = cardinals(window, "_NET_FRAME_EXTENTS"); around.size() >= 4) {
    rect->adjust(-side(around, 0), -side(around, 2), side(around, 1), side(around, 3));
  }
  if (const auto shadow = cardinals(window, "_GTK_FRAME_EXTENTS"); shadow.size() >= 4) {
    rect->adjust(side(shadow, 0), side(shadow, 2), -side(shadow, 1), -side(shadow, 3));
  }
  return rect;
}

bool XcbConnection::isViewable(xcb_window_t window) const {
  const XcbReply<xcb_get_window_attributes_reply_t> reply(
      xcb_get_window_attributes_reply(get(), xcb_get_window_attributes(get(), window), nullptr));
  keepEvents();
  return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

std::optional<xcb_window_t> XcbConnection::topmostAncestor(xcb_window_t window) const {
  for (xcb_window_t current = window;;) {
    const XcbReply<xcb_query_tree_reply_t> reply(
        xcb_query_tree_reply(get(), xcb_query_tree(get(), current), nullptr));
    keepEvents();
    if (!reply) return std::nullopt;
    if (reply->parent == m_root || reply->parent == XCB_NONE) return current;
    current = reply->parent;
  }
}

Registration XcbConnection::select(xcb_window_t window, uint32_t mask) {
  m_selections->masks[window].push_back(mask);
  m_selections->apply(window);
  return Registration([weak = std::weak_ptr<Selections>(m_selections), window, mask] {
    const auto selections = weak.lock();
    if (!selections) return;
    auto& masks = selections->masks[window];
    if (const auto one = std::find(masks.begin(), masks.end(), mask); one != masks.end()) masks.erase(one);
    if (masks.empty()) selections->masks.erase(window);
    selections->apply(window);
  });
}

Registration XcbConnection::onEvent(std::function<void(const xcb_generic_event_t&)> observer) {
  return m_observers.add(std::move(observer));
}

void XcbConnection::sendToRoot(xcb_window_t about, const char* type, std::initializer_list<uint32_t> data) {
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = about;
  event.type = atom(type);
  std::copy_n(data.begin(), std::min<size_t>(data.size(), 5), event.data.data32);
  xcb_send_event(get(), 0, m_root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&event));
  xcb_flush(get());
}

void XcbConnection::keepEvents() const {
  const bool wasEmpty = m_kept.empty();
  while (auto* event = xcb_poll_for_queued_event(get())) m_kept.emplace_back(event);
  if (!wasEmpty || m_kept.empty()) return;
  auto* self = const_cast<XcbConnection*>(this);
  QMetaObject::invokeMethod(self, [self] { self->drain(); }, Qt::QueuedConnection);
}

void XcbConnection::drain() {
  for (;;) {
    if (m_kept.empty()) {
      auto* event = xcb_poll_for_event(get());
      if (!event) break;
      m_kept.emplace_back(event);
    }
    const auto event = std::move(m_kept.front());
    m_kept.pop_front();
    if (event->response_type != 0) m_observers.notify(*event);
  }
  // The server is gone: Qt ends the program; until then an endless readable socket must not spin.
  if (xcb_connection_has_error(get()) != 0) m_notifier->setEnabled(false);
}

}  // namespace tarnwick
