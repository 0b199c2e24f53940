// SPDX-License-Identifier: MIT
// What panels reserve: a strut is a band along an edge of the whole desktop, and cuts the monitors that it crosses.
#pragma once

#include <QRect>

#include <cstdint>
#include <vector>

namespace tarnwick {

struct StrutBand {
  enum class Edge { Left, Right, Top, Bottom };
  Edge edge = Edge::Bottom;
  QRect rect;  // device pixels of the root
};

/// Bands of a _NET_WM_STRUT_PARTIAL (12 numbers) or _NET_WM_STRUT (4) on a root window of that size.
[[nodiscard]] std::vector<StrutBand> bandsOfStrut(const std::vector<uint32_t>& strut, QSize root);

/// A monitor without the bands. A band that runs right through it belongs to the monitor behind it and is ignored.
[[nodiscard]] QRect withoutBands(const QRect& monitor, const std::vector<StrutBand>& bands);

}  // namespace tarnwick
