// SPDX-License-Identifier: MIT
// The ashes: charred scraps of burned notes over the whole board, with the ways back and out.
#pragma once

#include "model/Task.h"

#include <QWidget>

#include <functional>
#include <vector>

class QAbstractButton;

namespace tarnwick {

class AshesRow;
class ToolButton;

class AshesOverlay final : public QWidget {
  Q_OBJECT

 public:
  struct Actions {
    std::function<void()> onClose;
    std::function<void(const TaskPtr&)> onRevive;
    std::function<void()> onSweep;
  };

  AshesOverlay(Actions actions, QWidget* parent);
  ~AshesOverlay() override;
  void setBurned(const TaskList& burned);
  [[nodiscard]] const TaskList& burned() const { return m_burned; }
  void takeFocus();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void layOut();
  void scrollTo(int offset);
  [[nodiscard]] int maxOffset() const;
  void paintEmpty(QPainter& painter) const;

  Actions m_actions;
  TaskList m_burned;
  QWidget* m_scraps;              // clips the rows between head and foot
  std::vector<AshesRow*> m_rows;  // as many as fit: they are given the notes that are in view
  ToolButton* m_close;
  QAbstractButton* m_sweep;
  int m_offset = 0;
};

}  // namespace tarnwick
