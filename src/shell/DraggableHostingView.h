// SPDX-License-Identifier: MIT
// Holds a note's view and lets the whole note be dragged by any spot of it, and resized by the edges of its paper.
// Short presses stay clicks for what lies under them.
#pragma once

#include "platform/DesktopGeometry.h"

#include <QPointF>
#include <QWidget>

#include <functional>
#include <optional>

namespace tarnwick {

class DraggableHostingView final : public QWidget {
  Q_OBJECT

 public:
  static constexpr double kDragThreshold = 4;

  /// What the view asks of its window.
  struct Window {
    std::function<void()> mouseDown;             // bring it forward
    std::function<DesktopRect()> frame;          // as wanted
    std::function<void(const DesktopRect&)> setFrame;
    /// The window's true top-left corner, Qt's global coordinates, as an event showed it.
    std::function<void(const QPointF&)> sawOrigin;
    /// Edges of the paper at a point of the view; none where a press should drag.
    std::function<Qt::Edges(const QPointF&)> edgesAt;
    std::function<DesktopSize()> minimumSize;
  };
  DraggableHostingView(QWidget* noteView, Window window, QWidget* parent);

  std::function<void(bool)> onHoverChange;  // pointer entered or left
  std::function<void()> onDragEnd;          // a move or resize by the user ended

  /// A widget marked so keeps its own drags, as a text field does.
  static void keepOwnDrags(QWidget* widget) { widget->setProperty("keepsOwnDrags", true); }
  [[nodiscard]] bool isDraggingWindow() const { return m_isDraggingWindow; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void watch(QWidget* widget);
  bool mouseDown(QWidget* target, const QMouseEvent& event);
  bool mouseDragged(QWidget* target, const QMouseEvent& event);
  bool mouseUp();
  void showCursorFor(QWidget* target, const QMouseEvent& event);

  QWidget* m_noteView;
  Window m_window;
  std::optional<QPointF> m_mouseDownScreen;  // Qt's global coordinates
  std::optional<DesktopRect> m_windowFrameAtDown;
  Qt::Edges m_edges;
  bool m_isDraggingWindow = false;
};

}  // namespace tarnwick
