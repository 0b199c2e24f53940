// SPDX-License-Identifier: MIT
// The settings that pinned notes and privacy are steered by.
#pragma once

#include "model/NotificationCenter.h"
#include "model/UserDefaults.h"

namespace tarnwick {

class AppNotesPrefs final {
 public:
  AppNotesPrefs(UserDefaults& defaults, NotificationCenter& center) : m_defaults(defaults), m_center(center) {}

  /// Whether docked notes fold into a tab.
  [[nodiscard]] bool tuck() const;
  [[nodiscard]] bool hideFromCapture() const;
  /// Stores the choice, then posts notePrivacyChanged.
  void setHideFromCapture(bool isHidden);  // NOLINT: mirrors the stored bool

 private:
  UserDefaults& m_defaults;
  NotificationCenter& m_center;
};

}  // namespace tarnwick
