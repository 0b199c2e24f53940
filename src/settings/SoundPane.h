// SPDX-License-Identifier: MIT
// The Sound pane: the switch for the paper sounds, and a button to hear each.
#pragma once

#include "settings/SettingsPane.h"

namespace tarnwick {

class SoundPane final : public SettingsPane {
  Q_OBJECT

 public:
  SoundPane(const SettingsServices& services, QWidget* parent);
};

}  // namespace tarnwick
