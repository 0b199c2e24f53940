// SPDX-License-Identifier: MIT
#include "settings/WelcomePrimaryButton.h"

#include "effects/SoftShadow.h"
#include "effects/Tokens.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>

#include <cmath>

namespace tarnwick {

namespace {
constexpr double kTopRadius = 5;
constexpr double kBottomRadius = 10;
}  // namespace

WelcomePrimaryButton::WelcomePrimaryButton(QWidget* parent) : PaintedButton(parent) {
  auto face = tokens::font(tokens::Type::Primary);
  face.setPixelSize(14);
  setFont(face);
  setHalo({kTopRadius, kBottomRadius, 2, 4, 4.5, .35});
}

QSize WelcomePrimaryButton::sizeHint() const {
  return {static_cast<int>(std::ceil(QFontMetricsF(font()).horizontalAdvance(text()))) + 36, 36};
}

void WelcomePrimaryButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF paper(rect());
  QLinearGradient light(paper.topLeft(), paper.bottomLeft());
  if (isDown()) {
    light.setColorAt(0, QColor(tokens::kAccentPressed));
    light.setColorAt(1, QColor(tokens::kAccentPressed));
  } else {
    light.setColorAt(0, QColor(isHovered() ? 0xFFFFF5C8 : 0xFFFFEFA6));
    light.setColorAt(.6, QColor(isHovered() ? 0xFFFFE88A : tokens::kAccent));
    light.setColorAt(1, QColor(0xFFFFE888));
  }
  painter.fillPath(roundedBox(paper, kTopRadius, kBottomRadius), light);
  painter.setPen(QPen(tokens::white(isDown() ? .2 : .6), 1));
  painter.drawLine(QPointF(kTopRadius, .5), QPointF(paper.right() - kTopRadius, .5));
  painter.setPen(QColor(tokens::kOnAccent));
  painter.setFont(font());
  painter.drawText(isDown() ? paper.translated(0, 1) : paper, static_cast<int>(Qt::AlignCenter), text());
}

}  // namespace tarnwick
