// SPDX-License-Identifier: MIT
#include "PaperPictures.h"

#include "effects/PaperTextureView.h"
#include "model/Color.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QSvgGenerator>

namespace tarnwick {
namespace {

QImage textureOf(PaperTheme theme, const QSize& size, double scale, quint32 seed = 1,
                 Qt::LayoutDirection direction = Qt::LeftToRight) {
  return painted(size, scale, Qt::white, [&](QPainter& painter) {
    PaperTextureView view;
    view.theme = theme;
    view.size = size;
    view.paperHex = QStringLiteral("#FFE169");
    view.seed = seed;
    view.direction = direction;
    view.paint(painter);
  });
}

struct Stripe {
  int first;
  int width;
  int depth;  // darkness summed over the stripe
};

// Runs of pixels darker than white along a row or a column that no crossing line darkens.
std::vector<Stripe> stripesAcross(const QImage& image, int y) {
  std::vector<Stripe> found;
  for (int x = 0; x < image.width(); ++x) {
    const int dark = 255 - qGreen(image.pixel(x, y));
    if (dark == 0) {
      continue;
    }
    if (!found.empty() && found.back().first + found.back().width == x) {
      ++found.back().width;
      found.back().depth += dark;
    } else {
      found.push_back({x, 1, dark});
    }
  }
  return found;
}

std::vector<Stripe> stripesDown(const QImage& image, int x) {
  return stripesAcross(image.transformed(QTransform(0, 1, 1, 0, 0, 0)), x);
}

// Nearest whole point of a stripe's middle.
int pointOf(const Stripe& stripe, double scale) {
  return static_cast<int>(std::floor((stripe.first + stripe.width / 2.0) / scale + .01));
}

std::vector<int> pointsOf(const std::vector<Stripe>& stripes, double scale) {
  std::vector<int> points;
  for (const Stripe& stripe : stripes) {
    points.push_back(pointOf(stripe, scale));
  }
  return points;
}

class RuledPaper : public testing::TestWithParam<double> {};

TEST_P(RuledPaper, GraphHasALineEverySixteenPointsAcrossAndDown) {
  const QImage image = textureOf(PaperTheme::graph, QSize(100, 70), GetParam());
  EXPECT_EQ(pointsOf(stripesAcross(image, 2), GetParam()), (std::vector<int>{16, 32, 48, 64, 80, 96}));
  EXPECT_EQ(pointsOf(stripesDown(image, 2), GetParam()), (std::vector<int>{16, 32, 48, 64}));
}

TEST_P(RuledPaper, LinedHasRulesFromTwentySixAndOneRedMargin) {
  const QImage image = textureOf(PaperTheme::lined, QSize(100, 70), GetParam());
  EXPECT_EQ(pointsOf(stripesDown(image, 2), GetParam()), (std::vector<int>{26, 46, 66}));
  const std::vector<Stripe> upright = stripesAcross(image, 2);
  ASSERT_EQ(pointsOf(upright, GetParam()), std::vector<int>{20});
  const QRgb margin = image.pixel(upright.front().first, 2);
  EXPECT_EQ(qRed(margin), 255);
  EXPECT_NEAR(upright.front().depth, (255 - 0x6B) * .18 * GetParam(), upright.front().width);
}

TEST_P(RuledPaper, EveryRuleHasTheSameWeight) {
  for (const PaperTheme theme : {PaperTheme::graph, PaperTheme::lined}) {
    const QImage image = textureOf(theme, QSize(100, 112), GetParam());
    std::vector<Stripe> rules = stripesDown(image, 2);
    ASSERT_FALSE(rules.empty());
    if (theme == PaperTheme::graph) {
      const std::vector<Stripe> upright = stripesAcross(image, 2);
      rules.insert(rules.end(), upright.begin(), upright.end());
    }
    const double weight = theme == PaperTheme::graph ? .07 * .75 : .09 * .8;
    EXPECT_NEAR(rules.front().depth, 255 * weight * GetParam(), rules.front().width);
    for (const Stripe& rule : rules) {
      EXPECT_EQ(rule.width, rules.front().width);
      EXPECT_EQ(rule.depth, rules.front().depth);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(AtScales, RuledPaper, testing::Values(1.0, 1.25, 1.5, 2.0));

TEST(LinedPaper, HasItsMarginAtTheOtherSideWhereOneReadsFromTheRight) {
  const QImage image = textureOf(PaperTheme::lined, QSize(100, 70), 1, 1, Qt::RightToLeft);
  EXPECT_EQ(pointsOf(stripesAcross(image, 2), 1), std::vector<int>{80});
}

TEST(PlainPaper, HasNoPattern) {
  EXPECT_EQ(textureOf(PaperTheme::plain, QSize(60, 40), 1), painted(QSize(60, 40), 1, Qt::white, [](QPainter&) {}));
}

TEST(Parchment, SpecklesTheWholeSheetLightly) {
  const QImage image = textureOf(PaperTheme::parchment, QSize(175, 112), 2);
  std::array<int, 4> quarters{};
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const int shade = qGreen(image.pixel(x, y));
      EXPECT_GT(shade, 255 * .7);
      quarters[static_cast<size_t>((y * 2 / image.height()) * 2 + x * 2 / image.width())] += shade < 255 ? 1 : 0;
    }
  }
  for (const int specks : quarters) {
    EXPECT_GT(specks, 20);
  }
}

TEST(Parchment, HasSixtySpecks) {
  QBuffer drawing;
  QSvgGenerator record;
  record.setOutputDevice(&drawing);
  QPainter painter(&record);
  PaperTextureView view;
  view.theme = PaperTheme::parchment;
  view.size = QSizeF(175, 112);
  view.paint(painter);
  painter.end();
  EXPECT_EQ(drawing.data().count("<circle"), 60);
}

TEST(DarkCraft, FramesTheSheetOnAllSides) {
  const QImage image = textureOf(PaperTheme::construction, QSize(175, 112), 1);
  for (const QPoint& at : {QPoint(2, 56), QPoint(172, 56), QPoint(87, 2), QPoint(87, 109)}) {
    EXPECT_LT(luminance(image.pixelColor(at)), .12) << at.x() << ',' << at.y();
  }
  const std::vector<QColor> inside = rowColors(image, QRect(12, 30, 150, 50));
  for (const QColor& row : inside) {
    EXPECT_GT(luminance(row), .7);
  }
}

class PaperSeeds : public testing::TestWithParam<PaperTheme> {};

TEST_P(PaperSeeds, TheSameNoteAlwaysHasTheSameTexture) {
  EXPECT_EQ(textureOf(GetParam(), QSize(175, 112), 1, 7), textureOf(GetParam(), QSize(175, 112), 1, 7));
}

TEST_P(PaperSeeds, OnlyGrownTexturesDifferFromNoteToNote) {
  const bool isGrown = GetParam() == PaperTheme::parchment || GetParam() == PaperTheme::construction;
  const bool differs = textureOf(GetParam(), QSize(175, 112), 1, 7) != textureOf(GetParam(), QSize(175, 112), 1, 8);
  EXPECT_EQ(differs, isGrown);
}

INSTANTIATE_TEST_SUITE_P(OfThemes, PaperSeeds, testing::ValuesIn(kPaperThemes),
                         [](const auto& theme) { return rawValue(theme.param).toStdString(); });

}  // namespace
}  // namespace tarnwick
