// SPDX-License-Identifier: MIT
#include "board/BoardFilters.h"

#include "board/CardParts.h"
#include "effects/Controls.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "model/Color.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>

namespace tarnwick {

SearchField::SearchField(QWidget* parent)
    : QWidget(parent),
      m_edit(new QLineEdit(this)),
      m_close(new ToolButton(QStringLiteral("close"), tr("Close search"), ToolButton::Plate::None, this)) {
  QFont font = tokens::font(tokens::Type::RowTitle);
  font.setWeight(QFont::Medium);
  m_edit->setFont(font);
  m_edit->setFrame(false);
  m_edit->setPlaceholderText(tr("Search notes..."));
  m_edit->setAccessibleName(tr("Search"));
  QPalette colors = m_edit->palette();
  colors.setColor(QPalette::Base, Qt::transparent);
  colors.setColor(QPalette::Text, QColor::fromRgb(tokens::kText));
  colors.setColor(QPalette::PlaceholderText, QColor::fromRgb(tokens::kText3));
  colors.setColor(QPalette::Highlight, QColor::fromRgb(tokens::kAccent));
  colors.setColor(QPalette::HighlightedText, QColor::fromRgb(tokens::kOnAccent));
  m_edit->setPalette(colors);
  m_edit->setStyleSheet(QStringLiteral("QLineEdit{background:transparent;border:none;padding:0}"));
  m_edit->installEventFilter(this);
  m_close->setFixedSize(22, 22);
  m_close->setFocusPolicy(Qt::NoFocus);  // Escape does the same from the field
  connect(m_edit, &QLineEdit::textChanged, this, &SearchField::textChanged);
  connect(m_close, &QAbstractButton::clicked, this, &SearchField::closeRequested);
}

QString SearchField::text() const {
  return m_edit->text();
}

void SearchField::setText(const QString& text) {
  m_edit->setText(text);
}

void SearchField::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF box = QRectF(rect()).adjusted(2, 2, -2, -2);
  painter.setPen(QPen(tokens::white(0.08), 1));
  painter.setBrush(tokens::black(0.34));
  painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), 8.5, 8.5);
  QPainterPath clip;
  clip.addRoundedRect(box, 9, 9);
  painter.save();
  painter.setClipPath(clip);
  QLinearGradient inner(0, box.top(), 0, box.top() + 4);
  inner.setColorAt(0, tokens::black(0.42));
  inner.setColorAt(1, tokens::black(0));
  painter.fillRect(QRectF(box.left(), box.top(), box.width(), 4), inner);
  painter.restore();
  const double x = layoutDirection() == Qt::RightToLeft ? width() - 11 - 15 : 11;
  Symbols::paint(painter, QStringLiteral("search"), QRectF(x, (height() - 15) / 2.0, 15, 15),
                 QColor::fromRgb(tokens::kText2));
  if (m_edit->hasFocus()) paintFocusRing(painter, QRectF(rect()), 11);
}

void SearchField::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  m_edit->setGeometry(isMirrored ? 32 : 34, 4, width() - 66, height() - 8);
  m_close->move(isMirrored ? 8 : width() - 30, (height() - 22) / 2);
}

bool SearchField::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_edit) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
      Q_EMIT closeRequested();
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

TagRow::TagRow(QWidget* parent) : ChoiceRow(tr("Tags"), parent) {}

QString TagRow::itemName(int index) const {
  return CardParts::tagName(kTaskTags[static_cast<std::size_t>(index)]);
}

QRectF TagRow::itemRect(int index) const {
  const double step = (width() + 4.0) / count();
  return mirrored(QRectF(index * step, 1, step - 4, 28));
}

void TagRow::paintItem(QPainter& painter, int index, const ItemState& state) {
  const QRectF rect = itemRect(index);
  if (state.isCurrent) {
    painter.setPen(QPen(tokens::white(0.75), 1.5));
    painter.setBrush(tokens::white(0.15));
    painter.drawRoundedRect(rect.adjusted(0.75, 0.75, -0.75, -0.75), 7.25, 7.25);
  } else if (state.isHovered) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(state.isPressed ? tokens::black(0.35) : tokens::white(0.08));
    painter.drawRoundedRect(rect, 8, 8);
  }
  const TaskTag tag = kTaskTags[static_cast<std::size_t>(index)];
  const QPointF center = rect.center();
  if (tag == TaskTag::none) {
    Symbols::paint(painter, QStringLiteral("flagOff"), QRectF(center.x() - 8.5, center.y() - 8.5, 17, 17),
                   QColor::fromRgb(tokens::kText3));
  } else {
    const QColor color = CardParts::tagColor(tag);
    painter.save();
    painter.translate(center - QPointF(11, 7));
    QPainterPath flag;
    flag.addPolygon(QPolygonF{{1, 1}, {21, 1}, {17.4, 7}, {21, 13}, {1, 13}});
    flag.closeSubpath();
    painter.fillPath(flag.translated(0, 1), tokens::black(0.40));
    painter.fillPath(flag, color);
    painter.fillRect(QRectF(1, 1, 9, 12), tokens::white(0.32));
    painter.restore();
  }
  if (state.hasFocus) paintFocusRing(painter, rect, 8);
}

}  // namespace tarnwick
