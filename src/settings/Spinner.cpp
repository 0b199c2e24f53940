// SPDX-License-Identifier: MIT
#include "settings/Spinner.h"

#include "effects/Tokens.h"

#include <QPainter>

#include <cmath>

namespace tarnwick {

Spinner::Spinner(Scheduler& scheduler, const Workspace& workspace, QWidget* parent)
    : QWidget(parent), m_scheduler(scheduler), m_workspace(workspace) {
  setFixedSize(18, 18);
  setAccessibleName(tr("Checking for updates"));
}

void Spinner::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (m_workspace.isMotionReduced()) return;
  m_frames = m_scheduler.frames([this](std::chrono::nanoseconds mediaTime) {
    const double seconds = std::chrono::duration<double>(mediaTime).count();
    m_turn = seconds - std::floor(seconds);
    update();
  });
}

void Spinner::hideEvent(QHideEvent* event) {
  m_frames.cancel();
  QWidget::hideEvent(event);
}

void Spinner::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const auto circle = QRectF(rect()).adjusted(3, 3, -3, -3);
  painter.setPen(QPen(tokens::white(.20), 2));
  painter.drawEllipse(circle);
  painter.setPen(QPen(QColor(tokens::kAccent), 2, Qt::SolidLine, Qt::RoundCap));
  painter.drawArc(circle, static_cast<int>((.25 - m_turn) * 360 * 16), -90 * 16);
}

}  // namespace tarnwick
