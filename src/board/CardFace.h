// SPDX-License-Identifier: MIT
// A card's picture: everything that lies on the paper of a note on the board, and where its parts are.
// Plain values in, a pixmap out; what moves or reacts (circle, bar, ring, glow) is painted over it by the wall.
#pragma once

#include "board/CardParts.h"
#include "board/StickyChecklistBody.h"
#include "effects/PaperSheet.h"

#include <QIcon>
#include <QPixmap>

#include <optional>

namespace tarnwick {

struct CardFace {
  static constexpr double kWidth = 175;
  static constexpr double kHeight = 112;
  static constexpr double kMargin = 32;       // of the pixmap around the paper: the raised sheet's shadow
  static constexpr double kRestMargin = 20;   // the same at rest
  static constexpr double kCircleInset = 19;  // of the crush circle's centre
  static constexpr double kCircleDiameter = 16.4;
  static constexpr double kCircleHit = 32;

  QString text;
  QString colorHex;
  PaperTheme theme = PaperTheme::plain;
  TaskStamp stamp = TaskStamp::none;
  TaskTag tag = TaskTag::none;
  std::optional<CardParts::DueLabel> due;
  QString appID;  // of the application it is pinned to; empty = none
  QIcon appIcon;
  QString repository;  // name of the one it is pinned to; empty = none
  bool isPrivate = false;
  bool isDaily3 = false;
  bool isSmoldering = false;
  bool hasMoreContrast = false;
  QString mark;
  quint32 seed = 0;
  Qt::LayoutDirection direction = Qt::LeftToRight;

  /// What tells two pictures of a note apart.
  [[nodiscard]] QString key() const;
  [[nodiscard]] QColor ink() const;
  [[nodiscard]] PaperSheet sheet(PaperLift lift) const;
  [[nodiscard]] static double margin(PaperLift lift) { return lift == PaperLift::Raised ? kMargin : kRestMargin; }
  [[nodiscard]] QPixmap pixmap(PaperLift lift, double scale) const;
  /// The note's text as it stands on the card, relative to bodyOrigin().
  [[nodiscard]] StickyChecklistBody body() const;
  [[nodiscard]] QPointF bodyOrigin() const;
  [[nodiscard]] QPointF circleCenter() const;
  [[nodiscard]] QRectF circleHitRect() const;
  /// Covers the foot, which stands higher over a burnt edge.
  [[nodiscard]] QRectF hoverBarRect() const;

 private:
  void paintFoot(QPainter& painter, const QRectF& foot) const;
  [[nodiscard]] QRectF footRect() const;
  /// Something stands at the foot's trailing end.
  [[nodiscard]] bool hasTrailingFoot() const;
  [[nodiscard]] bool isStampRaised() const;
  [[nodiscard]] QPointF stampCenter() const;
  [[nodiscard]] double stampAngle() const { return -4.0 - static_cast<double>(seed % 4); }
  /// The turned stamp and a little room around it, on the card.
  [[nodiscard]] QPolygonF stampShape() const;
};

}  // namespace tarnwick
