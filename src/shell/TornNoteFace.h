// SPDX-License-Identifier: MIT
// How a note on the desktop looks, and where its parts are: plain values in, painting out. Rectangles are in the
// window's own coordinates, before the note's tilt.
#pragma once

#include "board/CardParts.h"
#include "board/StickyChecklistBody.h"
#include "effects/PaperSheet.h"

#include <QIcon>
#include <QPixmap>
#include <QRegion>
#include <QSizeF>
#include <QTransform>

#include <optional>

namespace tarnwick {

class Task;

/// Paper and shadow as they were painted last, and of which look.
struct PaintedSheet {
  QString look;
  QPixmap picture;
};

struct TornNoteFace {
  static constexpr double kCircleDiameter = 20;
  static constexpr double kCircleHit = 32;
  static constexpr double kRestingPeel = 28;
  static constexpr double kLiftedPeel = 44;
  static constexpr double kBarRadius = 9;

  QSizeF size{250, 230};
  QString text;
  QString colorHex;
  PaperTheme theme = PaperTheme::plain;
  TaskStamp stamp = TaskStamp::none;
  std::optional<CardParts::DueLabel> due;
  QString counter;
  bool isPrivate = false;
  bool isDaily3 = false;
  quint32 seed = 0;
  double tilt = 0;  // degrees; 0 where edges cannot be smoothed
  bool isComposited = true;
  Qt::LayoutDirection direction = Qt::LeftToRight;

  [[nodiscard]] QColor ink() const;
  [[nodiscard]] QRectF paperRect() const;
  [[nodiscard]] QRectF tapeRect() const;
  [[nodiscard]] QRectF textRect() const;
  [[nodiscard]] QPointF circleCenter() const;
  [[nodiscard]] QRectF circleHitRect() const;
  [[nodiscard]] QRectF footRect() const;
  /// The foot's line is full: the stamp stands above it.
  [[nodiscard]] bool isStampRaised() const;
  [[nodiscard]] QRectF hoverBarRect() const;
  /// Tools of the bar from left to right as they are read.
  [[nodiscard]] QStringList hoverBarSymbols() const;
  /// The tilt, about the middle of the paper's top edge.
  [[nodiscard]] QTransform turn() const;
  [[nodiscard]] StickyChecklistBody body() const;
  /// The paper's edges that a press at a point would pull.
  [[nodiscard]] Qt::Edges edgesAt(const QPointF& point) const;
  /// What is seen of the window where there is no transparency.
  [[nodiscard]] QRegion mask() const;

  /// Paper and shadow: those painted last where they look the same. In turned coordinates.
  void paintPaper(QPainter& painter, double peel, PaintedSheet& last) const;
  /// The same paper over all of the size, without corner and shadow: as it lies on the sheet that is crushed.
  void paintFlatPaper(QPainter& painter) const;
  void paintText(QPainter& painter, const StickyChecklistBody& body, double scroll) const;
  void paintFoot(QPainter& painter, double barOpacity) const;
  void paintTape(QPainter& painter) const;

  // The folded tab: its own size, never tilted.
  [[nodiscard]] static QRectF tabPaperRect() { return {4, 4, 202, 38}; }
  void paintTab(QPainter& painter, const QIcon& appIcon, PaintedSheet& last) const;

 private:
  [[nodiscard]] QRectF mirrored(const QRectF& rect) const;
  [[nodiscard]] PaperSheet sheet(const QRectF& rect, PaperKind kind, double peel) const;
  void paintSheet(QPainter& painter, const PaperSheet& sheet, const QSizeF& area, PaintedSheet& last) const;
};

}  // namespace tarnwick
