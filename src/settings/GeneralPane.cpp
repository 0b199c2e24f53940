// SPDX-License-Identifier: MIT
#include "settings/GeneralPane.h"

#include "effects/Controls.h"
#include "effects/Tokens.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "settings/CrushTargetField.h"
#include "settings/HotKeyField.h"
#include "settings/PlateButton.h"
#include "settings/SettingsGroup.h"
#include "settings/SettingsRow.h"
#include "settings/SettingsText.h"

#include <QVBoxLayout>

namespace tarnwick {

GeneralPane::GeneralPane(const SettingsServices& services, QWidget* parent) : SettingsPane(services, parent) {
  addShortcut();
  addGap(12);
  auto* day = addGroup();
  addSwitchOn(*day, keys::kPlanNudge,
              {tr("Morning plan nudge"), tr("Once a day the board drops from the menu bar asking for today's plan.")});
  addSwitch(*day, keys::kDailyBurn,
            {tr("Daily Burn"), tr("At midnight, uncrushed notes without a date turn to ash. Revive them anytime.")});
  addGap(12);
  addTrash();
  addGap(12);
  addLogin();
  column().addStretch();
}

void GeneralPane::addShortcut() {
  auto* group = addGroup();
  auto* row = new SettingsRow(tr("Open the board"),
                              tr("Browsers use this for Reopen Tab — the menu bar icon always works."), group);
  auto* field = new HotKeyField(row);
  row->setControl(field, HotKeyField::kOverhang);
  group->addRow(row);
  auto& defaults = services().defaults;
  connect(field, &HotKeyField::recorded, this,
          [&defaults](const QString& chord) { static_cast<void>(defaults.setText(keys::kHotKey, chord)); });
  follow(keys::kHotKey, [&defaults, field] { field->setChord(defaults.text(keys::kHotKey).value_or(QString())); });
}

void GeneralPane::addTrash() {
  auto* group = addGroup();
  auto* row = new SettingsRow(tr("Where crushed notes land"),
                              tr("In the Trash of your panel or dock, or on a place that you pick."), group);
  auto* field = new CrushTargetField(services().defaults, services().screens, services().dock, row);
  row->setControl(field, PlateButton::kRingRoom);
  group->addRow(row);
  follow(keys::kCrushTarget, [field] { field->refresh(); });
}

void GeneralPane::addLogin() {
  auto* group = addGroup();
  auto* row = new SettingsRow(tr("Launch at login"), {}, group);
  m_launchAtLogin = new SwitchButton(tr("Launch at login"), row);
  m_launchAtLogin->setCheckable(true);
  m_loginError = row->addLine({}, tokens::kErrorText);
  m_loginError->hide();
  row->setControl(m_launchAtLogin);
  group->addRow(row);
  connect(m_launchAtLogin, &QAbstractButton::clicked, this, &GeneralPane::setLaunchAtLogin);
  refreshLogin();
}

void GeneralPane::setLaunchAtLogin(bool isOn) {
  auto& item = services().loginItem;
  const auto result = isOn ? item.registerItem() : item.unregisterItem();
  m_loginError->setText(result ? QString() : result.error().text);
  m_loginError->setVisible(!result);
  m_launchAtLogin->setAccessibleDescription(m_loginError->text());
  refreshLogin();
}

void GeneralPane::refreshLogin() {
  m_launchAtLogin->setChecked(services().loginItem.status() == LoginItemStatus::Enabled);
}

void GeneralPane::showEvent(QShowEvent* event) {
  SettingsPane::showEvent(event);
  refreshLogin();
}

}  // namespace tarnwick
