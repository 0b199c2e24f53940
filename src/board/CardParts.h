// SPDX-License-Identifier: MIT
// The small parts that are drawn on a note's paper, on the board and on the desktop alike.
#pragma once

#include "model/Enumerations.h"

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QStringList>

class QIcon;
class QPainter;

namespace tarnwick {

enum class CircleState { Rest, Hover, Pressed };

class CardParts {
 public:
  /// The crush control; `diameter` is the ring's at rest (16.4 on a card, 20 on a torn note).
  static void paintCrushCircle(QPainter& painter, const QPointF& center, double diameter, const QColor& ink,
                               CircleState state);

  struct DueLabel {
    QString text;
    bool isOverdue = false;
    bool repeats = false;
  };
  [[nodiscard]] static double dueLabelWidth(const DueLabel& label);
  /// 19 high, at most `maxWidth` wide; gives the rectangle that was used.
  static QRectF paintDueLabel(QPainter& painter, const QRectF& slot, const DueLabel& label, const QColor& ink,
                              Qt::LayoutDirection direction);

  /// The ink ribbon of a daily-three note: 15 × 23.
  static void paintRibbon(QPainter& painter, const QPointF& topLeft, const QColor& ink, const QString& paperHex);
  /// Dark bar of tools in ink; `hot` is the index under the pointer, -1 for none.
  static void paintHoverBar(QPainter& painter, const QRectF& rect, const QColor& ink, const QStringList& symbols,
                            int hot, double radius);
  /// Slot of a tool in the bar.
  [[nodiscard]] static QRectF hoverBarSlot(const QRectF& rect, int count, int index, Qt::LayoutDirection direction);
  /// An application's icon, or the window symbol where it has none.
  static void paintAppTile(QPainter& painter, const QRectF& rect, const QIcon& icon, const QColor& ink);
  /// Colour of a tag's page flag; invalid for none.
  [[nodiscard]] static QColor tagColor(TaskTag tag);
  /// Word for a tag's colour.
  [[nodiscard]] static QString tagName(TaskTag tag);
};

}  // namespace tarnwick
