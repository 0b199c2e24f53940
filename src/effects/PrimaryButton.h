// SPDX-License-Identifier: MIT
// A filled paper button with a word, a symbol or both.
#pragma once

#include "effects/PaintedButton.h"

namespace tarnwick {

class PrimaryButton final : public PaintedButton {
  Q_OBJECT
 public:
  explicit PrimaryButton(const QString& text, const QString& symbol = {}, QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] double contentWidth() const;
  void paintPaper(QPainter& painter, const QRectF& paper) const;
  void updateHalo();

  QString m_symbol;
};

}  // namespace tarnwick
