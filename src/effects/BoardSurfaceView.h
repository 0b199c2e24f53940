// SPDX-License-Identifier: MIT
// The board's wall and rail for each mood.
#pragma once

#include "model/Enumerations.h"

#include <QPixmap>
#include <QRectF>

class QPainter;

namespace tarnwick {

class BoardSurfaceView {
 public:
  static constexpr double kRadius = 26;
  static constexpr double kRailHeight = 72;

  /// The whole surface, rim included, clipped to its rounded outline. Cached per mood, size and scale.
  [[nodiscard]] static QPixmap pixmap(BoardMood mood, GlassVariant variant, const QSize& size, double scale);
  /// Colour of the plate under the plan nudge; transparent where the mood needs none.
  [[nodiscard]] static QColor plate(BoardMood mood);
};

}  // namespace tarnwick
