// SPDX-License-Identifier: MIT
#include "board/TaskNoteView.h"

#include "board/NoteEditing.h"
#include "board/NoteForm.h"
#include "board/TornNotes.h"
#include "effects/Controls.h"
#include "platform/Clock.h"

namespace tarnwick {

TaskNoteView::TaskNoteView(const BoardServices& services, std::function<void()> onClosed, QWidget* parent)
    : NotePage(services, {tr("Edit Note"), QStringLiteral("arrowLeft"), tr("Back")}, parent),
      m_onClosed(std::move(onClosed)) {
  auto* save = new PrimaryButton(tr("Save"), QStringLiteral("check"), this);
  auto* tear = new ToolButton(QStringLiteral("tear"), tr("Tear off"), ToolButton::Plate::Chip, this);
  tear->setText(tr("Tear off"));
  connect(save, &QAbstractButton::clicked, this, &TaskNoteView::save);
  connect(tear, &QAbstractButton::clicked, this, &TaskNoteView::tearOff);
  setActions({save, tear});
}

void TaskNoteView::begin(const TaskPtr& task, const QStringList& boards) {
  m_task = task;
  form().setBoards(boards);
  form().setDraft(NoteDraft::of(*task), services().clock.now(), task->record().pinnedBundleID);
}

bool TaskNoteView::write() {
  if (!m_task) return false;
  const auto saved = NoteEditing(services()).save(*m_task, form().draft());
  return saved && saved.value();
}

void TaskNoteView::save() {
  if (write()) m_onClosed();
}

void TaskNoteView::tearOff() {
  const TaskPtr task = m_task;
  if (!task) return;
  // Blank text leaves the note as it was, and it is torn off all the same; what cannot be written stays on the page.
  if (!write() && !form().draft().isEmpty()) return;
  TornNotes* torn = services().torn ? services().torn() : nullptr;
  if (torn) torn->tearOffTask(task, std::nullopt);
  m_onClosed();
}

}  // namespace tarnwick
