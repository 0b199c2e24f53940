// SPDX-License-Identifier: MIT
#include "effects/SvgIconEngine.h"

#include <QPainter>
#include <QPaintDevice>

#include <algorithm>

namespace tarnwick {

SvgIconEngine::SvgIconEngine(QList<QSize> sizes, Draw draw) : m_sizes(std::move(sizes)), m_draw(std::move(draw)) {}

void SvgIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) {
  const double scale = painter->device() ? painter->device()->devicePixelRatioF() : 1;
  painter->drawPixmap(rect, pixmap((QSizeF(rect.size()) * scale).toSize(), mode, state));
}

QPixmap SvgIconEngine::pixmap(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) {
  const int pixels = std::min(size.width(), size.height());
  if (pixels <= 0) return {};
  auto& drawn = m_drawn[pixels];
  if (drawn.isNull()) drawn = m_draw(pixels);
  return drawn;
}

QList<QSize> SvgIconEngine::availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) { return m_sizes; }

QIconEngine* SvgIconEngine::clone() const { return new SvgIconEngine(*this); }

}  // namespace tarnwick
