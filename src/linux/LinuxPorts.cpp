// SPDX-License-Identifier: MIT
#include "linux/LinuxPorts.h"

#include "linux/atspi/AtSpiAccessibility.h"
#include "linux/dbus/DBusInstance.h"
#include "linux/dbus/FeedbackdHaptics.h"
#include "linux/dbus/FreedesktopNotifications.h"
#include "linux/dbus/LogindPower.h"
#include "linux/dbus/PlankDock.h"
#include "linux/dbus/PortalHotKeys.h"
#include "linux/parts/LateAudio.h"
#include "linux/parts/LateDownloads.h"
#include "linux/pipewire/PipeWireCaptureWatch.h"
#include "linux/qt/NoOtherPrograms.h"
#include "linux/qt/QtScreens.h"
#include "linux/qt/QtWindowServer.h"
#include "linux/time/QtScheduler.h"
#include "linux/time/SystemClock.h"
#include "linux/x11/X11HotKeys.h"
#include "linux/x11/X11OtherWindows.h"
#include "linux/x11/X11Screens.h"
#include "linux/x11/X11WindowServer.h"
#include "linux/x11/X11Workspace.h"
#include "linux/x11/XcbConnection.h"
#include "linux/xdg/XdgAutostartLoginItem.h"
#include "platform/Unavailable.h"

#include <QDBusConnection>
#include <QGuiApplication>

namespace tarnwick {

namespace {

QString withoutX11() { return QGuiApplication::tr("needs an X11 display"); }

void connectToBuses() {
  (void)QDBusConnection::sessionBus();
  (void)QDBusConnection::systemBus();
}

/// The port's adapter, made at the first call.
template <typename Port, typename Make>
Port& lazily(std::unique_ptr<Port>& slot, Make make) {
  if (!slot) slot = make();
  return *slot;
}

}  // namespace

LinuxPorts::LinuxPorts(XcbLink server) : m_buses(connectToBuses) {
  if (QGuiApplication::platformName() != u"xcb") return;
  m_x = std::make_unique<XcbConnection>(server.isUsable() ? std::move(server) : XcbLink::opened());
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
  return lazily(m_workspace, [this]() -> std::unique_ptr<Workspace> {
    if (isX11()) return std::make_unique<X11Workspace>(*m_x, scheduler());
    return std::make_unique<NoWorkspace>();
  });
}

WindowServer& LinuxPorts::windowServer() {
  return lazily(m_windowServer, [this]() -> std::unique_ptr<WindowServer> {
    if (isX11()) return std::make_unique<X11WindowServer>();
    return std::make_unique<QtWindowServer>();
  });
}

OtherWindows& LinuxPorts::otherWindows() {
  return lazily(m_otherWindows, [this]() -> std::unique_ptr<OtherWindows> {
    // Through XWayland the programs that use it too are all that there is.
    const auto sight = session() == u"wayland" ? WindowSight::SomePrograms : WindowSight::All;
    if (isX11()) return std::make_unique<X11OtherWindows>(*m_x, sight);
    return std::make_unique<NoOtherWindows>();
  });
}

PlankDock& LinuxPorts::plank() {
  return lazily(m_plank, [this] { return std::make_unique<PlankDock>(scheduler()); });
}

Accessibility& LinuxPorts::accessibility() {
  return lazily(m_accessibility, [this]() -> std::unique_ptr<Accessibility> {
    if (isX11()) return std::make_unique<AtSpiAccessibility>(*m_x, plank());
    return std::make_unique<UnavailableAccessibility>(withoutX11());
  });
}

HotKeys& LinuxPorts::hotKeys() {
  return lazily(m_hotKeys, [this]() -> std::unique_ptr<HotKeys> {
    // Chosen by the session and not by how our windows reach it: under XWayland a grab sees X11 programs only.
    if (session() == u"wayland") {
      if (auto keys = std::make_unique<PortalHotKeys>(); keys->traits().isAvailable) return keys;
    }
    if (isX11()) return std::make_unique<X11HotKeys>(*m_x);
    return std::make_unique<UnavailableHotKeys>(withoutX11());
  });
}

UserNotifications& LinuxPorts::notifications() {
  return lazily(m_notifications,
                [this] { return std::make_unique<FreedesktopNotifications>(clock(), scheduler(), power()); });
}

Audio& LinuxPorts::audio() {
  return lazily(m_audio, [] { return std::make_unique<LateAudio>(); });
}

Haptics& LinuxPorts::haptics() {
  return lazily(m_haptics, []() -> std::unique_ptr<Haptics> {
    if (FeedbackdHaptics::isInstalled()) return std::make_unique<FeedbackdHaptics>();
    return std::make_unique<UnavailableHaptics>(QGuiApplication::tr("no feedback service"));
  });
}

Power& LinuxPorts::power() {
  return lazily(m_power, [this] { return std::make_unique<LogindPower>(clock(), scheduler()); });
}

CaptureWatch& LinuxPorts::captureWatch() {
  return lazily(m_captureWatch, [this]() -> std::unique_ptr<CaptureWatch> {
#ifdef TARNWICK_HAS_PIPEWIRE
    return std::make_unique<PipeWireCaptureWatch>(scheduler());
#else
    return std::make_unique<UnavailableCaptureWatch>(QGuiApplication::tr("no PipeWire in this session"));
#endif
  });
}

Instance& LinuxPorts::instance() {
  return lazily(m_instance, [] { return std::make_unique<DBusInstance>(); });
}

LoginItem& LinuxPorts::loginItem() {
  return lazily(m_loginItem, [] { return std::make_unique<XdgAutostartLoginItem>(); });
}

DockPreferences& LinuxPorts::dockPreferences() {
  return lazily(m_dockPreferences, [this] { return std::make_unique<PlankDockPreferences>(plank()); });
}

Downloads& LinuxPorts::downloads() {
  return lazily(m_downloads, [this] { return std::make_unique<LateDownloads>(scheduler()); });
}

QString LinuxPorts::session() const {
  const bool isWayland = qEnvironmentVariable("XDG_SESSION_TYPE") == u"wayland" ||
                         qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
                         QGuiApplication::platformName().startsWith(u"wayland");
  return isWayland ? QStringLiteral("wayland") : QStringLiteral("x11");
}

}  // namespace tarnwick
