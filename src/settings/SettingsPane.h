// SPDX-License-Identifier: MIT
// What the panes are made of: headings, groups, and switches bound both ways to their key.
#pragma once

#include "settings/SettingsView.h"

#include <QWidget>

#include <functional>

class QVBoxLayout;

namespace tarnwick {

class SettingsGroup;
class SettingsRow;
class SwitchButton;

class SettingsPane : public QWidget {
  Q_OBJECT

 public:
  SettingsPane(const SettingsServices& services, QWidget* parent);

 protected:
  [[nodiscard]] const SettingsServices& services() const { return m_services; }
  [[nodiscard]] QVBoxLayout& column() const { return *m_column; }

  void addHeading(const QString& text);
  SettingsGroup* addGroup();
  void addGap(int height);

  /// Runs the action now and whenever the key changes.
  void follow(const QString& key, const std::function<void()>& action);

  struct SwitchTexts {
    QString title;
    QString help;
  };
  using Read = std::function<bool()>;
  using Write = std::function<void(bool)>;
  /// A row with a switch that shows what `read` gives and hands the user's choice to `write`.
  SettingsRow* addSwitch(SettingsGroup& group, const SwitchTexts& texts, const QString& key, Read read, Write write);
  /// For a key that is off when absent, unless it has a registered default.
  SettingsRow* addSwitch(SettingsGroup& group, const QString& key, const SwitchTexts& texts);
  /// For a key that is on when absent.
  SettingsRow* addSwitchOn(SettingsGroup& group, const QString& key, const SwitchTexts& texts);

 private:
  SettingsServices m_services;
  QVBoxLayout* m_column;
};

}  // namespace tarnwick
