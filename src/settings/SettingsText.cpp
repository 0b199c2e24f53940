// SPDX-License-Identifier: MIT
#include "settings/SettingsText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>

#include <cmath>

namespace tarnwick {

namespace {

/// Breaks the text into lines of the width; the layout's own line positions are not used.
int breakLines(QTextLayout& layout, double width, Qt::Alignment alignment) {
  QTextOption option(alignment);
  // The direction is the text's own; on which side it stands is the caller's choice.
  option.setTextDirection(layout.text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  layout.beginLayout();
  int count = 0;
  for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    ++count;
  }
  layout.endLayout();
  return count;
}

QString withLineBreaks(QString text) { return text.replace(u'\n', QChar(QChar::LineSeparator)); }

}  // namespace

double paragraphHeight(const QString& text, tokens::Type role, double width) {
  if (text.isEmpty()) return 0;
  QTextLayout layout(withLineBreaks(text), tokens::font(role));
  return breakLines(layout, width, Qt::AlignLeading) * tokens::lineHeight(role);
}

double balancedWidth(const QString& text, tokens::Type role, double width) {
  const double height = paragraphHeight(text, role, width);
  double tooNarrow = width / 2;
  double enough = width;
  while (enough - tooNarrow > 1) {
    const double middle = (tooNarrow + enough) / 2;
    (paragraphHeight(text, role, middle) > height ? tooNarrow : enough) = middle;
  }
  return std::ceil(enough);
}

void paintParagraph(QPainter& painter, const QRectF& rect, const QString& text, tokens::Type role,
                    Qt::Alignment alignment) {
  QTextLayout layout(withLineBreaks(text), tokens::font(role));
  const int count = breakLines(layout, rect.width(), alignment);
  double top = rect.top();
  for (int i = 0; i < count; ++i) {
    const auto line = layout.lineAt(i);
    const double slack = (tokens::lineHeight(role) - line.height()) / 2;
    // The layout stacked the lines in their natural height: take that out again.
    line.draw(&painter, QPointF(rect.left(), std::round(top + slack) - line.y()));
    top += tokens::lineHeight(role);
  }
}

SettingsText::SettingsText(const QString& text, tokens::Type role, QRgb color, QWidget* parent)
    : QLabel(text, parent), m_role(role), m_color(color) {
  setFont(tokens::font(role));
  setWordWrap(true);
  setTextFormat(Qt::PlainText);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void SettingsText::setAlignment(Qt::Alignment alignment) { QLabel::setAlignment(alignment); }

void SettingsText::setColor(QRgb color) {
  m_color = QColor(color);
  update();
}

int SettingsText::heightForWidth(int width) const {
  return static_cast<int>(std::ceil(paragraphHeight(text(), m_role, width)));
}

QSize SettingsText::sizeHint() const {
  const double width = QFontMetricsF(tokens::font(m_role)).horizontalAdvance(text());
  return {static_cast<int>(std::ceil(width)) + 1, static_cast<int>(std::ceil(tokens::lineHeight(m_role)))};
}

QSize SettingsText::minimumSizeHint() const { return {40, sizeHint().height()}; }

void SettingsText::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(m_color);
  paintParagraph(painter, rect(), text(), m_role,
                 QStyle::visualAlignment(layoutDirection(), alignment() & Qt::AlignHorizontal_Mask) | Qt::AlignAbsolute);
}

}  // namespace tarnwick
