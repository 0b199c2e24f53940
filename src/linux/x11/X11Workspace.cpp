// SPDX-License-Identifier: MIT
#include "linux/x11/X11Workspace.h"

#include "linux/xdg/CodeEditors.h"
#include "platform/Scheduler.h"

#include <QDesktopServices>
#include <QSocketNotifier>

#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>

namespace tarnwick {

namespace {

// Window managers publish "none" for a moment between two windows.
constexpr std::chrono::milliseconds kNothingInFrontDelay(150);
constexpr std::chrono::milliseconds kReadingDelay(100);

/// One process may serve the windows of several applications: an office suite's, a browser's installed pages, all that
/// comes through one tunnel from another machine.
bool isSame(const RunningApplication& one, const RunningApplication& other) {
  return one.pid == other.pid && one.bundleID == other.bundleID;
}

bool contains(const std::vector<RunningApplication>& applications, const RunningApplication& application) {
  return std::any_of(applications.begin(), applications.end(), [&](const auto& each) { return isSame(each, application); });
}

}  // namespace

struct X11Workspace::Process {
  std::vector<RunningApplication> applications;
  int descriptor = -1;
  std::unique_ptr<QSocketNotifier> exit;

  ~Process() {
    exit.reset();
    if (descriptor >= 0) close(descriptor);
  }
};

X11Workspace::X11Workspace(XcbConnection& connection, Scheduler& scheduler)
    : m_x(connection), m_clients(connection), m_scheduler(scheduler) {
  m_handles.push_back(m_x.select(m_x.root(), XCB_EVENT_MASK_PROPERTY_CHANGE));
  m_handles.push_back(m_x.onEvent([this](const auto& event) { handle(event); }));
  readFront();
  readClientsSoon();
}

X11Workspace::~X11Workspace() = default;

std::vector<RunningApplication> X11Workspace::running() const {
  std::vector<RunningApplication> applications;
  for (const auto window : m_x.cardinals(m_x.root(), "_NET_CLIENT_LIST")) {
    auto application = describe(window, m_clients.pidOf(window));
    const auto known = std::find_if(applications.begin(), applications.end(),
                                    [&](const auto& each) { return isSame(each, application); });
    application.isRegular = m_clients.kindOf(window) == ClientKind::Ordinary &&
                            !m_clients.hasState(window, "_NET_WM_STATE_SKIP_TASKBAR");
    if (known == applications.end()) {
      applications.push_back(application);
    } else {
      known->isRegular = known->isRegular || application.isRegular;
    }
  }
  return applications;
}

std::pair<QString, QIcon> X11Workspace::identity(const QString& bundleID) const { return m_catalog.identity(bundleID); }

bool X11Workspace::openUrl(const QUrl& url) { return QDesktopServices::openUrl(url); }

void X11Workspace::handle(const xcb_generic_event_t& event) {
  if (eventKind(event) != XCB_PROPERTY_NOTIFY) return;
  const auto& change = eventAs<xcb_property_notify_event_t>(event);
  if (change.window != m_x.root()) return;
  if (change.atom == m_x.atom("_NET_CLIENT_LIST")) {
    readClientsSoon();
    if (!m_front) readFront();  // a new window may get the keyboard before it is listed
  }
  if (change.atom == m_x.atom("_NET_ACTIVE_WINDOW")) readFront();
}

void X11Workspace::readFront() {
  const auto window = m_clients.active();
  // Some window managers keep the keyboard in a window of their own between two programs' windows.
  const auto windows = m_x.cardinals(m_x.root(), "_NET_CLIENT_LIST");
  if (std::find(windows.begin(), windows.end(), window) == windows.end()) {
    if (m_front && !m_nothingInFront.isHeld()) {
      m_nothingInFront = m_scheduler.after(kNothingInFrontDelay, [this] {
        m_nothingInFront = {};
        m_isOwnPanelInFront = false;
        setFront(std::nullopt);
      });
    }
    return;
  }
  const auto pid = m_clients.pidOf(window);
  m_nothingInFront.cancel();
  // A click on a desktop's panel leaves the application in front that was there.
  if (m_clients.kindOf(window) == ClientKind::Dock) return;
  auto application = describe(window, pid);
  // The board and the notes lie over an application without taking its place: a note that belongs to it must not vanish
  // when it is clicked.
  const bool isOwnPanel = pid == getpid() && m_clients.kindOf(window) == ClientKind::Other;
  const bool wasOwnPanel = std::exchange(m_isOwnPanelInFront, isOwnPanel);
  if (isOwnPanel) {
    if (!wasOwnPanel) m_activated.notify(application);
    return;
  }
  watch(application);
  const bool isBack = wasOwnPanel && m_front && isSame(*m_front, application);
  setFront(application);
  if (isBack) m_activated.notify(application);
}

void X11Workspace::setFront(std::optional<RunningApplication> application) {
  const auto before = std::exchange(m_front, application);
  if (before && application && isSame(*before, *application)) return;
  if (before) m_deactivated.notify(*before);
  if (application) m_activated.notify(*application);
}

void X11Workspace::readClientsSoon() {
  // What has windows is watched to tell when it ends; nobody asks for that while a program or a window of ours comes up.
  if (!m_reading.isHeld()) m_reading = m_scheduler.after(kReadingDelay, [this] { readClients(); });
}

void X11Workspace::readClients() {
  m_reading.cancel();
  const auto windows = m_x.cardinals(m_x.root(), "_NET_CLIENT_LIST");
  for (const auto window : windows) {
    if (std::find(m_known.begin(), m_known.end(), window) != m_known.end()) continue;
    if (const auto pid = m_clients.pidOf(window); pid > 0) watch(describe(window, pid));
  }
  m_known = windows;
}

RunningApplication X11Workspace::describe(xcb_window_t window, qint64 pid) const {
  RunningApplication application;
  application.pid = pid;
  if (pid == getpid()) {
    application.bundleID = kApplicationID;
    application.name = QStringLiteral("Tarnwick");
    return application;
  }
  const auto windowClass = m_clients.classOf(window);
  const auto process = m_processes.find(pid);
  if (const auto* entry = m_catalog.entryOf(pid, {m_clients.desktopIdOf(window), windowClass.instance, windowClass.name})) {
    application.bundleID = entry->id;
    application.name = entry->name;
    application.isCodeEditor = isCodeEditor(entry->id);
  } else if (windowClass.name.isEmpty() && process != m_processes.end()) {
    application = process->second->applications.front();  // a window that says nothing of itself is one more of its
  } else {
    application.bundleID = windowClass.name;
    application.name = windowClass.name.isEmpty() ? m_clients.titleOf(window) : windowClass.name;
    application.isCodeEditor = isCodeEditor(windowClass.name);
  }
  application.isRegular = m_clients.kindOf(window) == ClientKind::Ordinary;
  return application;
}

void X11Workspace::watch(const RunningApplication& application) {
  if (application.pid <= 0 || application.pid == getpid()) return;
  if (const auto found = m_processes.find(application.pid); found != m_processes.end()) {
    auto& known = found->second->applications;
    if (!contains(known, application)) known.push_back(application);
    return;
  }
  auto process = std::make_unique<Process>();
  process->applications.push_back(application);
  process->descriptor = static_cast<int>(syscall(SYS_pidfd_open, static_cast<pid_t>(application.pid), 0));
  if (process->descriptor >= 0) {
    process->exit = std::make_unique<QSocketNotifier>(process->descriptor, QSocketNotifier::Read);
    connect(process->exit.get(), &QSocketNotifier::activated, this,
            [this, pid = application.pid] { ended(pid); });
  }
  m_processes.emplace(application.pid, std::move(process));
}

void X11Workspace::ended(qint64 pid) {
  const auto found = m_processes.find(pid);
  if (found == m_processes.end()) return;
  found->second->exit->setEnabled(false);
  const auto applications = found->second->applications;
  // The notifier is the sender just now: it goes when the loop turns.
  found->second->exit.release()->deleteLater();
  m_processes.erase(found);
  if (m_front && m_front->pid == pid) m_front.reset();
  for (const auto& application : applications) m_terminated.notify(application);
}

}  // namespace tarnwick
