// SPDX-License-Identifier: MIT
// The rubber stamp on its label, and the washi tape that holds a torn-off note.
#pragma once

#include "model/Enumerations.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

class QPainter;

namespace tarnwick {

/// Paper lets a little of the note through; a menu gets an opaque label.
enum class StampGround { Paper, Menu };

class StampBadgeView {
 public:
  /// Size of the badge before it is turned.
  [[nodiscard]] static QSizeF size(TaskStamp stamp);
  /// Turned by an angle (degrees) about its centre.
  static void paint(QPainter& painter, TaskStamp stamp, const QPointF& center, double angle,
                    StampGround ground = StampGround::Paper);
};

class WashiTapeView {
 public:
  /// Colour goes with the paper; the pattern is the note's own.
  static void paint(QPainter& painter, const QRectF& rect, const QString& paperHex, quint32 seed, double angle);
};

}  // namespace tarnwick
