// SPDX-License-Identifier: MIT
#include "linux/LinuxPorts.h"

#include "linux/qt/NoOtherPrograms.h"
#include "linux/qt/QtScreens.h"
#include "linux/qt/QtWindowServer.h"
#include "linux/time/QtScheduler.h"
#include "linux/time/SystemClock.h"
#include "linux/x11/X11HotKeys.h"
#include "linux/x11/X11Screens.h"
#include "linux/x11/X11WindowServer.h"
#include "linux/x11/XcbConnection.h"
#include "platform/Unavailable.h"

#include <QGuiApplication>

namespace tarnwick {

namespace {

QString withoutX11() { return QGuiApplication::tr("needs an X11 display"); }
QString notYet() { return QGuiApplication::tr("not supported here"); }

/// The port's adapter, made at the first call.
template <typename Port, typename Make>
Port& lazily(std::unique_ptr<Port>& slot, Make make) {
  if (!slot) slot = make();
  return *slot;
}

}  // namespace

LinuxPorts::LinuxPorts() {
  if (QGuiApplication::platformName() != u"xcb") return;
  m_x = std::make_unique<XcbConnection>();
  if (!m_x->isUsable()) m_x.reset();
}

LinuxPorts::~LinuxPorts() = default;

Clock& LinuxPorts::clock() {
  return lazily(m_clock, [] { return std::make_unique<SystemClock>(); });
}

Scheduler& LinuxPorts::scheduler() {
  return lazily(m_scheduler, [this] { return std::make_unique<QtScheduler>(clock()); });
}

Screens& LinuxPorts::screens() {
  return lazily(m_screens, [this]() -> std::unique_ptr<Screens> {
    if (isX11()) return std::make_unique<X11Screens>(*m_x);
    return std::make_unique<QtScreens>();
  });
}

Workspace& LinuxPorts::workspace() {
  return lazily(m_workspace, [] { return std::make_unique<NoWorkspace>(); });
}

WindowServer& LinuxPorts::windowServer() {
  return lazily(m_windowServer, [this]() -> std::unique_ptr<WindowServer> {
    if (isX11()) return std::make_unique<X11WindowServer>();
    return std::make_unique<QtWindowServer>();
  });
}

OtherWindows& LinuxPorts::otherWindows() {
  return lazily(m_otherWindows, [] { return std::make_unique<NoOtherWindows>(); });
}

Accessibility& LinuxPorts::accessibility() {
  return lazily(m_accessibility, [] { return std::make_unique<UnavailableAccessibility>(notYet()); });
}

HotKeys& LinuxPorts::hotKeys() {
  return lazily(m_hotKeys, [this]() -> std::unique_ptr<HotKeys> {
    if (isX11()) {
      if (auto keys = std::make_unique<X11HotKeys>(); keys->isUsable()) return keys;
    }
    return std::make_unique<UnavailableHotKeys>(withoutX11());
  });
}

UserNotifications& LinuxPorts::notifications() {
  return lazily(m_notifications, [] { return std::make_unique<UnavailableUserNotifications>(notYet()); });
}

Audio& LinuxPorts::audio() {
  return lazily(m_audio, [] { return std::make_unique<UnavailableAudio>(notYet()); });
}

Haptics& LinuxPorts::haptics() {
  return lazily(m_haptics, [] { return std::make_unique<UnavailableHaptics>(notYet()); });
}

Power& LinuxPorts::power() {
  return lazily(m_power, [] { return std::make_unique<UnavailablePower>(notYet()); });
}

CaptureWatch& LinuxPorts::captureWatch() {
  return lazily(m_captureWatch, [] { return std::make_unique<UnavailableCaptureWatch>(notYet()); });
}

Instance& LinuxPorts::instance() {
  return lazily(m_instance, [] { return std::make_unique<UnavailableInstance>(notYet()); });
}

LoginItem& LinuxPorts::loginItem() {
  return lazily(m_loginItem, [] { return std::make_unique<UnavailableLoginItem>(notYet()); });
}

DockPreferences& LinuxPorts::dockPreferences() {
  return lazily(m_dockPreferences, [] { return std::make_unique<UnavailableDockPreferences>(); });
}

QString LinuxPorts::session() const {
  const bool isWayland = qEnvironmentVariable("XDG_SESSION_TYPE") == u"wayland" ||
                         qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
                         QGuiApplication::platformName().startsWith(u"wayland");
  return isWayland ? QStringLiteral("wayland") : QStringLiteral("x11");
}

}  // namespace tarnwick
