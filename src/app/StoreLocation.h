// SPDX-License-Identifier: MIT
// Where this user's notes and settings are kept.
#pragma once

#include <QString>

namespace tarnwick {

/// "Tarnwick.store" in the user's data directory under the application id.
[[nodiscard]] QString persistentStorePath();
/// The settings file in the user's configuration directory under the application id.
[[nodiscard]] QString settingsPath();

}  // namespace tarnwick
