// SPDX-License-Identifier: MIT
#include "effects/BurntEdge.h"

#include "effects/PaperRandom.h"
#include "effects/PixmapCache.h"
#include "effects/SoftShadow.h"
#include "effects/Tokens.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tarnwick {

namespace {

constexpr double kScorchedHeight = 32;

PixmapCache& glows() {
  static PixmapCache kept(4096);
  return kept;
}

QPen dashed(const QColor& color, double width, std::initializer_list<double> lengths) {
  QPen pen(color, width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
  QList<qreal> pattern;
  for (const double length : lengths) {
    pattern << length / width;
  }
  if (!pattern.isEmpty()) {
    pen.setDashPattern(pattern);
  }
  return pen;
}

QRectF lowerStrip(const QSizeF& size) { return {-12, size.height() - 46, size.width() + 24, 60}; }

}  // namespace

BurntEdge::BurntEdge(const QSizeF& size, quint32 seed) : m_size(size), m_seed(seed) {
  PaperRandom random(seed ^ 0xF1AEU);
  const double height = size.height();
  const double phase = random.next() * 2 * std::numbers::pi;
  m_line << QPointF(size.width(), height - random.between(4, 9));
  for (double x = size.width() - random.between(3, 9.5); x > 0; x -= random.between(3, 9.5)) {
    const double wave = 1.4 * (1 + std::sin(phase + x / 17));
    const double bite = random.next() < .2 ? random.between(0, 2.5) : 0;
    m_line << QPointF(x, height - random.between(1.5, 4.7) - wave - bite);
  }
  m_line << QPointF(0, height - random.between(4, 9));
}

QPainterPath BurntEdge::linePath() const {
  QPainterPath path;
  path.addPolygon(m_line);
  return path;
}

QPainterPath BurntEdge::outline(double topRadius) const {
  const double width = m_size.width();
  QPainterPath path(QPointF(topRadius, 0));
  path.lineTo(width - topRadius, 0);
  path.quadTo(width, 0, width, topRadius);
  for (const QPointF& point : m_line) {
    path.lineTo(point);
  }
  path.lineTo(0, topRadius);
  path.quadTo(0, 0, topRadius, 0);
  path.closeSubpath();
  return path;
}

void BurntEdge::paintScorch(QPainter& painter) const {
  const double scale = deviceScale(painter);
  const QRectF area = lowerStrip(m_size);
  QImage picture = tinted(blurredAlpha(area, scale, 6, [&](QPainter& into) {
                            into.strokePath(outline(3), QPen(Qt::black, 22));
                          }), tokens::faded(QColor(0x4A, 0x25, 0x0C), .80), scale);
  QPainter over(&picture);
  over.drawImage(QPointF(0, 0), tinted(blurredAlpha(area, scale, 2.8, [&](QPainter& into) {
                                         into.strokePath(outline(3), QPen(Qt::black, 13));
                                       }), tokens::faded(QColor(0x14, 0x0B, 0x06), .90), scale));
  // The scorch ends within the last stretch of paper, whatever the outline is.
  QLinearGradient fade(0, m_size.height() - kScorchedHeight - area.y(), 0, m_size.height() - 10 - area.y());
  fade.setColorAt(0, Qt::transparent);
  fade.setColorAt(1, Qt::black);
  over.setCompositionMode(QPainter::CompositionMode_DestinationIn);
  over.fillRect(QRectF(QPointF(0, 0), area.size()), fade);
  over.end();
  painter.drawImage(area.topLeft(), picture);

  PaperRandom random(m_seed ^ 0x5C0CU);
  const QImage spots = tinted(blurredAlpha(area, scale, 3, [&](QPainter& into) {
                                for (int i = 0; i < 9; ++i) {
                                  const QPointF at(random.next() * m_size.width(),
                                                   m_size.height() - random.between(4, 9));
                                  const double radius = random.between(5, 14);
                                  into.setPen(Qt::NoPen);
                                  into.setBrush(tokens::black(random.between(.35, .75)));
                                  into.drawEllipse(at, radius * 1.5, radius * .75);
                                }
                              }), tokens::faded(QColor(0x2A, 0x12, 0x06), .76), scale);
  painter.drawImage(area.topLeft(), spots);
}

void BurntEdge::paintEmbers(QPainter& painter) const {
  painter.strokePath(linePath(), dashed(QColor(0x1A, 0x0E, 0x08), 2.6, {}));
  paintFire(painter);
}

void BurntEdge::paintFire(QPainter& painter) const {
  const QPainterPath path = linePath();
  painter.strokePath(path, dashed(QColor(tokens::kAmber), 1.1, {20, 11, 38, 16, 7, 8}));
  painter.strokePath(path, dashed(QColor(0xFF, 0xE9, 0xB0), .6, {6, 60, 12, 40}));
}

void BurntEdge::paintGlow(QPainter& painter, double strength) const {
  const double scale = deviceScale(painter);
  const QRectF area = lowerStrip(m_size);
  const QString key = QStringLiteral("%1 %2 %3 %4").arg(m_size.width()).arg(m_size.height()).arg(m_seed).arg(scale);
  const QPixmap glow = glows().fetch(key, [&] {
    const auto drawn = [&](QPainter& into) {
      into.strokePath(linePath(), dashed(Qt::black, 3.4, {22, 9, 40, 14, 9, 6}));
    };
    QImage picture = tinted(blurredAlpha(area, scale, 2, drawn), tokens::faded(QColor(tokens::kEmber), .90), scale);
    // The glow lies over the sheet: the fire within it stays sharp.
    QPainter over(&picture);
    over.setRenderHint(QPainter::Antialiasing);
    over.translate(-area.topLeft());
    paintFire(over);
    over.end();
    return QPixmap::fromImage(picture);
  });
  painter.save();
  painter.setOpacity(painter.opacity() * std::clamp(strength, 0.0, 1.0));
  painter.drawPixmap(area.topLeft(), glow);
  painter.restore();
}

}  // namespace tarnwick
