// SPDX-License-Identifier: MIT
// The small turning arc shown while something is under way; it moves only while it is on screen.
#pragma once

#include "platform/Registration.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"

#include <QWidget>

namespace tarnwick {

class Spinner final : public QWidget {
  Q_OBJECT

 public:
  Spinner(Scheduler& scheduler, const Workspace& workspace, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  Scheduler& m_scheduler;
  const Workspace& m_workspace;
  Registration m_frames;
  double m_turn = 0;  // 0 to 1
};

}  // namespace tarnwick
