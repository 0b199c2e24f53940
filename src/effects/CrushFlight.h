// SPDX-License-Identifier: MIT
// The flight of a crushed note into the Trash, as those who start one see it.
#pragma once

#include "platform/DesktopGeometry.h"
#include "platform/Registration.h"

#include <QColor>
#include <QImage>

#include <functional>

namespace tarnwick {

enum class Motion { Full, Reduced };

class CrushFlight {
 public:
  virtual ~CrushFlight() = default;
  /// Flies a sheet of the paper colour from the rectangle into the Trash; `picture` (may be null) is the note as it was
  /// seen and fades on the sheet. Completion runs exactly once, when the ball is behind the rim; at once with reduced
  /// motion, without a compositor or for a rectangle without area. The handle takes a flight under way off the screen,
  /// without its completion.
  [[nodiscard]] virtual Registration play(const DesktopRect& from, const QColor& paper, const QImage& picture, Motion motion,
                    std::function<void()> completion) = 0;
};

}  // namespace tarnwick
