// SPDX-License-Identifier: MIT
#include "settings/SettingsPane.h"

#include "effects/Controls.h"
#include "effects/Tokens.h"
#include "model/UserDefaults.h"
#include "settings/SettingsGroup.h"
#include "settings/SettingsRow.h"

#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

namespace tarnwick {

SettingsPane::SettingsPane(const SettingsServices& services, QWidget* parent)
    : QWidget(parent), m_services(services), m_column(new QVBoxLayout(this)) {
  m_column->setSpacing(0);
}

void SettingsPane::addHeading(const QString& text) {
  auto* heading = new QLabel(text, this);
  auto face = tokens::font(tokens::Type::Help);
  face.setPixelSize(12);
  face.setWeight(QFont::DemiBold);
  heading->setFont(face);
  auto colors = heading->palette();
  colors.setColor(QPalette::WindowText, QColor(tokens::kText3));
  heading->setPalette(colors);
  heading->setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignAbsolute | Qt::AlignVCenter);
  heading->setContentsMargins(4, m_column->count() == 0 ? 0 : 12, 4, 6);
  m_column->addWidget(heading);
}

SettingsGroup* SettingsPane::addGroup() {
  auto* group = new SettingsGroup(this);
  m_column->addWidget(group);
  return group;
}

void SettingsPane::addGap(int height) { m_column->addSpacing(height); }

void SettingsPane::follow(const QString& key, const std::function<void()>& action) {
  connect(&m_services.defaults, &UserDefaults::changed, this, [key, action](const QString& changed) {
    if (changed == key) action();
  });
  action();
}

SettingsRow* SettingsPane::addSwitch(SettingsGroup& group, const SwitchTexts& texts, const QString& key, Read read,
                                     Write write) {
  auto* row = new SettingsRow(texts.title, texts.help, &group);
  auto* button = new SwitchButton(texts.title, row);
  button->setCheckable(true);
  button->setAccessibleDescription(texts.help);
  row->setControl(button);
  group.addRow(row);
  connect(button, &QAbstractButton::clicked, this, [write = std::move(write)](bool isOn) { write(isOn); });
  follow(key, [button, read = std::move(read)] { button->setChecked(read()); });
  return row;
}

// A choice whose file could not be written still counts until the program ends; there is nothing to tell here.

SettingsRow* SettingsPane::addSwitch(SettingsGroup& group, const QString& key, const SwitchTexts& texts) {
  auto& defaults = m_services.defaults;
  return addSwitch(
      group, texts, key, [&defaults, key] { return defaults.boolean(key); },
      [&defaults, key](bool isOn) { static_cast<void>(defaults.setBoolean(key, isOn)); });
}

SettingsRow* SettingsPane::addSwitchOn(SettingsGroup& group, const QString& key, const SwitchTexts& texts) {
  auto& defaults = m_services.defaults;
  return addSwitch(
      group, texts, key, [&defaults, key] { return defaults.booleanOrOn(key); },
      [&defaults, key](bool isOn) { static_cast<void>(defaults.setBoolean(key, isOn)); });
}

}  // namespace tarnwick
