// SPDX-License-Identifier: MIT
// Outline of a sheet of paper, flat or with its lower trailing corner peeled up, and the flap that the peel shows.
#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QSizeF>

namespace tarnwick {

/// All shapes have their origin at the sheet's top left corner and peel at the right.
class LiftedPaperShape {
 public:
  /// `peel`: length of the lifted edge; 0 = the sheet lies flat.
  LiftedPaperShape(const QSizeF& size, double topRadius, double bottomRadius, double peel);

  [[nodiscard]] QPainterPath outline() const;
  /// The back of the corner, folded over the sheet; empty while flat.
  [[nodiscard]] QPainterPath flap() const;
  /// Middle of the fold, and the folded corner's tip: the line along which the flap is shaded.
  [[nodiscard]] QPointF fold() const;
  [[nodiscard]] QPointF tip() const;

 private:
  [[nodiscard]] QPointF foldTop() const;
  [[nodiscard]] QPointF foldFoot() const;
  [[nodiscard]] QPointF curl() const;

  double m_width;
  double m_height;
  double m_topRadius;
  double m_bottomRadius;
  double m_peel;
};

}  // namespace tarnwick
