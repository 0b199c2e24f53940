// SPDX-License-Identifier: MIT
#include "board/StickyMenu.h"

#include "effects/Controls.h"
#include "effects/StampBadge.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QPainter>

namespace tarnwick {

StickyMenu::StickyMenu(QWidget* parent) : QMenu(parent) {
  styleMenu(*this);
  setMinimumWidth(172);
  setAttribute(Qt::WA_DeleteOnClose);
}

void StickyMenu::setHeading(const QString& text, const QString& symbol) {
  m_heading = addAction(text);
  m_heading->setEnabled(false);
  m_headingSymbol = symbol;
  setTitle(text);
  setAccessibleName(text);
}

QAction* StickyMenu::addChoice(const QString& text, bool isChecked) {
  QAction* action = addAction(text);
  action->setCheckable(true);
  action->setChecked(isChecked);
  return action;
}

QAction* StickyMenu::addStamp(TaskStamp stamp, bool isChecked) {
  QAction* action = addChoice(label(stamp), isChecked);
  if (stamp != TaskStamp::none) m_stamps.insert(action, stamp);
  return action;
}

void StickyMenu::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  painter.setPen(QPen(tokens::white(0.13), 1));
  painter.setBrush(QColor::fromRgb(tokens::kPopup));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 11.5, 11.5);
  const auto side = int(isMirrored ? Qt::AlignRight : Qt::AlignLeft) | int(Qt::AlignVCenter) | Qt::TextSingleLine;
  for (const QAction* action : actions()) {
    const QRectF row(actionGeometry(const_cast<QAction*>(action)));  // NOLINT: Qt asks for a mutable one
    const auto place = [&](double x, double w) { return isMirrored ? row.right() - x - w : row.left() + x; };
    if (action->isSeparator()) {
      painter.fillRect(QRectF(row.left() + 8, row.center().y(), row.width() - 16, 1), tokens::white(0.12));
      continue;
    }
    if (action == m_heading) {
      const QColor quiet = QColor::fromRgb(0xA5A19A);
      Symbols::paint(painter, m_headingSymbol, QRectF(place(8, 13), row.center().y() - 6.5, 13, 13), quiet);
      painter.setFont(tokens::font(tokens::Type::DueLabel));
      painter.setPen(quiet);
      painter.drawText(QRectF(place(28, row.width() - 36), row.top(), row.width() - 36, row.height()), side,
                       action->text());
      continue;
    }
    const bool isHot = action == activeAction() && action->isEnabled();
    if (isHot) {
      painter.setPen(Qt::NoPen);
      painter.setBrush(QColor::fromRgb(tokens::kAccent));
      painter.drawRoundedRect(row, 7, 7);
    }
    const QColor front = QColor::fromRgb(isHot ? tokens::kOnAccent : tokens::kText);
    if (action->isChecked()) {
      Symbols::paint(painter, QStringLiteral("check"), QRectF(place(9, 13), row.center().y() - 6.5, 13, 13), front);
    }
    if (const auto stamp = m_stamps.constFind(action); stamp != m_stamps.constEnd()) {
      const QSizeF badge = StampBadgeView::size(*stamp);
      const QRectF box(place(31, badge.width()), row.center().y() - badge.height() / 2, badge.width(), badge.height());
      StampBadgeView::paint(painter, *stamp, box.center(), 0, StampGround::Menu);
    } else {
      painter.setFont(font());
      painter.setPen(front);
      painter.drawText(QRectF(place(31, row.width() - 41), row.top(), row.width() - 41, row.height()), side,
                       action->text());
    }
  }
}

}  // namespace tarnwick
