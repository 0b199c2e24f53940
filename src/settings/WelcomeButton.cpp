// SPDX-License-Identifier: MIT
#include "settings/WelcomeButton.h"

#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace tarnwick {

namespace {
constexpr double kRadius = 8;
constexpr double kSymbol = 15;
constexpr double kGap = 6;
}  // namespace

WelcomeButton::WelcomeButton(const QString& text, const QString& symbol, int height, QWidget* parent)
    : PaintedButton(parent), m_symbol(symbol), m_height(height) {
  setText(text);
  setFont(tokens::font(tokens::Type::RowTitle));
  setHalo({kRadius, kRadius, 2, 0, 0, 0});
}

double WelcomeButton::contentWidth() const {
  return QFontMetricsF(font()).horizontalAdvance(text()) + (m_symbol.isEmpty() ? 0 : kSymbol + kGap);
}

QSize WelcomeButton::sizeHint() const {
  return {static_cast<int>(std::ceil(contentWidth())) + (m_symbol.isEmpty() ? 32 : 22), m_height};
}

void WelcomeButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF plate(rect());
  painter.setPen(Qt::NoPen);
  painter.setBrush(isDown() ? tokens::black(.35) : tokens::white(isHovered() ? .15 : m_symbol.isEmpty() ? .09 : .12));
  painter.drawRoundedRect(plate, kRadius, kRadius);
  painter.setPen(QPen(tokens::white(isDown() ? .03 : .08), 1));
  painter.drawLine(QPointF(kRadius, .5), QPointF(plate.right() - kRadius, .5));

  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  QRectF content(plate.center().x() - contentWidth() / 2, 0, contentWidth(), plate.height());
  if (isDown()) content.translate(0, 1);
  if (!m_symbol.isEmpty()) {
    const double x = isMirrored ? content.right() - kSymbol : content.left();
    Symbols::paint(painter, m_symbol, QRectF(x, content.center().y() - kSymbol / 2, kSymbol, kSymbol),
                   QColor(tokens::kText));
  }
  painter.setPen(QColor(tokens::kText));
  painter.setFont(font());
  // Absolute alignment: the symbol's side is the other one.
  painter.drawText(content, static_cast<int>(Qt::AlignVCenter | Qt::AlignAbsolute |
                                             (isMirrored ? Qt::AlignLeft : Qt::AlignRight)),
                   text());
}

}  // namespace tarnwick
