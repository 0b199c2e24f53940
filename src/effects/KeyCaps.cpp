// SPDX-License-Identifier: MIT
#include "effects/KeyCaps.h"

#include "effects/SoftShadow.h"
#include "effects/Tokens.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

constexpr double kCap = 26;
constexpr double kGap = 5;
constexpr double kMargin = 2;
constexpr double kDepth = 2;   // the cap's front face below its top
constexpr double kUnder = 5;   // that face and the shadow
constexpr double kRadius = 7;

void paintCap(QPainter& painter, const QRectF& cap, const QString& key, const QFont& face) {
  paintBoxShadow(painter, cap.translated(0, kDepth), kRadius, kRadius, 2, 2, .40);
  QPainterPath foot = roundedBox(cap.translated(0, kDepth), kRadius, kRadius);
  painter.strokePath(foot, QPen(tokens::black(.50), 1.5));
  painter.fillPath(foot, QColor(0xB9, 0xAD, 0x92));
  const QPainterPath top = roundedBox(cap, kRadius, kRadius);
  QLinearGradient light(cap.topLeft(), cap.bottomLeft());
  light.setColorAt(0, QColor(0xFF, 0xFD, 0xF5));
  light.setColorAt(1, QColor(0xEF, 0xE6, 0xD2));
  painter.fillPath(top, light);

  // Symbols often come from a face with other metrics: centre what is drawn, not its line.
  QPainterPath glyph;
  glyph.addText(QPointF(0, 0), face, key);
  const QRectF ink = glyph.boundingRect();
  const QPointF middle = ink.isEmpty() ? QFontMetricsF(face).tightBoundingRect(key).center() : ink.center();
  painter.setFont(face);
  painter.setPen(QColor(tokens::kOnLabel));
  painter.drawText(cap.center() - middle, key);
}

}  // namespace

KeyCaps::KeyCaps(const QStringList& keys, QWidget* parent) : QWidget(parent) {
  QFont face = tokens::font(tokens::Type::RowTitle);
  face.setPixelSize(12);
  setFont(face);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setKeys(keys);
}

void KeyCaps::setKeys(const QStringList& keys) {
  m_keys = keys;
  setAccessibleName(keys.join(QLatin1Char(' ')));
  updateGeometry();
  update();
}

double KeyCaps::capWidth(const QString& key) const {
  return key.size() < 2 ? kCap : std::max(kCap, std::ceil(QFontMetricsF(font()).horizontalAdvance(key)) + 18);
}

QSize KeyCaps::sizeHint() const {
  double wide = 2 * kMargin;
  for (const QString& key : m_keys) {
    wide += capWidth(key);
  }
  if (m_keys.size() > 1) {
    wide += kGap * static_cast<double>(m_keys.size() - 1);
  }
  return {static_cast<int>(std::ceil(wide)), static_cast<int>(kCap + kMargin + kUnder)};
}

void KeyCaps::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  double x = kMargin;
  for (const QString& key : m_keys) {
    const double wide = capWidth(key);
    paintCap(painter, QRectF(x, kMargin, wide, kCap), key, font());
    x += wide + kGap;
  }
}

}  // namespace tarnwick
