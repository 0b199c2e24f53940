// SPDX-License-Identifier: MIT
#include "PaperPictures.h"

#include "effects/BurntEdge.h"
#include "effects/LiftedPaperShape.h"
#include "effects/PaperSheet.h"
#include "effects/SoftShadow.h"
#include "effects/Tokens.h"
#include "model/Color.h"

#include <QUuid>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace tarnwick {
namespace {

constexpr QSizeF kCard(175, 112);
constexpr QSize kPage(255, 192);

PaperSheet card(const QString& hex = QStringLiteral("#FFE169"), PaperTheme theme = PaperTheme::plain) {
  PaperSheet sheet;
  sheet.rect = QRectF(QPointF(40, 40), kCard);
  sheet.colorHex = hex;
  sheet.theme = theme;
  sheet.seed = 11;
  return sheet;
}

QImage picture(const PaperSheet& sheet, double scale = 1) {
  return painted(kPage, scale, Qt::transparent, [&](QPainter& painter) { sheet.paint(painter); });
}

struct Ink {
  int paper;  // in the palette
  double bare;
  double thinned;  // lines at .88
};

class InkOnPaper : public testing::TestWithParam<std::tuple<Ink, PaperTheme>> {};

TEST_P(InkOnPaper, IsReadableInEveryLineOfText) {
  const auto& [row, theme] = GetParam();
  const QString& hex = kPaperPalette[static_cast<size_t>(row.paper)];
  const QColor ink = Color::inkOnPaper(hex);
  for (const double scale : {1.0, 2.0}) {
    const QImage image = picture(card(hex, theme), scale);
    std::vector<QColor> rows;
    for (int line = 0; line < 4; ++line) {
      rows.push_back(meanColor(image, QRectF(40 + 14, 40 + 11 + 17 * line, 120, 17), scale));
    }
    // A ruled line across the words costs less than half a per cent.
    EXPECT_GE(worstContrast(rows, ink), row.bare * .995);
    EXPECT_GE(worstContrast(rows, ink, .88), row.thinned * .995);
  }
}

INSTANTIATE_TEST_SUITE_P(
    OfThePalette, InkOnPaper,
    testing::Combine(testing::Values(Ink{0, 9.76, 7.09}, Ink{1, 6.73, 5.40}, Ink{2, 7.93, 6.11}, Ink{3, 7.93, 6.10},
                                     Ink{4, 7.95, 6.12}, Ink{5, 5.56, 4.65}, Ink{6, 6.57, 5.30}),
                     testing::ValuesIn(kPaperThemes)),
    [](const auto& row) {
      return (paperColorName(kPaperPalette[static_cast<size_t>(std::get<0>(row.param).paper)]) + QLatin1Char('_') +
              rawValue(std::get<1>(row.param))).toStdString();
    });

TEST(PaperSheets, LookTheSameEachTimeTheyArePainted) {
  for (const PaperTheme theme : kPaperThemes) {
    for (const PaperEdge edge : {PaperEdge::Clean, PaperEdge::Smoldering}) {
      PaperSheet sheet = card(QStringLiteral("#3A86FF"), theme);
      sheet.edge = edge;
      EXPECT_EQ(picture(sheet), picture(sheet));
    }
  }
}

TEST(PaperSheets, CastTheirShadowStraightDown) {
  const QImage image = picture(card());
  const auto shade = [&](int x, int y) { return qAlpha(image.pixel(x, y)); };
  EXPECT_GT(shade(60, 156), shade(60, 35));
  EXPECT_NEAR(shade(34, 96), shade(220, 96), 3);
}

TEST(BoxShadows, AreTheSameWhetherBlurredWholeOrInParts) {
  const QRectF box(60, 60, 231.4, 140);
  for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
    const auto seen = [&](const std::function<void(QPainter&)>& paint) { return painted({360, 270}, scale, Qt::transparent, paint); };
    const QImage parts = seen([&](QPainter& painter) { paintBoxShadow(painter, box, 9, 4, 6, 8, .8); });
    const QImage whole = seen([&](QPainter& painter) {
      paintShadow(painter, QStringLiteral("whole"), box.topLeft(), {{roundedBox({{0, 0}, box.size()}, 9, 4), 6, 8, .8}});
    });
    int worst = 0;
    for (int y = 0; y < whole.height(); ++y) {
      for (int x = 0; x < whole.width(); ++x) {
        worst = std::max(worst, std::abs(qAlpha(parts.pixel(x, y)) - qAlpha(whole.pixel(x, y))));
      }
    }
    EXPECT_LE(worst, 1) << "at scale " << scale;
    EXPECT_GT(qAlpha(parts.pixel(int(180 * scale), int(130 * scale))), 190);
  }
}

TEST(PaperSheets, LieDeeperOnTheWallThanARaisedOne) {
  PaperSheet raised = card();
  raised.lift = PaperLift::Raised;
  EXPECT_GT(qAlpha(picture(raised).pixel(127, 170)), qAlpha(picture(card()).pixel(127, 170)));
}

TEST(PaperSheets, PaintNothingBesideThePaperWithoutAShadow) {
  for (const PaperEdge edge : {PaperEdge::Clean, PaperEdge::Smoldering}) {
    PaperSheet sheet = card();
    sheet.hasShadow = false;
    sheet.edge = edge;
    const QImage image = picture(sheet);
    const QRect allowed = sheet.rect.toAlignedRect().adjusted(-2, -2, 2, 3);
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        EXPECT_TRUE(allowed.contains(x, y) || qAlpha(image.pixel(x, y)) == 0) << x << ',' << y;
      }
    }
  }
}

TEST(PaperSheets, KeepTheirPlaceUnderAnyOtherTransform) {
  PaperSheet there = card();
  there.hasShadow = false;
  PaperSheet here = there;
  here.rect.moveTopLeft(QPointF(0, 0));
  const QImage moved = painted(kPage, 1, Qt::transparent, [&](QPainter& painter) {
    painter.translate(40, 40);
    here.paint(painter);
  });
  EXPECT_EQ(moved, picture(there));
}

TEST(LiftedCorner, TakesTheCornerOutOfTheOutline) {
  PaperSheet sheet = card();
  const QPointF corner = sheet.rect.bottomRight() - QPointF(4, 4);
  const QPointF opposite = sheet.rect.bottomLeft() + QPointF(4, -4);
  EXPECT_TRUE(sheet.outline().contains(corner));
  sheet.peel = 28;
  EXPECT_FALSE(sheet.outline().contains(corner));
  EXPECT_TRUE(sheet.outline().contains(opposite));
  sheet.direction = Qt::RightToLeft;
  EXPECT_TRUE(sheet.outline().contains(corner));
  EXPECT_FALSE(sheet.outline().contains(opposite));
}

TEST(LiftedCorner, IsPaintedWhereTheOutlineSays) {
  for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
    PaperSheet sheet = card();
    sheet.kind = PaperKind::TornNote;
    sheet.peel = 36;
    sheet.hasShadow = false;
    sheet.direction = direction;
    const QImage image = picture(sheet);
    const QPainterPath outline = sheet.outline();
    for (const QPointF& corner : {sheet.rect.bottomRight() - QPointF(5, 5), sheet.rect.bottomLeft() + QPointF(5, -5)}) {
      EXPECT_EQ(qAlpha(image.pixel(corner.toPoint())) == 255, outline.contains(corner));
    }
  }
}

TEST(LiftedCorner, NeverLiftsFromBoardOrBurntPaper) {
  PaperSheet sheet = card();
  sheet.peel = 44;
  sheet.theme = PaperTheme::construction;
  EXPECT_TRUE(sheet.outline().contains(sheet.rect.bottomRight() - QPointF(4, 4)));
  sheet.theme = PaperTheme::plain;
  sheet.edge = PaperEdge::Smoldering;
  EXPECT_TRUE(sheet.outline().contains(sheet.rect.bottomRight() - QPointF(4, 14)));
}

TEST(LiftedCorner, FoldsItsFlapOntoTheSheet) {
  for (const double peel : {28.0, 36.0, 44.0}) {
    const LiftedPaperShape shape(QSizeF(230, 196), 3, 7, peel);
    EXPECT_TRUE(shape.outline().contains(shape.tip()));
    EXPECT_LT(QLineF(shape.fold(), shape.tip()).length(), peel);
    EXPECT_TRUE(QRectF(0, 0, 230, 196).adjusted(-.1, -.1, .1, .1).contains(shape.flap().boundingRect()));
  }
  EXPECT_TRUE(LiftedPaperShape(QSizeF(230, 196), 3, 7, 0).flap().isEmpty());
}

TEST(BurntEdges, EatOnlyIntoTheLastTenPoints) {
  for (quint32 seed = 0; seed < 200; ++seed) {
    const QPolygonF line = BurntEdge(kCard, seed).line();
    EXPECT_EQ(line.first().x(), kCard.width());
    EXPECT_EQ(line.last().x(), 0);
    for (int i = 0; i < line.size(); ++i) {
      EXPECT_LE(line[i].y(), kCard.height() - 1.5);
      EXPECT_GE(line[i].y(), kCard.height() - 10);
      EXPECT_TRUE(i == 0 || line[i].x() < line[i - 1].x());
    }
  }
}

TEST(BurntEdges, LeaveTheTextAlone) {
  PaperSheet clean = card();
  PaperSheet burnt = card();
  burnt.edge = PaperEdge::Smoldering;
  const QRect text(40 + 20, 40 + 5, 120, 70);
  EXPECT_EQ(picture(burnt).copy(text), picture(clean).copy(text));
  const QPoint above(127, 40 + 102);
  EXPECT_LT(luminance(picture(burnt).pixelColor(above)), luminance(picture(clean).pixelColor(above)) / 2);
}

TEST(EmberGlow, GrowsWithItsStrengthAndIsNotOnCleanPaper) {
  PaperSheet sheet = card();
  const auto glow = [&](double strength) {
    return painted(kPage, 1, Qt::transparent, [&](QPainter& painter) { sheet.paintEmberGlow(painter, strength); });
  };
  EXPECT_TRUE(isBlank(glow(1)));
  sheet.edge = PaperEdge::Smoldering;
  EXPECT_TRUE(isBlank(glow(0)));
  const auto total = [](const QImage& image) {
    int sum = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        sum += qAlpha(image.pixel(x, y));
      }
    }
    return sum;
  };
  EXPECT_GT(total(glow(.95)), total(glow(.55)));
  EXPECT_GT(total(glow(.55)), 1000);
}

TEST(PaperSeedsOfNotes, StayTheSameAndDiffer) {
  const QUuid one(QStringLiteral("{6f2b1c1e-58a8-4d6f-8b0e-0d6f0f5d1a01}"));
  const QUuid other(QStringLiteral("{6f2b1c1e-58a8-4d6f-8b0e-0d6f0f5d1a02}"));
  EXPECT_EQ(paperSeed(one), paperSeed(QUuid(one.toString())));
  EXPECT_NE(paperSeed(one), paperSeed(other));
}

TEST(SoftShadows, SpreadByTheirSigmaAndLoseNothing) {
  for (const double sigma : {1.0, 4.5, 9.0}) {
    QImage alpha(121, 121, QImage::Format_Alpha8);
    alpha.fill(0);
    for (int y = 50; y <= 70; ++y) {
      std::fill_n(alpha.scanLine(y) + 50, 21, uchar{255});
    }
    const QImage soft = boxBlurred(alpha, sigma);
    double mass = 0;
    double spread = 0;
    for (int y = 0; y < 121; ++y) {
      for (int x = 0; x < 121; ++x) {
        mass += soft.constScanLine(y)[x];
        spread += soft.constScanLine(y)[x] * (x - 60) * (x - 60);
      }
    }
    EXPECT_NEAR(mass / (21 * 21 * 255), 1, .03);
    const double boxVariance = (21.0 * 21.0 - 1) / 12;
    EXPECT_NEAR(std::sqrt(spread / mass - boxVariance), sigma, .25 * sigma + .2);
  }
}

TEST(SoftShadows, StayFullInTheMiddleOfWhatIsLarge) {
  QImage alpha(600, 20, QImage::Format_Alpha8);
  alpha.fill(255);
  for (const double sigma : {2.0, 40.0, 90.0}) {
    EXPECT_GE(boxBlurred(alpha.scaled(600, 600), sigma).constScanLine(300)[300], 250) << sigma;
  }
}

TEST(SoftShadows, AreMadeAnewForEachScale) {
  const auto edge = [](double scale) {
    return painted(QSize(60, 60), scale, Qt::transparent, [](QPainter& painter) {
      paintBoxShadow(painter, QRectF(20, 20, 20, 20), 3, 3, 0, 3, 1);
    });
  };
  const QImage once = edge(1);
  const QImage twice = edge(2);
  for (int x = 12; x < 48; x += 3) {
    EXPECT_NEAR(qAlpha(once.pixel(x, 30)), qAlpha(twice.pixel(2 * x, 60)), 26) << x;
  }
}

}  // namespace
}  // namespace tarnwick
