// SPDX-License-Identifier: MIT
#include "board/NotePage.h"

#include "board/BoardKeys.h"
#include "board/ChecklistEdit.h"
#include "board/NoteForm.h"
#include "effects/Controls.h"
#include "effects/Tokens.h"

#include <QKeyEvent>
#include <QPainter>

namespace tarnwick {
namespace {

constexpr int kEdge = 14;
constexpr int kHeadHeight = 50;
constexpr int kWayOut = 28;
constexpr int kActionHeight = 30;
constexpr int kActionGap = 8;

}  // namespace

NotePage::NotePage(const BoardServices& services, const Head& head, QWidget* parent)
    : QWidget(parent),
      m_services(services),
      m_form(new NoteForm(services, this)),
      m_wayOut(new ToolButton(head.symbol, head.wayOut, ToolButton::Plate::Chip, this)) {
  setAccessibleName(head.title);
  m_form->lower();
  m_wayOut->setFixedSize(kWayOut, kWayOut);
  connect(m_form, &NoteForm::submitted, this, [this] { submit(); });
  connect(m_form, &NoteForm::cancelled, this, &NotePage::cancel);
  connect(m_wayOut, &QAbstractButton::clicked, this, [this] { leave(); });
}

void NotePage::setActions(const QList<QAbstractButton*>& actions) {
  m_actions = actions;
  QList<QWidget*> order = m_form->stops();
  for (auto* action : actions) {
    action->setFixedSize(action->sizeHint().width(), kActionHeight);
    order << action;
  }
  order << m_wayOut;
  for (int i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void NotePage::cancel() {
  if (!m_form->closeDateBlock()) leave();
}

void NotePage::takeFocus() {
  m_form->text().setFocus();
}

void NotePage::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    cancel();
  } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && hasCommand(event->modifiers())) {
    submit();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void NotePage::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const auto place = [&](QWidget* widget, int x, int y) {
    widget->move(isMirrored ? width() - x - widget->width() : x, y);
  };
  m_form->setGeometry(rect());
  place(m_wayOut, kEdge, 11);
  int end = width() - kEdge;
  for (auto* action : m_actions) {
    place(action, end - action->width(), 10);
    end -= action->width() + kActionGap;
  }
}

void NotePage::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const QRectF head(0, 0, width(), kHeadHeight);
  painter.setFont(tokens::font(tokens::Type::PanelTitle));
  painter.setPen(QColor::fromRgb(tokens::kText));
  painter.drawText(isMirrored ? head.adjusted(0, 0, -50, 0) : head.adjusted(50, 0, 0, 0),
                   int(Qt::AlignVCenter) | int(isMirrored ? Qt::AlignRight : Qt::AlignLeft), accessibleName());
}

}  // namespace tarnwick
