// SPDX-License-Identifier: MIT
#include "effects/LiftedPaperShape.h"

namespace tarnwick {

namespace {

constexpr double kSag = 1.3;         // the lower edge bows up by this much
constexpr double kFlapLength = .74;  // the folded corner looks shorter than it is

}  // namespace

LiftedPaperShape::LiftedPaperShape(const QSizeF& size, double topRadius, double bottomRadius, double peel)
    : m_width(size.width()), m_height(size.height()), m_topRadius(topRadius), m_bottomRadius(bottomRadius),
      m_peel(peel) {}

QPointF LiftedPaperShape::foldTop() const { return {m_width, m_height - m_peel}; }
QPointF LiftedPaperShape::foldFoot() const { return {m_width - 1.22 * m_peel, m_height - .25 * kSag}; }
QPointF LiftedPaperShape::curl() const { return {m_width - .30 * m_peel, m_height - .34 * m_peel}; }

QPainterPath LiftedPaperShape::outline() const {
  QPainterPath path(QPointF(m_topRadius, 0));
  path.lineTo(m_width - m_topRadius, 0);
  path.quadTo(m_width, 0, m_width, m_topRadius);
  if (m_peel > 0) {
    path.lineTo(foldTop());
    path.quadTo(curl(), foldFoot());
    path.quadTo(QPointF(m_width / 2 - 8, m_height - kSag), QPointF(m_bottomRadius, m_height));
  } else {
    path.lineTo(m_width, m_height - m_bottomRadius);
    path.quadTo(m_width, m_height, m_width - m_bottomRadius, m_height);
    path.quadTo(m_width / 2, m_height - 2 * kSag, m_bottomRadius, m_height);
  }
  path.quadTo(0, m_height, 0, m_height - m_bottomRadius);
  path.lineTo(0, m_topRadius);
  path.quadTo(0, 0, m_topRadius, 0);
  path.closeSubpath();
  return path;
}

QPointF LiftedPaperShape::fold() const {
  const QPointF along = foldFoot() - foldTop();
  const QPointF corner(m_width, m_height);
  const double share = QPointF::dotProduct(corner - foldTop(), along) / QPointF::dotProduct(along, along);
  return foldTop() + along * share;
}

QPointF LiftedPaperShape::tip() const {
  const QPointF middle = fold();
  return middle + (middle - QPointF(m_width, m_height)) * kFlapLength;
}

QPainterPath LiftedPaperShape::flap() const {
  if (m_peel <= 0) {
    return {};
  }
  const QPointF corner = tip();
  QPainterPath path(foldTop());
  path.quadTo((foldTop() + corner) / 2 + QPointF(3.2, 1.5), corner);
  path.quadTo((foldFoot() + corner) / 2 + QPointF(2, 3.4), foldFoot());
  path.quadTo(curl(), foldTop());
  path.closeSubpath();
  return path;
}

}  // namespace tarnwick
