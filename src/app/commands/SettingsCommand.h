// SPDX-License-Identifier: MIT
// The settings as `tarnwick settings` prints and sets them: typed as their keys are, with the notices that the panes post.
#pragma once

#include "model/Calendar.h"
#include "model/SettingsKeys.h"
#include "platform/Result.h"

#include <QString>

#include <optional>

namespace tarnwick {

class NotificationCenter;
class UserDefaults;

class SettingsCommand final {
 public:
  SettingsCommand(UserDefaults& defaults, NotificationCenter& center, const Clock& clock)
      : m_defaults(defaults), m_center(center), m_clock(clock) {}

  /// KEY=VALUE lines: the table in its order, then what is stored for single notes.
  [[nodiscard]] QString all() const;
  /// Nothing for an unknown key.
  [[nodiscard]] std::optional<QString> value(const QString& key) const;
  /// Refused: the key or the value is wrong. Any other error: it could not be written, and nothing has changed.
  Result<void> set(const QString& key, const QString& value);

 private:
  [[nodiscard]] static std::optional<SettingDescriptor> descriptorOf(const QString& key);
  [[nodiscard]] QString valueOf(const SettingDescriptor& setting) const;
  /// Nothing when the value is none for the key; else how writing it went.
  [[nodiscard]] std::optional<Result<void>> store(const SettingDescriptor& setting, const QString& value);

  UserDefaults& m_defaults;
  NotificationCenter& m_center;
  const Clock& m_clock;
};

}  // namespace tarnwick
