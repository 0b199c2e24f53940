// SPDX-License-Identifier: MIT
// The style below all widgets: Qt's own, but for tool tips, which nobody else can shape. Colours and face of tool
// tips are set by styleToolTips().
#pragma once

#include <QProxyStyle>

namespace tarnwick {

class HouseStyle final : public QProxyStyle {
  Q_OBJECT

 public:
  HouseStyle() : QProxyStyle(QStringLiteral("fusion")) {}

  using QProxyStyle::polish;
  void polish(QWidget* widget) override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
};

}  // namespace tarnwick
