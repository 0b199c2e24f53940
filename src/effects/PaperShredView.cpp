// SPDX-License-Identifier: MIT
#include "effects/PaperShredView.h"

#include "effects/PaperRandom.h"
#include "effects/PixmapCache.h"
#include "effects/Tokens.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

constexpr double kLevelled = .10;
constexpr double kRollerStarts = .08;
constexpr double kRollerEnds = .62;
constexpr double kFadeStarts = .70;
constexpr double kSway = 8;  // degrees

double share(double progress, double from, double to) { return std::clamp((progress - from) / (to - from), 0.0, 1.0); }

double easeInOut(double t) { return t < .5 ? 2 * t * t : 1 - 2 * (1 - t) * (1 - t); }

// The note as its ribbons show it: each in another shade, with light on one edge. Only the last note's is kept.
QPixmap sliced(const QPixmap& note) {
  static PixmapCache kept(8192);
  return kept.fetch(QString::number(note.cacheKey()), [&] {
    kept.clear();
    const QSizeF size = note.deviceIndependentSize();
    const double wide = size.width() / PaperShredView::kRibbons;
    QPixmap light = clearPixmap(size, note.devicePixelRatio());
    QPainter painter(&light);
    PaperRandom random(61);
    for (int i = 0; i < PaperShredView::kRibbons; ++i) {
      painter.fillRect(QRectF(i * wide, 0, wide, size.height()), tokens::black(random.between(0, .14)));
      painter.fillRect(QRectF(i * wide + .4, 0, 1, size.height()), tokens::white(.4));
    }
    // On paper and tape alone: twice cut to the note, next to nothing of it lies on a faint shadow.
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawPixmap(0, 0, note);
    painter.drawPixmap(0, 0, note);
    painter.end();
    QPixmap slices = note;
    QPainter over(&slices);
    over.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    over.drawPixmap(0, 0, light);
    return slices;
  });
}

// A roller with the light on its upper half.
void paintRoller(QPainter& painter, const QRectF& rect, double y) {
  constexpr double kThick = 9;
  const QRectF bar(rect.left(), y - kThick / 2, rect.width(), kThick);
  QLinearGradient metal(bar.topLeft(), bar.bottomLeft());
  metal.setColorAt(0, QColor(0x5A, 0x5C, 0x64));
  metal.setColorAt(.30, QColor(0xC9, 0xC5, 0xBD));
  metal.setColorAt(.55, QColor(0x4A, 0x4C, 0x54));
  metal.setColorAt(1, QColor(0x17, 0x18, 0x1D));
  painter.setPen(Qt::NoPen);
  painter.setBrush(tokens::black(.28));
  painter.drawRoundedRect(bar.translated(0, 2), kThick / 2, kThick / 2);
  painter.setBrush(metal);
  painter.drawRoundedRect(bar, kThick / 2, kThick / 2);
}

}  // namespace

double PaperShredView::angle(double tilt, double progress) { return tilt * (1 - share(progress, 0, kLevelled)); }

double PaperShredView::shredded(double progress) {
  return easeInOut(share(progress, kRollerStarts, kRollerEnds));
}

void PaperShredView::paint(QPainter& painter, const QRectF& rect, const QPixmap& note, double tilt, double progress) {
  if (note.isNull() || progress >= 1) {
    return;
  }
  const double cut = rect.bottom() - shredded(progress) * rect.height();
  const double drop = share(progress, kRollerEnds, 1);
  const double scaleX = note.width() / rect.width();
  const double scaleY = note.height() / rect.height();
  const auto source = [&](const QRectF& part) {
    return QRectF((part.x() - rect.x()) * scaleX, (part.y() - rect.y()) * scaleY, part.width() * scaleX,
                  part.height() * scaleY);
  };
  painter.save();
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.setClipRect(rect, Qt::IntersectClip);
  if (cut > rect.top()) {
    painter.save();
    painter.translate(rect.center());
    painter.rotate(angle(tilt, progress));
    painter.translate(-rect.center());
    const QRectF whole(rect.left(), rect.top(), rect.width(), cut - rect.top());
    painter.drawPixmap(whole, note, source(whole));
    painter.restore();
  }
  PaperRandom random(16);
  painter.save();
  painter.setOpacity(painter.opacity() * (1 - share(progress, kFadeStarts, 1)));
  const double wide = rect.width() / kRibbons;
  const QPixmap slices = cut < rect.bottom() ? sliced(note) : QPixmap();
  for (int i = 0; i < kRibbons && cut < rect.bottom(); ++i) {
    // Neighbours hang almost alike, or they would cut through each other; the outer ones keep inside the window.
    const double haste = random.between(.85, 1.15);
    const double phase = i * .5 + random.between(-.35, .35);
    const double free = (rect.bottom() - cut) / rect.height();
    const double inward = (i - (kRibbons - 1) / 2.0) / kRibbons * 6;
    const double sway = std::clamp(free * (inward + kSway * .7 * std::sin(phase + progress * 9)), -kSway, kSway);
    const double fall = drop * drop * rect.height() * 1.1 * haste;
    const QRectF ribbon(rect.left() + i * wide, cut, wide, rect.bottom() - cut);
    painter.save();
    painter.translate(ribbon.center().x(), cut + fall);
    painter.rotate(sway);
    painter.drawPixmap(QRectF(-wide / 2 + .4, 0, wide - .8, ribbon.height()), slices, source(ribbon));
    painter.restore();
  }
  painter.restore();
  if (progress > kRollerStarts && progress < kFadeStarts) {
    painter.setOpacity(painter.opacity() * (1 - share(progress, kRollerEnds, kFadeStarts)));
    paintRoller(painter, rect, std::clamp(cut, rect.top() + 5, rect.bottom() - 7));
  }
  painter.restore();
}

}  // namespace tarnwick
