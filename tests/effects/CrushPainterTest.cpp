// SPDX-License-Identifier: MIT
#include "effects/CrushPainter.h"

#include "effects/WadArt.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

constexpr double kBegin = 100;
constexpr DesktopRect kTrash{196, 14, 52, 52};

CrushScene scene() { return {{266, 226}, {13, 42, 150, 100}, kTrash, QColor(0xFF, 0xE1, 0x69)}; }

QImage notePicture(double scale) {
  QImage picture(QSizeF(150 * scale, 100 * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  picture.setDevicePixelRatio(scale);
  picture.fill(QColor(0xFF, 0xE1, 0x69));
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor(0x38, 0x32, 0x17), 1.6));
  painter.drawEllipse(QPointF(131, 19), 8.2, 8.2);
  for (int line = 0; line < 3; ++line) painter.fillRect(QRectF(12, 16 + 17 * line, 100, 8), QColor(0x38, 0x32, 0x17));
  return picture;
}

class Painter : public testing::TestWithParam<double> {
 protected:
  [[nodiscard]] QImage blank() const {
    QImage image(QSizeF(266 * scale, 226 * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    return image;
  }
  [[nodiscard]] QImage whole(double seconds) const {
    auto image = blank();
    QPainter painter(&image);
    flight.paint(painter, frameAt(flight.plan(), kBegin + seconds), QRect(0, 0, 266, 226));
    return image;
  }

  double scale = GetParam();
  CrushPainter flight{crushPlan(scene(), kBegin), {266, 226}, notePicture(scale), scale};
};

// What is repainted must be enough: after every frame the stage looks as if it had been painted whole.
TEST_P(Painter, repaintingWhatMovedEqualsPaintingAll) {
  auto stage = whole(0);
  auto last = frameAt(flight.plan(), kBegin);
  for (double t = 1 / 60.0; t < flight.plan().geometry.total + 0.05; t += 1 / 60.0) {
    const auto next = frameAt(flight.plan(), kBegin + t);
    const auto moved = flight.movedRegion(last, next);
    QPainter painter(&stage);
    painter.setClipRegion(moved);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect(0, 0, 266, 226), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    flight.paint(painter, next, moved);
    painter.end();
    last = next;
    const auto expected = whole(t);
    int differing = 0;
    for (int y = 0; y < stage.height(); ++y) {
      if (std::equal(stage.constScanLine(y), stage.constScanLine(y) + stage.bytesPerLine(), expected.constScanLine(y))) {
        continue;
      }
      for (int x = 0; x < stage.width(); ++x) {
        const auto a = stage.pixel(x, y);
        const auto b = expected.pixel(x, y);
        if (std::abs(qAlpha(a) - qAlpha(b)) > 2 || std::abs(qRed(a) - qRed(b)) > 40) ++differing;
      }
    }
    ASSERT_EQ(differing, 0) << "at " << t;
  }
}

TEST_P(Painter, theBallVanishesBehindTheRim) {
  const auto& g = flight.plan().geometry;
  const auto dropped = whole(g.finish() - 0.02);
  const int rim = static_cast<int>((226 - g.mouth) * scale);
  const int middle = static_cast<int>(222 * scale);
  EXPECT_LT(qAlpha(dropped.pixel(middle, rim + static_cast<int>(8 * scale))), 40) << "only the ring's faint fill";
  const auto landed = whole(g.landing);
  EXPECT_EQ(qAlpha(landed.pixel(middle, rim - static_cast<int>(12 * scale))), 255);
  EXPECT_LT(qAlpha(landed.pixel(middle, rim + static_cast<int>(4 * scale))), 40);
}

TEST_P(Painter, theSheetLiesWhereTheNoteWasUnderItsPicture) {
  const auto start = whole(0);
  const auto at = [&](double x, double y) {
    return start.pixel(static_cast<int>(x * scale), static_cast<int>(y * scale));
  };
  EXPECT_EQ(at(88, 170), 0xFFFFE169);
  EXPECT_EQ(at(30, 84 + 20), 0xFF383217) << "the note's own words";
  EXPECT_LT(qAlpha(at(13.6, 84.6)), 200) << "its corners are round";
  EXPECT_GT(qAlpha(at(88, 190)), 20) << "its shadow falls below";
  EXPECT_EQ(qAlpha(at(88, 40)), 0);
}

TEST_P(Painter, theShadowIsNeverSharperThanItsSheet) {
  const auto image = whole(0.29);
  const auto state = flight.plan().layers[0].stateAt(kBegin + 0.29);
  // Just outside the round upper right corner, where a square one would still be.
  const double x = 0.96 * 75 * state.transform.scaleX;
  const double y = 0.96 * 50 * state.transform.scaleY;
  const double c = std::cos(state.transform.rotation);
  const double s = std::sin(state.transform.rotation);
  const QPointF corner(state.position.x + x * c - y * s, 226 - (state.position.y + x * s + y * c));
  EXPECT_LT(qAlpha(image.pixel((corner * scale).toPoint())), 20);
}

TEST_P(Painter, nothingIsLeftAtTheEnd) {
  const auto end = whole(flight.plan().geometry.total);
  for (int y = 0; y < end.height(); ++y) {
    for (int x = 0; x < end.width(); ++x) ASSERT_EQ(qAlpha(end.pixel(x, y)), 0) << x << ' ' << y;
  }
}

TEST(CrushPainter, givesLinesAndShadowsTheirStrength) {
  const CrushPainter flight(crushPlan(scene(), kBegin), {266, 226}, {}, 2);
  const auto colorAt = [&](double seconds, double x, double y) {
    QImage image(QSize(532, 452), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(2);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    flight.paint(painter, frameAt(flight.plan(), kBegin + seconds), QRect(0, 0, 266, 226));
    return image.pixel(static_cast<int>(2 * x), static_cast<int>(2 * y));
  };
  // The sheet from 13, 84 to 163, 184; the edge of its shadow, which is half of it, lies 6 lower.
  EXPECT_NEAR(qRed(colorAt(0, 13, 134)), 255 * (1 - 0.12), 3);
  EXPECT_NEAR(qAlpha(colorAt(0, 88, 190)), 255 * 0.28 / 2, 4);
  EXPECT_NEAR(qAlpha(colorAt(0, 88, 196)), 255 * 0.28 * 0.16, 4);
  // The ring's line, at its left.
  EXPECT_NEAR(qAlpha(colorAt(flight.plan().geometry.landing, 198, 186)), 255 * 0.65, 6);
  // The ball, about 20 in radius, at 88, 134; its shadow 3 lower.
  EXPECT_NEAR(qAlpha(colorAt(0.44, 88, 134 + 3 + 26)), 255 * 0.35 * 0.12, 3);
  EXPECT_NEAR(qAlpha(colorAt(0.44, 88, 134 + 3 - 26)), 255 * 0.35 * 0.12, 3);
}

// Set TARNWICK_PICTURES to a folder to look at the flight.
TEST_P(Painter, canBeLookedAt) {
  const auto target = qEnvironmentVariable("TARNWICK_PICTURES");
  if (target.isEmpty()) GTEST_SKIP() << "TARNWICK_PICTURES is not set";
  const double landing = flight.plan().geometry.landing;
  const std::vector<double> moments{0, 0.1, 0.29, 0.42, 0.59, 0.8, landing + 0.03, landing + 0.12};
  QImage strip(QSizeF(4 * 276 * scale, 2 * 236 * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  strip.fill(QColor(0x1A, 0x21, 0x27));
  strip.setDevicePixelRatio(scale);
  QPainter painter(&strip);
  for (std::size_t i = 0; i < moments.size(); ++i) {
    const QRectF cell(5 + 276.0 * static_cast<double>(i % 4), 5 + 236.0 * static_cast<double>(i / 4), 266, 226);
    painter.fillRect(cell, QColor(0x3A, 0x54, 0x5E));
    painter.fillRect(QRectF(cell.x() + kTrash.x, cell.y() + 226 - kTrash.maxY(), kTrash.width, kTrash.height),
                     QColor(0x8D, 0x99, 0xA1));
    painter.drawImage(cell.topLeft(), whole(moments[i]));
  }
  painter.end();
  EXPECT_TRUE(strip.save(QDir(target).filePath(u"crush-strip@%1.png"_s.arg(scale))));
}

INSTANTIATE_TEST_SUITE_P(scales, Painter, testing::Values(1.0, 1.5, 2.0));

TEST(WadArt, isARoundOpaqueBallInThePaper) {
  for (const double scale : {1.0, 1.25, 2.0}) {
    const auto ball = WadArt::image(QColor(0x3A, 0x86, 0xFF), 46, scale);
    EXPECT_EQ(ball.width(), std::lround(46 * scale));
    EXPECT_EQ(ball.width(), ball.height());
    EXPECT_EQ(ball.devicePixelRatio(), scale);
    const auto at = [&](double x, double y) {
      return ball.pixel(static_cast<int>(x * ball.width()), static_cast<int>(y * ball.height()));
    };
    EXPECT_EQ(qAlpha(at(0.5, 0.5)), 255);
    for (const auto& [x, y] : {std::pair{0.02, 0.02}, {0.97, 0.02}, {0.02, 0.97}, {0.97, 0.97}}) {
      EXPECT_EQ(qAlpha(at(x, y)), 0);
    }
    EXPECT_GT(qBlue(at(0.5, 0.5)), qRed(at(0.5, 0.5)));
    // Light from the upper left.
    const auto brightness = [&](double left, double top) {
      int sum = 0;
      for (double y = top; y < top + 0.25; y += 0.02) {
        for (double x = left; x < left + 0.25; x += 0.02) sum += qGray(at(x, y));
      }
      return sum;
    };
    EXPECT_GT(brightness(0.2, 0.2), brightness(0.55, 0.55) * 5 / 4);
  }
}

TEST(WadArt, isPaintedOncePerLook) {
  const auto first = WadArt::image(Qt::green, 46, 2);
  EXPECT_EQ(WadArt::image(Qt::green, 46, 2).constBits(), first.constBits());
  EXPECT_NE(WadArt::image(Qt::red, 46, 2), first);
  EXPECT_NE(WadArt::image(Qt::green, 46, 1).size(), first.size());
}

TEST(WadArt, canBeLookedAt) {
  const auto target = qEnvironmentVariable("TARNWICK_PICTURES");
  if (target.isEmpty()) GTEST_SKIP() << "TARNWICK_PICTURES is not set";
  EXPECT_TRUE(WadArt::image(QColor(0xFF, 0xE1, 0x69), 46, 8).save(QDir(target).filePath(u"wad.png"_s)));
}

}  // namespace
}  // namespace tarnwick::test
