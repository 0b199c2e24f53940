// SPDX-License-Identifier: MIT
#include "board/PlanNudgeView.h"

#include "board/PlanSlot.h"
#include "effects/BoardSurfaceView.h"
#include "effects/PixmapCache.h"
#include "effects/Tokens.h"
#include "effects/WadArt.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <numbers>
#include <random>

namespace tarnwick {
namespace {

constexpr double kPi = std::numbers::pi;

QFont subtitleFont() {
  QFont font = tokens::font(tokens::Type::RowTitle);
  font.setWeight(QFont::Normal);
  return font;
}

/// The fewest lines that fit, each as short as that number allows.
QStringList balanced(const QString& text, const QFont& font, double width) {
  const QFontMetricsF metrics(font);
  const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  const auto wrap = [&](double limit) {
    QStringList lines;
    QString line;
    for (const QString& word : words) {
      const QString longer = line.isEmpty() ? word : line + QLatin1Char(' ') + word;
      if (!line.isEmpty() && metrics.horizontalAdvance(longer) > limit) {
        lines << line;
        line = word;
      } else {
        line = longer;
      }
    }
    if (!line.isEmpty()) lines << line;
    return lines;
  };
  QStringList best = wrap(width);
  const auto count = best.size();
  for (double limit = width; limit > 60; limit -= 4) {
    const QStringList tighter = wrap(limit);
    if (tighter.size() > count) break;
    best = tighter;
  }
  return best;
}

void paintRays(QPainter& painter, const QPointF& center, int count, double from, double to, double first, double inner,
               double outerA, double outerB) {
  for (const double drop : {2.0, 0.0}) {
    const QColor color = drop > 0 ? tokens::black(0.45) : tokens::faded(QColor::fromRgb(tokens::kAccent), 0.92);
    painter.setPen(QPen(color, 3.5, Qt::SolidLine, Qt::FlatCap));
    for (int i = 0; i < count; ++i) {
      const double a = from + (to - from) * (i + first) / count;
      const double outer = i % 2 ? outerB : outerA;
      const QPointF way(std::cos(a), std::sin(a));
      painter.drawLine(center + way * inner + QPointF(0, drop), center + way * outer + QPointF(0, drop));
    }
  }
}

void paintHorizon(QPainter& painter, double y) {
  painter.setPen(QPen(tokens::white(0.22), 1, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(8, y), QPointF(152, y));
  painter.setPen(QPen(tokens::black(0.5), 1, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(8, y + 1), QPointF(152, y + 1));
}

/// A disc of paper that is torn off along a line.
QPainterPath tornDisc(const QPointF& center, double radius, double cut, unsigned seed) {
  std::minstd_rand random(seed);
  std::uniform_real_distribution<double> ragged(-1.1, 1.1);
  const double half = std::sqrt(std::max(0.0, radius * radius - (cut - center.y()) * (cut - center.y())));
  QPainterPath path(QPointF(center.x() - half, cut));
  const double start = std::atan2(cut - center.y(), -half);
  const double end = std::atan2(cut - center.y(), half);
  const QRectF box(center.x() - radius, center.y() - radius, 2 * radius, 2 * radius);
  double sweep = (end - start) * 180 / kPi;
  while (sweep <= 0) sweep += 360;
  path.arcTo(box, -start * 180 / kPi, -sweep);
  for (double x = center.x() + half - 4; x > center.x() - half; x -= 4) path.lineTo(x, cut + ragged(random));
  path.closeSubpath();
  return path;
}

void paintSunPaper(QPainter& painter, const QPainterPath& path, QRgb top, QRgb bottom, const QPointF& center,
                   double radius, double shineFrom = 172) {
  for (const double drop : {4.0, 3.0, 2.0}) painter.fillPath(path.translated(0, drop), tokens::black(0.13));
  QLinearGradient fill(0, path.boundingRect().top(), 0, path.boundingRect().bottom());
  fill.setColorAt(0, QColor::fromRgb(top));
  fill.setColorAt(1, QColor::fromRgb(bottom));
  painter.fillPath(path, fill);
  painter.strokePath(path, QPen(tokens::black(0.12), 1));
  QPainterPath shine;
  const double r = radius - 4.5;
  const QRectF box(center.x() - r, center.y() - r, 2 * r, 2 * r);
  shine.arcMoveTo(box, shineFrom);
  shine.arcTo(box, shineFrom, 94 - shineFrom);
  painter.strokePath(shine, QPen(tokens::white(0.7), 1.5, Qt::SolidLine, Qt::RoundCap));
}

void paintSun(QPainter& painter, PlanNudgeView::Sky sky) {
  switch (sky) {
    case PlanNudgeView::Sky::Morning: {
      const QPointF center(80, 70);
      paintRays(painter, center, 9, kPi, 2 * kPi, 0.5, 41, 53, 59);
      paintSunPaper(painter, tornDisc(center, 36, 70, 5), 0xFFEEA0, 0xFFC65C, center, 36);
      paintHorizon(painter, 73.5);
      break;
    }
    case PlanNudgeView::Sky::Afternoon: {
      const QPointF center(80, 42);
      paintRays(painter, center, 12, 0.13, 0.13 + 2 * kPi, 0, 29, 41, 37);
      QPainterPath disc;
      disc.addEllipse(center, 23, 23);
      paintSunPaper(painter, disc, 0xFFF1B0, 0xFFD25E, center, 23);
      break;
    }
    case PlanNudgeView::Sky::Evening: {
      const QPointF center(80, 80);
      paintRays(painter, center, 7, kPi + 0.35, 2 * kPi - 0.35, 0.5, 39, 48, 53);
      paintSunPaper(painter, tornDisc(center, 33, 71, 11), 0xFFD37A, 0xFF8F52, center, 33, 150);
      paintHorizon(painter, 73.5);
      for (const auto& [x, w] : {std::pair{58.0, 44.0}, std::pair{66.0, 28.0}}) {
        const double y = w > 30 ? 77 : 80.5;
        painter.setPen(QPen(tokens::faded(QColor::fromRgb(tokens::kAmber), 0.45), 1, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(x, y), QPointF(x + w, y));
      }
      break;
    }
    case PlanNudgeView::Sky::Night:
      break;
  }
}

}  // namespace

PlanNudgeView::PlanNudgeView(QWidget* parent) : QWidget(parent) {
  for (int i = 0; i < PlanSlot::kCount; ++i) {
    auto* slot = new PlanSlot(i, this);
    m_slots[static_cast<std::size_t>(i)] = slot;
    connect(slot, &QAbstractButton::clicked, this, [this, slot] { Q_EMIT slotChosen(slot->colorHex()); });
  }
}

PlanNudgeView::Sky PlanNudgeView::skyAt(int hour) {
  if (hour < 5 || hour >= 22) return Sky::Night;
  if (hour < 12) return Sky::Morning;
  return hour < 17 ? Sky::Afternoon : Sky::Evening;
}

QList<QWidget*> PlanNudgeView::stops() const {
  return {m_slots.begin(), m_slots.end()};
}

void PlanNudgeView::setNudge(const PlanNudge& nudge, Sky sky) {
  if (nudge == m_nudge && sky == m_sky && !m_subtitleLines.isEmpty()) return;
  m_nudge = nudge;
  m_sky = sky;
  setAccessibleName(nudge.title);
  setAccessibleDescription(nudge.subtitle);
  if (!isHidden()) layOut();
}

void PlanNudgeView::setMood(BoardMood mood) {
  if (mood == m_mood) return;
  m_mood = mood;
  update();
}

void PlanNudgeView::setShift(int shift) {
  if (shift == m_shift) return;
  m_shift = shift;
  layOut();
}

void PlanNudgeView::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  layOut();
}

void PlanNudgeView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::LayoutDirectionChange) layOut();
}

void PlanNudgeView::layOut() {
  m_subtitleLines = balanced(m_nudge.subtitle, subtitleFont(), 310);
  const bool isTight = m_subtitleLines.size() > 1;
  for (int i = 0; i < PlanSlot::kCount; ++i) {
    PlanSlot* slot = m_slots[static_cast<std::size_t>(i)];
    const int column = layoutDirection() == Qt::RightToLeft ? PlanSlot::kCount - 1 - i : i;
    slot->setPaperHeight(isTight ? 92 : 100);
    slot->move(21 + 120 * column - PlanSlot::kMargin, (isTight ? 258 : 240) + m_shift - PlanSlot::kMargin);
    slot->setVisible(m_nudge.showSlots);
  }
  update();
}

void PlanNudgeView::paintNight(QPainter& painter) const {
  painter.save();
  painter.translate(0, 74 + m_shift);
  std::minstd_rand random(9);
  std::uniform_real_distribution<double> unit(0, 1);
  painter.setPen(Qt::NoPen);
  for (int i = 0; i < 26; ++i) {
    const double x = unit(random) * 390;
    const double y = unit(random) * 150;
    const double side = (0.6 + unit(random) * 1.3) * 1.9;
    const double angle = unit(random) * 90;
    const double alpha = 0.25 + unit(random) * 0.5;
    if (std::hypot(x - 195, y - 92) < 66 || x < 14 || x > 376) continue;
    painter.save();
    painter.translate(x, y);
    painter.rotate(angle);
    painter.fillRect(QRectF(0, 0, side, side), tokens::faded(QColor::fromRgb(tokens::kText), alpha));
    painter.restore();
  }
  QRadialGradient glow(195, 92, 118);
  const QColor moon = QColor::fromRgb(0xEFE6CF);
  glow.setColorAt(0.3, tokens::faded(moon, 0.24));
  glow.setColorAt(0.5, tokens::faded(moon, 0.12));
  glow.setColorAt(0.75, tokens::faded(moon, 0.035));
  glow.setColorAt(1, tokens::faded(moon, 0));
  painter.setBrush(glow);
  painter.drawEllipse(QPointF(195, 92), 118, 118);
  painter.drawImage(QRectF(147, 44, 96, 96), WadArt::image(QColor::fromRgb(0xEDE3C8), 96, deviceScale(painter)));
  painter.restore();
}

void PlanNudgeView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  const bool isTight = m_subtitleLines.size() > 1;
  const bool isNight = m_sky == Sky::Night;
  if (const QColor plate = BoardSurfaceView::plate(m_mood); plate.alpha() > 0) {
    const QRectF box(12, 84 + m_shift, 366, 288 - std::max(0, m_shift));
    painter.setPen(Qt::NoPen);
    painter.setBrush(plate);
    painter.drawRoundedRect(box, 16, 16);
    painter.setPen(QPen(tokens::black(0.35), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), 15.5, 15.5);
  }
  double kickerTop = isNight ? 252 : isTight ? 171 : 161;
  kickerTop += m_shift;
  if (isNight) {
    paintNight(painter);
  } else {
    painter.save();
    painter.translate(195 - 80, (isTight ? 83 : 78) + m_shift);
    paintSun(painter, m_sky);
    painter.restore();
  }
  painter.setFont(tokens::font(tokens::Type::Kicker));
  painter.setPen(isNight ? QColor::fromRgb(0xB9C4D6) : QColor::fromRgb(tokens::kAmber));
  painter.drawText(QRectF(0, kickerTop, 390, 14), Qt::AlignCenter, m_nudge.kicker);
  painter.setFont(tokens::font(tokens::Type::NudgeTitle));
  painter.setPen(QColor::fromRgb(tokens::kText));
  const double titleTop = kickerTop + 14 + (isTight ? 3 : 4);
  painter.drawText(QRectF(0, titleTop, 390, 26), Qt::AlignCenter, m_nudge.title);
  painter.setFont(subtitleFont());
  painter.setPen(QColor::fromRgb(tokens::kText2));
  double y = titleTop + 26 + (isTight ? 2 : 3);
  for (const QString& line : m_subtitleLines) {
    painter.drawText(QRectF(0, y, 390, 18), Qt::AlignCenter, line);
    y += isTight ? 17 : 18;
  }
}

}  // namespace tarnwick
