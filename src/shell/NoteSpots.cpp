// SPDX-License-Identifier: MIT
#include "shell/NoteSpots.h"

#include "effects/Controls.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

namespace tarnwick {

NoteSpot::NoteSpot(const QString& accessibleName, double ringRadius, QWidget* parent)
    : QAbstractButton(parent), m_ringRadius(ringRadius) {
  setAccessibleName(accessibleName);
  setToolTip(accessibleName);
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
  connect(this, &QAbstractButton::pressed, this, [this] {
    if (onLookChanged) onLookChanged();
  });
  connect(this, &QAbstractButton::released, this, [this] {
    if (onLookChanged) onLookChanged();
  });
}

bool NoteSpot::event(QEvent* event) {
  const bool isHandled = QAbstractButton::event(event);
  switch (event->type()) {
    case QEvent::Enter:
    case QEvent::Leave:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
      if (onLookChanged) onLookChanged();
      break;
    default:
      break;
  }
  return isHandled;
}

void NoteSpot::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

void NoteSpot::paintEvent(QPaintEvent*) {
  if (!hasFocus()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  paintFocusRing(painter, QRectF(rect()).adjusted(3, 3, -3, -3), m_ringRadius);
}

NoteTextSpot::NoteTextSpot(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::TabFocus);
  setMouseTracking(true);
}

bool NoteTextSpot::event(QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
    Q_EMIT focusChanged();
    update();
  }
  return QWidget::event(event);
}

void NoteTextSpot::mousePressEvent(QMouseEvent* event) { event->setAccepted(event->button() == Qt::LeftButton); }

void NoteTextSpot::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
    Q_EMIT clicked(event->position());
  }
}

void NoteTextSpot::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Q_EMIT editRequested(event->position());
}

void NoteTextSpot::wheelEvent(QWheelEvent* event) {
  const double pixels = event->pixelDelta().isNull() ? event->angleDelta().y() / 120.0 * 40 : event->pixelDelta().y();
  Q_EMIT scrolled(-pixels);
}

void NoteTextSpot::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: Q_EMIT keyboardEditRequested(); break;
    case Qt::Key_Up: Q_EMIT stepped(-1); break;
    case Qt::Key_Down: Q_EMIT stepped(1); break;
    case Qt::Key_PageUp: Q_EMIT scrolled(-80); break;
    case Qt::Key_PageDown: Q_EMIT scrolled(80); break;
    case Qt::Key_Space: Q_EMIT toggled(); break;
    default: QWidget::keyPressEvent(event);
  }
}

void NoteTextSpot::paintEvent(QPaintEvent*) {
  if (!hasFocus()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  paintFocusRing(painter, QRectF(rect()).adjusted(4, 4, -4, -4), 4);
}

}  // namespace tarnwick
