// SPDX-License-Identifier: MIT
#include "board/AddTaskView.h"

#include "board/NoteForm.h"
#include "effects/PrimaryButton.h"
#include "platform/Clock.h"

namespace tarnwick {

AddTaskView::AddTaskView(const BoardServices& services, Actions actions, QWidget* parent)
    : NotePage(services, {tr("New Note"), QStringLiteral("close"), tr("Cancel")}, parent),
      m_actions(std::move(actions)),
      m_stick(new PrimaryButton(tr("Stick Note"), QStringLiteral("pin"), this)) {
  connect(&form(), &NoteForm::changed, this, [this] { m_stick->setEnabled(!isEmpty()); });
  connect(m_stick, &QAbstractButton::clicked, this, &AddTaskView::create);
  setActions({m_stick});
}

void AddTaskView::begin(const NoteDraft& draft, const QStringList& boards) {
  form().setBoards(boards);
  form().setDraft(draft, services().clock.now(), std::nullopt);
  m_stick->setEnabled(!isEmpty());
}

bool AddTaskView::isEmpty() const {
  return form().draft().isEmpty();
}

void AddTaskView::create() {
  NoteEditing editing(services());
  const auto made = editing.create(form().draft());
  if (!made || !made.value()) return;
  editing.stick(made.value());
  m_actions.onCreated();
}

}  // namespace tarnwick
