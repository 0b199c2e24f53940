// SPDX-License-Identifier: MIT
// An empty place for one of the day's three notes: debossed and dashed, a lifted sheet under the pointer.
#pragma once

#include "effects/PaintedButton.h"

namespace tarnwick {

class PlanSlot final : public PaintedButton {
  Q_OBJECT

 public:
  static constexpr int kWidth = 108;
  static constexpr int kCount = 3;
  static constexpr int kMargin = 14;  // around the paper, for shadow and ring

  /// `index` from 0.
  PlanSlot(int index, QWidget* parent);
  void setPaperHeight(int height);
  [[nodiscard]] QString colorHex() const;
  [[nodiscard]] QSize sizeHint() const override { return {kWidth + 2 * kMargin, m_height + 2 * kMargin}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  [[nodiscard]] bool hitButton(const QPoint& point) const override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  int m_index;
  int m_height = 100;
};

}  // namespace tarnwick
