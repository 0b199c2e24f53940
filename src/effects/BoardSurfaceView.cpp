// SPDX-License-Identifier: MIT
#include "effects/BoardSurfaceView.h"

#include "effects/LiquidGlass.h"
#include "effects/PaperRandom.h"
#include "effects/PixmapCache.h"
#include "effects/Tokens.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

namespace tarnwick {

namespace {

constexpr double kRail = BoardSurfaceView::kRailHeight;

PixmapCache& cache() {
  static PixmapCache kept(12288);
  return kept;
}

QLinearGradient downward(const QRectF& area, const QColor& top, const QColor& bottom) {
  QLinearGradient gradient(area.topLeft(), area.bottomLeft());
  gradient.setColorAt(0, top);
  gradient.setColorAt(1, bottom);
  return gradient;
}

QRectF railOf(const QRectF& all) { return {all.x(), all.y(), all.width(), kRail}; }

// Volcanic glass: a few shell-shaped facets, each with one bright lip.
void paintObsidian(QPainter& painter, const QRectF& all) {
  QLinearGradient ground(all.topLeft(), QPointF(.35 * all.width(), all.bottom()));
  ground.setColorAt(0, QColor(0x28, 0x2A, 0x31));
  ground.setColorAt(.42, QColor(0x21, 0x22, 0x29));
  ground.setColorAt(1, QColor(0x17, 0x18, 0x1D));
  painter.fillRect(all, ground);
  QRadialGradient glow(QPointF(.22 * all.width(), 0), .9 * all.height());
  glow.setColorAt(0, tokens::white(.045));
  glow.setColorAt(1, tokens::white(0));
  painter.fillRect(all, glow);
  struct Facet {
    QPointF center;
    double radius;
    double alpha;
  };
  const double right = all.width();
  const double bottom = all.height();
  const Facet facets[] = {{{right + 40, -40}, 300, .05},
                          {{-30, bottom + 80}, 250, .045},
                          {{right - 90, bottom + 170}, 330, .04},
                          {{-120, 120}, 210, .03}};
  const QColor lip(0xCF, 0xE0, 0xFF);
  for (const Facet& facet : facets) {
    QRadialGradient shell(facet.center, facet.radius);
    shell.setColorAt(.72, tokens::faded(lip, 0));
    shell.setColorAt(.985, tokens::faded(lip, facet.alpha));
    shell.setColorAt(1, tokens::faded(lip, 0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(shell);
    painter.drawEllipse(facet.center, facet.radius, facet.radius);
  }
}

QPainterPath corkOutline(const QRectF& all) {
  constexpr double kFrame = 6;
  constexpr double kCorner = 24;
  const QRectF inner = all.adjusted(kFrame, kRail, -kFrame, -kFrame);
  QPainterPath path(inner.topLeft());
  path.lineTo(inner.left(), inner.bottom() - kCorner + kFrame);
  path.quadTo(inner.bottomLeft(), QPointF(inner.left() + kCorner - kFrame, inner.bottom()));
  path.lineTo(inner.right() - kCorner + kFrame, inner.bottom());
  path.quadTo(inner.bottomRight(), QPointF(inner.right(), inner.bottom() - kCorner + kFrame));
  path.lineTo(inner.topRight());
  path.closeSubpath();
  return path;
}

void paintCork(QPainter& painter, const QRectF& all, PaperRandom& random) {
  painter.fillRect(all, downward(all, QColor(0x9A, 0x6B, 0x3F), QColor(0x7E, 0x54, 0x30)));
  const int grains = static_cast<int>(1500 * all.width() * all.height() / (390.0 * 390.0));
  painter.setPen(Qt::NoPen);
  for (int i = 0; i < grains; ++i) {
    const QPointF at(random.next() * all.width(), random.between(kRail - 6, all.height()));
    const double angle = random.next() * 180;
    const double kind = random.next();
    const QRgb color = kind < .42 ? 0xFF3E2411 : kind < .78 ? 0xFFC4925C : 0xFFE0B782;
    painter.save();
    painter.translate(at);
    painter.rotate(angle);
    painter.setBrush(tokens::faded(QColor(color), random.between(.12, .38)));
    const double longAxis = random.between(.8, 3.4);
    painter.drawEllipse(QPointF(0, 0), longAxis, random.between(.5, 1.9));
    painter.restore();
  }
}

void paintWoodGrain(QPainter& painter, const QRectF& area, int lines, PaperRandom& random) {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(tokens::faded(QColor(0x12, 0x09, 0x05), .42), .8));
  const bool isUpright = area.height() > area.width();
  for (int i = 0; i < lines; ++i) {
    QPainterPath line;
    if (isUpright) {
      const double x = area.x() + random.next() * area.width();
      line.moveTo(x, area.top());
      line.quadTo(x + random.between(-1.5, 1.5), area.center().y(), x, area.bottom());
    } else {
      const double y = area.y() + random.next() * area.height();
      line.moveTo(area.left(), y);
      line.cubicTo(area.left() + .3 * area.width(), y + random.between(-2.5, 2.5), area.left() + .6 * area.width(),
                   y + random.between(-2.5, 2.5), area.right(), y);
    }
    painter.drawPath(line);
  }
}

void paintCorkboard(QPainter& painter, const QRectF& all) {
  PaperRandom random(77);
  paintCork(painter, all, random);
  QPainterPath frame;
  frame.setFillRule(Qt::OddEvenFill);
  frame.addRect(all);
  const QPainterPath cork = corkOutline(all);
  frame.addPath(cork);
  painter.fillPath(frame, downward(all, QColor(0x40, 0x29, 0x1A), QColor(0x2B, 0x1A, 0x10)));
  const double side = all.height() - kRail - 20;
  paintWoodGrain(painter, railOf(all), 26, random);
  paintWoodGrain(painter, QRectF(0, kRail, 5, side), 4, random);
  paintWoodGrain(painter, QRectF(all.width() - 5, kRail, 5, side), 4, random);
  painter.strokePath(cork, QPen(tokens::black(.55), 1));
  const QRectF shade(6, kRail, all.width() - 12, 12);
  painter.fillRect(shade, downward(shade, tokens::black(.42), tokens::black(0)));
}

void paintConstructionLines(QPainter& painter, const QRectF& all, const QColor& line) {
  const double right = all.width();
  const double bottom = all.height();
  const auto pen = [&](double alpha, const QList<qreal>& dashes = {}) {
    QPen made(tokens::faded(line, alpha), .9, Qt::SolidLine, Qt::FlatCap);
    if (!dashes.isEmpty()) {
      made.setDashPattern(dashes);
    }
    return made;
  };
  const QPointF hub(right - 58, bottom - 64);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(pen(.34, {10, 4.4, 2.2, 4.4}));
  painter.drawEllipse(hub, 92, 92);
  painter.setPen(pen(.18));
  painter.drawEllipse(hub, 130, 130);
  painter.setPen(pen(.26, {15.5, 4.4, 3.3, 4.4}));
  painter.drawLine(QPointF(right - 170, hub.y()), QPointF(right, hub.y()));
  painter.drawLine(QPointF(hub.x(), bottom - 178), QPointF(hub.x(), bottom));
  painter.setPen(pen(.40));
  painter.drawLine(QPointF(18, kRail + 22), QPointF(18, bottom - 40));
  painter.drawLine(QPointF(14, kRail + 22), QPointF(22, kRail + 22));
  painter.drawLine(QPointF(14, bottom - 40), QPointF(22, bottom - 40));
  painter.setPen(pen(.16));
  painter.drawLine(QPointF(-10, bottom - 10), QPointF(130, kRail + 170));
}

void paintDrafting(QPainter& painter, const QRectF& all) {
  constexpr double kPitch = 13;
  const QColor line(0xBF, 0xE0, 0xFF);
  QLinearGradient ground(all.topLeft(), QPointF(.2 * all.width(), all.bottom()));
  ground.setColorAt(0, QColor(0x15, 0x3E, 0x69));
  ground.setColorAt(1, QColor(0x0D, 0x2C, 0x50));
  painter.fillRect(all, ground);
  const auto pen = [&](int index) {
    return index % 5 == 0 ? QPen(tokens::faded(line, .17), .8) : QPen(tokens::faded(line, .07), .6);
  };
  for (int i = 1; i * kPitch < all.width(); ++i) {
    painter.setPen(pen(i));
    painter.drawLine(QPointF(i * kPitch + .5, kRail), QPointF(i * kPitch + .5, all.bottom()));
  }
  for (int i = 1; kRail + i * kPitch < all.height(); ++i) {
    painter.setPen(pen(i));
    painter.drawLine(QPointF(0, kRail + i * kPitch + .5), QPointF(all.right(), kRail + i * kPitch + .5));
  }
  paintConstructionLines(painter, all, line);
  painter.fillRect(railOf(all), QColor(0x0B, 0x26, 0x45));
  painter.fillRect(QRectF(0, kRail - 1, all.width(), 1), tokens::faded(line, .45));
  painter.fillRect(QRectF(0, kRail - 3.5, all.width(), 1), tokens::faded(line, .13));
}

void paintAcrylic(QPainter& painter, const QRectF& all, GlassVariant variant) {
  LiquidGlassBackground::paint(painter, all, variant);
  LiquidGlassSheen::paint(painter, all);
  painter.fillRect(railOf(all), tokens::faded(QColor(0x14, 0x17, 0x1C), .64));
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(tokens::white(.16), 2));
  painter.drawRoundedRect(all.adjusted(1.5, 1.5, -1.5, -1.5), BoardSurfaceView::kRadius - 1.5,
                          BoardSurfaceView::kRadius - 1.5);
}

void paintMood(QPainter& painter, BoardMood mood, GlassVariant variant, const QRectF& all) {
  switch (mood) {
    case BoardMood::obsidian: paintObsidian(painter, all); break;
    case BoardMood::corkboard: paintCorkboard(painter, all); break;
    case BoardMood::drafting: paintDrafting(painter, all); break;
    case BoardMood::acrylic: paintAcrylic(painter, all, variant); break;
  }
}

}  // namespace

QPixmap BoardSurfaceView::pixmap(BoardMood mood, GlassVariant variant, const QSize& size, double scale) {
  const QString key = QStringLiteral("%1 %2 %3 %4 %5").arg(static_cast<int>(mood)).arg(static_cast<int>(variant))
                          .arg(size.width()).arg(size.height()).arg(scale);
  return cache().fetch(key, [&] {
    QPixmap surface = clearPixmap(size, scale);
    QPainter painter(&surface);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF all(QPointF(0, 0), QSizeF(size));
    LiquidGlassBoardModifier::paint(painter, all, kRadius, [&] { paintMood(painter, mood, variant, all); });
    return surface;
  });
}

QColor BoardSurfaceView::plate(BoardMood mood) {
  switch (mood) {
    case BoardMood::corkboard: return tokens::faded(QColor(0x14, 0x0B, 0x05), .70);
    case BoardMood::acrylic: return tokens::faded(QColor(0x14, 0x17, 0x1C), .45);
    case BoardMood::obsidian:
    case BoardMood::drafting: break;
  }
  return Qt::transparent;
}

}  // namespace tarnwick
