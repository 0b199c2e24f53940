// SPDX-License-Identifier: MIT
// The chord that toggles the board from any program; follows the setting "hotKey".
#pragma once

#include "platform/HotKeys.h"

#include <QObject>

#include <functional>

namespace tarnwick {

class UserDefaults;

class HotkeyManager final : public QObject {
  Q_OBJECT

 public:
  HotkeyManager(HotKeys& hotKeys, const UserDefaults& defaults, std::function<void()> onToggleDesk);

  /// Registers the chord; a refusal is logged and nothing else happens.
  void start();
  void stop();
  [[nodiscard]] bool isRegistered() const { return m_deskHotKey.handle.isHeld(); }
  [[nodiscard]] QString chord() const;

 private:
  HotKeys& m_hotKeys;
  const UserDefaults& m_defaults;
  std::function<void()> m_onToggleDesk;
  HotKeyRegistration m_deskHotKey;
  bool m_isStarted = false;
};

}  // namespace tarnwick
