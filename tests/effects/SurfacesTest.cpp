// SPDX-License-Identifier: MIT
#include "PaperPictures.h"

#include "effects/AshLedge.h"
#include "effects/BoardSurfaceView.h"
#include "effects/PaperShredView.h"
#include "effects/StampBadge.h"
#include "effects/Tokens.h"
#include "model/Color.h"

#include <gtest/gtest.h>

#include <set>

namespace tarnwick {
namespace {

constexpr QSize kBoard(390, 390);

QImage surface(BoardMood mood, GlassVariant variant = GlassVariant::soft, double scale = 1) {
  return BoardSurfaceView::pixmap(mood, variant, kBoard, scale).toImage();
}

class Moods : public testing::TestWithParam<BoardMood> {};

TEST_P(Moods, AreRoundedAndFilled) {
  const QImage image = surface(GetParam());
  EXPECT_EQ(image.size(), kBoard);
  for (const QPoint& corner : {QPoint(1, 1), QPoint(388, 1), QPoint(1, 388), QPoint(388, 388)}) {
    EXPECT_EQ(qAlpha(image.pixel(corner)), 0);
  }
  const int least = GetParam() == BoardMood::acrylic ? 225 : 255;
  for (int y = 30; y < 360; y += 7) {
    for (int x = 3; x < 387; x += 7) {
      EXPECT_GE(qAlpha(image.pixel(x, y)), least) << x << ',' << y;
    }
  }
}

TEST_P(Moods, CarryTheirRailsTextOverAWhiteDesktop) {
  const QImage image = painted(kBoard, 1, Qt::white, [&](QPainter& painter) {
    painter.drawPixmap(0, 0, BoardSurfaceView::pixmap(GetParam(), GlassVariant::clear, kBoard, 1));
  });
  const std::vector<QColor> rail = rowColors(image, QRect(14, 8, 362, 60));
  EXPECT_GE(worstContrast(rail, QColor(tokens::kText)), 7);
  for (const QRgb text : {tokens::kText2, tokens::kText3, tokens::kAmber, tokens::kWarning}) {
    EXPECT_GE(worstContrast(rail, QColor(text)), 4.5) << std::hex << text;
  }
}

TEST_P(Moods, GivePlanNudgesTheirContrast) {
  const QImage image = painted(kBoard, 1, Qt::white, [&](QPainter& painter) {
    painter.drawPixmap(0, 0, BoardSurfaceView::pixmap(GetParam(), GlassVariant::clear, kBoard, 1));
    painter.fillRect(QRect(20, 80, 350, 160), BoardSurfaceView::plate(GetParam()));
  });
  const std::vector<QColor> wall = rowColors(image, QRect(60, 160, 270, 66));
  EXPECT_GE(worstContrast(wall, QColor(tokens::kText)), 7);
  EXPECT_GE(worstContrast(wall, QColor(tokens::kText2)), 4.5);
  EXPECT_GE(worstContrast(wall, QColor(tokens::kAmber)), 4.5);
}

TEST_P(Moods, HaveTheScalesOwnPixels) {
  const QPixmap twice = BoardSurfaceView::pixmap(GetParam(), GlassVariant::soft, kBoard, 2);
  EXPECT_EQ(twice.size(), kBoard * 2);
  EXPECT_EQ(twice.deviceIndependentSize(), QSizeF(kBoard));
}

INSTANTIATE_TEST_SUITE_P(OfTheBoard, Moods, testing::ValuesIn(kBoardMoods),
                         [](const auto& mood) { return rawValue(mood.param).toStdString(); });

TEST(Glass, LetsLessThroughTheDenserItIs) {
  const auto opacity = [](GlassVariant variant) {
    return qAlpha(surface(BoardMood::acrylic, variant).pixel(195, 300));
  };
  EXPECT_LT(opacity(GlassVariant::clear), opacity(GlassVariant::soft));
  EXPECT_LT(opacity(GlassVariant::soft), opacity(GlassVariant::dense));
}

TEST(AshLedges, CoverTheFloorAndLeaveTheWallAbove) {
  for (const double scale : {1.0, 2.0}) {
    const QImage image = AshLedge::pixmap(390, scale).toImage();
    EXPECT_EQ(image.height(), static_cast<int>((AshLedge::kHeight + AshLedge::kRise) * scale));
    for (int x = 0; x < image.width(); ++x) {
      EXPECT_LT(qAlpha(image.pixel(x, 0)), 80);
      for (int y = static_cast<int>(20 * scale); y < image.height(); ++y) {
        ASSERT_EQ(qAlpha(image.pixel(x, y)), 255) << x << ',' << y;
      }
    }
    const QRect words(0, static_cast<int>(26 * scale), image.width(), static_cast<int>(16 * scale));
    EXPECT_GE(worstContrast(rowColors(image, words), QColor(tokens::kEmber)), 5.5);
  }
}

class Stamps : public testing::TestWithParam<TaskStamp> {};

TEST_P(Stamps, FillTheirBadgeAndReadOnEveryPaper) {
  const QSizeF size = StampBadgeView::size(GetParam());
  EXPECT_EQ(size.height(), 18);
  for (const QString& hex : kPaperPalette) {
    const QColor paper = Color::fromHex(hex);
    const QImage image = painted(QSize(120, 40), 2, paper, [&](QPainter& painter) {
      StampBadgeView::paint(painter, GetParam(), QPointF(60, 20), 0);
    });
    // Between border and inner line there is nothing but the label.
    const QColor label = image.pixelColor(120, static_cast<int>(2 * (20 - 9 + 2.3)));
    EXPECT_GE(contrast(luminance(label), luminance(tintColor(GetParam()))), 4.5) << qPrintable(hex);
    const int inside = static_cast<int>(2 * (60 - size.width() / 2 + 1));
    const int outside = static_cast<int>(2 * (60 - size.width() / 2 - 3));
    EXPECT_NE(image.pixelColor(inside, 40), paper);
    EXPECT_EQ(image.pixelColor(outside, 40), paper);
  }
}

INSTANTIATE_TEST_SUITE_P(WithAWord, Stamps,
                         testing::Values(TaskStamp::urgent, TaskStamp::focus, TaskStamp::priority, TaskStamp::star,
                                         TaskStamp::idea, TaskStamp::approved),
                         [](const auto& stamp) { return rawValue(stamp.param).toStdString(); });

TEST(NoStamp, LeavesThePaperBare) {
  EXPECT_TRUE(StampBadgeView::size(TaskStamp::none).isEmpty());
  EXPECT_TRUE(isBlank(painted(QSize(60, 40), 1, Qt::transparent, [](QPainter& painter) {
    StampBadgeView::paint(painter, TaskStamp::none, QPointF(30, 20), -6);
  })));
}

QImage tape(const QString& hex, quint32 seed) {
  return painted(QSize(110, 50), 1, Qt::transparent, [&](QPainter& painter) {
    WashiTapeView::paint(painter, QRectF(14, 12, 82, 24), hex, seed, 0);
  });
}

TEST(WashiTape, LetsTheNoteShineThrough) {
  const int alpha = qAlpha(tape(QStringLiteral("#FFE169"), 1).pixel(55, 24));
  EXPECT_GT(alpha, 200);
  EXPECT_LT(alpha, 250);
}

TEST(WashiTape, HasAColourOfItsOwnOnEachPaper) {
  std::vector<QRgb> seen;
  for (const QString& hex : kPaperPalette) {
    const QColor mean = rowColors(tape(hex, 0), QRect(24, 22, 60, 1)).front();
    EXPECT_EQ(std::count(seen.begin(), seen.end(), mean.rgb()), 0) << qPrintable(hex);
    seen.push_back(mean.rgb());
  }
}

TEST(WashiTape, ChangesItsPatternFromNoteToNoteAndNeverForOne) {
  const QString hex = QStringLiteral("#4CC9F0");
  EXPECT_EQ(tape(hex, 4), tape(hex, 4));
  EXPECT_NE(tape(hex, 4), tape(hex, 5));
  EXPECT_FALSE(isBlank(tape(QStringLiteral("#123456"), 5)));
}

QImage shredded(double progress) {
  QPixmap note(QSize(250, 230));
  note.fill(Qt::transparent);
  QPainter into(&note);
  into.fillRect(QRect(10, 16, 230, 196), QColor(0xFF, 0x75, 0x97));
  into.end();
  return painted(QSize(310, 290), 1, Qt::transparent, [&](QPainter& painter) {
    PaperShredView::paint(painter, QRectF(30, 30, 250, 230), note, -1.2, progress);
  });
}

TEST(Shredder, StaysWithinItsWindow) {
  for (double progress = 0; progress <= 1; progress += .04) {
    const QImage image = shredded(progress);
    for (int i = 0; i < 290; ++i) {
      for (const QPoint& at : {QPoint(i, 28), QPoint(i, 261), QPoint(28, i), QPoint(281, i)}) {
        ASSERT_EQ(qAlpha(image.pixel(at)), 0) << progress;
      }
    }
  }
}

TEST(Shredder, ClimbsOnceFromFootToHead) {
  EXPECT_EQ(PaperShredView::shredded(.08), 0);
  EXPECT_EQ(PaperShredView::shredded(.62), 1);
  for (double progress = 0; progress < 1; progress += .02) {
    EXPECT_LE(PaperShredView::shredded(progress), PaperShredView::shredded(progress + .02));
  }
}

TEST(Shredder, LevelsTheNoteBeforeItCuts) {
  EXPECT_EQ(PaperShredView::angle(-1.2, 0), -1.2);
  EXPECT_EQ(PaperShredView::angle(-1.2, .10), 0);
}

TEST(Shredder, LeavesNothing) {
  EXPECT_FALSE(isBlank(shredded(.3)));
  EXPECT_FALSE(isBlank(shredded(.85)));
  EXPECT_TRUE(isBlank(shredded(1)));
}

TEST(Shredder, ShowsEachRibbonInAShadeOfItsOwn) {
  const QImage image = shredded(.6);
  std::set<int> shades;
  for (int x = 50; x < 260; ++x) {
    if (qAlpha(image.pixel(x, 150)) == 255) shades.insert(qRed(image.pixel(x, 150)));
  }
  EXPECT_GE(shades.size(), 8U);
}

TEST(Shredder, FadesTheRibbonsOnlyWhenTheyFall) {
  const auto strongest = [](const QImage& image) {
    int most = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        most = std::max(most, qAlpha(image.pixel(x, y)));
      }
    }
    return most;
  };
  EXPECT_EQ(strongest(shredded(.6)), 255);
  EXPECT_LT(strongest(shredded(.9)), 255);
}

}  // namespace
}  // namespace tarnwick
