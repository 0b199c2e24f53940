// SPDX-License-Identifier: MIT
// The small controls that every screen shares: buttons, chips, switches, key caps. Each paints itself from the tokens,
// takes keyboard focus with a visible ring, and carries its accessible name.
#pragma once

#include "effects/KeyCaps.h"
#include "effects/PrimaryButton.h"
#include "effects/SwitchButton.h"
#include "effects/ToolButton.h"

class QMenu;
class QPainter;
class QRectF;

namespace tarnwick {

/// The ring around what has the keyboard, just inside the rectangle.
void paintFocusRing(QPainter& painter, const QRectF& rect, double radius);
/// The cream label under a selected tab or a tool that is on.
void paintPaperLabel(QPainter& painter, const QRectF& rect, double radius, double angle = 0);
/// Dark tool tips, for the whole program.
void styleToolTips();
/// A dark rounded menu in the program's style.
void styleMenu(QMenu& menu);

}  // namespace tarnwick
