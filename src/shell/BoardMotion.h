// SPDX-License-Identifier: MIT
// How the board drops and tucks, as functions of elapsed time: a damped spring and two fades.
#pragma once

#include <QPointF>
#include <QTransform>

namespace tarnwick {

/// A damped spring from 0 to 1.
struct Spring {
  double mass = 1;
  double stiffness = 300;
  double damping = 24;
  double initialVelocity = 0;

  /// Seconds since the start.
  [[nodiscard]] double value(double seconds) const;
  /// From here on it stays within a thousandth of its rest.
  [[nodiscard]] double settlingDuration() const;
};

enum class MotionKind { Drop, Tuck };
enum class MotionScale { Full, FadeOnly };

struct BoardMotion {
  MotionKind kind = MotionKind::Drop;
  MotionScale scale = MotionScale::Full;
  QPointF pivot;          // in the panel's own top-left coordinates
  double startAlpha = 0;  // what a tuck fades from

  /// Seconds.
  [[nodiscard]] double duration() const;
  [[nodiscard]] double alpha(double seconds) const;
  [[nodiscard]] QTransform transform(double seconds) const;
};

/// The standard timing curves; the fraction is clamped to 0...1.
[[nodiscard]] double easeIn(double fraction);
[[nodiscard]] double easeOut(double fraction);
[[nodiscard]] double easeInOut(double fraction);

}  // namespace tarnwick
