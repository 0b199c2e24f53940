// SPDX-License-Identifier: MIT
// The settings window: four panes whose controls are bound straight to the settings keys.
#pragma once

#include "platform/CaptureWatch.h"
#include "platform/Clock.h"
#include "platform/DockPreferences.h"
#include "platform/LoginItem.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace tarnwick {

class AppNotesPrefs;
class NotificationCenter;
class SoundEngine;
class UpdateChecker;
class UserDefaults;

struct SettingsServices {
  UserDefaults& defaults;
  NotificationCenter& center;
  SoundEngine& sound;
  UpdateChecker& updates;
  LoginItem& loginItem;
  const CaptureWatch& capture;
  Workspace& workspace;
  Scheduler& scheduler;
  const Screens& screens;
  const DockPreferences& dock;
};

class SettingsView final : public QWidget {
  Q_OBJECT

 public:
  explicit SettingsView(const SettingsServices& services, QWidget* parent = nullptr);
  ~SettingsView() override;

  enum class Pane { General, Notes, Sound, About };
  void selectPane(Pane pane);
  [[nodiscard]] Pane pane() const;

 Q_SIGNALS:
  /// Notes are to be brought in from elsewhere.
  void importRequested();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void fitHeight();

  struct Content;
  std::unique_ptr<Content> m_content;
};

}  // namespace tarnwick
