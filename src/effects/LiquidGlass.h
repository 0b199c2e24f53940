// SPDX-License-Identifier: MIT
// The board panel's glass: tinted ground, reflections, bright rim, and all of them in order within the panel's outline.
// Nothing here blurs what lies behind the panel.
#pragma once

#include "model/Enumerations.h"

#include <QRectF>

#include <functional>

class QPainter;

namespace tarnwick {

class LiquidGlassBackground {
 public:
  static void paint(QPainter& painter, const QRectF& rect, GlassVariant variant);
};

class LiquidGlassSheen {
 public:
  static void paint(QPainter& painter, const QRectF& rect);
};

class LiquidGlassRim {
 public:
  /// One line inside the outline, fading downwards.
  static void paint(QPainter& painter, const QRectF& rect, double radius);
};

class LiquidGlassBoardModifier {
 public:
  /// Clips the content to the panel's rounded outline and lays the rim over it.
  static void paint(QPainter& painter, const QRectF& rect, double radius, const std::function<void()>& content);
};

}  // namespace tarnwick
