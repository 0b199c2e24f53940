// SPDX-License-Identifier: MIT
// A button that lies on paper: symbol and word in the paper's ink, on a light chip or on nothing.
#pragma once

#include "effects/PaintedButton.h"

#include <QColor>

namespace tarnwick {

class InkButton final : public PaintedButton {
  Q_OBJECT

 public:
  enum class Plate { None, Chip };
  InkButton(const QString& symbol, const QString& accessibleName, Plate plate, QWidget* parent);
  void setSymbol(const QString& symbol);
  void setInk(const QColor& ink);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString m_symbol;
  Plate m_plate;
  QColor m_ink;
};

}  // namespace tarnwick
