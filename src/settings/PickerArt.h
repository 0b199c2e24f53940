// SPDX-License-Identifier: MIT
// The small pictures beside the choices of the paper pickers.
#pragma once

#include "model/Enumerations.h"

#include <QRectF>

class QPainter;

namespace tarnwick {

void paintThemeSwatch(QPainter& painter, const QRectF& box, PaperTheme theme);
void paintCrushPicture(QPainter& painter, const QRectF& box);
void paintShredPicture(QPainter& painter, const QRectF& box);

}  // namespace tarnwick
