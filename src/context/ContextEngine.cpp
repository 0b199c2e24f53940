// SPDX-License-Identifier: MIT
#include "context/ContextEngine.h"

#include "model/NotificationCenter.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"

#include <QUrl>

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

namespace tarnwick {

namespace {

constexpr std::chrono::milliseconds kDebounce{300};
// A window that changes its title says so more than once, and some never come to rest.
constexpr std::chrono::milliseconds kSecondLook{100};

constexpr std::array kCodeEditorBundles{
    "com.microsoft.VSCode",      "com.apple.dt.Xcode", "com.todesktop.230313mzl4w4u92",
    "dev.zed.Zed",               "com.sublimetext.4",  "com.jetbrains.intellij.ce",
    "com.jetbrains.AppCode",
};

std::optional<QString> identifierOf(const std::optional<RunningApplication>& application) {
  if (!application || application->bundleID.isEmpty()) return std::nullopt;
  return application->bundleID;
}

}  // namespace

ContextEngine::ContextEngine(Ports ports, const UserDefaults& defaults, NotificationCenter& center)
    : m_ports(std::move(ports)), m_defaults(defaults), m_center(center) {}

ContextEngine::~ContextEngine() { stop(); }

bool ContextEngine::isCodeEditor(const RunningApplication& application) {
  return application.isCodeEditor || std::any_of(kCodeEditorBundles.begin(), kCodeEditorBundles.end(),
                                                 [&](const auto* known) {
                                                   return application.bundleID == QLatin1StringView(known);
                                                 });
}

std::optional<QString> ContextEngine::folderOfDocument(const QString& document) {
  QString path = document;
  if (!document.startsWith(u'/')) {
    if (const QUrl url(document, QUrl::StrictMode); url.isValid()) path = url.path(QUrl::FullyDecoded);
  }
  while (path.size() > 1 && path.endsWith(u'/')) path.chop(1);
  const auto slash = path.lastIndexOf(u'/');
  if (slash < 0 || path.size() == 1) return std::nullopt;
  return slash == 0 ? QStringLiteral("/") : path.left(slash);
}

void ContextEngine::start() {
  if (m_defaults.boolean(keys::kHasSeenWelcome) && !m_ports.accessibility.isTrusted(AccessNeed::Tree)) {
    m_ports.accessibility.requestTrust(TrustRequest::AtStart);
  }
  auto& workspace = m_ports.workspace;
  m_workspaceObservers.clear();
  m_workspaceObservers.push_back(
      workspace.onActivated([this](const RunningApplication& application) { applicationActivated(application); }));
  m_workspaceObservers.push_back(workspace.onDeactivated([this](const RunningApplication&) { applicationLeft(); }));
  m_workspaceObservers.push_back(workspace.onTerminated([this](const RunningApplication&) { applicationLeft(); }));
  if (const auto front = m_ports.workspace.frontmost(); front && front->bundleID != kApplicationID) {
    setLastExternalApp(*front);
  }
  scheduleUpdate();
}

void ContextEngine::stop() {
  m_workspaceObservers.clear();
  m_debounceWork.cancel();
  followWindow(std::nullopt);
  m_waiting.reset();
  ++m_generation;
}

void ContextEngine::applicationActivated(const RunningApplication& application) {
  if (application.bundleID != kApplicationID) setLastExternalApp(application);
  scheduleUpdate();
}

void ContextEngine::applicationLeft() {
  // Whoever comes next tells of itself; an empty desktop, or a window that this desktop hides from us, does not.
  if (!m_ports.workspace.frontmost()) scheduleUpdate();
}

void ContextEngine::setLastExternalApp(const RunningApplication& application) {
  if (m_lastExternalApp == application) return;
  m_lastExternalApp = application;
  Q_EMIT lastExternalAppChanged();
}

void ContextEngine::scheduleUpdate() {
  const auto front = m_ports.workspace.frontmost();
  followWindow(front);
  m_seenFolder = folderOf(front);
  m_debounceWork = m_ports.scheduler.after(
      kDebounce, [this, bundleID = identifierOf(front), folder = m_seenFolder] { resolveGitContext(bundleID, folder); });
}

void ContextEngine::followWindow(const std::optional<RunningApplication>& front) {
  m_secondLook.cancel();
  const auto pid = isLookedInto(front) ? front->pid : 0;
  if (pid == m_followed) return;
  m_followed = pid;
  m_windowObserver = {};
  if (pid > 0) m_windowObserver = m_ports.accessibility.onFocusedWindowChanged(pid, [this] { windowChanged(); });
}

void ContextEngine::windowChanged() {
  if (m_secondLook.isHeld()) return;
  m_secondLook = m_ports.scheduler.after(kSecondLook, [this] {
    m_secondLook = {};
    // A mark of unsaved changes is no reason to run git.
    if (folderOf(m_ports.workspace.frontmost()) != m_seenFolder) scheduleUpdate();
  });
}

bool ContextEngine::isLookedInto(const std::optional<RunningApplication>& front) const {
  // Window titles are readable where frames are; the tree adds the documents of programs that tell.
  const bool isTrusted = m_ports.accessibility.isTrusted(AccessNeed::Tree) ||
                         m_ports.accessibility.isTrusted(AccessNeed::Frames);
  return front && isTrusted && front->pid >= 1 && isCodeEditor(*front);
}

std::optional<QString> ContextEngine::folderOf(const std::optional<RunningApplication>& front) const {
  return isLookedInto(front) ? extractFolderPath(*front) : std::nullopt;
}

std::optional<QString> ContextEngine::extractFolderPath(const RunningApplication& application) const {
  const auto window = m_ports.accessibility.focusedWindow(application.pid);
  if (!window) return std::nullopt;
  const auto facts = m_ports.accessibility.facts(*window);
  if (!facts) return std::nullopt;
  if (facts->document) {
    const auto folder = folderOfDocument(*facts->document);
    if (folder && m_ports.probe(*folder) == PathKind::Folder) return folder;
  }
  const auto process = m_ports.processFacts(application.pid);
  const auto recent = [&] { return recentPaths(application.bundleID, m_ports.folders); };
  return folderFromTitle(
      facts->title, {application.name, process.workingFolder, process.arguments, m_ports.folders.home, recent}, m_ports.probe);
}

void ContextEngine::resolveGitContext(std::optional<QString> bundleID, std::optional<QString> folder) {
  ++m_generation;
  m_waiting.reset();
  ContextSnapshot snapshot{std::move(bundleID), std::move(folder), std::nullopt, std::nullopt};
  if (!snapshot.folderPath) {
    publish(std::move(snapshot));
    return;
  }
  m_waiting = std::move(snapshot);
  askGit();
}

void ContextEngine::askGit() {
  // Only the newest folder waits: behind a git that hangs, older ones would hold it up for nothing.
  if (m_isAskingGit || !m_waiting) return;
  m_isAskingGit = true;
  const auto snapshot = *std::exchange(m_waiting, std::nullopt);
  const auto answered = [self = QPointer<ContextEngine>(this), generation = m_generation](auto work) {
    if (!self) return;
    const bool isDone = self->m_generation != generation || work();
    if (!isDone || !self) return;
    self->m_isAskingGit = false;
    self->askGit();
  };
  const auto askBranch = [this, answered](const ContextSnapshot& found) {
    m_ports.git.run({QStringLiteral("-C"), *found.gitRoot, QStringLiteral("branch"), QStringLiteral("--show-current")},
                    [this, answered, found](const std::optional<QString>& branch) {
                      answered([&] {
                        publish({found.frontBundleID, found.folderPath, found.gitRoot, branch});
                        return true;
                      });
                    });
  };
  m_ports.git.run({QStringLiteral("-C"), *snapshot.folderPath, QStringLiteral("rev-parse"),
                   QStringLiteral("--show-toplevel")},
                  [this, answered, askBranch, snapshot](const std::optional<QString>& root) {
                    answered([&] {
                      const ContextSnapshot found{snapshot.frontBundleID, snapshot.folderPath, root, std::nullopt};
                      if (root) {
                        askBranch(found);
                      } else {
                        publish(found);
                      }
                      return !root;
                    });
                  });
}

void ContextEngine::publish(ContextSnapshot snapshot) {
  const bool isDifferent = m_snapshot != snapshot;
  m_snapshot = std::move(snapshot);
  if (isDifferent) Q_EMIT snapshotChanged();
  Q_EMIT m_center.contextChanged(m_snapshot.gitRoot, m_snapshot.frontBundleID);
}

}  // namespace tarnwick
