// SPDX-License-Identifier: MIT
// A connection of our own to the X server, beside Qt's: events that Qt neither selects nor passes on, properties, atoms.
// Errors of requests about windows that are gone are ignored; an absent server is a connection that is not usable.
#pragma once

#include "linux/Observers.h"
#include "linux/x11/XcbLink.h"
#include "platform/Registration.h"

#include <QByteArray>
#include <QHash>
#include <QMap>
#include <QObject>
#include <QRect>

#include <xcb/xcb.h>

#include <cstdlib>
#include <deque>
#include <memory>
#include <optional>
#include <span>
#include <vector>

class QSocketNotifier;

namespace tarnwick {

struct FreeDeleter {
  void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using XcbReply = std::unique_ptr<T, FreeDeleter>;

/// The atoms of names, in their order, none where the server does not answer. All are asked for before the first answer is
/// waited for.
[[nodiscard]] std::vector<xcb_atom_t> internAtoms(xcb_connection_t* connection, std::span<const char* const> names);

class XcbConnection final : public QObject {
 public:
  explicit XcbConnection(XcbLink link = XcbLink::opened());
  ~XcbConnection() override;

  [[nodiscard]] bool isUsable() const { return m_root != XCB_NONE; }
  [[nodiscard]] xcb_connection_t* get() const { return m_link.get(); }
  [[nodiscard]] xcb_window_t root() const { return m_root; }
  [[nodiscard]] int screenNumber() const { return m_link.screenNumber(); }
  [[nodiscard]] xcb_atom_t atom(const char* name) const;

  /// Bytes of a property, of whatever type; empty when absent.
  [[nodiscard]] QByteArray property(xcb_window_t window, const char* name) const;
  [[nodiscard]] std::vector<uint32_t> cardinals(xcb_window_t window, const char* name) const;
  [[nodiscard]] std::optional<uint32_t> cardinal(xcb_window_t window, const char* name) const;
  /// The process that the window's connection comes from, as the server sees it; nothing for one from another machine.
  [[nodiscard]] std::optional<qint64> localPid(xcb_window_t window) const;
  /// Client windows bottom to top; falls back to the order of mapping where no stacking is published.
  [[nodiscard]] std::vector<xcb_window_t> clients() const;
  /// Rectangle on the root, device pixels; nothing when the window is gone.
  [[nodiscard]] std::optional<QRect> geometry(xcb_window_t window) const;
  /// The same with the frame of the window manager and without a shadow that the client draws itself.
  [[nodiscard]] std::optional<QRect> frame(xcb_window_t window) const;
  [[nodiscard]] bool isViewable(xcb_window_t window) const;
  /// The ancestor just below the root: the window manager's frame, or the window itself.
  [[nodiscard]] std::optional<xcb_window_t> topmostAncestor(xcb_window_t window) const;

  /// Adds events to those selected on a window; masks of several holders add up.
  [[nodiscard]] Registration select(xcb_window_t window, uint32_t mask);
  [[nodiscard]] Registration onEvent(std::function<void(const xcb_generic_event_t&)> observer);
  void sendToRoot(xcb_window_t about, const char* type, std::initializer_list<uint32_t> data);
  void flush() const { xcb_flush(get()); }
  /// To be called after each wait for a reply: events that came with it are delivered when the loop turns.
  void keepEvents() const;

 private:
  struct Selections;
  void learnAtoms(std::span<const char* const> names) const;
  void drain();

  XcbLink m_link;
  xcb_window_t m_root = XCB_NONE;
  bool m_knowsClients = false;  // the server tells whose a window is
  std::unique_ptr<QSocketNotifier> m_notifier;
  mutable QHash<QByteArray, xcb_atom_t> m_atoms;
  mutable std::deque<XcbReply<xcb_generic_event_t>> m_kept;
  std::shared_ptr<Selections> m_selections;
  Observers<const xcb_generic_event_t&> m_observers;
};

[[nodiscard]] inline int eventKind(const xcb_generic_event_t& event) { return event.response_type & 0x7f; }

template <typename T>
[[nodiscard]] const T& eventAs(const xcb_generic_event_t& event) {
  return reinterpret_cast<const T&>(event);  // the protocol's own form of inheritance
}

}  // namespace tarnwick
