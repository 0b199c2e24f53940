// SPDX-License-Identifier: MIT
// The window reserved for a shelf of copied texts. Nothing opens it yet.
#pragma once

#include <QWidget>

namespace tarnwick {

class ClipboardShelfPanel final : public QWidget {
  Q_OBJECT

 public:
  ClipboardShelfPanel() : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) {}
  /// It brings its own window flags and has no parent: there is no other way to make one.
  ClipboardShelfPanel(QWidget* parent, Qt::WindowFlags flags) = delete;

  /// It takes the keyboard when it is shown.
  [[nodiscard]] bool canBecomeKey() const { return true; }
};

}  // namespace tarnwick
