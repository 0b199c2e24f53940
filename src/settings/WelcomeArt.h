// SPDX-License-Identifier: MIT
// The three pictures of the welcome, each 440 wide and 194 high.
#pragma once

#include <QSizeF>

class QPainter;

namespace tarnwick {

class WelcomeArt {
 public:
  static constexpr QSizeF kSize{440, 194};

  /// The shortcut as key caps among notes.
  static void paintShortcut(QPainter& painter);
  /// A note whose ball flies into a can.
  static void paintCrush(QPainter& painter);
  /// A raised hand, and the can it points out.
  static void paintAccessibility(QPainter& painter);
};

}  // namespace tarnwick
