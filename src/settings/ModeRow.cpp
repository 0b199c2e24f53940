// SPDX-License-Identifier: MIT
#include "settings/ModeRow.h"

#include "effects/Controls.h"
#include "effects/Symbols.h"
#include "settings/SettingsText.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

constexpr int kPadding = 13;
constexpr int kTextLeft = 73;
constexpr int kVerticalPadding = 9;

void paintRadio(QPainter& painter, const QRectF& box, bool isOn, bool isHovered) {
  if (isOn) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(tokens::kAccent));
    painter.drawEllipse(box);
    painter.setBrush(QColor(tokens::kOnAccent));
    painter.drawEllipse(box.center(), 3.5, 3.5);
    return;
  }
  painter.setPen(QPen(QColor(isHovered ? tokens::kText : 0xFFA5A19A), 1.5));
  painter.setBrush(QColor(0xFF1B1C21));
  painter.drawEllipse(box.adjusted(.75, .75, -.75, -.75));
}

}  // namespace

ModeRow::ModeRow(const QString& symbol, const QString& title, const QString& help, QWidget* parent)
    : QRadioButton(title, parent), m_symbol(symbol), m_help(help) {
  setAccessibleName(title);
  setAccessibleDescription(help);
  setAttribute(Qt::WA_Hover);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

int ModeRow::heightForWidth(int width) const {
  const double text = width - kTextLeft - kPadding;
  const double height = paragraphHeight(this->text(), tokens::Type::RowTitle, text) +
                        paragraphHeight(m_help, tokens::Type::Help, text) + 2 * kVerticalPadding;
  return std::max(46, static_cast<int>(std::ceil(height)));
}

QSize ModeRow::sizeHint() const { return {360, heightForWidth(360)}; }
QSize ModeRow::minimumSizeHint() const { return {120, 46}; }
bool ModeRow::hitButton(const QPoint& position) const { return rect().contains(position); }

void ModeRow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const auto placed = [&](const QRectF& box) {
    return isMirrored ? QRectF(width() - box.right(), box.top(), box.width(), box.height()) : box;
  };
  paintRadio(painter, placed(QRectF(kPadding, (height() - 18) / 2.0, 18, 18)), isChecked(), underMouse());
  Symbols::paint(painter, m_symbol, placed(QRectF(43, (height() - 18) / 2.0, 18, 18)),
                 QColor(isChecked() ? tokens::kAccent : tokens::kText3));

  const double textWidth = width() - kTextLeft - kPadding;
  const double titleHeight = paragraphHeight(text(), tokens::Type::RowTitle, textWidth);
  const double helpHeight = paragraphHeight(m_help, tokens::Type::Help, textWidth);
  const double top = std::round((height() - titleHeight - helpHeight) / 2);
  const auto alignment = (isMirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute;
  painter.setPen(QColor(tokens::kText));
  paintParagraph(painter, placed(QRectF(kTextLeft, top, textWidth, titleHeight)), text(), tokens::Type::RowTitle,
                 alignment);
  painter.setPen(QColor(tokens::kText3));
  paintParagraph(painter, placed(QRectF(kTextLeft, top + titleHeight, textWidth, helpHeight)), m_help,
                 tokens::Type::Help, alignment);
  if (hasFocus()) paintFocusRing(painter, QRectF(rect()).adjusted(5, 5, -5, -5), 7);
}

}  // namespace tarnwick
