// SPDX-License-Identifier: MIT
// What the About pane shows of the update checker: a button to ask, the answer, a button to get the release.
#pragma once

#include "platform/Scheduler.h"
#include "platform/Workspace.h"

#include <QWidget>

namespace tarnwick {

class PlateButton;
class PrimaryButton;
class SettingsText;
class Spinner;
class UpdateChecker;

class UpdateControl final : public QWidget {
  Q_OBJECT

 public:
  UpdateControl(UpdateChecker& updates, Scheduler& scheduler, const Workspace& workspace, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void refresh();

  UpdateChecker& m_updates;
  PlateButton* m_check;
  Spinner* m_spinner;
  SettingsText* m_answer;
  SettingsText* m_failure;
  PrimaryButton* m_get;
  SettingsText* m_absence;  // of a feed
  bool m_returnsFocus = false;
};

}  // namespace tarnwick
