// SPDX-License-Identifier: MIT
#include "effects/PaperRandom.h"
#include "effects/PixmapCache.h"
#include "effects/SoftShadow.h"
#include "effects/StampBadge.h"
#include "effects/Tokens.h"
#include "model/Color.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <array>
#include <cmath>

namespace tarnwick {

namespace {

constexpr double kRoom = 6;  // around the strip for its shadow
constexpr std::array<QRgb, 7> kTapeOfPaper{0xFF5FA8C9, 0xFF7DB59A, 0xFF6C8FC7, 0xFFE0A15A,
                                           0xFFE58AA0, 0xFFE8C45A, 0xFF63B7A6};

QColor tapeColor(const QString& paperHex, quint32 seed) {
  const auto found = std::find_if(kPaperPalette.begin(), kPaperPalette.end(), [&](const QString& paper) {
    return paper.compare(paperHex, Qt::CaseInsensitive) == 0;
  });
  const size_t index = found == kPaperPalette.end() ? seed % kTapeOfPaper.size()
                                                    : static_cast<size_t>(found - kPaperPalette.begin());
  return QColor(kTapeOfPaper[index]);
}

// Both ends are cut with a serrated edge.
QPolygonF strip(const QSizeF& size, PaperRandom& random) {
  constexpr double kTooth = 3.2;
  const int teeth = std::max(4, static_cast<int>(std::lround(size.height() / 3.6)));
  QPolygonF left;
  QPolygonF right;
  for (int i = 0; i <= teeth; ++i) {
    const double y = size.height() * i / teeth;
    const double bite = i % 2 == 1 ? kTooth : 0;
    left << QPointF(bite + random.between(-.35, .35), y);
    right << QPointF(size.width() - bite + random.between(-.35, .35), y);
  }
  std::reverse(right.begin(), right.end());
  return left + right;
}

void paintStripes(QPainter& painter, const QSizeF& size, const QColor& color) {
  painter.setPen(QPen(tokens::faded(color, .75), 3.6));
  for (double x = -size.height(); x < size.width() + size.height(); x += 9) {
    painter.drawLine(QPointF(x, size.height() + 1), QPointF(x + size.height() + 2, -1));
  }
}

void paintDots(QPainter& painter, const QSizeF& size, const QColor& color) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(tokens::faded(color, .85));
  bool isShifted = false;
  for (double y = 4; y < size.height(); y += 6.5) {
    for (double x = isShifted ? 4 : 8; x < size.width(); x += 8) {
      painter.drawEllipse(QPointF(x, y), 1.5, 1.5);
    }
    isShifted = !isShifted;
  }
}

void paintChecks(QPainter& painter, const QSizeF& size, const QColor& color) {
  const QColor band = tokens::faded(color, .42);
  for (double x = 4; x < size.width(); x += 8) {
    painter.fillRect(QRectF(x - 1.5, 0, 3, size.height()), band);
  }
  for (double y = 4; y < size.height(); y += 8) {
    painter.fillRect(QRectF(0, y - 1.5, size.width(), 3), band);
  }
}

void paintPattern(QPainter& painter, const QSizeF& size, quint32 seed, const QColor& tape) {
  const QColor color = Color::blend(tape, Qt::white, .62);
  switch (seed % 3) {
    case 0: paintStripes(painter, size, color); break;
    case 1: paintDots(painter, size, color); break;
    default: paintChecks(painter, size, color); break;
  }
}

QPixmap tapePixmap(const QSizeF& size, const QColor& color, quint32 seed, double scale) {
  PaperRandom random(seed ^ 0x7A9EU);
  QPainterPath outline;
  outline.addPolygon(strip(size, random));
  outline.closeSubpath();

  QPixmap body = clearPixmap(size + QSizeF(2 * kRoom, 2 * kRoom), scale);
  {
    QPainter painter(&body);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(kRoom, kRoom);
    painter.setClipPath(outline);
    painter.fillRect(QRectF(QPointF(0, 0), size), color);
    paintPattern(painter, size, seed, color);
    QLinearGradient light(0, 0, 0, size.height());
    light.setColorAt(0, tokens::white(.42));
    light.setColorAt(.30, tokens::white(.08));
    light.setColorAt(1, tokens::black(.10));
    painter.fillRect(QRectF(QPointF(0, 0), size), light);
  }
  QPixmap whole = clearPixmap(size + QSizeF(2 * kRoom, 2 * kRoom), scale);
  QPainter painter(&whole);
  const QRectF area(-kRoom, -kRoom, size.width() + 2 * kRoom, size.height() + 2 * kRoom);
  const QImage soft = blurredAlpha(area, scale, 1.2, [&](QPainter& into) {
    into.translate(0, 1);
    into.fillPath(outline, Qt::black);
  });
  painter.drawImage(QPointF(0, 0), tinted(soft, tokens::black(.30), scale));
  painter.setOpacity(.86);
  painter.drawPixmap(QPointF(0, 0), body);
  return whole;
}

PixmapCache& cache() {
  static PixmapCache kept(2048);
  return kept;
}

}  // namespace

void WashiTapeView::paint(QPainter& painter, const QRectF& rect, const QString& paperHex, quint32 seed, double angle) {
  const QColor color = tapeColor(paperHex, seed);
  const double scale = deviceScale(painter);
  const QString key = QStringLiteral("%1 %2 %3 %4 %5")
                          .arg(rect.width()).arg(rect.height()).arg(color.rgb()).arg(seed).arg(scale);
  const QPixmap tape = cache().fetch(key, [&] { return tapePixmap(rect.size(), color, seed, scale); });
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.translate(rect.center());
  painter.rotate(angle);
  painter.drawPixmap(QPointF(-rect.width() / 2 - kRoom, -rect.height() / 2 - kRoom), tape);
  painter.restore();
}

}  // namespace tarnwick
