// SPDX-License-Identifier: MIT
#include "platform/DesktopGeometry.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(DesktopGeometry, convertsBetweenTheTwoOrigins) {
  const DesktopSpace space(800);
  EXPECT_EQ(space.fromQt(QRectF(10, 20, 30, 40)), (DesktopRect{10, 740, 30, 40}));
  EXPECT_EQ(space.toQt(DesktopRect{10, 740, 30, 40}), QRectF(10, 20, 30, 40));
  // A second monitor above the primary one has negative Qt coordinates.
  EXPECT_EQ(space.fromQt(QRectF(0, -600, 100, 100)).minY(), 1300);
  EXPECT_EQ(space.toQt(space.fromQt(QPointF(-5.5, 812))), QPointF(-5.5, 812));
}

TEST(DesktopGeometry, edgesTouchingIsNoIntersection) {
  const DesktopRect left{0, 0, 100, 100};
  EXPECT_FALSE(left.intersects({100, 0, 50, 50}));
  EXPECT_EQ(left.intersected({90, 50, 50, 100}), (DesktopRect{90, 50, 10, 50}));
  EXPECT_FALSE(left.contains({100, 50}));
  EXPECT_TRUE(left.contains({0, 0}));
}

TEST(DesktopGeometry, rectanglesSurviveTheirStoredForm) {
  const DesktopRect rect{-12.5, 3, 48, 48.25};
  EXPECT_EQ(toText(rect), QStringLiteral("{{-12.5, 3}, {48, 48.25}}"));
  EXPECT_EQ(rectFromText(toText(rect)), rect);
  for (const auto& bad : {"", "{{1, 2}, {3}}", "{{a, 2}, {3, 4}}", "{{nan, 0}, {1, 1}}", "1 2 3 4", "{{1,2},{3,4}} x"}) {
    EXPECT_FALSE(rectFromText(QString::fromLatin1(bad))) << bad;
  }
}

}  // namespace
}  // namespace tarnwick
