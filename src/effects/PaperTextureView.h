// SPDX-License-Identifier: MIT
// The pattern of a paper theme, drawn over the paper colour in the note's own coordinates.
#pragma once

#include "model/Enumerations.h"

#include <QSizeF>
#include <QString>

class QPainter;

namespace tarnwick {

class PaperTextureView {
 public:
  PaperTheme theme = PaperTheme::plain;
  QSizeF size;
  QString paperHex;
  quint32 seed = 0;
  double frame = 5;  // width of Dark Craft's border
  Qt::LayoutDirection direction = Qt::LeftToRight;

  void paint(QPainter& painter) const;

 private:
  void paintGraph(QPainter& painter) const;
  void paintLined(QPainter& painter) const;
  void paintParchment(QPainter& painter) const;
  void paintConstruction(QPainter& painter) const;
};

}  // namespace tarnwick
