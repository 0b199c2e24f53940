// SPDX-License-Identifier: MIT
// The menu of the bare board: which surface it has, and the way to all ashes.
#pragma once

#include "board/StickyMenu.h"

namespace tarnwick {

class BoardMenu final : public StickyMenu {
  Q_OBJECT

 public:
  explicit BoardMenu(BoardMood current, QWidget* parent = nullptr);

 Q_SIGNALS:
  void moodChosen(BoardMood mood);
  void ashesChosen();
};

}  // namespace tarnwick
