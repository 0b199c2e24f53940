// SPDX-License-Identifier: MIT
#include "settings/SoundPreviewButton.h"

#include "effects/Tokens.h"

#include <QPainter>

namespace tarnwick {

void SoundPreviewButton::paintLeading(QPainter& painter, const QRectF& box) const {
  painter.setPen(QPen(QColor(tokens::kAccent), 1.8, Qt::SolidLine, Qt::RoundCap));
  double x = box.left() + 2;
  for (const double bar : m_bars) {
    painter.drawLine(QPointF(x, box.center().y() - bar), QPointF(x, box.center().y() + bar));
    x += 3.3;
  }
}

}  // namespace tarnwick
