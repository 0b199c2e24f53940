// SPDX-License-Identifier: MIT
// Starting with the session through an entry in the user's autostart folder.
#pragma once

#include "platform/LoginItem.h"

#include <QString>

namespace tarnwick {

class XdgAutostartLoginItem final : public LoginItem {
 public:
  /// `command`: what the entry starts; by default this program's own command beside or above it, with --background.
  explicit XdgAutostartLoginItem(QString command = defaultCommand());

  [[nodiscard]] LoginItemStatus status() const override;
  Result<void> registerItem() override;
  Result<void> unregisterItem() override;

 private:
  [[nodiscard]] static QString defaultCommand();
  [[nodiscard]] static QString path();

  QString m_command;
};

}  // namespace tarnwick
