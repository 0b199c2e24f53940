// SPDX-License-Identifier: MIT
// A quiet button of the welcome: a word on a lightly lit plate, with a symbol before it where one is given.
#pragma once

#include "effects/PaintedButton.h"

namespace tarnwick {

class WelcomeButton final : public PaintedButton {
  Q_OBJECT

 public:
  WelcomeButton(const QString& text, const QString& symbol, int height, QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] double contentWidth() const;

  QString m_symbol;
  int m_height;
};

}  // namespace tarnwick
