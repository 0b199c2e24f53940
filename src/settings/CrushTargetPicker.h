// SPDX-License-Identifier: MIT
// Covers the screens while the user shows where crushed paper is to land: one click, or Escape.
#pragma once

#include "platform/Screens.h"

#include <QWidget>

namespace tarnwick {

class CrushTargetPicker final : public QWidget {
  Q_OBJECT

 public:
  /// `tile`: edge of the square that is picked. Without transparency only the words are shown.
  CrushTargetPicker(const Screens& screens, double tile);

  /// Shows itself and takes pointer and keyboard.
  void begin();

 Q_SIGNALS:
  void picked(const DesktopRect& target);
  /// Whether or not a place was picked.
  void finished();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void end();
  [[nodiscard]] QRectF squareAt(const QPointF& global) const;
  [[nodiscard]] QRect wordsRect() const;

  const Screens& m_screens;
  double m_tile;
  bool m_isSeeThrough;
  QRect m_wordsPlace;  // on the screen
  QPointF m_pointer;   // on the screen
};

}  // namespace tarnwick
