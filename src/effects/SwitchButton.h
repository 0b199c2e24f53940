// SPDX-License-Identifier: MIT
// A switch: its knob at one end or the other, with a tick while it is on.
#pragma once

#include "effects/PaintedButton.h"

namespace tarnwick {

class SwitchButton final : public PaintedButton {
  Q_OBJECT
 public:
  explicit SwitchButton(const QString& accessibleName, QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override { return {40, 24}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarnwick
