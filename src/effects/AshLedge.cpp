// SPDX-License-Identifier: MIT
#include "effects/AshLedge.h"

#include "effects/PaperRandom.h"
#include "effects/PixmapCache.h"
#include "effects/SoftShadow.h"
#include "effects/Tokens.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

#include <cmath>

namespace tarnwick {

namespace {

constexpr double kAll = AshLedge::kHeight + AshLedge::kRise;

PixmapCache& cache() {
  static PixmapCache kept(2048);
  return kept;
}

QPainterPath silhouette(double width, PaperRandom& random) {
  QPainterPath path(QPointF(0, kAll));
  path.lineTo(0, 14);
  for (double x = random.between(7, 17); x < width; x += random.between(7, 17)) {
    path.lineTo(x, 9 + std::sin(x / 38) * 3.2 + random.between(0, 4));
  }
  path.lineTo(width, 12);
  path.lineTo(width, kAll);
  path.closeSubpath();
  return path;
}

void paintFlakes(QPainter& painter, double width, PaperRandom& random) {
  painter.setPen(Qt::NoPen);
  const int flakes = static_cast<int>(150 * width / 390);
  for (int i = 0; i < flakes; ++i) {
    const QPointF at(random.next() * width, random.between(11, 23));
    const QPointF second = at + QPointF(random.between(1, 4), -random.between(0, 2));
    const QPointF third = second + QPointF(random.between(.6, 2.6), random.between(0, 2));
    const double kind = random.next();
    const QRgb color = kind < .5 ? 0xFF6A6661 : kind < .75 ? 0xFF8D8781 : 0xFF2B2927;
    painter.setBrush(tokens::faded(QColor(color), random.between(.35, .85)));
    painter.drawPolygon(QPolygonF{at, second, third});
  }
}

void paintEmbers(QPainter& painter, double width, double scale, PaperRandom& random) {
  QList<QPointF> embers;
  for (int i = 0; i < 9; ++i) {
    embers << QPointF(random.between(20, width - 20), random.between(13, 19));
  }
  const QImage glow = blurredAlpha(QRectF(0, 0, width, kAll), scale, 2, [&](QPainter& into) {
    into.setPen(Qt::NoPen);
    into.setBrush(Qt::black);
    for (const QPointF& ember : embers) {
      into.drawEllipse(ember, 3.5, 3.5);
    }
  });
  painter.drawImage(QPointF(0, 0), tinted(glow, tokens::faded(QColor(tokens::kEmber), .45), scale));
  painter.setBrush(QColor(0xFF, 0x8A, 0x4A));
  for (const QPointF& ember : embers) {
    const double radius = random.between(.7, 1.4);
    painter.drawEllipse(ember, radius, radius);
  }
}

}  // namespace

QPixmap AshLedge::pixmap(double width, double scale) {
  return cache().fetch(QStringLiteral("%1 %2").arg(width).arg(scale), [&] {
    PaperRandom random(12);
    QPixmap ledge = clearPixmap(QSizeF(width, kAll), scale);
    QPainter painter(&ledge);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath heap = silhouette(width, random);
    const QImage shade = blurredAlpha(QRectF(0, 0, width, kAll), scale, 4, [&](QPainter& into) {
      into.translate(0, -2);
      into.fillPath(heap, Qt::black);
    });
    painter.drawImage(QPointF(0, 0), tinted(shade, tokens::black(.50), scale));
    QLinearGradient ash(0, 8, 0, kAll);
    ash.setColorAt(0, QColor(0x4A, 0x47, 0x44));
    ash.setColorAt(.4, QColor(0x24, 0x22, 0x1F));
    ash.setColorAt(1, QColor(0x15, 0x14, 0x13));
    painter.fillPath(heap, ash);
    paintFlakes(painter, width, random);
    paintEmbers(painter, width, scale, random);
    return ledge;
  });
}

}  // namespace tarnwick
