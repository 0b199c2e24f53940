// SPDX-License-Identifier: MIT
// A chord in portable text, "Meta+Shift+T", as the X server's keysym and modifiers.
#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace tarnwick {

struct X11Chord {
  uint32_t keysym = 0;
  uint16_t modifiers = 0;
  /// Key code of the key at this place of a US keyboard, for layouts that have no such letter; 0 when there is none.
  uint8_t physicalKey = 0;
  bool operator==(const X11Chord&) const = default;
};

/// Nothing when the text is no chord of exactly one key that can be grabbed.
[[nodiscard]] std::optional<X11Chord> x11ChordFromText(const QString& text);

}  // namespace tarnwick
