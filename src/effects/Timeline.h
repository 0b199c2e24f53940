// SPDX-License-Identifier: MIT
// Key-frame animation as plain values: a timeline gives all animations of one play the same origin and length, and each
// says what its value is at a moment of the media clock. Nothing here runs by itself.
#pragma once

#include "platform/DesktopGeometry.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace tarnwick {

/// A cubic timing curve from (0, 0) to (1, 1), given by its two control points.
class TimingFunction final {
 public:
  constexpr TimingFunction(double x1, double y1, double x2, double y2) : m_x1(x1), m_y1(y1), m_x2(x2), m_y2(y2) {}

  [[nodiscard]] static constexpr TimingFunction easeIn() { return {0.42, 0, 1, 1}; }
  [[nodiscard]] static constexpr TimingFunction easeOut() { return {0, 0, 0.58, 1}; }
  [[nodiscard]] static constexpr TimingFunction easeInEaseOut() { return {0.42, 0, 0.58, 1}; }

  /// How far the motion is when this part of its time is over.
  [[nodiscard]] double at(double fraction) const;
  bool operator==(const TimingFunction&) const = default;

 private:
  double m_x1;
  double m_y1;
  double m_x2;
  double m_y2;
};

/// Scale about a layer's centre, then rotation in radians, anticlockwise.
struct LayerTransform {
  double scaleX = 1;
  double scaleY = 1;
  double rotation = 0;
  bool operator==(const LayerTransform&) const = default;
};

[[nodiscard]] inline double between(double from, double to, double fraction) { return from + (to - from) * fraction; }
[[nodiscard]] inline DesktopPoint between(DesktopPoint from, DesktopPoint to, double fraction) {
  return {between(from.x, to.x, fraction), between(from.y, to.y, fraction)};
}
[[nodiscard]] inline LayerTransform between(const LayerTransform& from, const LayerTransform& to, double fraction) {
  return {between(from.scaleX, to.scaleX, fraction), between(from.scaleY, to.scaleY, fraction),
          between(from.rotation, to.rotation, fraction)};
}

template <typename Value>
struct Key {
  double time = 0;  // seconds from the timeline's begin
  Value value{};
};

template <typename Value>
struct KeyframeAnimation {
  double begin = 0;     // media time, seconds
  double duration = 0;  // seconds
  std::vector<double> keyTimes;  // parts of the duration
  std::vector<Value> values;
  std::optional<TimingFunction> ease;  // of every segment; linear without

  [[nodiscard]] bool isEmpty() const { return values.empty(); }

  /// The first value holds before the begin, the last one after the end. Not to be asked of an empty animation.
  [[nodiscard]] Value sample(double mediaTime) const {
    const double at = duration > 0 ? std::clamp((mediaTime - begin) / duration, 0.0, 1.0) : 1.0;
    const auto next = std::upper_bound(keyTimes.begin(), keyTimes.end(), at);
    if (next == keyTimes.begin()) return values.front();
    if (next == keyTimes.end()) return values.back();
    const auto i = static_cast<std::size_t>(next - keyTimes.begin());
    const double fraction = (at - keyTimes[i - 1]) / (keyTimes[i] - keyTimes[i - 1]);
    return between(values[i - 1], values[i], ease ? ease->at(fraction) : fraction);
  }
};

struct Timeline {
  double begin = 0;  // media time, seconds
  double total = 0;  // seconds

  /// Values are held before the first and after the last key. Without keys there is no animation.
  template <typename Value>
  [[nodiscard]] KeyframeAnimation<Value> animate(std::vector<Key<Value>> keys,
                                                 std::optional<TimingFunction> ease = std::nullopt) const {
    if (keys.empty()) return {};
    if (keys.front().time > 0) keys.insert(keys.begin(), {0, keys.front().value});
    if (keys.back().time < total) keys.push_back({total, keys.back().value});
    KeyframeAnimation<Value> animation{begin, total, {}, {}, ease};
    for (const auto& key : keys) {
      animation.keyTimes.push_back(total > 0 ? std::clamp(key.time / total, 0.0, 1.0) : 1.0);
      animation.values.push_back(key.value);
    }
    return animation;
  }
};

}  // namespace tarnwick
