// SPDX-License-Identifier: MIT
// Catches ⌘Z wherever the application gets a key while the board exists. Super+Z always; Ctrl+Z is left to a focused
// text field that has typing to take back.
#pragma once

#include <QObject>
#include <QWidget>

#include <functional>

class QKeyEvent;

namespace tarnwick {

/// Sits in the board, is never seen and takes no keyboard focus.
class UndoKeyView final : public QWidget {
  Q_OBJECT

 public:
  explicit UndoKeyView(QWidget* parent);
  std::function<void()> onUndo;

 protected:
  bool event(QEvent* event) override;

 private:
  QObject* m_monitor = nullptr;  // made once, when the view first gets a window
};

class UndoKeyMonitor final : public QObject {
  Q_OBJECT

 public:
  explicit UndoKeyMonitor(UndoKeyView* view);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  UndoKeyView* m_view;
};

}  // namespace tarnwick
