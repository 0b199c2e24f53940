// SPDX-License-Identifier: MIT
// Pictures of paper for tests, and what can be read off their pixels.
#pragma once

#include "effects/PaperSheet.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

namespace tarnwick {

inline QImage painted(const QSize& size, double scale, const QColor& ground,
                      const std::function<void(QPainter&)>& draw) {
  QImage image((QSizeF(size) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  image.fill(ground);
  QPainter painter(&image);
  draw(painter);
  painter.end();
  return image;
}

inline bool isBlank(const QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qAlpha(image.pixel(x, y)) != 0) {
        return false;
      }
    }
  }
  return true;
}

inline double relativeLuminance(double red, double green, double blue) {
  const auto linear = [](double channel) {
    const double share = channel / 255;
    return share <= .04045 ? share / 12.92 : std::pow((share + .055) / 1.055, 2.4);
  };
  return .2126 * linear(red) + .7152 * linear(green) + .0722 * linear(blue);
}

inline double luminance(const QColor& color) {
  return relativeLuminance(255.0 * static_cast<double>(color.redF()), 255.0 * static_cast<double>(color.greenF()),
                           255.0 * static_cast<double>(color.blueF()));
}

inline double contrast(double first, double second) {
  return (std::max(first, second) + .05) / (std::min(first, second) + .05);
}

/// Mean colour of each device row of an area.
inline std::vector<QColor> rowColors(const QImage& image, const QRect& area) {
  std::vector<QColor> rows;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    double red = 0;
    double green = 0;
    double blue = 0;
    for (int x = area.left(); x <= area.right(); ++x) {
      const QColor color = image.pixelColor(x, y);
      red += color.red();
      green += color.green();
      blue += color.blue();
    }
    const double count = 255.0 * area.width();
    rows.push_back(QColor::fromRgbF(static_cast<float>(red / count), static_cast<float>(green / count),
                                    static_cast<float>(blue / count)));
  }
  return rows;
}

/// Mean colour of an area in device-independent pixels.
inline QColor meanColor(const QImage& image, const QRectF& area, double scale) {
  const QRect pixels(static_cast<int>(area.x() * scale), static_cast<int>(area.y() * scale),
                     static_cast<int>(area.width() * scale), static_cast<int>(area.height() * scale));
  double red = 0;
  double green = 0;
  double blue = 0;
  const std::vector<QColor> rows = rowColors(image, pixels);
  for (const QColor& row : rows) {
    red += static_cast<double>(row.redF());
    green += static_cast<double>(row.greenF());
    blue += static_cast<double>(row.blueF());
  }
  const auto count = static_cast<float>(rows.size());
  return QColor::fromRgbF(static_cast<float>(red) / count, static_cast<float>(green) / count,
                          static_cast<float>(blue) / count);
}

inline double worstContrast(const std::vector<QColor>& rows, const QColor& text, double opacity = 1) {
  double worst = 100;
  for (const QColor& row : rows) {
    const auto over = [&](int front, int back) { return opacity * front + (1 - opacity) * back; };
    const double front = relativeLuminance(over(text.red(), row.red()), over(text.green(), row.green()),
                                           over(text.blue(), row.blue()));
    worst = std::min(worst, contrast(front, luminance(row)));
  }
  return worst;
}

}  // namespace tarnwick
