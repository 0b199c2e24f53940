// SPDX-License-Identifier: MIT
// A menu whose items tell their keys as all texts do, ⌘⇧T, and show whether they are on beside their symbol.
#pragma once

#include <QKeySequence>
#include <QMenu>

namespace tarnwick {

/// Modifiers as signs in front of the key.
[[nodiscard]] QString chordText(const QKeySequence& keys);

class ChordMenu final : public QMenu {
  Q_OBJECT

 public:
  using QMenu::QMenu;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
};

}  // namespace tarnwick
