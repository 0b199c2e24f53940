// SPDX-License-Identifier: MIT
// A label whose lines stand at the distance that its type role asks for, wrapping to the width it gets.
#pragma once

#include "effects/Tokens.h"

#include <QLabel>

namespace tarnwick {

class SettingsText final : public QLabel {
  Q_OBJECT

 public:
  SettingsText(const QString& text, tokens::Type role, QRgb color, QWidget* parent = nullptr);
  void setAlignment(Qt::Alignment alignment);
  void setColor(QRgb color);

  [[nodiscard]] int heightForWidth(int width) const override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  tokens::Type m_role;
  QColor m_color;
};

/// Height of a text in a role's lines, wrapped to the width.
[[nodiscard]] double paragraphHeight(const QString& text, tokens::Type role, double width);
/// The narrowest width that takes no more lines than the given one: lines of like length read as one block.
[[nodiscard]] double balancedWidth(const QString& text, tokens::Type role, double width);
/// Draws it from the top of the rectangle with the painter's pen.
void paintParagraph(QPainter& painter, const QRectF& rect, const QString& text, tokens::Type role,
                    Qt::Alignment alignment = Qt::AlignLeading);

}  // namespace tarnwick
