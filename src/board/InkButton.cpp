// SPDX-License-Identifier: MIT
#include "board/InkButton.h"

#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace tarnwick {

InkButton::InkButton(const QString& symbol, const QString& accessibleName, Plate plate, QWidget* parent)
    : PaintedButton(parent), m_symbol(symbol), m_plate(plate), m_ink(QColor::fromRgb(tokens::kOnLabel2)) {
  setAccessibleName(accessibleName);
  QFont font = tokens::font(tokens::Type::RowTitle);
  font.setPixelSize(12);
  setFont(font);
  setHalo({6, 6, 0, 0, 0, 0});
}

void InkButton::setSymbol(const QString& symbol) {
  m_symbol = symbol;
  update();
}

void InkButton::setInk(const QColor& ink) {
  m_ink = ink;
  update();
}

QSize InkButton::sizeHint() const {
  if (text().isEmpty()) return {26, 26};
  const double sign = m_symbol.isEmpty() ? 2 : 13 + 5;
  return {static_cast<int>(std::ceil(7 + sign + QFontMetricsF(font()).horizontalAdvance(text()) + 9)), 24};
}

void InkButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF all(rect());
  if (m_plate == Plate::Chip) {
    painter.setPen(QPen(tokens::black(0.14), 0.5));
    painter.setBrush(tokens::white(isDown() ? 0.25 : isHovered() ? 0.60 : 0.40));
    painter.drawRoundedRect(all.adjusted(0.25, 0.25, -0.25, -0.25), 6, 6);
  } else if (isDown() || isHovered()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(tokens::black(isDown() ? 0.16 : 0.08));
    painter.drawRoundedRect(all, 6, 6);
  }
  if (text().isEmpty()) {
    Symbols::paint(painter, m_symbol, QRectF(all.center().x() - 6.5, all.center().y() - 6.5, 13, 13), m_ink);
    return;
  }
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  painter.setFont(font());
  painter.setPen(m_ink);
  if (m_symbol.isEmpty()) {
    painter.drawText(all, Qt::AlignCenter, text());
    return;
  }
  const double symbolX = isMirrored ? all.right() - 7 - 13 : 7;
  Symbols::paint(painter, m_symbol, QRectF(symbolX, all.center().y() - 6.5, 13, 13), m_ink);
  painter.drawText(isMirrored ? all.adjusted(8, 0, -25, 0) : all.adjusted(25, 0, -6, 0),
                   int(Qt::AlignVCenter) | int(isMirrored ? Qt::AlignRight : Qt::AlignLeft), text());
}

}  // namespace tarnwick
