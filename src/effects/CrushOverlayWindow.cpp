// SPDX-License-Identifier: MIT
#include "effects/CrushOverlayWindow.h"

#include <QPaintEvent>
#include <QPainter>

namespace tarnwick {

CrushOverlayWindow::CrushOverlayWindow(const QRect& geometry, CrushPainter flight)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint),
      m_flight(std::move(flight)),
      m_frame(frameAt(m_flight.plan(), m_flight.plan().timeline.begin)) {
  setAttribute(Qt::WA_TranslucentBackground);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_QuitOnClose, false);
  setFocusPolicy(Qt::NoFocus);
  setGeometry(geometry);
}

void CrushOverlayWindow::advanceTo(double mediaTime) {
  auto next = frameAt(m_flight.plan(), mediaTime);
  const auto moved = m_flight.movedRegion(m_frame, next);
  m_frame = std::move(next);
  if (!moved.isEmpty()) update(moved);
}

void CrushOverlayWindow::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  m_flight.paint(painter, m_frame, event->region());
}

}  // namespace tarnwick
