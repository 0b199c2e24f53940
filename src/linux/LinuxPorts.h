// SPDX-License-Identifier: MIT
// One adapter for each port, the best that this session allows, else one that says what is missing. To be made after
// the application object; adapters come into being when they are first asked for.
#pragma once

#include "linux/x11/XcbLink.h"

#include <QString>

#include <memory>
#include <thread>

namespace tarnwick {

class Accessibility;
class Audio;
class CaptureWatch;
class Clock;
class DockPreferences;
class Downloads;
class Haptics;
class HotKeys;
class Instance;
class LoginItem;
class OtherWindows;
class PlankDock;
class Power;
class Scheduler;
class Screens;
class UserNotifications;
class WindowServer;
class Workspace;
class XcbConnection;

class LinuxPorts final {
 public:
  /// Takes the connection over that was opened before Qt's, if there is one.
  explicit LinuxPorts(XcbLink server = {});
  ~LinuxPorts();
  LinuxPorts(const LinuxPorts&) = delete;
  LinuxPorts& operator=(const LinuxPorts&) = delete;

  [[nodiscard]] Clock& clock();
  [[nodiscard]] Scheduler& scheduler();
  [[nodiscard]] Screens& screens();
  [[nodiscard]] Workspace& workspace();
  [[nodiscard]] WindowServer& windowServer();
  [[nodiscard]] OtherWindows& otherWindows();
  [[nodiscard]] Accessibility& accessibility();
  [[nodiscard]] HotKeys& hotKeys();
  [[nodiscard]] UserNotifications& notifications();
  [[nodiscard]] Audio& audio();
  [[nodiscard]] Haptics& haptics();
  [[nodiscard]] Power& power();
  [[nodiscard]] CaptureWatch& captureWatch();
  [[nodiscard]] Instance& instance();
  [[nodiscard]] LoginItem& loginItem();
  [[nodiscard]] DockPreferences& dockPreferences();
  [[nodiscard]] Downloads& downloads();

  /// "x11" or "wayland": the kind of the user's session, through whatever our windows reach it.
  [[nodiscard]] QString session() const;

 private:
  [[nodiscard]] bool isX11() const { return m_x != nullptr; }
  PlankDock& plank();

  std::jthread m_buses;  // connects to them, which takes its time
  std::unique_ptr<XcbConnection> m_x;  // null where Qt does not draw through X11
  std::unique_ptr<Clock> m_clock;
  std::unique_ptr<Scheduler> m_scheduler;
  std::unique_ptr<Screens> m_screens;
  std::unique_ptr<Workspace> m_workspace;
  std::unique_ptr<WindowServer> m_windowServer;
  std::unique_ptr<OtherWindows> m_otherWindows;
  std::unique_ptr<PlankDock> m_plank;
  std::unique_ptr<Accessibility> m_accessibility;
  std::unique_ptr<HotKeys> m_hotKeys;
  std::unique_ptr<Power> m_power;
  std::unique_ptr<UserNotifications> m_notifications;
  std::unique_ptr<Audio> m_audio;
  std::unique_ptr<Haptics> m_haptics;
  std::unique_ptr<CaptureWatch> m_captureWatch;
  std::unique_ptr<Instance> m_instance;
  std::unique_ptr<LoginItem> m_loginItem;
  std::unique_ptr<DockPreferences> m_dockPreferences;
  std::unique_ptr<Downloads> m_downloads;
};

}  // namespace tarnwick
