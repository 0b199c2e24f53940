// SPDX-License-Identifier: MIT
#include "effects/PrimaryButton.h"

#include "effects/SoftShadow.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

constexpr double kSymbol = 14;
constexpr double kGap = 6;
constexpr double kTopRadius = 4;
constexpr double kBottomRadius = 8;

QColor lighter(QRgb color) {
  const QColor given(color);
  return QColor(std::min(255, given.red() * 105 / 100), std::min(255, given.green() * 105 / 100),
                std::min(255, given.blue() * 105 / 100));
}

}  // namespace

PrimaryButton::PrimaryButton(const QString& text, const QString& symbol, QWidget* parent)
    : PaintedButton(parent), m_symbol(symbol) {
  setText(text);
  setFont(tokens::font(tokens::Type::Primary));
  setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
  updateHalo();
}

double PrimaryButton::contentWidth() const {
  const double words = text().isEmpty() ? 0 : QFontMetricsF(font()).horizontalAdvance(text());
  const double sign = m_symbol.isEmpty() ? 0 : kSymbol;
  return words + sign + (words > 0 && sign > 0 ? kGap : 0);
}

QSize PrimaryButton::sizeHint() const {
  const int height = std::max(30, static_cast<int>(std::ceil(QFontMetricsF(font()).height())) + 12);
  return {static_cast<int>(std::ceil(contentWidth())) + (m_symbol.isEmpty() ? 28 : 24), height};
}

bool PrimaryButton::event(QEvent* event) {
  const bool isTaken = PaintedButton::event(event);
  switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverLeave:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::KeyPress:
    case QEvent::KeyRelease: updateHalo(); break;
    default: break;
  }
  return isTaken;
}

void PrimaryButton::updateHalo() {
  ControlHalo::Look look{kTopRadius, kBottomRadius, 2, 3, 3.5, .32};
  if (isDown()) {
    look.shadowOffset = 1;
    look.shadowSigma = 1;
  } else if (isHovered()) {
    look.shadowOffset = 5;
    look.shadowSigma = 6;
    look.shadowAlpha = .40;
  }
  setHalo(look);
}

void PrimaryButton::paintPaper(QPainter& painter, const QRectF& paper) const {
  const QPainterPath outline = roundedBox(paper, kTopRadius, kBottomRadius);
  if (!isEnabled()) {
    painter.fillPath(outline, tokens::white(.07));
    painter.strokePath(roundedBox(paper.adjusted(.5, .5, -.5, -.5), kTopRadius - .5, kBottomRadius - .5),
                       QPen(tokens::white(.08), 1));
    return;
  }
  if (isDown()) {
    painter.fillPath(outline, QColor(tokens::kAccentPressed));
    painter.save();
    painter.setClipPath(outline, Qt::IntersectClip);
    QLinearGradient inner(paper.topLeft(), paper.topLeft() + QPointF(0, 4));
    inner.setColorAt(0, QColor(90, 60, 0, 90));
    inner.setColorAt(1, QColor(90, 60, 0, 0));
    painter.fillRect(paper, inner);
    painter.restore();
    return;
  }
  QLinearGradient sheet(paper.topLeft(), paper.bottomLeft());
  const bool isLit = isHovered();
  sheet.setColorAt(0, isLit ? lighter(0xFFFFEFA6) : QColor(0xFF, 0xEF, 0xA6));
  sheet.setColorAt(.6, isLit ? lighter(tokens::kAccent) : QColor(tokens::kAccent));
  sheet.setColorAt(1, isLit ? lighter(0xFFFFE888) : QColor(0xFF, 0xE8, 0x88));
  painter.fillPath(outline, sheet);
  painter.setPen(QPen(tokens::white(isLit ? .9 : .6), 1));
  painter.drawLine(QPointF(paper.left() + kTopRadius, paper.top() + .5),
                   QPointF(paper.right() - kTopRadius, paper.top() + .5));
}

void PrimaryButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double shift = !isEnabled() ? 0 : isDown() ? 1 : isHovered() ? -1 : 0;
  const QRectF paper = QRectF(rect()).adjusted(0, std::max(0.0, shift), 0, std::min(0.0, shift));
  paintPaper(painter, paper);

  const QColor ink = isEnabled() ? QColor(tokens::kOnAccent) : QColor(0x8B, 0x87, 0x80);
  double x = (width() - contentWidth()) / 2;
  const double middle = height() / 2.0 + shift;
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const double words = text().isEmpty() ? 0 : QFontMetricsF(font()).horizontalAdvance(text());
  if (!m_symbol.isEmpty()) {
    const double side = text().isEmpty() ? kSymbol + 2 : kSymbol;
    const double left = isMirrored && words > 0 ? x + words + kGap : text().isEmpty() ? (width() - side) / 2 : x;
    Symbols::paint(painter, m_symbol, QRectF(left, middle - side / 2, side, side), ink);
    x += isMirrored ? 0 : kSymbol + kGap;
  }
  painter.setPen(ink);
  painter.setFont(font());
  painter.drawText(QRectF(x, shift, words + 2, height()),
                   Qt::AlignVCenter | Qt::AlignLeft | Qt::AlignAbsolute | Qt::TextSingleLine, text());
}

}  // namespace tarnwick
