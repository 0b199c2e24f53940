// SPDX-License-Identifier: MIT
#include "settings/PickerArt.h"

#include "effects/Tokens.h"
#include "effects/WadArt.h"
#include "model/Color.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace tarnwick {

namespace {

constexpr double kRadius = 2.5;

void paintRuling(QPainter& painter, const QRectF& box, PaperTheme theme, const QColor& ink) {
  painter.setPen(QPen(tokens::faded(ink, .42), 1));
  const double step = theme == PaperTheme::graph ? 5 : 4.5;
  for (double y = box.top() + step; y < box.bottom() - 1; y += step) {
    painter.drawLine(QPointF(box.left(), y), QPointF(box.right(), y));
  }
  if (theme == PaperTheme::lined) {
    painter.setPen(QPen(QColor(0xFFD2463C), 1));
    painter.drawLine(QPointF(box.left() + 4.5, box.top()), QPointF(box.left() + 4.5, box.bottom()));
    return;
  }
  for (double x = box.left() + step; x < box.right() - 1; x += step) {
    painter.drawLine(QPointF(x, box.top()), QPointF(x, box.bottom()));
  }
}

}  // namespace

void paintThemeSwatch(QPainter& painter, const QRectF& box, PaperTheme theme) {
  const QColor paper(tokens::kAccent);
  const QColor ink(tokens::kOnAccent);
  QPainterPath outline;
  outline.addRoundedRect(box, kRadius, kRadius);
  painter.fillPath(outline, paper);
  painter.save();
  painter.setClipPath(outline);
  switch (theme) {
    case PaperTheme::plain: break;
    case PaperTheme::graph:
    case PaperTheme::lined: paintRuling(painter, box, theme, ink); break;
    case PaperTheme::parchment: {
      QRadialGradient age(box.center(), box.width() * .62);
      age.setColorAt(0, QColor(0xFFFFF1B8));
      age.setColorAt(.6, QColor(0xFFF0D06A));
      age.setColorAt(1, QColor(0xFFB98F3A));
      painter.fillRect(box, age);
      break;
    }
    case PaperTheme::construction:
      painter.setPen(QPen(Color::blend(paper, QColor(0xFF120C09), .83), 6));
      painter.setBrush(Qt::NoBrush);
      painter.drawRoundedRect(box, kRadius, kRadius);
      break;
  }
  painter.restore();
  // Seen on the accent of a chosen menu line too.
  painter.setPen(QPen(tokens::black(.40), 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(box.adjusted(.5, .5, -.5, -.5), kRadius - .5, kRadius - .5);
}

void paintCrushPicture(QPainter& painter, const QRectF& box) {
  constexpr double kBall = 20;
  const auto ball = WadArt::image(QColor(tokens::kAccent), kBall, painter.deviceTransform().m11());
  painter.drawImage(QRectF(box.center() - QPointF(kBall, kBall) / 2, QSizeF(kBall, kBall)), ball);
}

void paintShredPicture(QPainter& painter, const QRectF& box) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(tokens::kAccent));
  painter.drawRoundedRect(QRectF(box.left(), box.top(), box.width(), 7), kRadius, kRadius);
  // Strips of unlike length under the uncut rest of the sheet.
  const double lengths[]{10, 7.5, 11, 8.5};
  double x = box.left() + 1;
  for (const double length : lengths) {
    painter.drawRect(QRectF(x, box.top() + 6.5, 3, length));
    x += 5;
  }
}

}  // namespace tarnwick
