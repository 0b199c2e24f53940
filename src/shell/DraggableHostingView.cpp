// SPDX-License-Identifier: MIT
#include "shell/DraggableHostingView.h"

#include "shell/Placement.h"

#include <QAbstractButton>
#include <QChildEvent>
#include <QEnterEvent>
#include <QMouseEvent>

#include <cmath>

namespace tarnwick {

DraggableHostingView::DraggableHostingView(QWidget* noteView, Window window, QWidget* parent)
    : QWidget(parent), m_noteView(noteView), m_window(std::move(window)) {
  m_noteView->setParent(this);
  m_noteView->setMouseTracking(true);
  watch(m_noteView);
}

void DraggableHostingView::watch(QWidget* widget) {
  widget->installEventFilter(this);
  for (auto* child : widget->findChildren<QWidget*>()) child->installEventFilter(this);
}

void DraggableHostingView::enterEvent(QEnterEvent* event) {
  if (onHoverChange) onHoverChange(true);
  QWidget::enterEvent(event);
}

void DraggableHostingView::leaveEvent(QEvent* event) {
  if (onHoverChange) onHoverChange(false);
  QWidget::leaveEvent(event);
}

void DraggableHostingView::resizeEvent(QResizeEvent* event) {
  m_noteView->setGeometry(rect());
  QWidget::resizeEvent(event);
}

bool DraggableHostingView::eventFilter(QObject* watched, QEvent* event) {
  auto* target = qobject_cast<QWidget*>(watched);
  if (!target || target->window() != window()) return false;
  switch (event->type()) {
    case QEvent::ChildAdded:
      if (auto* child = qobject_cast<QWidget*>(static_cast<QChildEvent*>(event)->child())) watch(child);
      return false;
    case QEvent::MouseButtonPress:
      return mouseDown(target, *static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
      if (static_cast<QMouseEvent*>(event)->buttons() & Qt::LeftButton) {
        return mouseDragged(target, *static_cast<QMouseEvent*>(event));
      }
      showCursorFor(target, *static_cast<QMouseEvent*>(event));
      return false;
    case QEvent::MouseButtonRelease:
      return static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton && mouseUp();
    default:
      return false;
  }
}

void DraggableHostingView::showCursorFor(QWidget* target, const QMouseEvent& event) {
  const auto edges = m_window.edgesAt(target->mapTo(this, event.position()));
  const bool isAcross = edges & (Qt::LeftEdge | Qt::RightEdge);
  const bool isAlong = edges & (Qt::TopEdge | Qt::BottomEdge);
  if (isAcross && isAlong) {
    const bool isFalling = bool(edges & Qt::LeftEdge) == bool(edges & Qt::TopEdge);
    m_noteView->setCursor(isFalling ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor);
  } else if (isAcross) {
    m_noteView->setCursor(Qt::SizeHorCursor);
  } else if (isAlong) {
    m_noteView->setCursor(Qt::SizeVerCursor);
  } else {
    m_noteView->unsetCursor();
  }
}

bool DraggableHostingView::mouseDown(QWidget* target, const QMouseEvent& event) {
  // A press that no child takes comes again for each of its parents.
  if (m_mouseDownScreen && *m_mouseDownScreen == event.globalPosition()) return false;
  if (m_window.mouseDown) m_window.mouseDown();
  m_isDraggingWindow = false;
  m_mouseDownScreen.reset();
  m_windowFrameAtDown.reset();
  m_edges = {};
  if (event.button() != Qt::LeftButton || target->property("keepsOwnDrags").toBool()) return false;
  // The event knows where the window really is, whatever was reported when it was shown.
  m_window.sawOrigin(event.globalPosition() - target->mapTo(window(), event.position()));
  m_mouseDownScreen = event.globalPosition();
  m_windowFrameAtDown = m_window.frame();
  m_edges = m_window.edgesAt(target->mapTo(this, event.position()));
  return false;
}

bool DraggableHostingView::mouseDragged(QWidget* target, const QMouseEvent& event) {
  if (!m_mouseDownScreen || !m_windowFrameAtDown) return false;
  const auto way = event.globalPosition() - *m_mouseDownScreen;
  if (!m_isDraggingWindow) {
    if (std::hypot(way.x(), way.y()) <= kDragThreshold) return false;
    m_isDraggingWindow = true;
    // What was pressed must not click when the drag ends on it.
    if (auto* button = qobject_cast<QAbstractButton*>(target)) button->setDown(false);
  }
  const auto& start = *m_windowFrameAtDown;
  if (m_edges) {
    m_window.setFrame(placement::resized(start, m_edges, way.x(), -way.y(), m_window.minimumSize()));
  } else {
    m_window.setFrame({start.x + way.x(), start.y - way.y(), start.width, start.height});
  }
  return true;
}

bool DraggableHostingView::mouseUp() {
  const bool wasDragging = m_isDraggingWindow;
  m_mouseDownScreen.reset();
  m_windowFrameAtDown.reset();
  m_isDraggingWindow = false;
  if (wasDragging && onDragEnd) onDragEnd();
  return wasDragging;
}

}  // namespace tarnwick
