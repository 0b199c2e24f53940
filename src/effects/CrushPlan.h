// SPDX-License-Identifier: MIT
// The whole flight of a crushed note as values: where it goes, how long it takes and every layer with its keys.
// Stage coordinates: desktop points from the screen's bottom-left corner, y up.
#pragma once

#include "effects/Timeline.h"

#include <QColor>

#include <vector>

namespace tarnwick {

struct CrushScene {
  DesktopSize stage;
  DesktopRect note;
  DesktopRect trash;
  QColor paper;
};

struct CrushGeometry {
  DesktopPoint start;    // centre of the note
  DesktopRect trash;
  double mouth = 0;      // height of the Trash's opening
  DesktopPoint aim;
  DesktopPoint control;  // of the arc
  double flight = 0;     // seconds in the air
  double landing = 0;    // seconds from the begin
  double total = 0;      // seconds
  [[nodiscard]] double finish() const { return landing + 0.16; }
};

enum class CrushLayerKind { Sheet, Ball, Scrap, Ring, Dust };

/// What a layer looks like at a moment.
struct CrushLayerState {
  DesktopPoint position;  // of its centre
  LayerTransform transform;
  double spin = 0;  // radians, of the ball's picture inside its transform
  double opacity = 1;
  double cornerRadius = 0;
  bool operator==(const CrushLayerState&) const = default;
};

struct CrushLayer {
  CrushLayerKind kind = CrushLayerKind::Sheet;
  DesktopSize size;
  QColor color;
  CrushLayerState rest;  // holds for what is not animated
  KeyframeAnimation<DesktopPoint> position;
  KeyframeAnimation<LayerTransform> transform;
  KeyframeAnimation<double> spin;
  KeyframeAnimation<double> opacity;
  KeyframeAnimation<double> cornerRadius;

  [[nodiscard]] CrushLayerState stateAt(double mediaTime) const;
  /// All that the layer can touch in a state, shadow and stroke included; empty while it is invisible.
  [[nodiscard]] DesktopRect boundsIn(const CrushLayerState& state) const;
};

struct CrushPlan {
  CrushGeometry geometry;
  Timeline timeline;
  KeyframeAnimation<double> pictureOpacity;  // of the note's own picture on the sheet
  DesktopRect hidden;  // behind the Trash's rim: the ball is not seen in it
  std::vector<CrushLayer> layers;  // back to front
};

/// One moment of a plan.
struct CrushFrame {
  std::vector<CrushLayerState> layers;
  double pictureOpacity = 0;
};

inline constexpr double kBallEdge = 46;

[[nodiscard]] CrushGeometry crushGeometry(const CrushScene& scene);
/// `begin`: media time in seconds.
[[nodiscard]] CrushPlan crushPlan(const CrushScene& scene, double begin);
[[nodiscard]] CrushFrame frameAt(const CrushPlan& plan, double mediaTime);
/// Old and new bounds of every layer that differs between two frames: all that needs painting again.
[[nodiscard]] std::vector<DesktopRect> movedBounds(const CrushPlan& plan, const CrushFrame& from, const CrushFrame& to);

}  // namespace tarnwick
