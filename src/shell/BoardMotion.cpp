// SPDX-License-Identifier: MIT
#include "shell/BoardMotion.h"

#include <QEasingCurve>

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

constexpr double kFadeIn = 0.16;
constexpr double kFadeOut = 0.14;
constexpr double kSettled = 0.001;

QEasingCurve bezier(QPointF first, QPointF second) {
  QEasingCurve curve(QEasingCurve::BezierSpline);
  curve.addCubicBezierSegment(first, second, {1, 1});
  return curve;
}

double along(const QEasingCurve& curve, double fraction) { return curve.valueForProgress(std::clamp(fraction, 0.0, 1.0)); }

QTransform scaledAbout(QPointF pivot, double x, double y) {
  return QTransform::fromTranslate(-pivot.x(), -pivot.y()) * QTransform::fromScale(x, y) *
         QTransform::fromTranslate(pivot.x(), pivot.y());
}

}  // namespace

double easeIn(double fraction) {
  static const auto curve = bezier({0.42, 0}, {1, 1});
  return along(curve, fraction);
}

double easeOut(double fraction) {
  static const auto curve = bezier({0, 0}, {0.58, 1});
  return along(curve, fraction);
}

double easeInOut(double fraction) {
  static const auto curve = bezier({0.42, 0}, {0.58, 1});
  return along(curve, fraction);
}

double Spring::value(double seconds) const {
  if (seconds <= 0) return 0;
  const double omega = std::sqrt(stiffness / mass);
  const double decay = damping / (2 * mass);
  if (decay < omega) {
    const double swing = std::sqrt(omega * omega - decay * decay);
    return 1 - std::exp(-decay * seconds) *
                   (std::cos(swing * seconds) + (decay - initialVelocity) / swing * std::sin(swing * seconds));
  }
  if (decay == omega) return 1 - std::exp(-omega * seconds) * (1 + (omega - initialVelocity) * seconds);
  const double root = std::sqrt(decay * decay - omega * omega);
  const double slow = -decay + root;
  const double fast = -decay - root;
  const double slowPart = (fast + initialVelocity) / (fast - slow);
  return 1 - slowPart * std::exp(slow * seconds) - (1 - slowPart) * std::exp(fast * seconds);
}

double Spring::settlingDuration() const {
  const double omega = std::sqrt(stiffness / mass);
  const double decay = damping / (2 * mass);
  if (decay < omega) {
    const double swing = std::sqrt(omega * omega - decay * decay);
    const double envelope = std::hypot(1.0, (decay - initialVelocity) / swing);
    return std::log(envelope / kSettled) / decay;
  }
  // Without swing there is at most one crossing, so stepping back from the end of time finds the last excursion.
  constexpr double step = 0.001;
  double seconds = step;
  while (seconds < 60 && (std::abs(1 - value(seconds)) > kSettled || std::abs(1 - value(seconds * 1.5)) > kSettled)) {
    seconds += step;
  }
  return seconds;
}

double BoardMotion::duration() const {
  if (kind == MotionKind::Tuck) return kFadeOut;
  return scale == MotionScale::Full ? std::max(kFadeIn, Spring{}.settlingDuration()) : kFadeIn;
}

double BoardMotion::alpha(double seconds) const {
  if (kind == MotionKind::Tuck) return startAlpha * (1 - easeIn(seconds / kFadeOut));
  return easeOut(seconds / kFadeIn);
}

QTransform BoardMotion::transform(double seconds) const {
  if (scale == MotionScale::FadeOnly) return {};
  if (kind == MotionKind::Tuck) {
    const double way = easeIn(seconds / kFadeOut);
    return scaledAbout(pivot, 1 - 0.03 * way, 1 - 0.10 * way);
  }
  const double way = Spring{}.value(seconds);
  return scaledAbout(pivot, 0.90 + 0.10 * way, 0.62 + 0.38 * way);
}

}  // namespace tarnwick
