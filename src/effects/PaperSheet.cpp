// SPDX-License-Identifier: MIT
#include "effects/PaperSheet.h"

#include "effects/BurntEdge.h"
#include "effects/LiftedPaperShape.h"
#include "effects/PaperRandom.h"
#include "effects/PaperTextureView.h"
#include "effects/PixmapCache.h"
#include "effects/SoftShadow.h"
#include "effects/Tokens.h"
#include "model/Color.h"

#include <QLinearGradient>
#include <QPainter>
#include <QUuid>

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

struct Radii {
  double top;
  double bottom;
};

struct Depth {
  double offset;
  double sigma;
  double alpha;
};

struct Shadow {
  Depth contact;
  Depth ambient;
  Depth corners;
};

Radii radii(PaperKind kind) {
  switch (kind) {
    case PaperKind::Card:
    case PaperKind::EditorSheet: return {3, 6};
    case PaperKind::TornNote: return {3, 7};
    case PaperKind::Tab: return {4, 6};
  }
  return {3, 6};
}

Shadow shadow(PaperKind kind, PaperLift lift) {
  // Its window ends four points around the paper.
  if (kind == PaperKind::Tab) return {{.6, .8, .34}, {1.2, 1.3, .30}, {1, 1, 0}};
  if (kind == PaperKind::TornNote) {
    return {{1, 1.2, .30}, {6, 8, .26}, {8, 5, .34}};
  }
  if (lift == PaperLift::Raised || kind == PaperKind::EditorSheet) {
    return {{1.5, 1.4, .34}, {9, 9, .34}, {11, 6, .34}};
  }
  return {{1, .9, .34}, {3.5, 4.5, .26}, {5.5, 3, .34}};
}

PixmapCache& cache() {
  static PixmapCache kept(8192);
  return kept;
}

// Fine noise over every sheet, one tile for all.
QPixmap grain(double scale) {
  return cache().fetch(QStringLiteral("grain %1").arg(scale), [scale] {
    constexpr int kSide = 128;
    const int pixels = static_cast<int>(std::lround(kSide * scale));
    QImage tile(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    PaperRandom random(4);
    for (int y = 0; y < pixels; ++y) {
      auto* line = reinterpret_cast<QRgb*>(tile.scanLine(y));
      for (int x = 0; x < pixels; ++x) {
        line[x] = qRgba(0, 0, 0, static_cast<int>(random.next() * 10));
      }
    }
    tile.setDevicePixelRatio(scale);
    return QPixmap::fromImage(tile);
  });
}

// The one lamp above the wall. Its opacity never falls below .12: the ink's contrast on dark papers rests on that.
QLinearGradient lamp(const QSizeF& size, double share) {
  QLinearGradient light(0, 0, .12 * size.width(), size.height());
  light.setColorAt(0, tokens::white(.34 * share));
  light.setColorAt(.13, tokens::white(.23 * share));
  light.setColorAt(.20, tokens::white(.18 * share));
  light.setColorAt(.58, tokens::white(.155 * share));
  light.setColorAt(.88, tokens::white(.19 * share));
  light.setColorAt(1, tokens::white(.12 * share));
  return light;
}

// Where the glue strip ends the sheet bends away from the wall.
void paintBend(QPainter& painter, double width) {
  QLinearGradient bend(0, 15, 0, 20);
  bend.setColorAt(0, tokens::black(.055));
  bend.setColorAt(1, tokens::black(0));
  painter.fillRect(QRectF(0, 15, width, 5), bend);
}

// The free lower edge curls forward: it catches light, then turns away from it.
void paintCurl(QPainter& painter, const QSizeF& size) {
  const double top = size.height() - 14;
  QLinearGradient curl(0, top, 0, top + 16);
  curl.setColorAt(0, tokens::white(0));
  curl.setColorAt(.58, tokens::white(.10));
  curl.setColorAt(.64, tokens::black(0));
  curl.setColorAt(1, tokens::black(.10));
  painter.fillRect(QRectF(0, top, size.width(), 16), curl);
}

void paintAgedEdge(QPainter& painter, const QSizeF& size, const QColor& ink) {
  const double scale = deviceScale(painter);
  const QString key = QStringLiteral("aged %1 %2 %3 %4").arg(size.width()).arg(size.height()).arg(ink.rgb()).arg(scale);
  const QPixmap edge = cache().fetch(key, [&] {
    const QRectF area(QPointF(0, 0), size + QSizeF(0, 2));
    const QImage alpha = blurredAlpha(area, scale, 4, [&](QPainter& into) {
      into.setPen(QPen(Qt::black, 7));
      into.drawRect(area);
    });
    return QPixmap::fromImage(tinted(alpha, tokens::faded(ink, .26), scale));
  });
  painter.drawPixmap(QPointF(0, 0), edge);
}

void paintFlap(QPainter& painter, const LiftedPaperShape& shape, const QColor& paper) {
  const QPainterPath flap = shape.flap();
  painter.save();
  painter.setClipPath(shape.outline(), Qt::IntersectClip);
  const QRectF bounds = flap.boundingRect();
  paintShadow(painter, QStringLiteral("flap %1 %2").arg(bounds.width()).arg(bounds.height()),
              bounds.topLeft() + QPointF(-2.5, -1), {{flap.translated(-bounds.topLeft()), 0, 3, .34}});
  painter.restore();
  const QColor back = Color::blend(paper, Qt::white, .42);
  QLinearGradient shade(shape.fold() + QPointF(2, 2), shape.tip());
  shade.setColorAt(0, Color::blend(paper, Qt::black, .22));
  shade.setColorAt(.18, Color::blend(paper, Qt::black, .05));
  shade.setColorAt(.45, Color::blend(back, Qt::white, .35));
  shade.setColorAt(1, Color::blend(back, Qt::black, .10));
  painter.setPen(QPen(tokens::black(.14), .6));
  painter.setBrush(shade);
  painter.drawPath(flap);
}

/// What all drawing steps of one sheet share: its shapes in its own coordinates.
struct Cut {
  QSizeF size;
  double peel;
  LiftedPaperShape shape;
  BurntEdge burnt;
  QPainterPath outline;
};

Cut cut(const PaperSheet& sheet) {
  const QSizeF size = sheet.rect.size();
  const Radii corner = radii(sheet.kind);
  const bool isBurnt = sheet.edge == PaperEdge::Smoldering;
  // Dark Craft is board: it lies stiff. A burnt sheet has no corner left to lift.
  const double peel = isBurnt || sheet.theme == PaperTheme::construction ? 0 : sheet.peel;
  LiftedPaperShape shape(size, corner.top, corner.bottom, peel);
  BurntEdge burnt(size, sheet.seed);
  QPainterPath outline = isBurnt ? burnt.outline(corner.top) : shape.outline();
  return {size, peel, shape, burnt, outline};
}

QTransform mirroring(double width) { return {-1, 0, 0, 1, width, 0}; }

bool peelsAtLeft(const PaperSheet& sheet, const Cut& made) {
  return sheet.direction == Qt::RightToLeft && made.peel > 0;
}

QPainterPath placed(const PaperSheet& sheet, const Cut& made) {
  return peelsAtLeft(sheet, made) ? mirroring(made.size.width()).map(made.outline) : made.outline;
}

// A corner on its way up has the shadow of the nearer end of its way: no step of it is blurred anew.
double shadowPeel(double peel) {
  constexpr double kResting = 28;
  constexpr double kLifted = 44;
  return peel <= 0 ? 0 : peel < (kResting + kLifted) / 2 ? kResting : kLifted;
}

// The glue strip holds the top, the lower corners curl away from the wall.
QPainterPath curledCorners(const QSizeF& size, double offset) {
  const double width = size.width();
  const double height = size.height();
  QPainterPath path(QPointF(6, height * .6));
  path.lineTo(width - 6, height * .6);
  path.lineTo(width - 2, height + offset);
  path.quadTo(width / 2, height - 4, 2, height + offset);
  path.closeSubpath();
  return path;
}

void paintSheetShadow(QPainter& painter, const PaperSheet& sheet, const Cut& made) {
  const bool isBurnt = sheet.edge == PaperEdge::Smoldering;
  const double peel = shadowPeel(made.peel);
  const Radii corner = radii(sheet.kind);
  // What the fire has eaten differs from note to note; under the blur a sheet that is a little shorter serves all.
  const QSizeF size = isBurnt ? made.size - QSizeF(0, 4) : made.size;
  const QPainterPath shape = LiftedPaperShape(size, corner.top, corner.bottom, peel).outline();
  const Shadow depth = shadow(sheet.kind, sheet.lift);
  std::vector<ShadowLayer> layers{{shape, depth.ambient.offset, depth.ambient.sigma, depth.ambient.alpha}};
  if (!isBurnt) {
    layers.push_back({curledCorners(made.size, depth.corners.offset), 0, depth.corners.sigma, depth.corners.alpha});
  }
  layers.push_back({shape, depth.contact.offset, depth.contact.sigma, depth.contact.alpha});
  const QString key = QStringLiteral("sheet %1 %2 %3 %4 %5 %6")
                          .arg(made.size.width()).arg(made.size.height()).arg(static_cast<int>(sheet.kind))
                          .arg(static_cast<int>(sheet.lift)).arg(peel).arg(static_cast<int>(sheet.edge));
  paintShadow(painter, key, {}, layers);
}

void paintFace(QPainter& painter, const PaperSheet& sheet, const Cut& made) {
  const QSizeF& size = made.size;
  const QRectF all(0, 0, size.width(), size.height() + 2);
  const bool isBoard = sheet.theme == PaperTheme::construction;
  PaperTextureView texture;
  texture.theme = sheet.theme;
  texture.size = size;
  texture.paperHex = sheet.colorHex;
  texture.seed = sheet.seed;
  texture.frame = sheet.kind == PaperKind::TornNote ? 7 : 5;
  texture.direction = sheet.direction;

  painter.fillRect(all.adjusted(-2, -2, 2, 4), Color::fromHex(sheet.colorHex));
  if (!isBoard) {
    texture.paint(painter);
  }
  painter.drawTiledPixmap(all, grain(deviceScale(painter)));
  painter.fillRect(all, lamp(size, 1));
  paintBend(painter, size.width());
  if (isBoard) {
    texture.paint(painter);
    painter.fillRect(all, lamp(size, .28));
  }
  if (sheet.theme == PaperTheme::parchment) {
    paintAgedEdge(painter, size, Color::inkOnPaper(sheet.colorHex));
  }
  if (sheet.edge == PaperEdge::Smoldering) {
    made.burnt.paintScorch(painter);
  } else if (made.peel <= 0) {
    paintCurl(painter, size);
  }
}

}  // namespace

QPainterPath PaperSheet::outline() const {
  const Cut made = cut(*this);
  return placed(*this, made).translated(rect.topLeft());
}

void PaperSheet::paint(QPainter& painter) const {
  const Cut made = cut(*this);
  const bool isMirrored = peelsAtLeft(*this, made);
  const QPainterPath path = placed(*this, made);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(rect.topLeft());
  if (hasShadow) {
    painter.save();
    if (isMirrored) {
      painter.setTransform(mirroring(rect.width()), true);
    }
    paintSheetShadow(painter, *this, made);
    painter.restore();
  }
  painter.save();
  painter.setClipPath(path, Qt::IntersectClip);
  paintFace(painter, *this, made);
  painter.restore();

  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(tokens::black(edgeOpacity), 1));
  painter.drawPath(path);
  const double inset = radii(kind).top;
  painter.setPen(QPen(tokens::white(theme == PaperTheme::construction ? .22 : .55), 1));
  painter.drawLine(QPointF(inset, .5), QPointF(rect.width() - inset, .5));
  if (edge == PaperEdge::Smoldering) {
    made.burnt.paintEmbers(painter);
  } else if (made.peel > 0) {
    if (isMirrored) {
      painter.setTransform(mirroring(rect.width()), true);
    }
    paintFlap(painter, made.shape, Color::fromHex(colorHex));
  }
  painter.restore();
}

void PaperSheet::paintEmberGlow(QPainter& painter, double strength) const {
  if (edge != PaperEdge::Smoldering) {
    return;
  }
  painter.save();
  painter.translate(rect.topLeft());
  BurntEdge(rect.size(), seed).paintGlow(painter, strength);
  painter.restore();
}

quint32 paperSeed(const QUuid& id) {
  quint32 seed = 2166136261U;
  for (const char byte : id.toRfc4122()) {
    seed = (seed ^ static_cast<quint8>(byte)) * 16777619U;
  }
  return seed;
}

}  // namespace tarnwick
