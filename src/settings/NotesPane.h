// SPDX-License-Identifier: MIT
// The Notes pane: how torn-off notes sit on the desktop, pinned notes, privacy, paper.
#pragma once

#include "settings/SettingsPane.h"

namespace tarnwick {

class NotesPane final : public SettingsPane {
  Q_OBJECT

 public:
  NotesPane(const SettingsServices& services, QWidget* parent);

 private:
  void addTornOffNotes();
  void addModes(SettingsGroup& group);
  void addPrivacy();
  void addPaper();
};

}  // namespace tarnwick
