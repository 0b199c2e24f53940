// SPDX-License-Identifier: MIT
#include "effects/ToolButton.h"

#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "model/Color.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

constexpr double kSymbol = 15;
constexpr double kGap = 7;
constexpr double kPadding = 10;

}  // namespace

ToolButton::ToolButton(const QString& symbol, const QString& accessibleName, Plate plate, QWidget* parent)
    : PaintedButton(parent), m_symbol(symbol), m_plate(plate) {
  setAccessibleName(accessibleName);
  setToolTip(accessibleName);
  setFont(tokens::font(tokens::Type::RowTitle));
  connect(this, &QAbstractButton::toggled, this, &ToolButton::updateHalo);
  updateHalo();
}

void ToolButton::setSymbol(const QString& symbol) {
  m_symbol = symbol;
  updateGeometry();
  update();
}

// Only a label that is on lies above the board.
void ToolButton::updateHalo() { setHalo({radius(), radius(), 0, 2, 1.5, isChecked() ? .25 : 0}); }

double ToolButton::radius() const { return m_plate == Plate::Chip ? 9 : 7; }

QSize ToolButton::sizeHint() const {
  if (text().isEmpty()) {
    return m_plate == Plate::Chip ? QSize(36, 36) : QSize(26, 24);
  }
  const double words = QFontMetricsF(font()).horizontalAdvance(text());
  const double sign = m_symbol.isEmpty() ? 0 : kSymbol + kGap;
  return {static_cast<int>(std::ceil(words + sign + 2 * kPadding)), m_plate == Plate::Chip ? 36 : 28};
}

void ToolButton::paintPlate(QPainter& painter) const {
  const QRectF all(rect());
  if (isChecked()) {
    QLinearGradient label(all.topLeft(), all.bottomLeft());
    label.setColorAt(0, QColor(tokens::kLabelTop));
    label.setColorAt(1, Color::blend(QColor(tokens::kLabelTop), QColor(tokens::kLabelBottom), .4));
    painter.setPen(Qt::NoPen);
    painter.setBrush(label);
    painter.drawRoundedRect(all, radius(), radius());
    painter.setPen(QPen(tokens::white(.8), 1));
    painter.drawLine(QPointF(radius(), .5), QPointF(width() - radius(), .5));
    return;
  }
  QColor fill = Qt::transparent;
  if (isDown()) {
    fill = tokens::black(.35);
  } else if (isHovered()) {
    fill = tokens::white(.13);
  } else if (m_plate == Plate::Chip) {
    fill = tokens::white(.075);
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(fill);
  painter.drawRoundedRect(all, radius(), radius());
  if (m_plate == Plate::Chip && !isDown()) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(tokens::white(.05), 1));
    painter.drawRoundedRect(all.adjusted(.5, .5, -.5, -.5), radius() - .5, radius() - .5);
    painter.setPen(QPen(tokens::white(.07), 1));
    painter.drawLine(QPointF(radius(), .5), QPointF(width() - radius(), .5));
  }
}

void ToolButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!isEnabled()) {
    painter.setOpacity(.40);
  }
  paintPlate(painter);
  const QColor sign = isChecked() ? QColor(tokens::kOnLabel) : QColor(tokens::kText2);
  if (text().isEmpty()) {
    const double side = isDown() ? kSymbol - 1 : kSymbol;
    Symbols::paint(painter, m_symbol, QRectF((width() - side) / 2, (height() - side) / 2, side, side), sign);
    return;
  }
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const double room = m_symbol.isEmpty() ? 0 : kSymbol + kGap;
  const double words = std::min(QFontMetricsF(font()).horizontalAdvance(text()) + 1, width() - 2 * kPadding - room);
  // A chip's words start at its edge, a bare button's stand in the middle.
  const double start = m_plate == Plate::Chip ? kPadding : std::max(kPadding - 2, (width() - words - room) / 2);
  const auto placed = [&](double x, double wide) { return isMirrored ? width() - x - wide : x; };
  if (!m_symbol.isEmpty()) {
    Symbols::paint(painter, m_symbol, QRectF(placed(start, kSymbol), (height() - kSymbol) / 2, kSymbol, kSymbol), sign);
  }
  painter.setPen(isChecked() ? QColor(tokens::kOnLabel) : QColor(tokens::kText));
  painter.setFont(font());
  const QString shown = QFontMetricsF(font()).elidedText(text(), Qt::ElideRight, words + 1);
  painter.drawText(QRectF(placed(start + room, words), 0, words + 1, height()),
                   Qt::AlignVCenter | (isMirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute, shown);
}

}  // namespace tarnwick
