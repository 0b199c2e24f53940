// SPDX-License-Identifier: MIT
// The program's own line symbols, drawn in any colour and size from art/symbols.
#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QRectF>
#include <QString>

class QPainter;

namespace tarnwick {

class Symbols {
 public:
  /// Makes the drawings known as resources (:/symbols, :/icons, :/controls); whatever draws here does so by itself.
  static void registerDrawings();
  /// `name`: a file of art/symbols without its suffix. Nothing is drawn for an unknown one.
  static void paint(QPainter& painter, const QString& name, const QRectF& box, const QColor& color);
  [[nodiscard]] static QPixmap pixmap(const QString& name, double size, const QColor& color, double scale);
  /// The program's icon and the tray's glyph.
  [[nodiscard]] static QIcon applicationIcon();
  [[nodiscard]] static QIcon trayIcon();
};

}  // namespace tarnwick
