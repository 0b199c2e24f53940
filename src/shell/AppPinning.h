// SPDX-License-Identifier: MIT
// Shows a note's window only while its application is in front, and keeps it docked to that application's window.
#pragma once

#include "platform/DesktopGeometry.h"
#include "platform/Registration.h"
#include "platform/Workspace.h"
#include "shell/ShellPorts.h"
#include "shell/WindowTracking.h"

#include <QUuid>

#include <memory>
#include <optional>

namespace tarnwick {

struct BoardServices;
class PinnedWindow;

/// Whether it is Tarnwick itself.
[[nodiscard]] bool isThisProgram(const RunningApplication& application);

class AppPinning final {
 public:
  AppPinning(const BoardServices& services, const ShellPorts& ports, const QUuid& taskID, PinnedWindow& window);
  ~AppPinning();

  /// Observes the applications from here on.
  void start(const QString& pinnedBundleID);
  /// Docks at once if the application is in front already: a note that comes without taking the keyboard causes no
  /// change of the front application that would tell.
  void dockIfInFront();
  void dock(const RunningApplication& application);
  void undock();
  [[nodiscard]] bool isDocked() const { return m_isDocked; }
  void follow(const DesktopRect& target);
  /// The user moved the docked window: it stays there relative to its target.
  void windowWasDragged();
  void screensChanged();
  [[nodiscard]] DesktopPoint dockOffset() const;

 private:
  void activated(const RunningApplication& application);
  void left(const RunningApplication& application, bool isTerminated);
  void targetMoved(std::optional<DesktopRect> frame);

  const BoardServices& m_services;
  ShellPorts m_ports;
  QString m_offsetKey;
  PinnedWindow& m_window;
  QString m_pinnedBundleID;
  bool m_isDocked = false;
  qint64 m_dockedTo = 0;  // the process
  std::unique_ptr<WindowTracking> m_tracker;
  Registration m_appObserver;
  Registration m_deactivateObserver;
  Registration m_terminateObserver;
  Registration m_leaveCheck;
};

}  // namespace tarnwick
