// SPDX-License-Identifier: MIT
// A word, a symbol or both on a quiet plate; a paper label while checked.
#pragma once

#include "effects/PaintedButton.h"

namespace tarnwick {

class ToolButton final : public PaintedButton {
  Q_OBJECT
 public:
  enum class Plate { None, Chip };
  ToolButton(const QString& symbol, const QString& accessibleName, Plate plate = Plate::None,
             QWidget* parent = nullptr);
  void setSymbol(const QString& symbol);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void updateHalo();
  void paintPlate(QPainter& painter) const;
  [[nodiscard]] double radius() const;

  QString m_symbol;
  Plate m_plate;
};

}  // namespace tarnwick
