// SPDX-License-Identifier: MIT
#include "board/AddTaskView.h"

#include "board/BoardKeys.h"
#include "board/ChecklistEdit.h"
#include "board/NoteForm.h"
#include "effects/Controls.h"
#include "effects/Tokens.h"
#include "platform/Clock.h"

#include <QKeyEvent>
#include <QPainter>

namespace tarnwick {

AddTaskView::AddTaskView(const BoardServices& services, Actions actions, QWidget* parent)
    : QWidget(parent),
      m_services(services),
      m_actions(std::move(actions)),
      m_form(new NoteForm(services, this)),
      m_close(new ToolButton(QStringLiteral("close"), tr("Cancel"), ToolButton::Plate::Chip, this)),
      m_stick(new PrimaryButton(tr("Stick Note"), QStringLiteral("pin"), this)) {
  setAccessibleName(tr("New Note"));
  m_form->lower();
  m_close->setFixedSize(28, 28);
  m_stick->setFixedSize(m_stick->sizeHint().width(), 30);
  connect(m_form, &NoteForm::changed, this, [this] { m_stick->setEnabled(!isEmpty()); });
  connect(m_form, &NoteForm::submitted, this, &AddTaskView::create);
  connect(m_form, &NoteForm::cancelled, this, &AddTaskView::cancel);
  connect(m_stick, &QAbstractButton::clicked, this, &AddTaskView::create);
  connect(m_close, &QAbstractButton::clicked, this, [this] { m_actions.onCancel(); });
  QList<QWidget*> order = m_form->stops();
  order << m_stick << m_close;
  for (int i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void AddTaskView::begin(const NoteDraft& draft, const QStringList& boards) {
  m_form->setBoards(boards);
  m_form->setDraft(draft, m_services.clock.now(), std::nullopt);
  m_stick->setEnabled(!isEmpty());
}

bool AddTaskView::isEmpty() const {
  return m_form->draft().isEmpty();
}

void AddTaskView::create() {
  NoteEditing editing(m_services);
  const auto made = editing.create(m_form->draft());
  if (!made || !made.value()) return;
  editing.stick(made.value());
  m_actions.onCreated();
}

void AddTaskView::cancel() {
  if (!m_form->closeDateBlock()) m_actions.onCancel();
}

void AddTaskView::takeFocus() {
  m_form->text().setFocus();
}

void AddTaskView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    cancel();
  } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && hasCommand(event->modifiers())) {
    create();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void AddTaskView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  m_form->setGeometry(rect());
  m_close->move(isMirrored ? width() - 14 - 28 : 14, 11);
  m_stick->move(isMirrored ? 14 : width() - 14 - m_stick->width(), 10);
}

void AddTaskView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  painter.setFont(tokens::font(tokens::Type::PanelTitle));
  painter.setPen(QColor::fromRgb(tokens::kText));
  painter.drawText(isMirrored ? QRectF(0, 0, width() - 50, 50) : QRectF(50, 0, width() - 50, 50),
                   int(Qt::AlignVCenter) | int(isMirrored ? Qt::AlignRight : Qt::AlignLeft), tr("New Note"));
}

}  // namespace tarnwick
