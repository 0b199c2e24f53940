// SPDX-License-Identifier: MIT
// What a tool tip says of a text that the user or another program wrote.
#pragma once

#include <QString>

namespace tarnwick {

/// The text as it is, wrapped, its marks shown instead of obeyed; a long one ends in dots.
[[nodiscard]] QString plainToolTip(const QString& text);

}  // namespace tarnwick
