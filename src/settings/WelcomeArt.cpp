// SPDX-License-Identifier: MIT
#include "settings/WelcomeArt.h"

#include "effects/PaperSheet.h"
#include "effects/SoftShadow.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "effects/WadArt.h"
#include "model/Color.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <array>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

struct ScatteredNote {
  QRectF rect;
  QString color;
  PaperTheme theme;
  double angle;
  quint32 seed;
};

void paintTurned(QPainter& painter, const PaperSheet& sheet, double angle) {
  painter.save();
  painter.translate(sheet.rect.center());
  painter.rotate(angle);
  painter.translate(-sheet.rect.center());
  sheet.paint(painter);
  painter.restore();
}

void paintNote(QPainter& painter, const ScatteredNote& note) {
  PaperSheet sheet;
  sheet.rect = note.rect;
  sheet.colorHex = note.color;
  sheet.theme = note.theme;
  sheet.seed = note.seed;
  paintTurned(painter, sheet, note.angle);
}

/// A glyph as an outline whose ink is centred: faces disagree on where a symbol sits in its line.
QPainterPath centeredGlyph(const QString& text, const QFont& face, const QPointF& center) {
  QPainterPath glyph;
  glyph.addText(QPointF(0, 0), face, text);
  return glyph.translated(center - glyph.boundingRect().center());
}

void paintLargeKey(QPainter& painter, const QRectF& cap, const QString& text) {
  constexpr double kRadius = 7;
  paintBoxShadow(painter, cap.translated(0, 2), kRadius, kRadius, 5, 3.5, .40);
  const auto side = roundedBox(cap.translated(0, 2), kRadius, kRadius);
  painter.strokePath(side, QPen(tokens::black(.55), 1.5));
  painter.fillPath(side, QColor(0xFFB9AD92));
  const auto top = roundedBox(cap, kRadius, kRadius);
  painter.strokePath(top, QPen(tokens::black(.45), 1));
  QLinearGradient light(cap.topLeft(), cap.bottomLeft());
  light.setColorAt(0, QColor(0xFFFFFDF5));
  light.setColorAt(1, QColor(0xFFEFE6D2));
  painter.fillPath(top, light);
  painter.setPen(QPen(QColor(Qt::white), 1));
  painter.drawLine(QPointF(cap.left() + kRadius, cap.top() + .5), QPointF(cap.right() - kRadius, cap.top() + .5));

  auto face = tokens::font(tokens::Type::RowTitle);
  face.setPixelSize(31);
  painter.fillPath(centeredGlyph(text, face, cap.center()), QColor(tokens::kOnLabel));
}

/// A can in a box of 52 × 56, scaled to the width.
void paintCan(QPainter& painter, const QPointF& topLeft, double width) {
  painter.save();
  painter.translate(topLeft);
  painter.scale(width / 52, width / 52);

  QPainterPath ground;
  ground.addEllipse(QPointF(26, 53), 22, 4);
  paintShadow(painter, u"welcome can"_s, {0, 0}, {{ground, 0, 2, .45}});

  const QRectF mouth(5, 6.5, 42, 11);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0xFF0E1114));
  painter.drawEllipse(mouth);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(0xFFC9D1D6), 2.2));
  painter.drawArc(mouth, 0, 180 * 16);

  QPainterPath body(QPointF(5, 12));
  body.arcTo(mouth, 180, 180);
  body.lineTo(42.6, 50);
  body.quadTo(26, 57, 9.4, 50);
  body.closeSubpath();
  QLinearGradient steel(5, 0, 47, 0);
  steel.setColorAt(0, QColor(0xFF8D99A1));
  steel.setColorAt(.3, QColor(0xFFDCE2E5));
  steel.setColorAt(.62, QColor(0xFF9AA6AE));
  steel.setColorAt(1, QColor(0xFF5F6B73));
  painter.fillPath(body, steel);
  painter.setPen(QPen(QColor(0xFFEEF2F4), 2));
  painter.drawArc(mouth, 180 * 16, 180 * 16);

  painter.setPen(QPen(tokens::black(.22), 1.6, Qt::SolidLine, Qt::RoundCap));
  const std::array ribs{QLineF(13, 23, 15.5, 46), QLineF(22, 25, 22.9, 48), QLineF(30, 25, 29.1, 48),
                        QLineF(39, 23, 36.5, 46)};
  painter.drawLines(ribs.data(), static_cast<int>(ribs.size()));
  painter.restore();
}

/// The mark that crushes a note, crumpled as it is under the pointer, in a box of 20 × 20.
void paintCrumple(QPainter& painter, const QPointF& topLeft, double size, const QColor& ink) {
  painter.save();
  painter.translate(topLeft);
  painter.scale(size / 20, size / 20);
  const QPolygonF rim{{10, 1.6}, {13.3, 2.5}, {16.3, 4.2}, {18, 7.4},  {17.6, 10.9}, {16.5, 14.2}, {13.8, 16.8},
                      {10.1, 18.1}, {6.3, 17.3}, {3.4, 15.3}, {1.7, 12}, {1.9, 8.3},   {3.5, 5.1},   {6.4, 2.6}};
  painter.setBrush(tokens::faded(ink, .12));
  painter.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolygon(rim);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(ink, 1.1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygonF{{6, 7}, {9.2, 8.3}, {13.6, 6.4}});
  painter.drawPolyline(QPolygonF{{9.2, 8.3}, {7.8, 12.6}, {11.2, 14.5}});
  painter.drawPolyline(QPolygonF{{9.2, 8.3}, {13.1, 11}, {14.5, 10.5}});
  painter.restore();
}

void paintWrittenNote(QPainter& painter) {
  PaperSheet sheet;
  sheet.rect = QRectF(62, 58, 118, 100);
  sheet.colorHex = kPaperPalette[0];
  sheet.lift = PaperLift::Raised;
  sheet.peel = 24;
  sheet.seed = 3;
  painter.save();
  painter.translate(sheet.rect.center());
  painter.rotate(-3);
  painter.translate(-sheet.rect.center());
  sheet.paint(painter);
  const QColor ink(tokens::kOnAccent);
  painter.setPen(Qt::NoPen);
  painter.setBrush(tokens::faded(ink, .85));
  double y = sheet.rect.top() + 36;
  for (const double width : {64.0, 80.0, 46.0}) {
    painter.drawRoundedRect(QRectF(sheet.rect.left() + 13, y, width, 3), 1.5, 1.5);
    y += 14;
  }
  paintCrumple(painter, sheet.rect.topRight() + QPointF(-32, 9), 22, ink);
  painter.restore();
}

QPainterPath handOutline() {
  QPainterPath hand(QPointF(36, 92));
  // Four fingers from the little one on: left edge of each and height of its tip.
  const std::pair<double, double> fingers[]{{36, 42}, {56, 24}, {76, 18}, {96, 28}};
  for (const auto& [left, tip] : fingers) {
    hand.lineTo(left, tip);
    hand.arcTo(QRectF(left, tip - 10, 20, 20), 180, -180);
  }
  hand.lineTo(116, 88);
  hand.lineTo(124, 75);
  hand.arcTo(QRectF(122.45, 69.95, 21.1, 21.1), 148.6, -180);
  hand.lineTo(122, 128);
  hand.quadTo(110, 154, 82, 154);
  hand.lineTo(72, 154);
  hand.quadTo(36, 154, 36, 112);
  hand.closeSubpath();
  return hand;
}

void paintHand(QPainter& painter, const QPointF& topLeft) {
  painter.save();
  painter.translate(topLeft);
  const auto hand = handOutline();
  paintShadow(painter, u"welcome hand"_s, {0, 0}, {{hand, 4, 4, .5}});
  QLinearGradient skin(36, 8, 96, 154);
  skin.setColorAt(0, QColor(0xFFFFFAEC));
  skin.setColorAt(1, QColor(0xFFE6D8B8));
  painter.fillPath(hand, skin);
  painter.strokePath(hand, QPen(tokens::black(.15), 1));
  painter.setPen(QPen(tokens::faded(QColor(0xFF8A7A55), .65), 1.6, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(56, 44), QPointF(56, 80));
  painter.drawLine(QPointF(76, 28), QPointF(76, 78));
  painter.drawLine(QPointF(96, 30), QPointF(96, 80));
  QPainterPath creases(QPointF(50, 112));
  creases.quadTo(70, 98, 94, 108);
  creases.moveTo(116, 90);
  creases.quadTo(102, 102, 101, 122);
  painter.drawPath(creases);
  painter.restore();
}

}  // namespace

void WelcomeArt::paintShortcut(QPainter& painter) {
  const ScatteredNote notes[]{
      {QRectF(52, 30, 70, 58), kPaperPalette[4], PaperTheme::graph, -9, 52},
      {QRectF(318, 24, 70, 58), kPaperPalette[1], PaperTheme::plain, 8, 318},
      {QRectF(66, 118, 62, 50), kPaperPalette[3], PaperTheme::plain, 7, 66},
      {QRectF(322, 114, 62, 50), kPaperPalette[6], PaperTheme::lined, -7, 322},
  };
  for (const auto& note : notes) paintNote(painter, note);
  constexpr double kKey = 66;
  constexpr double kGap = 12;
  double x = (kSize.width() - 3 * kKey - 2 * kGap) / 2;
  for (const auto& key : {u"⌘"_s, u"⇧"_s, u"T"_s}) {
    paintLargeKey(painter, QRectF(x, 54, kKey, kKey), key);
    x += kKey + kGap;
  }
}

void WelcomeArt::paintCrush(QPainter& painter) {
  QPainterPath flight(QPointF(176, 106));
  flight.cubicTo(214, 12, 286, 2, 322, 86);
  QPen dots(tokens::faded(QColor(tokens::kAccent), .75), 2, Qt::CustomDashLine, Qt::RoundCap);
  dots.setDashPattern({.01, 4});
  painter.strokePath(flight, dots);
  paintWrittenNote(painter);
  Symbols::paint(painter, u"arrowRight"_s, QRectF(202, 106, 34, 34), QColor(tokens::kText));
  paintCan(painter, {286, 80}, 84);
  const auto ball = WadArt::image(QColor(tokens::kAccent), 46, painter.deviceTransform().m11());
  painter.drawImage(QRectF(230, 20, 46, 46), ball);
}

void WelcomeArt::paintAccessibility(QPainter& painter) {
  paintHand(painter, {92, 8});
  const QPointF center(322, 98);
  painter.setPen(Qt::NoPen);
  painter.setBrush(tokens::white(.06));
  painter.drawEllipse(center, 47, 47);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(tokens::white(.65), 1.5));
  painter.drawEllipse(center, 47, 47);
  painter.setPen(QPen(tokens::white(.22), 1.5));
  painter.drawEllipse(center, 62, 62);
  paintCan(painter, {290, 62}, 64);
}

}  // namespace tarnwick
