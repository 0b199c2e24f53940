// SPDX-License-Identifier: MIT
// The quiet grey button of the settings: a word on a plate, with room for a picture before it.
#pragma once

#include <QPushButton>

namespace tarnwick {

class PlateButton : public QPushButton {
  Q_OBJECT

 public:
  /// Around the plate, for the ring of the keyboard.
  static constexpr int kRingRoom = 4;

  explicit PlateButton(const QString& text, QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  /// Room for the pictures before and behind the word; none by default.
  [[nodiscard]] virtual QSizeF leadingSize() const { return {}; }
  [[nodiscard]] virtual QSizeF trailingSize() const { return {}; }
  virtual void paintLeading(QPainter& /*painter*/, const QRectF& /*box*/) const {}
  virtual void paintTrailing(QPainter& /*painter*/, const QRectF& /*box*/) const {}
  /// What is written; may be another word than the button's own.
  [[nodiscard]] virtual QString word() const { return text(); }
  [[nodiscard]] virtual int sidePadding() const { return 14; }

  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarnwick
