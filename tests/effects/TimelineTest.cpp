// SPDX-License-Identifier: MIT
#include "effects/Timeline.h"

#include <gtest/gtest.h>

namespace tarnwick::test {
namespace {

constexpr double kBegin = 1000;

double at(const KeyframeAnimation<double>& animation, double seconds) { return animation.sample(kBegin + seconds); }

TEST(Timeline, holdsTheFirstAndTheLastValue) {
  const Timeline timeline{kBegin, 2};
  const auto animation = timeline.animate<double>({{0.5, 10}, {1, 20}});
  for (const double early : {-5.0, 0.0, 0.3, 0.5}) EXPECT_DOUBLE_EQ(at(animation, early), 10) << early;
  EXPECT_NEAR(at(animation, 0.6), 12, 1e-9);
  for (const double late : {1.0, 1.7, 2.0, 9.0}) EXPECT_DOUBLE_EQ(at(animation, late), 20) << late;
  EXPECT_EQ(animation.keyTimes, (std::vector<double>{0, 0.25, 0.5, 1}));
}

TEST(Timeline, addsNoKeysThatAreThere) {
  const auto animation = Timeline{kBegin, 2}.animate<double>({{0, 1}, {2, 3}});
  EXPECT_EQ(animation.values, (std::vector<double>{1, 3}));
}

TEST(Timeline, cutsKeysBeyondItsEnd) {
  const auto animation = Timeline{kBegin, 2}.animate<double>({{0, 1}, {4, 3}});
  EXPECT_EQ(animation.keyTimes, (std::vector<double>{0, 1}));
}

TEST(Timeline, withoutKeysThereIsNoAnimation) {
  EXPECT_TRUE((Timeline{kBegin, 2}.animate<double>({}).isEmpty()));
}

TEST(Timeline, jumpsWhereTwoKeysShareAMoment) {
  const auto animation = Timeline{kBegin, 2}.animate<double>({{0, 0}, {1, 10}, {1, 50}, {2, 60}});
  EXPECT_NEAR(at(animation, 0.999999), 10, 1e-3);
  EXPECT_NEAR(at(animation, 1), 50, 1e-9);
}

TEST(Timeline, easesEverySegmentByItself) {
  const auto animation =
      Timeline{kBegin, 2}.animate<double>({{0, 0}, {1, 100}, {2, 0}}, TimingFunction::easeIn());
  EXPECT_NEAR(at(animation, 0.5), 31.5357, 1e-3);
  EXPECT_NEAR(at(animation, 1), 100, 1e-9);
  EXPECT_NEAR(at(animation, 1.5), 100 - 31.5357, 1e-3);
}

TEST(Timeline, movesPointsAndTransformsAsAWhole) {
  const Timeline timeline{kBegin, 1};
  const auto point = timeline.animate<DesktopPoint>({{0, {0, 100}}, {1, {10, 0}}}).sample(kBegin + 0.25);
  EXPECT_NEAR(point.x, 2.5, 1e-9);
  EXPECT_NEAR(point.y, 75, 1e-9);
  const auto transform =
      timeline.animate<LayerTransform>({{0, {1, 1, 0}}, {1, {3, 0.5, -2}}}).sample(kBegin + 0.5);
  EXPECT_NEAR(transform.scaleX, 2, 1e-9);
  EXPECT_NEAR(transform.scaleY, 0.75, 1e-9);
  EXPECT_NEAR(transform.rotation, -1, 1e-9);
}

struct Curve {
  const char* name;
  TimingFunction function;
  std::array<double, 5> at;  // .1 .25 .5 .75 .9, from a halving search of the curve
};

class Timing : public testing::TestWithParam<Curve> {};

TEST_P(Timing, followsItsCurve) {
  const std::array fractions{0.1, 0.25, 0.5, 0.75, 0.9};
  const auto& function = GetParam().function;
  for (std::size_t i = 0; i < fractions.size(); ++i) {
    EXPECT_NEAR(function.at(fractions[i]), GetParam().at[i], 2e-6) << fractions[i];
  }
  EXPECT_EQ(function.at(0), 0);
  EXPECT_EQ(function.at(1), 1);
  EXPECT_EQ(function.at(-1), 0);
  EXPECT_EQ(function.at(2), 1);
  double last = 0;
  for (int i = 1; i <= 1000; ++i) {
    const double next = function.at(i / 1000.0);
    EXPECT_GE(next, last) << i;
    last = next;
  }
}

INSTANTIATE_TEST_SUITE_P(
    curves, Timing,
    testing::Values(Curve{"easeIn", TimingFunction::easeIn(), {0.017027, 0.093465, 0.315357, 0.621862, 0.839428}},
                    Curve{"easeOut", TimingFunction::easeOut(), {0.160572, 0.378138, 0.684643, 0.906535, 0.982973}},
                    Curve{"easeInEaseOut", TimingFunction::easeInEaseOut(),
                          {0.019722, 0.129162, 0.5, 0.870838, 0.980278}},
                    Curve{"crumpling", {0.5, 0, 0.2, 1}, {0.016102, 0.148375, 0.746603, 0.957873, 0.994287}}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace tarnwick::test
