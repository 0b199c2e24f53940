// SPDX-License-Identifier: MIT
// The transparent window over one whole screen in which a flight plays: above everything, touched by nothing.
#pragma once

#include "effects/CrushPainter.h"

#include <QRect>
#include <QWidget>

namespace tarnwick {

class CrushOverlayWindow final : public QWidget {
  Q_OBJECT

 public:
  /// `geometry`: the screen in Qt's coordinates. Starts with the plan's first moment.
  CrushOverlayWindow(const QRect& geometry, CrushPainter flight);

  /// Shows the plan at a media time, in seconds; only what moved since is painted again.
  void advanceTo(double mediaTime);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  CrushPainter m_flight;
  CrushFrame m_frame;
};

}  // namespace tarnwick
