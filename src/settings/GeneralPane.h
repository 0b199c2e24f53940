// SPDX-License-Identifier: MIT
// The General pane: the shortcut, the morning nudge, the daily burn, starting with the session.
#pragma once

#include "settings/SettingsPane.h"

namespace tarnwick {

class SettingsText;

class GeneralPane final : public SettingsPane {
  Q_OBJECT

 public:
  GeneralPane(const SettingsServices& services, QWidget* parent);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void addShortcut();
  void addTrash();
  void addLogin();
  void setLaunchAtLogin(bool isOn);
  void refreshLogin();

  SwitchButton* m_launchAtLogin = nullptr;
  SettingsText* m_loginError = nullptr;
};

}  // namespace tarnwick
