// SPDX-License-Identifier: MIT
#include "shell/HotkeyManager.h"

#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"

namespace tarnwick {

HotkeyManager::HotkeyManager(HotKeys& hotKeys, const UserDefaults& defaults, std::function<void()> onToggleDesk)
    : m_hotKeys(hotKeys), m_defaults(defaults), m_onToggleDesk(std::move(onToggleDesk)) {
  connect(&m_defaults, &UserDefaults::changed, this, [this](const QString& key) {
    if (m_isStarted && key == keys::kHotKey) start();
  });
}

QString HotkeyManager::chord() const {
  const auto chosen = m_defaults.text(keys::kHotKey).value_or(QString()).trimmed();
  return chosen.isEmpty() ? QStringLiteral("Meta+Shift+T") : chosen;
}

void HotkeyManager::start() {
  m_isStarted = true;
  // The old chord goes first: it may be the new one in other words.
  m_deskHotKey = {};
  m_deskHotKey = m_hotKeys.registerChord(chord(), [this] {
    if (m_onToggleDesk) m_onToggleDesk();
  });
  if (m_deskHotKey.status != 0) {
    qWarning("Tarnwick: ⌘⇧T hotkey registration failed (status %d). Another app may own this chord.",
             m_deskHotKey.status);
  }
}

void HotkeyManager::stop() {
  m_isStarted = false;
  m_deskHotKey = {};
}

}  // namespace tarnwick
