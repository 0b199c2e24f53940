// SPDX-License-Identifier: MIT
// A menu whose items tell their keys as all texts do, ⌘⇧T.
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
  void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
};

}  // namespace tarnwick
