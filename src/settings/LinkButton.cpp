// SPDX-License-Identifier: MIT
#include "settings/LinkButton.h"

#include "effects/Controls.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace tarnwick {

namespace {
constexpr double kSymbol = 14;
constexpr double kGap = 6;
constexpr double kPadding = 6;
}  // namespace

LinkButton::LinkButton(const QString& text, const QString& symbol, QWidget* parent)
    : QPushButton(text, parent), m_symbol(symbol) {
  setFont(tokens::font(tokens::Type::RowTitle));
  setCursor(Qt::PointingHandCursor);
  setAttribute(Qt::WA_Hover);
  setFocusPolicy(Qt::StrongFocus);
  setAutoDefault(true);
}

QSize LinkButton::sizeHint() const {
  const double symbol = m_symbol.isEmpty() ? 0 : kSymbol + kGap;
  const double width = QFontMetricsF(font()).horizontalAdvance(text()) + symbol + 2 * kPadding;
  return {static_cast<int>(std::ceil(width)), 24};
}

void LinkButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor color(isDown() ? tokens::kAccentPressed : tokens::kAccent);
  auto box = QRectF(rect()).adjusted(kPadding, 0, -kPadding, 0);
  if (!m_symbol.isEmpty()) {
    const double x = layoutDirection() == Qt::RightToLeft ? box.right() - kSymbol : box.left();
    Symbols::paint(painter, m_symbol, QRectF(x, (height() - kSymbol) / 2, kSymbol, kSymbol), color);
    if (layoutDirection() == Qt::RightToLeft) {
      box.setRight(box.right() - kSymbol - kGap);
    } else {
      box.setLeft(box.left() + kSymbol + kGap);
    }
  }
  auto face = font();
  face.setUnderline(underMouse());
  painter.setFont(face);
  painter.setPen(color);
  painter.drawText(box, static_cast<int>(Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine), text());
  if (hasFocus()) paintFocusRing(painter, QRectF(rect()).adjusted(0, 1, 0, -1), 7);
}

}  // namespace tarnwick
