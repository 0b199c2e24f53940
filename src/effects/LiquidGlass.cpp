// SPDX-License-Identifier: MIT
#include "effects/LiquidGlass.h"

#include "effects/PaperRandom.h"
#include "effects/Tokens.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <cmath>

namespace tarnwick {

namespace {

struct Pool {
  QPointF center;  // in shares of the panel
  double radius;
  QRgb color;
  double alpha;
};

double density(GlassVariant variant) {
  switch (variant) {
    case GlassVariant::soft: return .90;
    case GlassVariant::clear: return .86;
    case GlassVariant::dense: return .96;
  }
  return .90;
}

}  // namespace

void LiquidGlassBackground::paint(QPainter& painter, const QRectF& rect, GlassVariant variant) {
  painter.fillRect(rect, tokens::faded(QColor(0x1E, 0x22, 0x29), density(variant)));
  constexpr Pool kPools[] = {{{.10, .15}, .54, 0xFF5B7FA8, .34},
                             {{.90, .31}, .54, 0xFF8A5BA8, .26},
                             {{.77, .97}, .59, 0xFFB5704F, .26},
                             {{.15, .92}, .54, 0xFF2F8F83, .26}};
  for (const Pool& pool : kPools) {
    const QPointF center(rect.x() + pool.center.x() * rect.width(), rect.y() + pool.center.y() * rect.height());
    QRadialGradient light(center, pool.radius * rect.width());
    light.setColorAt(0, tokens::faded(QColor(pool.color), pool.alpha));
    light.setColorAt(1, tokens::faded(QColor(pool.color), 0));
    painter.fillRect(rect, light);
  }
}

void LiquidGlassSheen::paint(QPainter& painter, const QRectF& rect) {
  constexpr int kSide = 128;
  static const QImage frost = [] {
    QImage tile(kSide, kSide, QImage::Format_ARGB32_Premultiplied);
    PaperRandom random(9);
    for (int y = 0; y < kSide; ++y) {
      for (int x = 0; x < kSide; ++x) {
        const int level = static_cast<int>(random.next() * random.next() * 14);
        tile.setPixel(x, y, qRgba(level, level, level, level));
      }
    }
    return tile;
  }();
  painter.save();
  QBrush noise(frost);
  const double scale = painter.deviceTransform().m11();
  noise.setTransform(QTransform::fromScale(1 / scale, 1 / scale));
  painter.fillRect(rect, noise);
  QLinearGradient glint(rect.topLeft(), rect.bottomRight());
  glint.setColorAt(.10, tokens::white(0));
  glint.setColorAt(.22, tokens::white(.12));
  glint.setColorAt(.34, tokens::white(.015));
  glint.setColorAt(.40, tokens::white(.08));
  glint.setColorAt(.47, tokens::white(0));
  painter.fillRect(rect, glint);
  painter.restore();
}

void LiquidGlassRim::paint(QPainter& painter, const QRectF& rect, double radius) {
  QLinearGradient light(rect.topLeft(), rect.bottomLeft());
  light.setColorAt(0, tokens::white(.34));
  light.setColorAt(.18, tokens::white(.13));
  light.setColorAt(1, tokens::white(.06));
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QBrush(light), 1));
  painter.drawRoundedRect(rect.adjusted(.5, .5, -.5, -.5), radius - .5, radius - .5);
  painter.restore();
}

void LiquidGlassBoardModifier::paint(QPainter& painter, const QRectF& rect, double radius,
                                     const std::function<void()>& content) {
  QPainterPath outline;
  outline.addRoundedRect(rect, radius, radius);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipPath(outline, Qt::IntersectClip);
  content();
  painter.restore();
  LiquidGlassRim::paint(painter, rect, radius);
}

}  // namespace tarnwick
