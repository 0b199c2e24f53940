// SPDX-License-Identifier: MIT
#include "shell/NoteSpots.h"

#include "effects/Tokens.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

namespace tarnwick {

namespace {

void paintRing(QWidget& spot, double inset, double radius, const QColor& ink) {
  QPainter painter(&spot);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(tokens::faded(ink, .85), 2));
  painter.drawRoundedRect(QRectF(spot.rect()).adjusted(inset, inset, -inset, -inset), radius, radius);
}

}  // namespace

bool isByKeyboard(const QFocusEvent& event) {
  return event.gotFocus() && (event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason ||
                              event.reason() == Qt::ShortcutFocusReason);
}

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
      if (event->type() == QEvent::FocusIn) m_isRinged = isByKeyboard(*static_cast<QFocusEvent*>(event));
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
  if (isRinged()) paintRing(*this, 2, m_ringRadius, m_ink);
}

NoteTextSpot::NoteTextSpot(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::TabFocus);
  setMouseTracking(true);
}

bool NoteTextSpot::event(QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
    m_isRinged = isByKeyboard(*static_cast<QFocusEvent*>(event));
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
    default: QWidget::keyPressEvent(event); return;  // a key held on its own, or a chord for somebody else
  }
  m_isRinged = true;
  update();
}

void NoteTextSpot::paintEvent(QPaintEvent*) {
  if (m_isRinged) paintRing(*this, 2, 4, m_ink);
}

}  // namespace tarnwick
