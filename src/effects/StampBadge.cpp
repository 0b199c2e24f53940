// SPDX-License-Identifier: MIT
#include "effects/StampBadge.h"

#include "effects/SoftShadow.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace tarnwick {

namespace {

constexpr double kHeight = 18;
constexpr double kRadius = 3.5;
constexpr double kMark = 9;
constexpr double kMarkGap = 3.5;
constexpr double kLeading = 6.4;  // border included
constexpr double kTrailing = 7.4;

QString mark(TaskStamp stamp) {
  switch (stamp) {
    case TaskStamp::none: return {};
    case TaskStamp::urgent: return QStringLiteral("bang");
    case TaskStamp::focus: return QStringLiteral("target");
    case TaskStamp::priority: return QStringLiteral("chevrons");
    case TaskStamp::star: return QStringLiteral("star");
    case TaskStamp::idea: return QStringLiteral("bulb");
    case TaskStamp::approved: return QStringLiteral("check");
  }
  return {};
}

}  // namespace

QSizeF StampBadgeView::size(TaskStamp stamp) {
  if (stamp == TaskStamp::none) {
    return {};
  }
  const QFontMetricsF metrics(tokens::font(tokens::Type::Stamp));
  const double text = metrics.horizontalAdvance(label(stamp));
  return {std::ceil(kLeading + kMark + kMarkGap + text + kTrailing), kHeight};
}

void StampBadgeView::paint(QPainter& painter, TaskStamp stamp, const QPointF& center, double angle,
                           StampGround ground) {
  if (stamp == TaskStamp::none) {
    return;
  }
  const QSizeF whole = size(stamp);
  const QRectF box(QPointF(-whole.width() / 2, -whole.height() / 2), whole);
  const QColor tint = tintColor(stamp);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(center);
  painter.rotate(angle);
  paintBoxShadow(painter, box, kRadius, kRadius, .5, .6, .22);
  const QColor paper =
      ground == StampGround::Menu ? QColor(0xFF, 0xF3, 0xDA) : tokens::faded(QColor(0xFF, 0xF8, 0xE7), .84);
  painter.setPen(Qt::NoPen);
  painter.setBrush(paper);
  painter.drawRoundedRect(box, kRadius, kRadius);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(tint, 1.4));
  painter.drawRoundedRect(box.adjusted(.7, .7, -.7, -.7), kRadius - .7, kRadius - .7);
  painter.setPen(QPen(tokens::faded(tint, .75), .6));
  painter.drawRoundedRect(box.adjusted(3.3, 3.3, -3.3, -3.3), 1, 1);

  const QRectF marking(box.left() + kLeading, box.center().y() - kMark / 2, kMark, kMark);
  Symbols::paint(painter, mark(stamp), marking, tint);
  const QFont face = tokens::font(tokens::Type::Stamp);
  const QFontMetricsF metrics(face);
  painter.setFont(face);
  painter.setPen(tint);
  painter.drawText(QPointF(marking.right() + kMarkGap, box.center().y() + metrics.capHeight() / 2), label(stamp));
  painter.restore();
}

}  // namespace tarnwick
