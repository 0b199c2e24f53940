// SPDX-License-Identifier: MIT
#include "effects/SwitchButton.h"

#include "effects/SoftShadow.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace tarnwick {

SwitchButton::SwitchButton(const QString& accessibleName, QWidget* parent) : PaintedButton(parent) {
  setCheckable(true);
  setAccessibleName(accessibleName);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setHalo({12, 12, 2, 0, 0, 0});
}

void SwitchButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!isEnabled()) {
    painter.setOpacity(.40);
  }
  QRectF groove(0, 0, 40, 24);
  groove.moveCenter(QRectF(rect()).center());
  QPainterPath outline;
  outline.addRoundedRect(groove, 12, 12);
  painter.fillPath(outline, isChecked() ? QColor(tokens::kAccent) : QColor(0x15, 0x16, 0x1A));
  painter.save();
  painter.setClipPath(outline);
  QLinearGradient depth(groove.topLeft(), groove.topLeft() + QPointF(0, 3));
  depth.setColorAt(0, tokens::black(isChecked() ? .22 : .55));
  depth.setColorAt(1, tokens::black(0));
  painter.fillRect(groove, depth);
  painter.restore();
  if (!isChecked()) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(tokens::white(isHovered() ? .45 : .30), 1));
    painter.drawRoundedRect(groove.adjusted(.5, .5, -.5, -.5), 11.5, 11.5);
  } else if (isHovered()) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(tokens::black(.45), 1));
    painter.drawRoundedRect(groove.adjusted(.5, .5, -.5, -.5), 11.5, 11.5);
  }

  const bool isAtRight = isChecked() != (layoutDirection() == Qt::RightToLeft);
  const double wide = isDown() ? 20 : 18;
  const QRectF knob(isAtRight ? groove.right() - 3 - wide : groove.left() + 3, groove.top() + 3, wide, 18);
  paintBoxShadow(painter, knob, 9, 9, 1, .9, .60);
  QLinearGradient shade(knob.topLeft(), knob.bottomLeft());
  shade.setColorAt(0, isChecked() ? QColor(0x4A, 0x42, 0x20) : QColor(0xE9, 0xE4, 0xDA));
  shade.setColorAt(1, isChecked() ? QColor(tokens::kOnAccent) : QColor(0xBD, 0xB7, 0xAB));
  painter.setPen(Qt::NoPen);
  painter.setBrush(shade);
  painter.drawRoundedRect(knob, 9, 9);
  if (isChecked()) {
    const double tick = isAtRight ? groove.left() + 6 : groove.right() - 16;
    Symbols::paint(painter, QStringLiteral("check"), QRectF(tick, groove.top() + 7, 10, 10), QColor(tokens::kOnAccent));
  }
}

}  // namespace tarnwick
