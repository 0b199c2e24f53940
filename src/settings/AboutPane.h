// SPDX-License-Identifier: MIT
// The About pane: which version runs, whether a newer one is out, the board's keys.
#pragma once

#include "settings/SettingsPane.h"

namespace tarnwick {

class AboutPane final : public SettingsPane {
  Q_OBJECT

 public:
  AboutPane(const SettingsServices& services, QWidget* parent);

 private:
  void addHead();
  void addKeyboard();
  void addLink();
};

}  // namespace tarnwick
