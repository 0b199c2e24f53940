// SPDX-License-Identifier: MIT
#include "PaperPictures.h"

#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QDir>
#include <QIcon>

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

QStringList filesOfArt() {
  QStringList names;
  for (const QString& file : QDir(QStringLiteral(TARNWICK_ART "/symbols")).entryList({QStringLiteral("*.svg")})) {
    names << file.chopped(4);
  }
  return names;
}

QImage drawn(const QString& name, const QRectF& box, const QColor& color, double scale = 1) {
  return painted(QSize(40, 40), scale, Qt::transparent,
                 [&](QPainter& painter) { Symbols::paint(painter, name, box, color); });
}

TEST(SymbolFiles, AreAllDrawnInTheColourAskedFor) {
  const QStringList names = filesOfArt();
  ASSERT_GE(names.size(), 53);
  for (const QString& name : names) {
    const QImage image = drawn(name, QRectF(4, 4, 32, 32), QColor(0x00, 0xC0, 0x40));
    int solid = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (qAlpha(image.pixel(x, y)) == 255) {
          ++solid;
          const QRgb pixel = image.pixel(x, y);
          const int off = qRed(pixel) + std::abs(qGreen(pixel) - 0xC0) + std::abs(qBlue(pixel) - 0x40);
          EXPECT_LE(off, 3) << qPrintable(name);
        }
      }
    }
    EXPECT_GT(solid, 8) << qPrintable(name);
  }
}

TEST(SymbolFiles, StayWithinTheirBox) {
  for (const QString& name : filesOfArt()) {
    const QImage image = drawn(name, QRectF(10, 10, 16, 16), Qt::black);
    for (int i = 0; i < 40; ++i) {
      for (const QPoint& at : {QPoint(i, 9), QPoint(i, 26), QPoint(9, i), QPoint(26, i)}) {
        EXPECT_EQ(qAlpha(image.pixel(at)), 0) << qPrintable(name);
      }
    }
  }
}

TEST(UnknownSymbols, DrawNothing) {
  for (const QString& name : {QStringLiteral("unheardOf"), QString(), QStringLiteral("../icons/tarnwick")}) {
    EXPECT_TRUE(isBlank(drawn(name, QRectF(0, 0, 32, 32), Qt::black))) << qPrintable(name);
    EXPECT_TRUE(Symbols::pixmap(name, 16, Qt::black, 2).isNull()) << qPrintable(name);
  }
}

TEST(TranslucentSymbols, AreEvenWhereTheirStrokesCross) {
  QColor color(Qt::black);
  color.setAlpha(100);
  const QImage image = drawn(QStringLiteral("plus"), QRectF(4, 4, 32, 32), color);
  int strongest = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      strongest = std::max(strongest, qAlpha(image.pixel(x, y)));
    }
  }
  EXPECT_NEAR(strongest, 100, 1);
  const QImage kept = Symbols::pixmap(QStringLiteral("plus"), 32, color, 1).toImage();
  EXPECT_NEAR(qAlpha(kept.pixel(16, 16)), 100, 1);
  EXPECT_EQ(qAlpha(Symbols::pixmap(QStringLiteral("plus"), 32, Qt::black, 1).toImage().pixel(16, 16)), 255);
}

TEST(SymbolPixmaps, HaveTheDevicesPixels) {
  const QPixmap pixmap = Symbols::pixmap(QStringLiteral("gear"), 15, Qt::white, 2);
  EXPECT_EQ(pixmap.size(), QSize(30, 30));
  EXPECT_EQ(pixmap.deviceIndependentSize(), QSizeF(15, 15));
}

TEST(SymbolPixmaps, AreTheSameOnceAndTwiceAsked) {
  const QImage first = Symbols::pixmap(QStringLiteral("gear"), 16, Qt::white, 1).toImage();
  EXPECT_EQ(first, Symbols::pixmap(QStringLiteral("gear"), 16, Qt::white, 1).toImage());
  EXPECT_NE(first, Symbols::pixmap(QStringLiteral("gear"), 16, Qt::black, 1).toImage());
}

TEST(ProgramIcon, HasAPictureForEachCommonSize) {
  const QIcon icon = Symbols::applicationIcon();
  for (const int side : {16, 22, 24, 32, 48, 64, 128, 256}) {
    const QImage image = icon.pixmap(QSize(side, side)).toImage();
    EXPECT_EQ(image.width(), side);
    EXPECT_EQ(qAlpha(image.pixel(side / 2, side / 2)), 255) << side;
  }
}

TEST(TrayGlyph, IsLightOnTheDarkPanel) {
  const QImage image = Symbols::trayIcon().pixmap(QSize(22, 22)).toImage();
  int light = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qAlpha(image.pixel(x, y)) == 255) {
        EXPECT_GT(luminance(image.pixelColor(x, y)), .8);
        ++light;
      }
    }
  }
  EXPECT_GT(light, 80);
}

}  // namespace
}  // namespace tarnwick
