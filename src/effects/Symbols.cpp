// SPDX-License-Identifier: MIT
#include "effects/Symbols.h"

#include "effects/PixmapCache.h"
#include "effects/SvgIconEngine.h"
#include "effects/Tokens.h"

#include <QByteArray>
#include <QFile>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>
#include <mutex>

// A static library's resources are only there after this, and the macro works in the global namespace alone.
static void initSymbolResources() { Q_INIT_RESOURCE(symbols); }

namespace tarnwick {

namespace {

PixmapCache& cache() {
  static PixmapCache kept(4096);
  return kept;
}

QByteArray fileContent(const QString& path) {
  Symbols::registerDrawings();
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray drawing(const QString& name) {
  static std::mutex mutex;
  static QHash<QString, QByteArray> read;
  const std::scoped_lock lock(mutex);
  auto found = read.find(name);
  if (found == read.end()) {
    const bool isPlainName = !name.contains(QLatin1Char('/'));
    found = read.insert(name, isPlainName ? fileContent(QStringLiteral(":/symbols/%1.svg").arg(name)) : QByteArray());
  }
  return found.value();
}

QPixmap rendered(const QByteArray& svg, int pixels) {
  QPixmap pixmap(pixels, pixels);
  pixmap.fill(Qt::transparent);
  QSvgRenderer renderer(svg);
  if (renderer.isValid()) {
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(0, 0, pixels, pixels));
  }
  return pixmap;
}

QPixmap inked(QByteArray svg, const QByteArray& placeholder, int pixels, const QColor& color) {
  return rendered(svg.replace(placeholder, color.name(QColor::HexRgb).toLatin1()), pixels);
}

QList<QSize> squares(std::initializer_list<int> sides) {
  QList<QSize> sizes;
  for (const int side : sides) sizes.append({side, side});
  return sizes;
}

// Opaque: shapes overlap within a symbol, so it is thinned as a whole where it is drawn.
QPixmap symbolAt(const QString& name, int pixels, const QColor& color) {
  const QByteArray svg = drawing(name);
  if (svg.isEmpty() || pixels <= 0) {
    return {};
  }
  const QString key = QStringLiteral("%1 %2 %3").arg(name).arg(pixels).arg(color.rgb());
  return cache().fetch(key, [&] { return inked(svg, QByteArrayLiteral("currentColor"), pixels, color); });
}

QPixmap thinned(const QPixmap& opaque, double opacity) {
  QPixmap result(opaque.size());
  result.fill(Qt::transparent);
  QPainter painter(&result);
  painter.setOpacity(opacity);
  painter.drawPixmap(0, 0, opaque);
  return result;
}

}  // namespace

void Symbols::registerDrawings() {
  static const bool isDone = [] {
    initSymbolResources();
    return true;
  }();
  Q_UNUSED(isDone);
}

void Symbols::paint(QPainter& painter, const QString& name, const QRectF& box, const QColor& color) {
  const QTransform& transform = painter.deviceTransform();
  const double scale = std::sqrt(std::abs(transform.determinant()));
  const double side = std::min(box.width(), box.height());
  const int pixels = static_cast<int>(std::lround(side * scale));
  const QPixmap pixmap = symbolAt(name, pixels, color);
  if (pixmap.isNull()) {
    return;
  }
  QRectF target(0, 0, side, side);
  target.moveCenter(box.center());
  painter.save();
  if (transform.type() <= QTransform::TxScale) {
    // Upright: onto whole device pixels, or the strokes would blur.
    const QPointF corner = transform.map(target.topLeft());
    const QPointF snapped(std::round(corner.x()), std::round(corner.y()));
    target.moveTopLeft(transform.inverted().map(snapped));
  }
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setOpacity(painter.opacity() * static_cast<double>(color.alphaF()));
  painter.drawPixmap(target, pixmap, QRectF(pixmap.rect()));
  painter.restore();
}

QPixmap Symbols::pixmap(const QString& name, double size, const QColor& color, double scale) {
  QPixmap result = symbolAt(name, static_cast<int>(std::lround(size * scale)), color);
  if (!result.isNull()) {
    result = color.alpha() == 255 ? result.copy() : thinned(result, static_cast<double>(color.alphaF()));
    result.setDevicePixelRatio(scale);
  }
  return result;
}

QIcon Symbols::applicationIcon() {
  static const QIcon icon(new SvgIconEngine(squares({16, 24, 32, 48, 64}), [](int pixels) {
    return rendered(fileContent(pixels < 48 ? QStringLiteral(":/icons/tarnwick-small.svg")
                                            : QStringLiteral(":/icons/tarnwick.svg")),
                    pixels);
  }));
  return icon;
}

QIcon Symbols::trayIcon() {
  static const QIcon icon(new SvgIconEngine(squares({22, 24, 32, 48}), [](int pixels) {
    return inked(fileContent(QStringLiteral(":/icons/tarnwick-symbolic.svg")), QByteArrayLiteral("#000"), pixels,
                 QColor(tokens::kText));
  }));
  return icon;
}

}  // namespace tarnwick
