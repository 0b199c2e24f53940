// SPDX-License-Identifier: MIT
#include "effects/WadArt.h"

#include <QCache>
#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

// A static library's resources are only there after this, and the macro works in the global namespace alone.
static void initWadResource() { Q_INIT_RESOURCE(wad); }

namespace tarnwick {

namespace {

using std::numbers::pi;

constexpr double kDiscRadius = 0.985;  // of the unit disc within the picture's half edge
constexpr int kSamples = 2;            // per pixel and axis
constexpr double kCreaseStep = 0.026;  // how far around a point ridges and valleys are felt

struct Plane {
  double x, y, height;
  [[nodiscard]] double at(double px, double py) const { return x * px + y * py + height; }
};

struct Fold {
  double x, y;
  std::array<double, 4> normals;
  double gain, reach;
};

struct RimPoint {
  double angle, radius;
};

/// The ball's geometry in the unit disc, y down.
class WadModel final {
 public:
  static const WadModel& shared() {
    static const WadModel model;
    return model;
  }

  [[nodiscard]] double heightAt(double x, double y) const {
    double outer = 9;
    for (const auto& plane : m_dome) outer = std::min(outer, plane.at(x, y));
    double inner = -9;
    for (const auto& plane : m_bowl) inner = std::max(inner, plane.at(x, y));
    double height = outer + 0.5 * inner;
    for (const auto& fold : m_folds) {
      const double dx = x - fold.x;
      const double dy = y - fold.y;
      const double depth = std::min({dx * fold.normals[0] + dy * fold.normals[1],
                                     dx * fold.normals[2] + dy * fold.normals[3],
                                     fold.reach - 0.55 * std::hypot(dx, dy)});
      if (depth > 0) height += fold.gain * depth;
    }
    return height;
  }

  /// Radius of the outline: mostly straight between the rim's points, a little round.
  [[nodiscard]] double rimAt(double angle) const {
    if (angle < 0) angle += 2 * pi;
    const auto after = std::upper_bound(m_rim.begin(), m_rim.end(), angle,
                                        [](double value, const RimPoint& point) { return value < point.angle; });
    const RimPoint& next = after == m_rim.end() ? m_rim.front() : *after;
    const RimPoint& last = after == m_rim.begin() ? m_rim.back() : *(after - 1);
    const double x1 = std::cos(last.angle) * last.radius;
    const double y1 = std::sin(last.angle) * last.radius;
    const double dx = std::cos(next.angle) * next.radius - x1;
    const double dy = std::sin(next.angle) * next.radius - y1;
    const double chord = (x1 * dy - y1 * dx) / (std::cos(angle) * dy - std::sin(angle) * dx);
    const auto turned = [](double by) { return by < 0 ? by + 2 * pi : by; };
    const double part = turned(angle - last.angle) / turned(next.angle - last.angle);
    return 0.62 * chord + 0.38 * (last.radius + (next.radius - last.radius) * part);
  }

 private:
  WadModel() {
    initWadResource();
    QFile file(QStringLiteral(":/art/wad.json"));
    const bool isOpen = file.open(QIODevice::ReadOnly);
    Q_ASSERT(isOpen);
    const auto root = isOpen ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
    const auto each = [&](QLatin1StringView name, auto take) {
      for (const auto& row : root.value(name).toArray()) {
        take([cells = row.toArray()](int i) { return cells.at(i).toDouble(); });
      }
    };
    each(QLatin1StringView("dome"), [&](auto v) { m_dome.push_back({v(0), v(1), v(2)}); });
    each(QLatin1StringView("bowl"), [&](auto v) { m_bowl.push_back({v(0), v(1), v(2)}); });
    each(QLatin1StringView("folds"),
         [&](auto v) { m_folds.push_back({v(0), v(1), {v(2), v(3), v(4), v(5)}, v(6), v(7)}); });
    each(QLatin1StringView("rim"), [&](auto v) { m_rim.push_back({v(0), v(1)}); });
    std::sort(m_rim.begin(), m_rim.end(), [](const auto& a, const auto& b) { return a.angle < b.angle; });
  }

  std::vector<Plane> m_dome;
  std::vector<Plane> m_bowl;
  std::vector<Fold> m_folds;
  std::vector<RimPoint> m_rim;
};

/// Light per sample, independent of the paper; negative outside the ball.
struct ShadeMap {
  int edge = 0;  // pixels
  std::vector<float> shades;
};

/// Heights on a grid one sample larger than the picture on each side, each computed once.
class HeightField final {
 public:
  explicit HeightField(int edge) : m_edge(edge), m_heights(static_cast<std::size_t>(edge + 2) * (edge + 2)) {
    const auto& model = WadModel::shared();
    for (int row = -1; row <= edge; ++row) {
      for (int column = -1; column <= edge; ++column) {
        const double x = coordinate(column);
        const double y = coordinate(row);
        // A little beyond the disc, for the slopes at its edge.
        if (x * x + y * y <= 1.06) slot(column, row) = static_cast<float>(model.heightAt(x, y));
      }
    }
  }

  [[nodiscard]] double coordinate(int index) const { return ((index + 0.5) / m_edge * 2 - 1) / kDiscRadius; }
  [[nodiscard]] double step() const { return 2.0 / m_edge / kDiscRadius; }
  [[nodiscard]] double at(int column, int row) const {
    column = std::clamp(column, -1, m_edge);
    row = std::clamp(row, -1, m_edge);
    return m_heights[index(column, row)];
  }

 private:
  [[nodiscard]] std::size_t index(int column, int row) const {
    return static_cast<std::size_t>(row + 1) * static_cast<std::size_t>(m_edge + 2) +
           static_cast<std::size_t>(column + 1);
  }
  float& slot(int column, int row) { return m_heights[index(column, row)]; }

  int m_edge;
  std::vector<float> m_heights;
};

double shadeAt(const HeightField& field, int column, int row, double x, double y, double radius) {
  constexpr double kLightX = -0.46;
  constexpr double kLightY = -0.62;
  constexpr double kLightZ = 0.64;
  constexpr double kSlope = 0.95;
  const double span = 2 * field.step();
  const double slopeX = (field.at(column + 1, row) - field.at(column - 1, row)) / span * kSlope;
  const double slopeY = (field.at(column, row + 1) - field.at(column, row - 1)) / span * kSlope;
  const double facing =
      (kLightZ - slopeX * kLightX - slopeY * kLightY) / std::sqrt(slopeX * slopeX + slopeY * slopeY + 1);

  const int q = std::max(1, static_cast<int>(kCreaseStep / field.step() + 0.5));
  const double crease = (field.at(column + q, row) + field.at(column - q, row) + field.at(column, row + q) +
                         field.at(column, row - q) - 4 * field.at(column, row)) /
                        kCreaseStep;
  const double valley = std::min(0.22, std::max(0.0, crease - 0.03) * 0.24);
  const double ridge = std::min(0.20, std::max(0.0, -crease - 0.05) * 0.22);

  const double away = x * 0.5 + y * 0.7;  // from the light
  const double edge = std::max(0.0, (radius - 0.55) / 0.45);
  const double rounding = edge * edge * (0.06 + 0.20 * std::max(0.0, away));
  const double shade = 0.31 + 0.84 * std::max(0.0, facing) - valley + ridge - rounding - 0.16 * std::max(0.0, away) +
                       0.06 * std::max(0.0, -away);
  return std::clamp(shade, 0.26, 1.40);
}

ShadeMap computeShades(int edge) {
  const auto& model = WadModel::shared();
  const int samples = edge * kSamples;
  const HeightField field(samples);
  ShadeMap map{edge, std::vector<float>(static_cast<std::size_t>(samples) * static_cast<std::size_t>(samples), -1)};
  for (int row = 0; row < samples; ++row) {
    for (int column = 0; column < samples; ++column) {
      const double x = field.coordinate(column);
      const double y = field.coordinate(row);
      const double radius = std::hypot(x, y);
      // No rim point lies further out than .97 or, chords included, further in than .78.
      if (radius > 0.97 || (radius > 0.78 && radius > model.rimAt(std::atan2(y, x)))) continue;
      map.shades[static_cast<std::size_t>(row) * static_cast<std::size_t>(samples) + static_cast<std::size_t>(column)] =
          static_cast<float>(shadeAt(field, column, row, x, y, radius));
    }
  }
  return map;
}

/// One colour component in the light of a shade: down to a warm dark, up towards white.
double lit(int component, double shade) {
  constexpr double kFull = 0.90;
  if (shade <= kFull) return component * (shade / kFull) * 0.99 + (1 - shade / kFull) * 16;
  return component + (255 - component) * std::min(0.66, (shade - kFull) * 1.30);
}

QImage colored(const ShadeMap& map, const QColor& color) {
  QImage image(map.edge, map.edge, QImage::Format_ARGB32_Premultiplied);
  const auto samples = static_cast<std::size_t>(map.edge * kSamples);
  for (int y = 0; y < map.edge; ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < map.edge; ++x) {
      double red = 0;
      double green = 0;
      double blue = 0;
      int covered = 0;
      for (int s = 0; s < kSamples * kSamples; ++s) {
        const auto row = static_cast<std::size_t>(y * kSamples + s / kSamples);
        const auto column = static_cast<std::size_t>(x * kSamples + s % kSamples);
        const double shade = map.shades[row * samples + column];
        if (shade < 0) continue;
        red += lit(color.red(), shade);
        green += lit(color.green(), shade);
        blue += lit(color.blue(), shade);
        ++covered;
      }
      const auto mean = [&](double sum) { return static_cast<int>(sum / covered); };
      line[x] = covered == 0 ? 0
                             : qPremultiply(qRgba(mean(red), mean(green), mean(blue),
                                                  255 * covered / (kSamples * kSamples)));
    }
  }
  return image;
}

}  // namespace

QImage WadArt::image(const QColor& color, double size, double scale) {
  struct Look {
    int edge;
    double scale;
    QImage image;
  };
  static QCache<int, ShadeMap> maps(4);
  static QCache<QRgb, Look> looks(24);
  const int edge = std::max(1, static_cast<int>(std::lround(size * scale)));
  const QRgb paper = color.toRgb().rgb();
  if (const auto* kept = looks.object(paper); kept && kept->edge == edge && qFuzzyCompare(kept->scale, scale)) {
    return kept->image;
  }
  auto* map = maps.object(edge);
  if (!map) {
    map = new ShadeMap(computeShades(edge));
    maps.insert(edge, map);
  }
  auto image = colored(*map, color.toRgb());
  image.setDevicePixelRatio(scale);
  looks.insert(paper, new Look{edge, scale, image});
  return image;
}

}  // namespace tarnwick
