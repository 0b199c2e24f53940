// SPDX-License-Identifier: MIT
// The composer of a new note.
#pragma once

#include "board/NoteEditing.h"
#include "board/NotePage.h"

#include <functional>

namespace tarnwick {

class PrimaryButton;

class AddTaskView final : public NotePage {
  Q_OBJECT

 public:
  struct Actions {
    std::function<void()> onCancel;
    std::function<void()> onCreated;
  };

  AddTaskView(const BoardServices& services, Actions actions, QWidget* parent);
  /// A blank sheet.
  void begin(const NoteDraft& draft, const QStringList& boards);
  [[nodiscard]] bool isEmpty() const;
  /// Stores the note and sticks it to the desktop. Nothing at all for blank text.
  void create();

 protected:
  void submit() override { create(); }
  void leave() override { m_actions.onCancel(); }

 private:
  Actions m_actions;
  PrimaryButton* m_stick;
};

}  // namespace tarnwick
