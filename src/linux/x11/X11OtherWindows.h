// SPDX-License-Identifier: MIT
// Other programs' windows from the window manager's stacking list; frames are followed by events of the client and of
// the frame around it, because neither alone reports every step of a move on every window manager.
#pragma once

#include "linux/x11/X11Clients.h"
#include "platform/OtherWindows.h"

#include <QObject>

#include <memory>
#include <vector>

namespace tarnwick {

class X11OtherWindows final : public QObject, public OtherWindows {
 public:
  X11OtherWindows(XcbConnection& connection, WindowSight sight);
  ~X11OtherWindows() override;

  [[nodiscard]] WindowSight sight() const override { return m_sight; }
  [[nodiscard]] std::vector<OtherWindow> onScreen() const override;
  [[nodiscard]] Registration followFocusedWindow(qint64 pid, FrameObserver observer) override;
  [[nodiscard]] PointerState pointer() const override;

 private:
  struct Follower;
  using Followers = std::vector<std::shared_ptr<Follower>>;
  void handle(const xcb_generic_event_t& event);
  void attach(Follower& follower);
  void reportLater(const std::shared_ptr<Follower>& follower);
  void report(Follower& follower);

  XcbConnection& m_x;
  WindowSight m_sight;
  X11Clients m_clients;
  std::shared_ptr<Followers> m_followers;
  std::vector<Registration> m_handles;
};

}  // namespace tarnwick
