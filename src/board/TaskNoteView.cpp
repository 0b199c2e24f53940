// SPDX-License-Identifier: MIT
#include "board/TaskNoteView.h"

#include "board/BoardKeys.h"
#include "board/ChecklistEdit.h"
#include "board/NoteEditing.h"
#include "board/NoteForm.h"
#include "board/TornNotes.h"
#include "effects/Controls.h"
#include "effects/Tokens.h"
#include "platform/Clock.h"

#include <QKeyEvent>
#include <QPainter>

namespace tarnwick {

TaskNoteView::TaskNoteView(const BoardServices& services, std::function<void()> onClosed, QWidget* parent)
    : QWidget(parent),
      m_services(services),
      m_onClosed(std::move(onClosed)),
      m_form(new NoteForm(services, this)),
      m_back(new ToolButton(QStringLiteral("arrowLeft"), tr("Back"), ToolButton::Plate::Chip, this)),
      m_tear(new ToolButton(QStringLiteral("tear"), tr("Tear off"), ToolButton::Plate::Chip, this)),
      m_save(new PrimaryButton(tr("Save"), QStringLiteral("check"), this)) {
  setAccessibleName(tr("Edit Note"));
  m_form->lower();
  m_back->setFixedSize(28, 28);
  m_tear->setText(tr("Tear off"));
  m_tear->setFixedSize(m_tear->sizeHint().width(), 30);
  m_save->setFixedSize(m_save->sizeHint().width(), 30);
  connect(m_form, &NoteForm::submitted, this, &TaskNoteView::save);
  connect(m_form, &NoteForm::cancelled, this, &TaskNoteView::cancel);
  connect(m_save, &QAbstractButton::clicked, this, &TaskNoteView::save);
  connect(m_tear, &QAbstractButton::clicked, this, &TaskNoteView::tearOff);
  connect(m_back, &QAbstractButton::clicked, this, [this] { m_onClosed(); });
  QList<QWidget*> order = m_form->stops();
  order << m_save << m_tear << m_back;
  for (int i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void TaskNoteView::begin(const TaskPtr& task, const QStringList& boards) {
  m_task = task;
  m_form->setBoards(boards);
  m_form->setDraft(NoteDraft::of(*task), m_services.clock.now(), task->record().pinnedBundleID);
}

bool TaskNoteView::write() {
  if (!m_task) return false;
  const auto saved = NoteEditing(m_services).save(*m_task, m_form->draft());
  return saved && saved.value();
}

void TaskNoteView::save() {
  if (write()) m_onClosed();
}

void TaskNoteView::tearOff() {
  const TaskPtr task = m_task;
  if (!task) return;
  // Blank text leaves the note as it was, and it is torn off all the same; what cannot be written stays on the page.
  if (!write() && !m_form->draft().isEmpty()) return;
  TornNotes* torn = m_services.torn ? m_services.torn() : nullptr;
  if (torn) torn->tearOffTask(task, std::nullopt);
  m_onClosed();
}

void TaskNoteView::cancel() {
  if (!m_form->closeDateBlock()) m_onClosed();
}

void TaskNoteView::takeFocus() {
  m_form->text().setFocus();
}

void TaskNoteView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    cancel();
  } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && hasCommand(event->modifiers())) {
    save();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void TaskNoteView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const auto x = [&](int at, int w) { return isMirrored ? width() - at - w : at; };
  m_form->setGeometry(rect());
  m_back->move(x(14, 28), 11);
  const int saveX = width() - 14 - m_save->width();
  m_save->move(x(saveX, m_save->width()), 10);
  m_tear->move(x(saveX - 8 - m_tear->width(), m_tear->width()), 10);
}

void TaskNoteView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  painter.setFont(tokens::font(tokens::Type::PanelTitle));
  painter.setPen(QColor::fromRgb(tokens::kText));
  painter.drawText(isMirrored ? QRectF(0, 0, width() - 50, 50) : QRectF(50, 0, width() - 50, 50),
                   int(Qt::AlignVCenter) | int(isMirrored ? Qt::AlignRight : Qt::AlignLeft), tr("Edit Note"));
}

}  // namespace tarnwick
