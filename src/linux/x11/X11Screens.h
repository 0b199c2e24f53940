// SPDX-License-Identifier: MIT
// Monitors from Qt, what panels leave of each from the struts of their windows (Qt's own answer is wrong with several
// monitors), and whether a compositing manager runs.
#pragma once

#include "linux/Observers.h"
#include "platform/Screens.h"

#include <QObject>

#include <xcb/xcb.h>

namespace tarnwick {

class XcbConnection;

class X11Screens final : public QObject, public Screens {
 public:
  explicit X11Screens(XcbConnection& connection);
  ~X11Screens() override;

  [[nodiscard]] std::vector<ScreenFacts> all() const override { return m_facts; }
  [[nodiscard]] bool isComposited() const override { return m_isComposited; }
  [[nodiscard]] Registration onChanged(std::function<void()> observer) override;

 private:
  void handle(const xcb_generic_event_t& event);
  /// True when panels came or went.
  bool watchPanels();
  void refresh();
  [[nodiscard]] std::vector<ScreenFacts> compute() const;
  [[nodiscard]] bool hasCompositor() const;

  XcbConnection& m_x;
  xcb_atom_t m_compositorAtom = XCB_NONE;
  int m_selectionEvent = -1;
  std::vector<ScreenFacts> m_facts;
  bool m_isComposited = false;
  Observers<> m_changed;
  std::map<xcb_window_t, Registration> m_panels;  // clients that reserve space, or might
  std::vector<Registration> m_handles;
};

}  // namespace tarnwick
