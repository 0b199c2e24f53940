// SPDX-License-Identifier: MIT
// What the user is working on: the application in front, and for a code editor the folder, repository and branch.
#pragma once

#include "context/EditorRecents.h"
#include "context/EditorTitle.h"
#include "context/GitRunner.h"
#include "platform/Accessibility.h"
#include "platform/ProcessFacts.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"

#include <QObject>
#include <QPointer>

#include <optional>
#include <vector>

namespace tarnwick {

class NotificationCenter;
class UserDefaults;

struct ContextSnapshot {
  std::optional<QString> frontBundleID;
  std::optional<QString> folderPath;
  std::optional<QString> gitRoot;
  std::optional<QString> gitBranch;
  bool operator==(const ContextSnapshot&) const = default;
};

class ContextEngine final : public QObject {
  Q_OBJECT

 public:
  struct Ports {
    Workspace& workspace;
    Accessibility& accessibility;
    Scheduler& scheduler;
    GitRunner& git;
    ProcessReader processFacts = noProcessFacts;
    UserFolders folders = UserFolders::current();
    PathProbe probe = probePath;
  };

  ContextEngine(Ports ports, const UserDefaults& defaults, NotificationCenter& center);
  ~ContextEngine() override;

  void start();
  void stop();
  void scheduleUpdate();

  /// Whether a folder is looked up for it: one of the seven known identifiers, or one that this desktop knows as an editor.
  [[nodiscard]] static bool isCodeEditor(const RunningApplication& application);
  /// Folder of a document given as a URL or as a plain path.
  [[nodiscard]] static std::optional<QString> folderOfDocument(const QString& document);

  [[nodiscard]] const ContextSnapshot& snapshot() const { return m_snapshot; }
  /// The application other than this one that was in front last.
  [[nodiscard]] const std::optional<RunningApplication>& lastExternalApp() const { return m_lastExternalApp; }

 Q_SIGNALS:
  void snapshotChanged();
  void lastExternalAppChanged();

 private:
  void applicationActivated(const RunningApplication& application);
  void applicationLeft();
  void followWindow(const std::optional<RunningApplication>& front);
  void windowChanged();
  void setLastExternalApp(const RunningApplication& application);
  [[nodiscard]] bool isLookedInto(const std::optional<RunningApplication>& front) const;
  [[nodiscard]] std::optional<QString> folderOf(const std::optional<RunningApplication>& front) const;
  [[nodiscard]] std::optional<QString> extractFolderPath(const RunningApplication& application) const;
  void resolveGitContext(std::optional<QString> bundleID, std::optional<QString> folder);
  void askGit();
  void publish(ContextSnapshot snapshot);

  Ports m_ports;
  const UserDefaults& m_defaults;
  NotificationCenter& m_center;
  ContextSnapshot m_snapshot;
  std::optional<RunningApplication> m_lastExternalApp;
  std::vector<Registration> m_workspaceObservers;
  qint64 m_followed = 0;  // the editor whose focused window is listened to
  Registration m_windowObserver;
  Registration m_secondLook;
  std::optional<QString> m_seenFolder;  // of the last update, asked for or under way
  Registration m_debounceWork;
  std::optional<ContextSnapshot> m_waiting;  // for git to be free
  bool m_isAskingGit = false;
  quint64 m_generation = 0;  // of the update under way; older answers are dropped
};

}  // namespace tarnwick
