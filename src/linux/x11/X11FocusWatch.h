// SPDX-License-Identifier: MIT
// Tells that another window of a process has the keyboard, or that the one that has it shows another title.
#pragma once

#include "linux/x11/X11Clients.h"
#include "platform/Registration.h"

#include <functional>
#include <memory>
#include <vector>

namespace tarnwick {

class X11FocusWatch final {
 public:
  explicit X11FocusWatch(XcbConnection& connection);
  ~X11FocusWatch();

  [[nodiscard]] Registration add(qint64 pid, std::function<void()> observer);
  /// Tells those that watch the process, of something else that its window says.
  void tell(qint64 pid) const;

 private:
  struct Watch;
  using Watches = std::vector<std::shared_ptr<Watch>>;
  void handle(const xcb_generic_event_t& event);
  /// Whether it is another window now.
  bool attach(Watch& watch) const;

  XcbConnection& m_x;
  X11Clients m_clients;
  std::shared_ptr<Watches> m_watches;
  std::vector<Registration> m_handles;
};

}  // namespace tarnwick
