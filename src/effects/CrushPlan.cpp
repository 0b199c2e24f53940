// SPDX-License-Identifier: MIT
#include "effects/CrushPlan.h"

#include "model/Color.h"

#include <cmath>
#include <numbers>

namespace tarnwick {

namespace {

using std::numbers::pi;

constexpr double kThrow = 0.52;  // when the ball leaves the note's place
constexpr TimingFunction kCrumpling{0.5, 0, 0.2, 1};

LayerTransform scaled(double x, double y) { return {x, y, 0}; }
LayerTransform scaled(double both) { return {both, both, 0}; }

CrushLayer sheetLayer(const CrushScene& scene, const CrushGeometry& g, const Timeline& timeline) {
  const double width = scene.note.width;
  const double height = scene.note.height;
  CrushLayer sheet{CrushLayerKind::Sheet, scene.note.size(), scene.paper, {g.start, {}, 0, 1, 8}, {}, {}, {}, {}, {}};
  sheet.transform = timeline.animate<LayerTransform>(
      {{0, scaled(1)}, {0.1, scaled(1.05, 0.92)}, {0.4, {41.4 / width, 41.4 / height, 0.35}}}, kCrumpling);
  sheet.cornerRadius = timeline.animate<double>({{0.1, 8}, {0.36, 0.45 * std::min(width, height)}});
  sheet.opacity = timeline.animate<double>({{0.24, 1}, {0.36, 0}});
  return sheet;
}

std::vector<Key<DesktopPoint>> arcKeys(const CrushGeometry& g) {
  constexpr int kSteps = 28;
  std::vector<Key<DesktopPoint>> keys{{0, g.start}, {kThrow, g.start}};
  for (int i = 0; i <= kSteps; ++i) {
    const double u = static_cast<double>(i) / kSteps;
    const double a = (1 - u) * (1 - u);
    const double b = 2 * u * (1 - u);
    const double c = u * u;
    keys.push_back({kThrow + g.flight * u,
                    {a * g.start.x + b * g.control.x + c * g.aim.x, a * g.start.y + b * g.control.y + c * g.aim.y}});
  }
  keys.push_back({g.finish(), {g.trash.midX(), g.mouth - kBallEdge}});
  return keys;
}

CrushLayer ballLayer(const CrushScene& scene, const CrushGeometry& g, const Timeline& timeline) {
  CrushLayer ball{CrushLayerKind::Ball, {kBallEdge, kBallEdge}, scene.paper, {g.start, {}, 0, 0, 0}, {}, {}, {}, {}, {}};
  ball.opacity = timeline.animate<double>({{0.22, 0}, {0.32, 1}, {g.finish(), 1}, {g.landing + 0.17, 0}});
  ball.position = timeline.animate<DesktopPoint>(arcKeys(g));
  const double end = std::min(g.trash.width * 0.55 / kBallEdge, 0.8);
  ball.transform = timeline.animate<LayerTransform>({{0.22, scaled(0.55)},
                                                     {0.32, scaled(1.18)},
                                                     {0.38, scaled(0.92)},
                                                     {0.44, scaled(1)},
                                                     {kThrow, scaled(1.14, 0.84)},
                                                     {0.59, scaled(0.9, 1.12)},
                                                     {0.7, scaled(1)},
                                                     {g.landing, scaled(end)},
                                                     {g.landing + 0.05, scaled(end * 0.9, end * 1.08)},
                                                     {g.finish(), scaled(end * 0.85)}},
                                                    TimingFunction::easeInEaseOut());
  const double turn = g.trash.midX() < g.start.x ? 2.4 * pi : -2.4 * pi;
  ball.spin = timeline.animate<double>({{0.22, 0}, {0.4, 0.5}, {kThrow, 0.5}, {g.landing, 0.5 + turn}},
                                       TimingFunction::easeIn());
  return ball;
}

CrushLayer scrapLayer(int i, const CrushScene& scene, const CrushGeometry& g, const Timeline& timeline) {
  constexpr double kStart = 0.3;
  constexpr double kHalfGravity = 450;
  constexpr int kSteps = 10;
  const bool isOdd = i % 2 != 0;
  const double width = isOdd ? 3 : 4;
  const double angle = (i / 7.0 - 0.5) * 2.4 + pi / 2;
  const double speed = (37 * i) % 110 + 150;
  const double life = isOdd ? 0.56 : 0.5;
  const QColor color = isOdd ? scene.paper : Color::blend(scene.paper, Qt::black, 0.3);
  CrushLayer scrap{CrushLayerKind::Scrap, {width, width * 1.4}, color, {g.start, {}, 0, 0, 1}, {}, {}, {}, {}, {}};
  std::vector<Key<DesktopPoint>> fall;
  for (int k = 0; k <= kSteps; ++k) {
    const double t = life * k / kSteps;
    fall.push_back({kStart + t,
                    {g.start.x + std::cos(angle) * speed * t,
                     g.start.y + std::sin(angle) * speed * t - kHalfGravity * t * t}});
  }
  scrap.position = timeline.animate(std::move(fall));
  scrap.opacity = timeline.animate<double>(
      {{kStart, 0}, {0.31, 1}, {kStart + 0.6 * life, 1}, {kStart + life, 0}});
  scrap.transform = timeline.animate<LayerTransform>(
      {{kStart, {}}, {kStart + life, {1, 1, isOdd ? 4 * pi : -4 * pi}}});
  return scrap;
}

CrushLayer ringLayer(const CrushGeometry& g, const Timeline& timeline) {
  const double edge = 0.95 * g.trash.width;
  CrushLayer ring{CrushLayerKind::Ring, {edge, edge}, Qt::white, {g.trash.center(), {}, 0, 0, 0}, {}, {}, {}, {}, {}};
  ring.opacity = timeline.animate<double>({{kThrow, 0}, {0.72, 1}, {g.landing, 1}, {g.total, 0}},
                                          TimingFunction::easeOut());
  ring.transform = timeline.animate<LayerTransform>({{kThrow, scaled(0.6)},
                                                     {0.77, scaled(1)},
                                                     {g.landing, scaled(1)},
                                                     {g.landing + 0.04, scaled(0.88)},
                                                     {g.total, scaled(1.75)}},
                                                    TimingFunction::easeOut());
  return ring;
}

CrushLayer dustLayer(int j, const CrushGeometry& g, const Timeline& timeline) {
  static const QColor kDust(0xE9, 0xE2, 0xD2);
  const DesktopPoint start{g.aim.x, g.mouth};
  const double direction = j / 5.0 * 2 * pi / 3 + pi / 6;
  const double distance = j % 2 != 0 ? 22 : 16;
  const DesktopPoint end{start.x + distance * std::cos(direction), start.y + distance * std::sin(direction)};
  CrushLayer puff{CrushLayerKind::Dust, {5, 5}, kDust, {start, {}, 0, 0, 2.5}, {}, {}, {}, {}, {}};
  puff.position =
      timeline.animate<DesktopPoint>({{g.landing, start}, {g.landing + 0.3, end}}, TimingFunction::easeOut());
  puff.opacity = timeline.animate<double>({{g.landing, 0}, {g.landing + 0.02, 0.9}, {g.landing + 0.3, 0}});
  puff.transform = timeline.animate<LayerTransform>({{g.landing, scaled(1)}, {g.landing + 0.3, scaled(0.3)}},
                                                    TimingFunction::easeOut());
  return puff;
}

/// Reach of the shadow beyond the layer's own edge, before its transform.
double shadowReach(CrushLayerKind kind) {
  switch (kind) {
    case CrushLayerKind::Sheet: return 6 + 3 * 6;
    case CrushLayerKind::Ball: return 3 + 3 * 5;
    default: return 1;
  }
}

DesktopRect united(const DesktopRect& one, const DesktopRect& other) {
  const double x = std::min(one.minX(), other.minX());
  const double y = std::min(one.minY(), other.minY());
  return {x, y, std::max(one.maxX(), other.maxX()) - x, std::max(one.maxY(), other.maxY()) - y};
}

}  // namespace

CrushLayerState CrushLayer::stateAt(double mediaTime) const {
  CrushLayerState state = rest;
  if (!position.isEmpty()) state.position = position.sample(mediaTime);
  if (!transform.isEmpty()) state.transform = transform.sample(mediaTime);
  if (!spin.isEmpty()) state.spin = spin.sample(mediaTime);
  if (!opacity.isEmpty()) state.opacity = opacity.sample(mediaTime);
  if (!cornerRadius.isEmpty()) state.cornerRadius = cornerRadius.sample(mediaTime);
  return state;
}

DesktopRect CrushLayer::boundsIn(const CrushLayerState& state) const {
  constexpr double kFaintest = 1.0 / 512;  // less leaves no trace in a pixel
  if (state.opacity < kFaintest) return {};
  const double reach = shadowReach(kind);
  double halfWidth = (size.width / 2 + reach) * std::abs(state.transform.scaleX);
  double halfHeight = (size.height / 2 + reach) * std::abs(state.transform.scaleY);
  // A turned rectangle fits into the box of its two half edges; the ball is round and turns in place.
  const double c = std::abs(std::cos(state.transform.rotation));
  const double s = std::abs(std::sin(state.transform.rotation));
  const double turnedWidth = halfWidth * c + halfHeight * s;
  const double turnedHeight = halfWidth * s + halfHeight * c;
  constexpr double kSmoothing = 1.5;  // antialiased edges
  halfWidth = turnedWidth + kSmoothing;
  halfHeight = turnedHeight + kSmoothing;
  return {state.position.x - halfWidth, state.position.y - halfHeight, 2 * halfWidth, 2 * halfHeight};
}

CrushGeometry crushGeometry(const CrushScene& scene) {
  CrushGeometry g;
  g.start = scene.note.center();
  g.trash = scene.trash;
  g.mouth = scene.trash.minY() + 0.78 * scene.trash.height;
  g.aim = {scene.trash.midX(), g.mouth + 12};
  g.control = {scene.trash.midX(), std::max(g.aim.y, g.start.y) + 170};
  g.flight = std::clamp(std::hypot(g.aim.x - g.start.x, g.aim.y - g.start.y) / 3000 + 0.42, 0.48, 0.72);
  g.landing = kThrow + g.flight;
  g.total = g.landing + 0.42;
  return g;
}

CrushPlan crushPlan(const CrushScene& given, double begin) {
  CrushScene scene = given;
  if (const auto paper = scene.paper.toRgb(); paper.isValid()) scene.paper = paper;
  CrushPlan plan;
  plan.geometry = crushGeometry(scene);
  const auto& g = plan.geometry;
  plan.timeline = {begin, g.total};
  plan.pictureOpacity = plan.timeline.animate<double>({{0, 1}, {0.2, 0}});
  plan.hidden = {g.trash.minX() - 6, -200, g.trash.width + 12, std::max(0.0, g.mouth + 200)};
  plan.layers.push_back(sheetLayer(scene, g, plan.timeline));
  plan.layers.push_back(ballLayer(scene, g, plan.timeline));
  for (int i = 0; i < 8; ++i) plan.layers.push_back(scrapLayer(i, scene, g, plan.timeline));
  plan.layers.push_back(ringLayer(g, plan.timeline));
  for (int j = 0; j < 6; ++j) plan.layers.push_back(dustLayer(j, g, plan.timeline));
  return plan;
}

CrushFrame frameAt(const CrushPlan& plan, double mediaTime) {
  CrushFrame frame;
  frame.layers.reserve(plan.layers.size());
  for (const auto& layer : plan.layers) frame.layers.push_back(layer.stateAt(mediaTime));
  frame.pictureOpacity = plan.pictureOpacity.isEmpty() ? 0 : plan.pictureOpacity.sample(mediaTime);
  return frame;
}

std::vector<DesktopRect> movedBounds(const CrushPlan& plan, const CrushFrame& from, const CrushFrame& to) {
  std::vector<DesktopRect> moved;
  for (std::size_t i = 0; i < plan.layers.size(); ++i) {
    const auto& layer = plan.layers[i];
    const bool isRepainted = layer.kind == CrushLayerKind::Sheet && from.pictureOpacity != to.pictureOpacity;
    if (from.layers[i] == to.layers[i] && !isRepainted) continue;
    const auto before = layer.boundsIn(from.layers[i]);
    const auto after = layer.boundsIn(to.layers[i]);
    if (before.intersects(after)) {
      moved.push_back(united(before, after));
    } else {
      for (const auto& bounds : {before, after}) {
        if (!bounds.isEmpty()) moved.push_back(bounds);
      }
    }
  }
  return moved;
}

}  // namespace tarnwick
