// SPDX-License-Identifier: MIT
#include "app/commands/OfflineServices.h"

#include "app/commands/CommandReplies.h"
#include "board/CrushUndoStore.h"
#include "board/NotificationEngine.h"
#include "context/ContextEngine.h"
#include "effects/CrushFlight.h"
#include "effects/SoundEngine.h"
#include "model/NotificationCenter.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "model/store/ModelContainer.h"
#include "platform/Screens.h"
#include "platform/Unavailable.h"
#include "platform/Workspace.h"
#include "settings/UpdateChecker.h"

#include <QCoreApplication>
#include <QUrl>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

/// No application runs that a note could be pinned to.
class NoWorkspace final : public Workspace {
 public:
  [[nodiscard]] std::optional<RunningApplication> frontmost() const override { return std::nullopt; }
  [[nodiscard]] std::vector<RunningApplication> running() const override { return {}; }
  [[nodiscard]] Registration onActivated(Observer) override { return {}; }
  [[nodiscard]] Registration onDeactivated(Observer) override { return {}; }
  [[nodiscard]] Registration onTerminated(Observer) override { return {}; }
  [[nodiscard]] std::pair<QString, QIcon> identity(const QString& bundleID) const override { return {bundleID, {}}; }
  bool openUrl(const QUrl&) override { return false; }
  [[nodiscard]] bool isMotionReduced() const override { return true; }
};

class NoScreens final : public Screens {
 public:
  [[nodiscard]] std::vector<ScreenFacts> all() const override { return {}; }
  [[nodiscard]] bool isComposited() const override { return false; }
  [[nodiscard]] Registration onChanged(std::function<void()>) override { return {}; }
};

class NoFlight final : public CrushFlight {
 public:
  [[nodiscard]] Registration play(const DesktopRect&, const QColor&, const QImage&, Motion,
                                  std::function<void()> completion) override {
    completion();
    return {};
  }
};

}  // namespace

struct OfflineServices::Parts {
  Parts(Paths givenPaths, Clock& givenClock, Scheduler& givenScheduler, GitRunner& givenGit)
      : paths(std::move(givenPaths)),
        clock(givenClock),
        scheduler(givenScheduler),
        git(givenGit),
        defaults(paths.settings, clock) {}

  Paths paths;
  Clock& clock;
  Scheduler& scheduler;
  GitRunner& git;
  NotificationCenter center;
  UserDefaults defaults;
  NoWorkspace workspace;
  UnavailableDownloads downloads;
  NoScreens screens;
  NoFlight flight;
  UnavailableAccessibility accessibility{u"not running"_s};
  UnavailableUserNotifications notifications{u"not running"_s};
  UnavailableAudio audio{u"not running"_s};
  UnavailableHaptics haptics{u"not running"_s};

  /// Made with the store: synthesising the sounds alone would cost every `settings` its time.
  struct Opened {
    Opened(Parts& parts, std::unique_ptr<ModelContainer> store)
        : container(std::move(store)),
          sound(parts.audio, parts.defaults),
          reminders(parts.notifications, parts.clock),
          undo([]() -> TornNotes* { return nullptr; }),
          context({parts.workspace, parts.accessibility, parts.scheduler, parts.git}, parts.defaults, parts.center),
          updates(parts.defaults, parts.clock, parts.workspace, parts.downloads, QUrl()),
          services{*container,      parts.defaults, parts.center, parts.clock, parts.scheduler, parts.screens,
                   parts.workspace, parts.haptics,  sound,        parts.flight, reminders,      undo,
                   context,         updates,        []() -> TornNotes* { return nullptr; }} {}

    std::unique_ptr<ModelContainer> container;
    SoundEngine sound;
    NotificationEngine reminders;
    CrushUndoStore undo;
    ContextEngine context;
    UpdateChecker updates;
    BoardServices services;
  };
  std::unique_ptr<Opened> opened;
};

OfflineServices::OfflineServices(Paths paths, Clock& clock, Scheduler& scheduler, GitRunner& git)
    : m_parts(std::make_unique<Parts>(std::move(paths), clock, scheduler, git)) {}

OfflineServices::~OfflineServices() = default;

CommandReply OfflineServices::run(const CommandCall& call) {
  registerDefaultSettings(m_parts->defaults);
  migrateSettingsOnce(m_parts->defaults);
  CommandRunner runner(CommandEnvironment{
      m_parts->defaults, m_parts->center, m_parts->clock, m_parts->git, [this] { return open(); }, std::nullopt});
  return runner.run(call);
}

Result<const BoardServices*> OfflineServices::open() {
  if (!m_parts->opened) {
    auto container = ModelContainer::open(m_parts->paths.store);
    if (!container) {
      if (container.error().kind != ErrorKind::InUse) return container.error();
      return Error{ErrorKind::InUse, QCoreApplication::translate("tarnwick::CommandRunner", "the store is in use")};
    }
    m_parts->opened = std::make_unique<Parts::Opened>(*m_parts, container.take());
  }
  return &std::as_const(m_parts->opened->services);
}

}  // namespace tarnwick
