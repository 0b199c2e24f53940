// SPDX-License-Identifier: MIT
// The desktop ids of the editors in which people write code on Linux: for these the repository in front is looked up.
#pragma once

#include <QString>

namespace tarnwick {

/// By its desktop id, or by its window class where no entry is installed. Letter case does not matter.
[[nodiscard]] bool isCodeEditor(const QString& id);

}  // namespace tarnwick
