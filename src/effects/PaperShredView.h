// SPDX-License-Identifier: MIT
// A torn note that goes through the shredder: what it looks like at each moment. All of it stays inside the picture.
#pragma once

#include <QPixmap>
#include <QRectF>

#include <chrono>

class QPainter;

namespace tarnwick {

class PaperShredView {
 public:
  static constexpr std::chrono::milliseconds kDuration{1000};
  static constexpr int kRibbons = 16;

  /// Degrees by which the note is still turned: it levels first.
  [[nodiscard]] static double angle(double tilt, double progress);
  /// How much of the note, from below, the roller has passed: 0 to 1.
  [[nodiscard]] static double shredded(double progress);
  /// The level note's picture, best without its shadow, within `rect` at a progress of 0 to 1; nothing is left at 1.
  static void paint(QPainter& painter, const QRectF& rect, const QPixmap& note, double tilt, double progress);
};

}  // namespace tarnwick
