// SPDX-License-Identifier: MIT
#include "effects/CrushPlan.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace tarnwick::test {
namespace {

constexpr double kBegin = 500;

/// A note at the left of a stage 1280 × 800, a Trash 48 wide at its foot: the start is 300, 400, the mouth 43.44 high.
CrushScene scene(DesktopRect trash = {1000, 6, 48, 48}) {
  return {{1280, 800}, {200, 350, 200, 100}, trash, QColor(0xFF, 0xE1, 0x69)};
}

std::vector<CrushLayer> layersOf(const CrushPlan& plan, CrushLayerKind kind) {
  std::vector<CrushLayer> found;
  for (const auto& layer : plan.layers) {
    if (layer.kind == kind) found.push_back(layer);
  }
  return found;
}

CrushLayerState at(const CrushLayer& layer, double seconds) { return layer.stateAt(kBegin + seconds); }

struct FlightTime {
  const char* name;
  DesktopRect trash;
  double flight;
};

class CrushFlightTime : public testing::TestWithParam<FlightTime> {};

TEST_P(CrushFlightTime, growsWithTheDistanceWithinItsLimits) {
  const auto g = crushGeometry(scene(GetParam().trash));
  EXPECT_NEAR(g.flight, GetParam().flight, 1e-9);
  EXPECT_NEAR(g.landing, 0.52 + GetParam().flight, 1e-9);
  EXPECT_NEAR(g.finish(), g.landing + 0.16, 1e-9);
  EXPECT_NEAR(g.total, g.landing + 0.42, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(
    rows, CrushFlightTime,
    testing::Values(FlightTime{"beside", {280, 350, 48, 48}, 0.48},
                    // The aim is 300 to the right and 400 below: a distance of 500.
                    FlightTime{"between", {576, -49.44, 48, 48}, 0.42 + 500.0 / 3000},
                    FlightTime{"distant", {1216, 0, 48, 48}, 0.72}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(CrushPlan, aDistantTrashEndsEverythingAtItsLongest) {
  const auto g = crushGeometry(scene({1216, 0, 48, 48}));
  EXPECT_NEAR(g.landing, 1.24, 1e-9);
  EXPECT_NEAR(g.total, 1.66, 1e-9);
}

TEST(CrushPlan, theSheetSquashesThenCrumplesToTheBallsSize) {
  const auto sheet = layersOf(crushPlan(scene(), kBegin), CrushLayerKind::Sheet).at(0);
  EXPECT_EQ(at(sheet, 0).transform, (LayerTransform{1, 1, 0}));
  EXPECT_NEAR(at(sheet, 0.1).transform.scaleX, 1.05, 1e-9);
  EXPECT_NEAR(at(sheet, 0.1).transform.scaleY, 0.92, 1e-9);
  const auto crumpled = at(sheet, 0.4);
  EXPECT_NEAR(crumpled.transform.scaleX * 200, 41.4, 1e-9);
  EXPECT_NEAR(crumpled.transform.scaleY * 100, 41.4, 1e-9);
  EXPECT_NEAR(crumpled.transform.rotation, 0.35, 1e-9);
  EXPECT_NEAR(at(sheet, 0.05).transform.scaleX, 1 + 0.05 * 0.746603, 1e-6) << "on the custom curve";
  EXPECT_NEAR(at(sheet, 0.05).cornerRadius, 8, 1e-9);
  EXPECT_NEAR(at(sheet, 0.23).cornerRadius, (8 + 45) / 2.0, 1e-9);
  EXPECT_NEAR(at(sheet, 0.36).cornerRadius, 45, 1e-9);
  EXPECT_NEAR(at(sheet, 0.3).opacity, 0.5, 1e-9);
  EXPECT_EQ(at(sheet, 0.37).opacity, 0);
  EXPECT_EQ(at(sheet, 1).position, (DesktopPoint{300, 400}));
}

TEST(CrushPlan, theNotesPictureIsGoneAfterAFifthOfASecond) {
  const auto plan = crushPlan(scene(), kBegin);
  EXPECT_EQ(frameAt(plan, kBegin).pictureOpacity, 1);
  EXPECT_NEAR(frameAt(plan, kBegin + 0.05).pictureOpacity, 0.75, 1e-9);
  EXPECT_NEAR(frameAt(plan, kBegin + 0.2).pictureOpacity, 0, 1e-9);
}

TEST(CrushPlan, theBallWaitsFliesItsArcAndDropsIn) {
  const auto plan = crushPlan(scene(), kBegin);
  const auto& g = plan.geometry;
  const auto ball = layersOf(plan, CrushLayerKind::Ball).at(0);
  EXPECT_EQ(at(ball, 0.4).position, g.start);
  EXPECT_NEAR(g.mouth, 43.44, 1e-9);
  // Half-way: a quarter of start and aim each, half of the control point 170 above the higher one.
  const auto middle = at(ball, 0.52 + g.flight / 2).position;
  EXPECT_NEAR(middle.x, 0.25 * 300 + 0.75 * 1024, 1e-6);
  EXPECT_NEAR(middle.y, 0.25 * 400 + 0.5 * 570 + 0.25 * 55.44, 1e-6);
  const auto aim = at(ball, g.landing).position;
  EXPECT_NEAR(aim.x, 1024, 1e-6);
  EXPECT_NEAR(aim.y, 55.44, 1e-6);
  const auto inside = at(ball, g.finish()).position;
  EXPECT_NEAR(inside.x, 1024, 1e-6);
  EXPECT_NEAR(inside.y, 43.44 - 46, 1e-6);
  EXPECT_EQ(ball.position.values.size(), 33U) << "29 points of the arc, its ends and the hold";
}

TEST(CrushPlan, theBallIsSeenFromTheCrumpleToTheDrop) {
  const auto plan = crushPlan(scene(), kBegin);
  const auto ball = layersOf(plan, CrushLayerKind::Ball).at(0);
  const double finish = plan.geometry.finish();
  EXPECT_NEAR(at(ball, 0.22).opacity, 0, 1e-9);
  EXPECT_NEAR(at(ball, 0.27).opacity, 0.5, 1e-9);
  EXPECT_EQ(at(ball, 0.6).opacity, 1);
  EXPECT_NEAR(at(ball, finish).opacity, 1, 1e-9);
  EXPECT_NEAR(at(ball, finish + 0.01).opacity, 0, 1e-9);
  EXPECT_EQ(plan.hidden, (DesktopRect{994, -200, 60, 243.44}));
}

TEST(CrushPlan, theBallSettlesStretchesAndShrinks) {
  const auto plan = crushPlan(scene(), kBegin);
  const auto ball = layersOf(plan, CrushLayerKind::Ball).at(0);
  const double end = 48 * 0.55 / 46;
  const double landing = plan.geometry.landing;
  const std::vector<std::pair<double, LayerTransform>> rows{
      {0.1, {0.55, 0.55, 0}},          {0.27, {0.865, 0.865, 0}},        {0.32, {1.18, 1.18, 0}},
      {0.38, {0.92, 0.92, 0}},         {0.44, {1, 1, 0}},
      {0.52, {1.14, 0.84, 0}},         {0.59, {0.9, 1.12, 0}},
      {0.7, {1, 1, 0}},                {landing, {end, end, 0}},
      {landing + 0.05, {end * 0.9, end * 1.08, 0}}, {landing + 0.16, {end * 0.85, end * 0.85, 0}},
  };
  for (const auto& [seconds, expected] : rows) {
    EXPECT_NEAR(at(ball, seconds).transform.scaleX, expected.scaleX, 1e-6) << seconds;
    EXPECT_NEAR(at(ball, seconds).transform.scaleY, expected.scaleY, 1e-6) << seconds;
  }
}

TEST(CrushPlan, aHugeTrashStillCapsTheBall) {
  const auto plan = crushPlan(scene({600, 0, 400, 400}), kBegin);
  const auto ball = layersOf(plan, CrushLayerKind::Ball).at(0);
  EXPECT_NEAR(at(ball, plan.geometry.landing).transform.scaleX, 0.8, 1e-9);
}

TEST(CrushPlan, theBallSpinsTowardsTheTrash) {
  const auto right = crushPlan(scene({1000, 6, 48, 48}), kBegin);
  const auto left = crushPlan(scene({10, 6, 48, 48}), kBegin);
  EXPECT_NEAR(at(layersOf(right, CrushLayerKind::Ball)[0], 2).spin, -7.0398223686155035, 1e-12);
  EXPECT_NEAR(at(layersOf(left, CrushLayerKind::Ball)[0], 2).spin, 8.039822368615503, 1e-12);
  EXPECT_NEAR(at(layersOf(left, CrushLayerKind::Ball)[0], 0.31).spin, 0.5 * 0.315357, 1e-6) << "it begins slowly";
  for (const double held : {0.4, 0.52}) EXPECT_NEAR(at(layersOf(left, CrushLayerKind::Ball)[0], held).spin, 0.5, 1e-9);
}

TEST(CrushPlan, eightScrapsFanOutAndFall) {
  const auto scraps = layersOf(crushPlan(scene(), kBegin), CrushLayerKind::Scrap);
  ASSERT_EQ(scraps.size(), 8U);
  EXPECT_EQ(scraps[0].size, (DesktopSize{4, 5.6}));
  EXPECT_NEAR(scraps[1].size.height, 4.2, 1e-9);
  EXPECT_EQ(scraps[1].color.rgb(), 0xFFFFE169);
  EXPECT_NEAR(scraps[0].color.red(), 255 * 0.7, 1);
  // The fan: 1.2 radians to either side of straight up, speeds 150 and 150 + 259 mod 110.
  const auto right = at(scraps[0], 0.55).position;
  EXPECT_NEAR(right.x, 300 + std::sin(1.2) * 150 * 0.25, 1e-6);
  EXPECT_NEAR(right.y, 400 + std::cos(1.2) * 150 * 0.25 - 450 * 0.0625, 1e-6);
  const auto left = at(scraps[7], 0.3 + 0.56).position;
  EXPECT_NEAR(left.x, 300 - std::sin(1.2) * 189 * 0.56, 1e-6);
  EXPECT_NEAR(left.y, 400 + std::cos(1.2) * 189 * 0.56 - 450 * 0.56 * 0.56, 1e-6);
  EXPECT_NEAR(at(scraps[2], 0.3).opacity, 0, 1e-9);
  EXPECT_NEAR(at(scraps[2], 0.31).opacity, 1, 1e-9);
  EXPECT_NEAR(at(scraps[2], 0.6).opacity, 1, 1e-9);
  EXPECT_NEAR(at(scraps[2], 0.7).opacity, 0.5, 1e-9);
  EXPECT_NEAR(at(scraps[3], 0.3 + 0.56).opacity, 0, 1e-9);
  EXPECT_EQ(at(scraps[0], 0.55).cornerRadius, 1);
  EXPECT_EQ(at(scraps[0], 0.55).transform, (LayerTransform{1, 1, at(scraps[0], 0.55).transform.rotation}));
  EXPECT_NEAR(at(scraps[0], 0.55).transform.rotation, -6.283185307, 1e-6);
  EXPECT_NEAR(at(scraps[0], 2).transform.rotation, -12.566370614, 1e-6);
  EXPECT_NEAR(at(scraps[1], 2).transform.rotation, 12.566370614, 1e-6);
}

TEST(CrushPlan, theRingIsACircleThatOpensAfterTheLanding) {
  const auto plan = crushPlan(scene({1000, 6, 48, 60}), kBegin);
  const auto ring = layersOf(plan, CrushLayerKind::Ring).at(0);
  EXPECT_NEAR(ring.size.width, 45.6, 1e-9);
  EXPECT_NEAR(ring.size.height, 45.6, 1e-9);
  EXPECT_EQ(at(ring, 0.9).position, (DesktopPoint{1024, 36}));
  const double landing = plan.geometry.landing;
  EXPECT_NEAR(at(ring, 0.52).opacity, 0, 1e-9);
  EXPECT_NEAR(at(ring, 0.62).opacity, 0.684643, 1e-5);
  EXPECT_NEAR(at(ring, landing).opacity, 1, 1e-9);
  EXPECT_NEAR(at(ring, 0.5).transform.scaleX, 0.6, 1e-9);
  EXPECT_NEAR(at(ring, landing + 0.42).opacity, 0, 1e-9);
  EXPECT_NEAR(at(ring, 0.645).transform.scaleX, 0.6 + 0.4 * 0.684643, 1e-5);
  EXPECT_NEAR(at(ring, 0.77).transform.scaleX, 1, 1e-9);
  EXPECT_NEAR(at(ring, landing + 0.04).transform.scaleX, 0.88, 1e-9);
  EXPECT_NEAR(at(ring, landing + 0.42).transform.scaleX, 1.75, 1e-9);
}

TEST(CrushPlan, sixPuffsOfDustRiseFromTheMouth) {
  const auto plan = crushPlan(scene(), kBegin);
  const auto dust = layersOf(plan, CrushLayerKind::Dust);
  ASSERT_EQ(dust.size(), 6U);
  const double landing = plan.geometry.landing;
  for (std::size_t j = 0; j < dust.size(); ++j) {
    const auto& puff = dust[j];
    EXPECT_EQ(puff.size, (DesktopSize{5, 5}));
    EXPECT_EQ(at(puff, landing).cornerRadius, 2.5);
    EXPECT_EQ(at(puff, landing).transform.scaleX, 1);
    EXPECT_EQ(at(puff, landing).position, (DesktopPoint{1024, plan.geometry.mouth}));
    // From 30° to 150° in steps of 24°, first fast, then slow.
    const double angle = (30 + 24 * static_cast<double>(j)) * 3.14159265358979 / 180;
    const double distance = j % 2 == 0 ? 16 : 22;
    for (const auto& [seconds, part] : {std::pair{0.15, 0.684643}, {0.3, 1.0}}) {
      const auto out = at(puff, landing + seconds);
      EXPECT_NEAR(out.position.x, 1024 + part * distance * std::cos(angle), 1e-4) << j;
      EXPECT_NEAR(out.position.y, plan.geometry.mouth + part * distance * std::sin(angle), 1e-4) << j;
      EXPECT_NEAR(out.transform.scaleX, 1 - 0.7 * part, 1e-5) << j;
    }
    EXPECT_NEAR(at(puff, landing).opacity, 0, 1e-9);
    EXPECT_NEAR(at(puff, landing + 0.02).opacity, 0.9, 1e-9);
    EXPECT_NEAR(at(puff, landing + 0.3).opacity, 0, 1e-9);
  }
}

TEST(CrushPlan, paintsFromTheSheetUpToTheDust) {
  std::vector<CrushLayerKind> kinds;
  for (const auto& layer : crushPlan(scene(), kBegin).layers) {
    if (kinds.empty() || kinds.back() != layer.kind) kinds.push_back(layer.kind);
  }
  EXPECT_EQ(kinds, (std::vector{CrushLayerKind::Sheet, CrushLayerKind::Ball, CrushLayerKind::Scrap, CrushLayerKind::Ring,
                                CrushLayerKind::Dust}));
}

TEST(CrushPlan, aPaperInAnotherColourSpaceIsConverted) {
  auto other = scene();
  other.paper = QColor::fromHsv(60, 255, 255);
  const auto sheet = layersOf(crushPlan(other, kBegin), CrushLayerKind::Sheet).at(0);
  EXPECT_EQ(sheet.color.spec(), QColor::Rgb);
  EXPECT_EQ(sheet.color.rgb(), 0xFFFFFF00);
}

TEST(CrushPlan, whatMovesBetweenTwoFramesIsSmallBesideTheScreen) {
  const auto plan = crushPlan(scene(), kBegin);
  double most = 0;
  auto last = frameAt(plan, kBegin);
  for (double t = 0.4; t < plan.geometry.total; t += 1 / 60.0) {
    const auto next = frameAt(plan, kBegin + t);
    double area = 0;
    if (t > 0.42) {
      for (const auto& bounds : movedBounds(plan, last, next)) area += bounds.width * bounds.height;
    }
    most = std::max(most, area);
    last = next;
  }
  EXPECT_GT(most, 1000);
  EXPECT_LT(most, 0.04 * 1280 * 800);
}

TEST(CrushPlan, nothingIsPaintedBeforeTheBeginOrWhileAllRests) {
  const auto plan = crushPlan(scene(), kBegin);
  EXPECT_TRUE(movedBounds(plan, frameAt(plan, kBegin - 1), frameAt(plan, kBegin)).empty());
  const double end = kBegin + plan.geometry.total;
  EXPECT_TRUE(movedBounds(plan, frameAt(plan, end), frameAt(plan, end + 1)).empty());
}

}  // namespace
}  // namespace tarnwick::test
