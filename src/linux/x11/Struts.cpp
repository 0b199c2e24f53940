// SPDX-License-Identifier: MIT
#include "linux/x11/Struts.h"

#include <algorithm>
#include <array>

namespace tarnwick {

std::vector<StrutBand> bandsOfStrut(const std::vector<uint32_t>& strut, QSize root) {
  if (strut.size() < 4) return {};
  std::array<int, 12> v{};
  for (size_t i = 0; i < v.size() && i < strut.size(); ++i) v[i] = static_cast<int>(std::min<uint32_t>(strut[i], 65535));
  if (strut.size() < 12) {  // the older form has no ends: its bands run along whole edges
    for (size_t i = 0; i < 4; ++i) {
      v[4 + 2 * i] = 0;
      v[5 + 2 * i] = (i < 2 ? root.height() : root.width()) - 1;
    }
  }
  const auto along = [&v](size_t i) { return v[5 + 2 * i] - v[4 + 2 * i] + 1; };
  std::vector<StrutBand> bands;
  using Edge = StrutBand::Edge;
  if (v[0] > 0) bands.push_back({Edge::Left, QRect(0, v[4], v[0], along(0))});
  if (v[1] > 0) bands.push_back({Edge::Right, QRect(root.width() - v[1], v[6], v[1], along(1))});
  if (v[2] > 0) bands.push_back({Edge::Top, QRect(v[8], 0, along(2), v[2])});
  if (v[3] > 0) bands.push_back({Edge::Bottom, QRect(v[10], root.height() - v[3], along(3), v[3])});
  return bands;
}

QRect withoutBands(const QRect& monitor, const std::vector<StrutBand>& bands) {
  QRect left = monitor;
  for (const auto& [edge, rect] : bands) {
    const auto part = rect & monitor;
    if (part.isEmpty()) continue;
    const bool isUpright = edge == StrutBand::Edge::Left || edge == StrutBand::Edge::Right;
    if (isUpright ? part.width() == monitor.width() : part.height() == monitor.height()) continue;
    switch (edge) {
      case StrutBand::Edge::Left: left.setLeft(std::max(left.left(), part.right() + 1)); break;
      case StrutBand::Edge::Right: left.setRight(std::min(left.right(), part.left() - 1)); break;
      case StrutBand::Edge::Top: left.setTop(std::max(left.top(), part.bottom() + 1)); break;
      case StrutBand::Edge::Bottom: left.setBottom(std::min(left.bottom(), part.top() - 1)); break;
    }
  }
  return left.isEmpty() ? monitor : left;
}

}  // namespace tarnwick
