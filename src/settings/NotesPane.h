// SPDX-License-Identifier: MIT
// The Notes pane: how torn-off notes sit on the desktop, pinned notes, privacy, paper.
#pragma once

#include "settings/SettingsPane.h"

namespace tarnwick {

class SettingsText;

class NotesPane final : public SettingsPane {
  Q_OBJECT

 public:
  NotesPane(const SettingsServices& services, QWidget* parent);

 Q_SIGNALS:
  /// Notes are to be brought in from elsewhere.
  void importRequested();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void addTornOffNotes();
  void addModes(SettingsGroup& group);
  void addPrivacy();
  void addPaper();
  void addImport();
  /// What the desktop can keep out of captures may change while the program runs.
  void refreshExclusion();

  SettingsText* m_exclusion = nullptr;
};

}  // namespace tarnwick
