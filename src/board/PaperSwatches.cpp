// SPDX-License-Identifier: MIT
#include "board/PaperSwatches.h"

#include "effects/Controls.h"
#include "effects/SoftShadow.h"
#include "effects/Tokens.h"
#include "model/Color.h"

#include <QPainter>
#include <QPainterPath>

#include <random>

namespace tarnwick {
namespace {

constexpr double kSide = 22;
constexpr double kGap = 6;

QRectF sheetRect(int index) {
  return {ColorSwatches::kMargin + index * (kSide + kGap), ColorSwatches::kMargin, kSide, kSide};
}

QSize rowSize(int count) {
  return {static_cast<int>(count * (kSide + kGap) - kGap) + 2 * ColorSwatches::kMargin,
          static_cast<int>(kSide) + 2 * ColorSwatches::kMargin};
}

void paintRings(QPainter& painter, const QRectF& rect, bool isCurrent, bool isHovered, bool hasFocus) {
  painter.setBrush(Qt::NoBrush);
  if (isCurrent) {
    painter.setPen(QPen(hasFocus ? QColor::fromRgb(tokens::kAccent) : QColor(Qt::white), 2));
    painter.drawRoundedRect(rect.adjusted(-3, -3, 3, 3), 7, 7);
  } else if (isHovered) {
    painter.setPen(QPen(tokens::white(0.45), 1));
    painter.drawRoundedRect(rect.adjusted(-2.5, -2.5, 2.5, 2.5), 6.5, 6.5);
  }
}

}  // namespace

ColorSwatches::ColorSwatches(QWidget* parent) : ChoiceRow(tr("Paper colour"), parent) {
  resize(sizeHint());
}

int ColorSwatches::count() const {
  return static_cast<int>(kPaperPalette.size());
}

QString ColorSwatches::colorHex() const {
  return current() >= 0 && current() < count() ? kPaperPalette[static_cast<std::size_t>(current())] : QString();
}

void ColorSwatches::setColorHex(const QString& colorHex) {
  const auto* const found = std::find(kPaperPalette.begin(), kPaperPalette.end(), colorHex);
  setCurrent(found == kPaperPalette.end() ? -1 : static_cast<int>(found - kPaperPalette.begin()));
}

QString ColorSwatches::itemName(int index) const {
  return paperColorName(kPaperPalette[static_cast<std::size_t>(index)]);
}

QRectF ColorSwatches::itemRect(int index) const {
  return mirrored(sheetRect(index));
}

QSize ColorSwatches::sizeHint() const {
  return rowSize(count());
}

void ColorSwatches::paintItem(QPainter& painter, int index, const ItemState& state) {
  const QRectF rect = itemRect(index);
  const QColor color = Color::fromHex(kPaperPalette[static_cast<std::size_t>(index)]);
  paintBoxShadow(painter, rect, 3, 6, 1, 1, 0.45);
  QLinearGradient fill(rect.topLeft(), rect.bottomLeft());
  fill.setColorAt(0, Color::blend(color, Qt::white, 0.3));
  fill.setColorAt(0.7, color);
  painter.fillPath(roundedBox(rect, 3, 6), fill);
  painter.setPen(QPen(tokens::white(0.5), 1));
  painter.drawLine(QPointF(rect.left() + 3, rect.top() + 0.5), QPointF(rect.right() - 3, rect.top() + 0.5));
  paintRings(painter, rect, state.isCurrent, state.isHovered, state.hasFocus);
}

ThemeChips::ThemeChips(QWidget* parent) : ChoiceRow(tr("Paper theme"), parent), m_colorHex(kPaperPalette[0]) {
  resize(sizeHint());
}

void ThemeChips::setTheme(PaperTheme theme) {
  const auto* const found = std::find(kPaperThemes.begin(), kPaperThemes.end(), theme);
  setCurrent(static_cast<int>(found - kPaperThemes.begin()));
}

void ThemeChips::setColorHex(const QString& colorHex) {
  m_colorHex = colorHex;
  update();
}

QString ThemeChips::itemName(int index) const {
  return label(kPaperThemes[static_cast<std::size_t>(index)]);
}

QRectF ThemeChips::itemRect(int index) const {
  return mirrored(sheetRect(index));
}

QSize ThemeChips::sizeHint() const {
  return rowSize(count());
}

void ThemeChips::paintItem(QPainter& painter, int index, const ItemState& state) {
  const QRectF rect = itemRect(index);
  const QColor color = Color::fromHex(m_colorHex);
  paintBoxShadow(painter, rect, 3, 6, 1, 1, 0.45);
  painter.save();
  painter.setClipPath(roundedBox(rect, 3, 6));
  painter.fillRect(rect, Color::blend(color, Qt::white, 0.12));
  painter.translate(rect.topLeft());
  switch (kPaperThemes[static_cast<std::size_t>(index)]) {
    case PaperTheme::plain:
      break;
    case PaperTheme::graph:
      painter.setPen(QPen(tokens::black(0.28), 0.8));
      for (const double at : {5.5, 11.0, 16.5}) {
        painter.drawLine(QPointF(at, 0), QPointF(at, kSide));
        painter.drawLine(QPointF(0, at), QPointF(kSide, at));
      }
      break;
    case PaperTheme::lined:
      painter.setPen(QPen(tokens::black(0.26), 0.8));
      for (const double at : {7.0, 11.4, 15.8, 20.2}) painter.drawLine(QPointF(0, at), QPointF(kSide, at));
      painter.setPen(QPen(tokens::faded(QColor::fromRgb(0xDD3333), 0.6), 1));
      painter.drawLine(QPointF(5.5, 0), QPointF(5.5, kSide));
      break;
    case PaperTheme::parchment: {
      std::minstd_rand random(8);
      std::uniform_real_distribution<double> unit(0, 1);
      painter.setPen(Qt::NoPen);
      painter.setBrush(tokens::black(0.32));
      for (int i = 0; i < 24; ++i) {
        const double r = 0.5 + unit(random) * 0.7;
        painter.drawEllipse(QPointF(unit(random) * kSide, unit(random) * kSide), r, r);
      }
      painter.setBrush(Qt::NoBrush);
      painter.setPen(QPen(tokens::faded(QColor::fromRgb(0x6B3E12), 0.4), 4));
      painter.drawRect(QRectF(0, 0, kSide, kSide));
      break;
    }
    case PaperTheme::construction: {
      QPainterPath frame;
      frame.setFillRule(Qt::OddEvenFill);
      frame.addRect(QRectF(0, 0, kSide, kSide));
      frame.addRect(QRectF(3.3, 3.3, kSide - 6.6, kSide - 6.6));
      painter.fillPath(frame, Color::blend(color, QColor::fromRgb(0x120C09), 0.83));
      painter.setPen(QPen(tokens::white(0.5), 0.8));
      painter.drawLine(QPointF(6.5, 7.5), QPointF(10, 8.4));
      painter.drawLine(QPointF(12, 12.5), QPointF(15.5, 10.7));
      painter.drawLine(QPointF(7.5, 15.3), QPointF(10.2, 13.6));
      break;
    }
  }
  painter.restore();
  paintRings(painter, rect, state.isCurrent, state.isHovered, state.hasFocus);
}

}  // namespace tarnwick
