// SPDX-License-Identifier: MIT
// A button that plays one of the paper sounds and shows how its loudness runs.
#pragma once

#include "settings/PlateButton.h"

#include <vector>

namespace tarnwick {

class SoundPreviewButton final : public PlateButton {
  Q_OBJECT

 public:
  /// `bars`: half heights of the picture's bars, in device-independent pixels, at most 6.
  SoundPreviewButton(const QString& text, std::vector<double> bars, QWidget* parent = nullptr)
      : PlateButton(text, parent), m_bars(std::move(bars)) {}

 protected:
  [[nodiscard]] QSizeF leadingSize() const override { return {34, 14}; }
  void paintLeading(QPainter& painter, const QRectF& box) const override;

 private:
  std::vector<double> m_bars;
};

}  // namespace tarnwick
