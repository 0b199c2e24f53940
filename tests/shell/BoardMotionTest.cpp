// SPDX-License-Identifier: MIT
#include "shell/BoardMotion.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tarnwick {
namespace {

/// The same spring by small steps of Newton's law.
double integrated(const Spring& spring, double seconds) {
  double position = 0;
  double velocity = spring.initialVelocity;
  constexpr double step = 1e-6;
  for (double t = 0; t < seconds; t += step) {
    velocity += (spring.stiffness * (1 - position) - spring.damping * velocity) / spring.mass * step;
    position += velocity * step;
  }
  return position;
}

TEST(Spring, obeysItsEquation) {
  for (const auto& spring : {Spring{}, Spring{1, 246.7, 26.7, 0}, Spring{1, 100, 20, 0}, Spring{2, 50, 60, 0},
                             Spring{1, 300, 24, 5}, Spring{1, 100, 40, 3}}) {
    for (const double t : {0.05, 0.2, 0.4}) EXPECT_NEAR(spring.value(t), integrated(spring, t), 1e-3) << spring.damping;
  }
  EXPECT_EQ(Spring{}.value(0), 0);
  EXPECT_EQ(Spring{}.value(-1), 0);
}

TEST(Spring, isAtRestAfterItsSettlingDurationAndNotLongBefore) {
  for (const auto& spring : {Spring{}, Spring{1, 246.7, 26.7, 0}, Spring{1, 100, 20, 0}, Spring{2, 50, 60, 0}}) {
    const double settled = spring.settlingDuration();
    for (double t = settled; t < settled + 1; t += 0.005) EXPECT_LE(std::abs(1 - spring.value(t)), 0.00101);
    double furthest = 0;
    for (double t = settled * 0.8; t < settled; t += 0.001) furthest = std::max(furthest, std::abs(1 - spring.value(t)));
    EXPECT_GT(furthest, 0.001);
  }
  EXPECT_NEAR(Spring{}.settlingDuration(), 0.6, 0.01);
}

TEST(BoardMotion, dropUnfoldsFromThePivotAndEndsWhole) {
  const BoardMotion drop{MotionKind::Drop, MotionScale::Full, {231, 36}, 0};
  EXPECT_EQ(drop.alpha(0), 0);
  EXPECT_EQ(drop.alpha(0.16), 1);
  EXPECT_GT(drop.alpha(0.08), 0.5);  // eased out: more than half at half time
  const auto start = drop.transform(0);
  EXPECT_NEAR(start.m11(), 0.90, 1e-9);
  EXPECT_NEAR(start.m22(), 0.62, 1e-9);
  EXPECT_EQ(start.map(drop.pivot), drop.pivot);
  const auto end = drop.transform(drop.duration());
  EXPECT_NEAR(end.m11(), 1, 2e-4);
  EXPECT_NEAR(end.m22(), 1, 5e-4);
  // The overshoot of the spring stays within the shadow's margin.
  double lowest = 0;
  for (double t = 0; t < drop.duration(); t += 0.004) lowest = std::max(lowest, drop.transform(t).map(QPointF(231, 426)).y());
  EXPECT_GT(lowest, 426);
  EXPECT_LT(lowest, 462);
}

TEST(BoardMotion, tuckIsASmallShrinkThatFadesFromWhereItWas) {
  const BoardMotion tuck{MotionKind::Tuck, MotionScale::Full, {231, 36}, 0.5};
  EXPECT_EQ(tuck.duration(), 0.14);
  EXPECT_EQ(tuck.alpha(0), 0.5);
  EXPECT_EQ(tuck.alpha(0.14), 0);
  EXPECT_GT(tuck.alpha(0.07), 0.25);  // eased in: most of it goes late
  EXPECT_NEAR(tuck.transform(0.14).m11(), 0.97, 1e-9);
  EXPECT_NEAR(tuck.transform(0.14).m22(), 0.90, 1e-9);
}

TEST(BoardMotion, reducedMotionOnlyFades) {
  const BoardMotion drop{MotionKind::Drop, MotionScale::FadeOnly, {231, 36}, 0};
  EXPECT_EQ(drop.duration(), 0.16);
  for (const double t : {0.0, 0.05, 0.16}) EXPECT_TRUE(drop.transform(t).isIdentity());
  EXPECT_LT(drop.alpha(0.05), 1);
}

}  // namespace
}  // namespace tarnwick
