// SPDX-License-Identifier: MIT
// A word in the accent colour that leads somewhere, or opens something small.
#pragma once

#include <QPushButton>

namespace tarnwick {

class LinkButton final : public QPushButton {
  Q_OBJECT

 public:
  explicit LinkButton(const QString& text, const QString& symbol = {}, QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString m_symbol;
};

}  // namespace tarnwick
