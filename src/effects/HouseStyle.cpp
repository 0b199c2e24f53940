// SPDX-License-Identifier: MIT
#include "effects/HouseStyle.h"

#include "effects/Tokens.h"

#include <QPainter>
#include <QStyleOption>
#include <QWidget>

namespace tarnwick {

namespace {
constexpr double kRadius = 6;
constexpr int kPadding = 5;
}  // namespace

void HouseStyle::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  if (widget->inherits("QTipLabel")) widget->setAttribute(Qt::WA_TranslucentBackground);
}

void HouseStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  if (element != PE_PanelTipLabel) {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    return;
  }
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(QPen(tokens::white(0.13), 1));
  painter->setBrush(option->palette.toolTipBase());
  painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
  painter->restore();
}

int HouseStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  return metric == PM_ToolTipLabelFrameWidth ? kPadding : QProxyStyle::pixelMetric(metric, option, widget);
}

}  // namespace tarnwick
