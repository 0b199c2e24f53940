// SPDX-License-Identifier: MIT
// Blurred shadows: shapes drawn into an alpha image, three box passes, tinted black and kept per key.
#pragma once

#include <QImage>
#include <QPainterPath>
#include <QRectF>
#include <QString>

#include <functional>
#include <vector>

class QPainter;

namespace tarnwick {

struct ShadowLayer {
  QPainterPath shape;
  double offset = 0;  // downwards
  double sigma = 0;   // device-independent pixels
  double alpha = 0;
};

/// Blurs an 8-bit alpha image; sigma in its own pixels, more than 63 as 63.
[[nodiscard]] QImage boxBlurred(QImage alpha, double sigma);
/// A blurred outline or filled shape as alpha, over `area`, at a scale.
[[nodiscard]] QImage blurredAlpha(const QRectF& area, double scale, double sigma,
                                  const std::function<void(QPainter&)>& drawn);
/// The colour wherever the alpha image says, as a picture at the scale.
[[nodiscard]] QImage tinted(const QImage& alpha, const QColor& color, double scale);

/// Paints the layers' shadow with its shapes' origin at `origin`. The layers of one key are all alike: they are blurred
/// once per scale.
void paintShadow(QPainter& painter, const QString& key, const QPointF& origin, const std::vector<ShadowLayer>& layers);
/// The shadow of a rounded box, its radii above and below.
void paintBoxShadow(QPainter& painter, const QRectF& rect, double topRadius, double bottomRadius, double offset,
                    double sigma, double alpha);

/// A rectangle with one radius for its upper and one for its lower corners.
[[nodiscard]] QPainterPath roundedBox(const QRectF& rect, double topRadius, double bottomRadius);

}  // namespace tarnwick
