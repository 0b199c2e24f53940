// SPDX-License-Identifier: MIT
// Desktop coordinates: device-independent pixels, origin at the bottom-left of the primary screen, y up.
// Every placement rule is written in them; DesktopSpace is the one place that converts to Qt's top-left coordinates.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QString>

#include <optional>

namespace tarnwick {

struct DesktopPoint {
  double x = 0;
  double y = 0;
  bool operator==(const DesktopPoint&) const = default;
};

struct DesktopSize {
  double width = 0;
  double height = 0;
  bool operator==(const DesktopSize&) const = default;
};

struct DesktopRect {
  double x = 0;  // left edge
  double y = 0;  // bottom edge
  double width = 0;
  double height = 0;
  bool operator==(const DesktopRect&) const = default;

  [[nodiscard]] double minX() const { return x; }
  [[nodiscard]] double minY() const { return y; }
  [[nodiscard]] double midX() const { return x + width / 2; }
  [[nodiscard]] double midY() const { return y + height / 2; }
  [[nodiscard]] double maxX() const { return x + width; }
  [[nodiscard]] double maxY() const { return y + height; }
  [[nodiscard]] DesktopPoint origin() const { return {x, y}; }
  [[nodiscard]] DesktopPoint center() const { return {midX(), midY()}; }
  [[nodiscard]] DesktopSize size() const { return {width, height}; }
  [[nodiscard]] bool isEmpty() const { return width <= 0 || height <= 0; }
  /// The lower and left edges belong to the rectangle, the others do not.
  [[nodiscard]] bool contains(DesktopPoint point) const {
    return point.x >= x && point.x < maxX() && point.y >= y && point.y < maxY();
  }
  /// Empty when they only touch.
  [[nodiscard]] DesktopRect intersected(const DesktopRect& other) const;
  [[nodiscard]] bool intersects(const DesktopRect& other) const { return !intersected(other).isEmpty(); }
};

/// "{{x, y}, {width, height}}", the stored form of a rectangle.
[[nodiscard]] QString toText(const DesktopRect& rect);
/// Nothing when the text is not of that form.
[[nodiscard]] std::optional<DesktopRect> rectFromText(const QString& text);

class DesktopSpace final {
 public:
  /// `primaryHeight`: height of the primary screen, whose top-left is Qt's origin.
  explicit DesktopSpace(double primaryHeight) : m_primaryHeight(primaryHeight) {}

  [[nodiscard]] QPointF toQt(DesktopPoint point) const { return {point.x, m_primaryHeight - point.y}; }
  [[nodiscard]] QRectF toQt(const DesktopRect& r) const { return {r.x, m_primaryHeight - r.maxY(), r.width, r.height}; }
  [[nodiscard]] DesktopPoint fromQt(QPointF point) const { return {point.x(), m_primaryHeight - point.y()}; }
  [[nodiscard]] DesktopRect fromQt(const QRectF& r) const {
    return {r.x(), m_primaryHeight - r.y() - r.height(), r.width(), r.height()};
  }

 private:
  double m_primaryHeight;
};

}  // namespace tarnwick
