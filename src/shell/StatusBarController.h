// SPDX-License-Identifier: MIT
// The tray item: a click drops or tucks the board, the other button opens the menu. Knows where the item is on screen.
#pragma once

#include "platform/DesktopGeometry.h"
#include "platform/Registration.h"

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tarnwick {

class AppNotesPrefs;
class FloatingPanel;
class Scheduler;
class Screens;

class StatusBarController final : public QObject {
  Q_OBJECT

 public:
  struct Actions {
    std::function<void()> addTask;
    std::function<void()> openSettings;
    std::function<void()> quit;
  };
  struct Services {
    const Screens& screens;
    Scheduler& scheduler;
    AppNotesPrefs& prefs;
    /// Whether something shows tray items now.
    std::function<bool()> isTrayPresent = &QSystemTrayIcon::isSystemTrayAvailable;
  };

  StatusBarController(FloatingPanel& panel, Services services, Actions actions);
  ~StatusBarController() override;

  /// Shows the item. Where nobody shows tray items after a while, tells so once; the item appears when somebody does.
  void start();
  void statusItemPressed(QSystemTrayIcon::ActivationReason reason);
  void toggleDesk();
  void newNoteAction();
  void togglePrivacy();
  void openSettings();
  void quit();

  /// The item's rectangle, or where it was clicked last.
  [[nodiscard]] std::optional<DesktopRect> anchor() const;
  /// Built anew each time it is about to show.
  [[nodiscard]] QMenu& menu() { return *m_menu; }

 Q_SIGNALS:
  /// There is no tray: the user has to be told how else to open the board.
  void trayMissing();

 private:
  void buildMenu();
  void rememberPointer();
  /// Dark on a light panel and light on a dark one, where the item's place is known and so what lies around it.
  void applyInk();

  FloatingPanel& m_panel;
  Services m_services;
  Actions m_actions;
  std::unique_ptr<QMenu> m_menu;
  QSystemTrayIcon m_item;
  std::optional<DesktopRect> m_clickedAnchor;
  std::optional<bool> m_isOnLightPanel;  // nothing while the item's place is not known
  Registration m_menuWork;
  Registration m_presenceCheck;
  std::vector<Registration> m_inkChecks;
};

}  // namespace tarnwick
