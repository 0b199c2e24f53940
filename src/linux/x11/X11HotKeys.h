// SPDX-License-Identifier: MIT
// Global chords by key grabs on a connection of its own, which hears of changed layouts (Qt's does not) and follows them.
#pragma once

#include "linux/x11/Chord.h"
#include "linux/x11/XcbConnection.h"
#include "platform/HotKeys.h"

#include <xcb/xcb_keysyms.h>

#include <memory>
#include <vector>

namespace tarnwick {

class X11HotKeys final : public HotKeys {
 public:
  explicit X11HotKeys(XcbConnection& connection);
  ~X11HotKeys() override;

  [[nodiscard]] PortTraits traits() const override;
  /// The status is the number of the X error: 10 when another program has the chord.
  [[nodiscard]] HotKeyRegistration registerChord(const QString& chord, std::function<void()> work) override;

 private:
  struct Grab;
  void handle(const xcb_generic_event_t& event);
  void followMapping();
  void pressed(const xcb_key_press_event_t& press);
  void released(const xcb_key_press_event_t& release);
  int grab(Grab& grab);
  void ungrab(Grab& grab);
  void readModifiers();
  [[nodiscard]] std::vector<uint16_t> lockVariants() const;
  [[nodiscard]] uint8_t keyCodeOf(const X11Chord& chord) const;
  [[nodiscard]] bool isKeyDown(uint8_t keyCode) const;

  XcbConnection& m_x;
  xcb_key_symbols_t* m_symbols = nullptr;
  uint16_t m_numLock = XCB_MOD_MASK_2;
  std::shared_ptr<std::vector<std::shared_ptr<Grab>>> m_grabs;
  Registration m_events;
};

}  // namespace tarnwick
