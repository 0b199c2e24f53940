// SPDX-License-Identifier: MIT
// The ragged lower edge of a note that smoulders: its line, the scorched paper above it and the embers on it.
#pragma once

#include <QPainterPath>
#include <QPolygonF>
#include <QSizeF>

class QPainter;

namespace tarnwick {

/// Coordinates of the sheet, origin at its top left corner.
class BurntEdge {
 public:
  BurntEdge(const QSizeF& size, quint32 seed);

  /// From the right edge of the sheet to its left one.
  [[nodiscard]] const QPolygonF& line() const { return m_line; }
  [[nodiscard]] QPainterPath outline(double topRadius) const;
  /// Brown and black over the last stretch of paper; the painter is clipped to the outline by the caller.
  void paintScorch(QPainter& painter) const;
  /// Char and embers along the line.
  void paintEmbers(QPainter& painter) const;
  /// The light around the embers at a strength of 0 to 1; kept as a picture.
  void paintGlow(QPainter& painter, double strength) const;

 private:
  [[nodiscard]] QPainterPath linePath() const;
  void paintFire(QPainter& painter) const;

  QSizeF m_size;
  quint32 m_seed;
  QPolygonF m_line;
};

}  // namespace tarnwick
