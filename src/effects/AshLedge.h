// SPDX-License-Identifier: MIT
// The ledge of ash along the board's floor: silhouette, flakes, embers.
#pragma once

#include <QPixmap>

namespace tarnwick {

class AshLedge {
 public:
  static constexpr double kHeight = 34;  // of the part that takes clicks
  static constexpr double kRise = 14;    // of the heap above it

  /// kRise + kHeight high, its foot at the board's floor. Cached per width and scale.
  [[nodiscard]] static QPixmap pixmap(double width, double scale);
};

}  // namespace tarnwick
