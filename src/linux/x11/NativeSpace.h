// SPDX-License-Identifier: MIT
// Device pixels of the X server to and from desktop coordinates, monitor by monitor, for the present arrangement.
#pragma once

#include "platform/DesktopGeometry.h"

#include <QPoint>
#include <QRect>

namespace tarnwick {

/// Rectangle of the X server's pixels in desktop coordinates; the monitor that holds its centre sets the scale.
[[nodiscard]] DesktopRect desktopFromNative(const QRect& native);
[[nodiscard]] DesktopPoint desktopFromNative(QPoint native);

}  // namespace tarnwick
