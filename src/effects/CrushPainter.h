// SPDX-License-Identifier: MIT
// Paints frames of a crush plan. What is costly (shadows, the ball) is made once at construction; a frame only places it.
#pragma once

#include "effects/CrushPlan.h"

#include <QImage>
#include <QPainterPath>
#include <QRectF>
#include <QRegion>

#include <vector>

class QPainter;

namespace tarnwick {

class CrushPainter final {
 public:
  /// `picture` may be null; `scale`: device pixels per device-independent pixel.
  CrushPainter(CrushPlan plan, DesktopSize stage, const QImage& picture, double scale);

  [[nodiscard]] const CrushPlan& plan() const { return m_plan; }
  /// Paints what of the frame lies in the region; both in the stage's pixels from its top-left corner.
  void paint(QPainter& painter, const CrushFrame& frame, const QRegion& exposed) const;
  /// The pixels that must be painted again between two frames.
  [[nodiscard]] QRegion movedRegion(const CrushFrame& from, const CrushFrame& to) const;

 private:
  void paintLayer(QPainter& painter, const CrushLayer& layer, const CrushLayerState& state, double pictureOpacity) const;
  /// The layer's own drawing about its centre, y down, at full opacity.
  void drawSheet(QPainter& painter, const CrushLayer& layer, const CrushLayerState& state, double pictureOpacity) const;
  void drawBall(QPainter& painter, const CrushLayerState& state) const;
  struct Rounded {
    double radius;
    QImage shadow;
    QImage picture;  // null once it has faded
  };
  void prepareSheet(const CrushLayer& sheet, const QRectF& body, const QImage& picture);
  /// The next rounder one: a shadow or a picture sharper than its sheet would show at the corners.
  [[nodiscard]] const Rounded& roundedFor(double radius) const;
  [[nodiscard]] QRectF toStagePixels(const DesktopRect& rect) const;

  CrushPlan m_plan;
  DesktopSize m_stage;
  double m_scale;
  QRectF m_hidden;
  QPainterPath m_seen;  // all of the stage but what the Trash hides
  QImage m_ball;
  QImage m_ballShadow;
  std::vector<Rounded> m_sheets;  // the sheet grows rounder as it crumples; by radius
};

}  // namespace tarnwick
