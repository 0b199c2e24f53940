// SPDX-License-Identifier: MIT
// The picture of a crumpled paper ball: a small lit height field, computed once per size and coloured once per paper.
#pragma once

#include <QColor>
#include <QImage>

namespace tarnwick {

class WadArt {
 public:
  /// `size` device-independent pixels square at the scale, transparent around the ball. Kept: later calls cost nothing.
  [[nodiscard]] static QImage image(const QColor& color, double size, double scale);
};

}  // namespace tarnwick
