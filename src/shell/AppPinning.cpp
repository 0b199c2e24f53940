// SPDX-License-Identifier: MIT
#include "shell/AppPinning.h"

#include "board/BoardServices.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "shell/AppWindowTracker.h"
#include "shell/PinnedWindow.h"
#include "shell/Placement.h"
#include "shell/PolledWindowTracker.h"

#include <QCoreApplication>

namespace tarnwick {

namespace {

// Between two windows the front application is nobody for a moment.
constexpr std::chrono::milliseconds kLeaveDelay(80);

}  // namespace

bool isThisProgram(const RunningApplication& application) {
  return application.bundleID == kApplicationID || application.pid == QCoreApplication::applicationPid();
}

AppPinning::AppPinning(const BoardServices& services, const ShellPorts& ports, const QUuid& taskID,
                       PinnedWindow& window)
    : m_services(services),
      m_ports(ports),
      m_offsetKey(appNoteOffsetKey(taskID)),
      m_window(window) {}

AppPinning::~AppPinning() { undock(); }

void AppPinning::start(const QString& pinnedBundleID) {
  m_pinnedBundleID = pinnedBundleID;
  auto& workspace = m_services.workspace;
  m_appObserver = workspace.onActivated([this](const RunningApplication& application) { activated(application); });
  m_terminateObserver = workspace.onTerminated([this](const RunningApplication& application) { left(application, true); });
  m_deactivateObserver =
      workspace.onDeactivated([this](const RunningApplication& application) { left(application, false); });
}

void AppPinning::activated(const RunningApplication& application) {
  if (isThisProgram(application)) return;
  if (application.bundleID == m_pinnedBundleID) {
    dock(application);
  } else {
    undock();
    m_window.orderOut();
  }
}

void AppPinning::left(const RunningApplication& application, bool isTerminated) {
  if (application.bundleID != m_pinnedBundleID) return;
  m_leaveCheck = m_services.scheduler.after(kLeaveDelay, [this, isTerminated, pid = application.pid] {
    const auto front = m_services.workspace.frontmost();
    if (!isTerminated && front && isThisProgram(*front)) return;
    if (isTerminated && front && front->pid != pid && front->bundleID == m_pinnedBundleID) {
      // One of several processes of the application has ended, and another is in front.
      if (!m_isDocked || m_dockedTo == pid) dock(*front);
      return;
    }
    undock();
    m_window.orderOut();
  });
}

void AppPinning::dockIfInFront() {
  const auto front = m_services.workspace.frontmost();
  if (!m_pinnedBundleID.isEmpty() && front && front->bundleID == m_pinnedBundleID) dock(*front);
}

void AppPinning::dock(const RunningApplication& application) {
  // A leave that is still being waited for is over: the application is back.
  m_leaveCheck.cancel();
  m_isDocked = true;
  m_dockedTo = application.pid;
  m_window.didDock();
  if (m_tracker) m_tracker->stop();
  m_tracker.reset();
  const auto observer = [this](std::optional<DesktopRect> frame) { targetMoved(frame); };
  m_tracker = AppWindowTracker::make(m_ports.accessibility, m_ports.otherWindows, application.pid, observer);
  if (!m_tracker) {
    m_tracker = PolledWindowTracker::make(m_ports.otherWindows, m_services.scheduler, application.pid, observer);
  }
  if (m_tracker && m_tracker->lastFrame()) follow(*m_tracker->lastFrame());
  m_window.orderFront();
}

void AppPinning::undock() {
  m_isDocked = false;
  if (m_tracker) m_tracker->stop();
  m_tracker.reset();
}

void AppPinning::targetMoved(std::optional<DesktopRect> frame) {
  if (!m_isDocked) return;
  if (!frame) {
    m_window.orderOut();
    return;
  }
  follow(*frame);
  if (!m_window.isOrderedIn()) m_window.orderFront();
}

void AppPinning::follow(const DesktopRect& target) {
  m_window.moveTo(placement::docked(target, dockOffset(), m_window.frame().size(),
                                    placement::visibleFrameFor(target, m_services.screens.all())));
}

DesktopPoint AppPinning::dockOffset() const {
  return placement::dockOffsetFromReals(m_services.defaults.reals(m_offsetKey));
}

void AppPinning::windowWasDragged() {
  if (!m_isDocked || !m_tracker || !m_tracker->lastFrame()) return;
  const auto offset = placement::dockOffset(m_window.frame(), *m_tracker->lastFrame());
  (void)m_services.defaults.setReals(m_offsetKey, {offset.x, offset.y});
}

void AppPinning::screensChanged() {
  if (m_isDocked && m_tracker && m_tracker->lastFrame()) follow(*m_tracker->lastFrame());
}

}  // namespace tarnwick
