// SPDX-License-Identifier: MIT
// Draws a sheet of note paper with its shadow: outline, texture, light, burnt edge, lifted corner.
#pragma once

#include "model/Enumerations.h"

#include <QColor>
#include <QPainterPath>
#include <QRectF>
#include <QString>

class QPainter;
class QUuid;

namespace tarnwick {

enum class PaperKind { Card, TornNote, EditorSheet, Tab };
enum class PaperLift { Rest, Raised };
enum class PaperEdge { Clean, Smoldering };

struct PaperSheet {
  QRectF rect;  // of the paper, without shadow
  QString colorHex;
  PaperTheme theme = PaperTheme::plain;
  PaperKind kind = PaperKind::Card;
  PaperLift lift = PaperLift::Rest;
  PaperEdge edge = PaperEdge::Clean;
  double peel = 0;        // size of the lifted corner; 0 = none (Dark Craft and burnt sheets never lift)
  quint32 seed = 0;       // of a note's own noise: the same note always looks the same
  Qt::LayoutDirection direction = Qt::LeftToRight;
  bool hasShadow = true;
  double edgeOpacity = .12;  // of the black edge; .35 where no shadow can be shown

  /// The outline of the paper: clip and hit shape.
  [[nodiscard]] QPainterPath outline() const;
  void paint(QPainter& painter) const;
  /// The pulsing part of a smouldering edge alone, at a strength of 0 to 1.
  void paintEmberGlow(QPainter& painter, double strength) const;
};

/// A stable seed of a note.
[[nodiscard]] quint32 paperSeed(const QUuid& id);

}  // namespace tarnwick
