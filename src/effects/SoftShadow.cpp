// SPDX-License-Identifier: MIT
#include "effects/SoftShadow.h"

#include "effects/PixmapCache.h"
#include "effects/Tokens.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace tarnwick {

namespace {

PixmapCache& cache() {
  static PixmapCache kept(16384);
  return kept;
}

/// Alpha values in columns of whole chunks, so that the compiler works on a chunk at a time.
struct Columns {
  static constexpr int kChunk = 16;

  Columns(int columns, int rows)
      : width(columns), height(rows), stride((columns + kChunk - 1) / kChunk * kChunk),
        values(static_cast<size_t>(stride) * static_cast<size_t>(rows)) {}
  [[nodiscard]] uchar* row(int y) { return values.data() + static_cast<size_t>(y) * static_cast<size_t>(stride); }
  [[nodiscard]] const uchar* row(int y) const { return values.data() + static_cast<size_t>(y) * static_cast<size_t>(stride); }

  int width;
  int height;
  int stride;
  std::vector<uchar> values;
};

// Each column's moving mean, all columns at once. Sums and shares fit 16 bits up to this radius.
constexpr int kLargestRadius = 63;

void blurColumns(const Columns& from, Columns& to, int radius) {
  constexpr int kChunk = Columns::kChunk;
  const int window = 2 * radius + 1;
  const auto share = static_cast<quint16>((1U << 16U) / static_cast<quint32>(window) + 1);
  std::vector<quint16> sums(static_cast<size_t>(from.stride), static_cast<quint16>(window / 2));
  for (int y = 0; y < std::min(radius, from.height); ++y) {
    std::transform(sums.begin(), sums.end(), from.row(y), sums.begin(),
                   [](quint16 sum, uchar added) { return static_cast<quint16>(sum + added); });
  }
  const std::vector<uchar> none(static_cast<size_t>(from.stride));
  for (int y = 0; y < from.height; ++y) {
    const uchar* added = y + radius < from.height ? from.row(y + radius) : none.data();
    const uchar* gone = y >= radius ? from.row(y - radius) : none.data();
    uchar* mean = to.row(y);
    for (int chunk = 0; chunk < from.stride; chunk += kChunk) {
      // By way of locals: what is written might else be what is read next.
      quint16* sum = sums.data() + chunk;
      std::array<quint16, kChunk> with{};
      std::array<quint16, kChunk> without{};
      for (size_t i = 0; i < kChunk; ++i) with[i] = static_cast<quint16>(sum[i] + added[static_cast<size_t>(chunk) + i]);
      for (size_t i = 0; i < kChunk; ++i) without[i] = static_cast<quint16>(with[i] - gone[static_cast<size_t>(chunk) + i]);
      for (size_t i = 0; i < kChunk; ++i) sum[i] = without[i];
      for (size_t i = 0; i < kChunk; ++i) {
        mean[static_cast<size_t>(chunk) + i] = static_cast<uchar>((static_cast<quint32>(with[i]) * share) >> 16U);
      }
    }
  }
}

Columns blurredColumns(Columns values, int radius) {
  Columns between(values.width, values.height);
  blurColumns(values, between, radius);
  blurColumns(between, values, radius);
  blurColumns(values, between, radius);
  return between;
}

Columns transposed(const Columns& values) {
  Columns turned(values.height, values.width);
  constexpr int kBlock = 32;  // what stays in the cache
  for (int top = 0; top < values.height; top += kBlock) {
    for (int x = 0; x < values.width; ++x) {
      uchar* target = turned.row(x);
      for (int y = top; y < std::min(top + kBlock, values.height); ++y) target[y] = values.row(y)[x];
    }
  }
  return turned;
}

QRectF spread(const std::vector<ShadowLayer>& layers) {
  QRectF all;
  for (const ShadowLayer& layer : layers) {
    const double reach = std::ceil(3 * layer.sigma) + 1;
    all |= layer.shape.boundingRect().translated(0, layer.offset).adjusted(-reach, -reach, reach, reach);
  }
  return {std::floor(all.x()), std::floor(all.y()), std::ceil(all.width()) + 1, std::ceil(all.height()) + 1};
}

QPixmap shadowPixmap(const std::vector<ShadowLayer>& layers, const QRectF& area, double scale) {
  QPixmap pixmap = clearPixmap(area.size(), scale);
  QPainter painter(&pixmap);
  for (const ShadowLayer& layer : layers) {
    const QImage alpha = blurredAlpha(area, scale, layer.sigma, [&](QPainter& into) {
      into.translate(0, layer.offset);
      into.fillPath(layer.shape, Qt::black);
    });
    painter.drawImage(QPointF(0, 0), tinted(alpha, tokens::black(layer.alpha), scale));
  }
  return pixmap;
}

/// The picture as large as wanted, its middle column and row repeated. In device pixels.
void paintStretched(QPainter& painter, const QPoint& at, const QPixmap& picture, const QSize& size) {
  struct Slice {
    int from, fromLength, to, toLength;
  };
  const auto slices = [](int length, int wanted) {
    const int before = length / 2;
    const int after = length - before - 1;
    return std::array{Slice{0, before, 0, before}, Slice{before, 1, before, wanted - before - after},
                      Slice{before + 1, after, wanted - after, after}};
  };
  for (const auto& row : slices(picture.height(), size.height())) {
    for (const auto& column : slices(picture.width(), size.width())) {
      painter.drawPixmap(QRect(at.x() + column.to, at.y() + row.to, column.toLength, row.toLength), picture,
                         QRect(column.from, row.from, column.fromLength, row.fromLength));
    }
  }
}

QPixmap stretched(const QPixmap& picture, const QSizeF& size, double scale) {
  QPixmap whole = clearPixmap(size, scale);
  whole.setDevicePixelRatio(1);
  QPainter painter(&whole);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  paintStretched(painter, {0, 0}, picture, whole.size());
  painter.end();
  whole.setDevicePixelRatio(scale);
  return whole;
}

/// A point is a pixel, somewhere else.
bool isOnPixels(const QTransform& transform) {
  const auto isWhole = [](double length) { return length == std::floor(length); };
  return transform.type() <= QTransform::TxTranslate && isWhole(transform.dx()) && isWhole(transform.dy());
}

QPixmap kept(const QString& key, double scale, const std::function<QPixmap()>& made) {
  return cache().fetch(QStringLiteral("%1 @%2").arg(key).arg(scale), made);
}

}  // namespace

QImage boxBlurred(QImage alpha, double sigma) {
  const int radius = std::min(static_cast<int>(std::lround((std::sqrt(4 * sigma * sigma + 1) - 1) / 2)), kLargestRadius);
  if (radius < 1 || alpha.isNull()) {
    return alpha;
  }
  Columns values(alpha.width(), alpha.height());
  for (int y = 0; y < alpha.height(); ++y) std::copy_n(alpha.constScanLine(y), alpha.width(), values.row(y));
  values = transposed(blurredColumns(transposed(blurredColumns(std::move(values), radius)), radius));
  for (int y = 0; y < alpha.height(); ++y) std::copy_n(values.row(y), alpha.width(), alpha.scanLine(y));
  return alpha;
}

QImage blurredAlpha(const QRectF& area, double scale, double sigma, const std::function<void(QPainter&)>& drawn) {
  QImage alpha(std::max(1, static_cast<int>(std::ceil(area.width() * scale))),
               std::max(1, static_cast<int>(std::ceil(area.height() * scale))), QImage::Format_Alpha8);
  alpha.fill(0);
  {
    QPainter painter(&alpha);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.translate(-area.topLeft());
    drawn(painter);
  }
  return boxBlurred(std::move(alpha), sigma * scale);
}

QImage tinted(const QImage& alpha, const QColor& color, double scale) {
  QImage result(alpha.size(), QImage::Format_ARGB32_Premultiplied);
  std::array<QRgb, 256> shades{};
  for (int level = 0; level < 256; ++level) {
    const int opacity = (level * color.alpha() + 127) / 255;
    shades[static_cast<size_t>(level)] = qPremultiply(qRgba(color.red(), color.green(), color.blue(), opacity));
  }
  for (int y = 0; y < alpha.height(); ++y) {
    const uchar* from = alpha.constScanLine(y);
    auto* to = reinterpret_cast<QRgb*>(result.scanLine(y));
    for (int x = 0; x < alpha.width(); ++x) {
      to[x] = shades[from[x]];
    }
  }
  result.setDevicePixelRatio(scale);
  return result;
}

void paintShadow(QPainter& painter, const QString& key, const QPointF& origin, const std::vector<ShadowLayer>& layers) {
  const QRectF area = spread(layers);
  const double scale = deviceScale(painter);
  painter.drawPixmap(origin + area.topLeft(), kept(key, scale, [&] { return shadowPixmap(layers, area, scale); }));
}

void paintBoxShadow(QPainter& painter, const QRectF& rect, double topRadius, double bottomRadius, double offset,
                    double sigma, double alpha) {
  const double scale = deviceScale(painter);
  const auto layerOf = [&](const QSizeF& size) {
    return ShadowLayer{roundedBox(QRectF(QPointF(0, 0), size), topRadius, bottomRadius), offset, sigma, alpha};
  };
  const auto keyOf = [&](const QSizeF& size) {
    return QStringLiteral("box %1 %2 %3 %4 %5 %6 %7")
        .arg(size.width()).arg(size.height()).arg(topRadius).arg(bottomRadius).arg(offset).arg(sigma).arg(alpha);
  };
  const QRectF area = spread({layerOf(rect.size())});
  const QPointF corner = rect.topLeft() + area.topLeft();
  // Between its corners each side of the shadow is the same all along: only as much as the corners take is blurred.
  const double corners = 2 * (3 * sigma + 1 + std::max(topRadius, bottomRadius)) + 2;
  const auto spare = [&](double length) { return std::max(0.0, std::floor((length - corners) * scale)) / scale; };
  const QSizeF less(spare(rect.width()), spare(rect.height()));
  const QSizeF least = rect.size() - less;
  const QPixmap part = kept(keyOf(least), scale, [&] {
    return shadowPixmap({layerOf(least)}, {area.topLeft(), area.size() - less}, scale);
  });
  if (less.isNull()) {
    painter.drawPixmap(corner, part);
  } else if (isOnPixels(painter.deviceTransform())) {
    const bool wasSmooth = painter.testRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    paintStretched(painter, corner.toPoint(), part, area.size().toSize());
    painter.setRenderHint(QPainter::SmoothPixmapTransform, wasSmooth);
  } else {
    // Drawn larger or turned, nine pieces would show their seams.
    painter.drawPixmap(corner, kept(keyOf(rect.size()), scale, [&] { return stretched(part, area.size(), scale); }));
  }
}

QPainterPath roundedBox(const QRectF& rect, double topRadius, double bottomRadius) {
  const double top = std::min({topRadius, rect.width() / 2, rect.height() / 2});
  const double bottom = std::min({bottomRadius, rect.width() / 2, rect.height() / 2});
  QPainterPath path(QPointF(rect.left() + top, rect.top()));
  path.lineTo(rect.right() - top, rect.top());
  path.arcTo(QRectF(rect.right() - 2 * top, rect.top(), 2 * top, 2 * top), 90, -90);
  path.lineTo(rect.right(), rect.bottom() - bottom);
  path.arcTo(QRectF(rect.right() - 2 * bottom, rect.bottom() - 2 * bottom, 2 * bottom, 2 * bottom), 0, -90);
  path.lineTo(rect.left() + bottom, rect.bottom());
  path.arcTo(QRectF(rect.left(), rect.bottom() - 2 * bottom, 2 * bottom, 2 * bottom), 270, -90);
  path.lineTo(rect.left(), rect.top() + top);
  path.arcTo(QRectF(rect.left(), rect.top(), 2 * top, 2 * top), 180, -90);
  path.closeSubpath();
  return path;
}

}  // namespace tarnwick
