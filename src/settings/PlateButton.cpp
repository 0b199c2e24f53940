// SPDX-License-Identifier: MIT
#include "settings/PlateButton.h"

#include "effects/Controls.h"
#include "effects/Tokens.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {
constexpr double kRadius = 8;
constexpr double kGap = 8;
}  // namespace

PlateButton::PlateButton(const QString& text, QWidget* parent) : QPushButton(text, parent) {
  setFont(tokens::font(tokens::Type::RowTitle));
  setAttribute(Qt::WA_Hover);
  setFocusPolicy(Qt::StrongFocus);
  setAutoDefault(true);
}

QSize PlateButton::sizeHint() const {
  double width = QFontMetricsF(font()).horizontalAdvance(word()) + 2 * sidePadding() + 2 * kRingRoom;
  if (!leadingSize().isEmpty()) width += leadingSize().width() + kGap;
  if (!trailingSize().isEmpty()) width += trailingSize().width() + kGap;
  return {static_cast<int>(std::ceil(width)), 30 + 2 * kRingRoom};
}

void PlateButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!isEnabled()) painter.setOpacity(.40);
  auto plate = QRectF(rect()).adjusted(kRingRoom, kRingRoom, -kRingRoom, -kRingRoom);
  if (isDown()) plate.translate(0, 1);

  painter.setPen(Qt::NoPen);
  painter.setBrush(tokens::black(.22));
  painter.drawRoundedRect(plate.translated(0, 1), kRadius, kRadius);
  painter.setBrush(QColor(tokens::kField));
  painter.drawRoundedRect(plate, kRadius, kRadius);
  if (isDown() || underMouse()) {
    painter.setBrush(isDown() ? tokens::black(.25) : tokens::white(.05));
    painter.drawRoundedRect(plate, kRadius, kRadius);
  }
  painter.setPen(QPen(tokens::white(.10), 1));
  painter.drawLine(QPointF(plate.left() + kRadius, plate.top() + .5), QPointF(plate.right() - kRadius, plate.top() + .5));

  const auto lead = leadingSize();
  const auto trail = trailingSize();
  const double content = QFontMetricsF(font()).horizontalAdvance(word()) +
                         (lead.isEmpty() ? 0 : lead.width() + kGap) + (trail.isEmpty() ? 0 : trail.width() + kGap);
  // A button with something behind its word reads from its edge; any other is centred.
  double x = trail.isEmpty() ? plate.center().x() - content / 2 : plate.left() + sidePadding();
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const auto placed = [&](QRectF box) {
    if (isMirrored) box.moveLeft(width() - box.right());
    return box;
  };
  if (!lead.isEmpty()) {
    paintLeading(painter, placed(QRectF(QPointF(x, plate.center().y() - lead.height() / 2), lead)));
    x += lead.width() + kGap;
  }
  double right = plate.right() - sidePadding();
  if (!trail.isEmpty()) {
    paintTrailing(painter, placed(QRectF(QPointF(right - trail.width(), plate.center().y() - trail.height() / 2), trail)));
    right -= trail.width() + kGap;
  }
  painter.setPen(QColor(tokens::kText));
  painter.setFont(font());
  const auto flags = Qt::AlignVCenter | (trail.isEmpty() && lead.isEmpty() ? Qt::AlignHCenter
                                         : isMirrored                      ? Qt::AlignRight
                                                                           : Qt::AlignLeft);
  const auto box = trail.isEmpty() && lead.isEmpty() ? plate
                                                     : placed(QRectF(x, plate.top(), plate.right() - x, plate.height()));
  painter.drawText(box, static_cast<int>(flags | Qt::TextSingleLine), word());
  if (hasFocus()) {
    painter.setOpacity(1);
    paintFocusRing(painter, plate.adjusted(-kRingRoom, -kRingRoom, kRingRoom, kRingRoom), kRadius + kRingRoom);
  }
}

}  // namespace tarnwick
