// SPDX-License-Identifier: MIT
// The forward button of the welcome: a large sheet of accent paper.
#pragma once

#include "effects/PaintedButton.h"

namespace tarnwick {

class WelcomePrimaryButton final : public PaintedButton {
  Q_OBJECT

 public:
  explicit WelcomePrimaryButton(QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarnwick
