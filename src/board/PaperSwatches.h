// SPDX-License-Identifier: MIT
// The palette and the paper themes to choose from, as little sheets.
#pragma once

#include "board/ChoiceRow.h"
#include "model/Enumerations.h"

namespace tarnwick {

class ColorSwatches final : public ChoiceRow {
  Q_OBJECT

 public:
  static constexpr int kMargin = 5;  // around the sheets, for the ring
  explicit ColorSwatches(QWidget* parent = nullptr);
  [[nodiscard]] QString colorHex() const;
  /// A colour that is not in the palette leaves nothing chosen.
  void setColorHex(const QString& colorHex);
  [[nodiscard]] int count() const override;
  [[nodiscard]] QString itemName(int index) const override;
  [[nodiscard]] QRectF itemRect(int index) const override;
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintItem(QPainter& painter, int index, const ItemState& state) override;
};

class ThemeChips final : public ChoiceRow {
  Q_OBJECT

 public:
  explicit ThemeChips(QWidget* parent = nullptr);
  [[nodiscard]] PaperTheme theme() const { return kPaperThemes[static_cast<std::size_t>(current())]; }
  void setTheme(PaperTheme theme);
  void setColorHex(const QString& colorHex);
  [[nodiscard]] int count() const override { return static_cast<int>(kPaperThemes.size()); }
  [[nodiscard]] QString itemName(int index) const override;
  [[nodiscard]] QRectF itemRect(int index) const override;
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintItem(QPainter& painter, int index, const ItemState& state) override;

 private:
  QString m_colorHex;
};

}  // namespace tarnwick
