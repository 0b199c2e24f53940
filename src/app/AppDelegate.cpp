// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "app/ImportWindow.h"
#include "app/StatusReport.h"
#include "app/StoreAlert.h"
#include "app/commands/CommandRunner.h"
#include "board/BoardServices.h"
#include "board/ContentView.h"
#include "board/CrushUndoStore.h"
#include "board/DeskDuties.h"
#include "board/NoteCrush.h"
#include "board/NotificationEngine.h"
#include "board/TaskScheduler.h"
#include "context/ContextEngine.h"
#include "context/DockTrashLocator.h"
#include "context/GitQueue.h"
#include "effects/CrushToTrashAnimator.h"
#include "effects/SoundEngine.h"
#include "model/AppNotesPrefs.h"
#include "model/NotificationCenter.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "model/store/ModelContainer.h"
#include "settings/SettingsView.h"
#include "settings/UpdateChecker.h"
#include "settings/WelcomeView.h"
#include "shell/FloatingPanel.h"
#include "shell/HotkeyManager.h"
#include "shell/ShellPorts.h"
#include "shell/StatusBarController.h"
#include "shell/WakeResurfaceController.h"

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QScreen>
#include <QSystemTrayIcon>
#include <QUrl>
#include <QWindow>

namespace tarnwick {

using namespace std::chrono_literals;

namespace {

constexpr auto kNudgeAfterLaunch = 800ms;
constexpr auto kNudgeAfterWake = 1200ms;
constexpr auto kBoardAfterLaunch = 100ms;
constexpr auto kSoundsAfterLaunch = 300ms;
AppDelegate* g_shared = nullptr;

// As Qt does it: windows lie on whole points; the origin of each screen is kept in device pixels, and place and size of
// what lies on it are scaled one by one; so is the rim that a window has around its frame.
QRect devicePixels(const DesktopRect& rect, const DesktopSpace& space, int rim = 0) {
  const QRectF frame = space.toQt(rect);
  const QScreen* screen = QGuiApplication::screenAt(frame.center().toPoint());
  if (!screen) screen = QGuiApplication::primaryScreen();
  if (!screen) return frame.toRect();
  const QPointF origin = screen->geometry().topLeft();
  const double scale = screen->devicePixelRatio();
  const QMargins margins(rim, rim, rim, rim);
  const QRect window = QRect(frame.topLeft().toPoint(), frame.size().toSize()).marginsAdded(margins);
  const QPointF corner = QPointF(window.topLeft()) - origin;
  const QRect pixels((origin + corner * scale).toPoint(), (QSizeF(window.size()) * scale).toSize());
  return pixels.marginsRemoved(margins * scale);
}

}  // namespace

// Declared in the order in which the parts are made; they go in the reverse order.
struct AppDelegate::Parts {
  Parts(const AppPorts& ports, const Paths& paths)
      : defaults(paths.settings, ports.clock),
        prefs(defaults, center),
        sound(ports.audio, defaults),
        git(ports.scheduler),
        context({ports.workspace, ports.accessibility, ports.scheduler, git, ports.processFacts}, defaults, center),
        trash({ports.accessibility, ports.dockPreferences, ports.screens, ports.workspace}, defaults),
        flight({ports.screens, ports.scheduler, ports.clock, ports.windowServer, ports.haptics, sound, trash}),
        reminders(ports.notifications, ports.clock),
        undo([this] { return torn(); }),
        updates(defaults, ports.clock, ports.workspace, ports.downloads, UpdateChecker::feedURL()) {}

  [[nodiscard]] TornNotes* torn() const { return panel.get(); }

  NotificationCenter center;
  UserDefaults defaults;
  AppNotesPrefs prefs;
  SoundEngine sound;
  GitQueue git;
  ContextEngine context;
  DockTrashLocator trash;
  CrushToTrashAnimator flight;
  NotificationEngine reminders;
  CrushUndoStore undo;
  UpdateChecker updates;
  std::unique_ptr<StoreAlert> alert;
  std::unique_ptr<CommandRunner> commands;

  // Only once the store is open:
  std::unique_ptr<ModelContainer> container;
  std::unique_ptr<ModelContext> backgroundContext;
  std::unique_ptr<BoardServices> services;
  std::unique_ptr<TaskScheduler> scheduler;
  std::unique_ptr<FloatingPanel> panel;
  ContentView* board = nullptr;  // the panel's content
  std::unique_ptr<StatusBarController> statusBar;
  std::unique_ptr<HotkeyManager> hotkey;
  std::unique_ptr<WakeResurfaceController> wakeResurface;
  std::unique_ptr<WelcomeWindowController> welcome;
  std::unique_ptr<SettingsView> settings;
  std::unique_ptr<ImportWindow> importWindow;

  Registration calendarObserver;
  Registration wakeObserver;
  Registration actedOnObserver;
  std::vector<Registration> pendingNudges;
  Registration boardReady;
  Registration soundsReady;
};

AppDelegate::AppDelegate(const AppPorts& ports, Paths paths)
    : m_ports(ports), m_paths(std::move(paths)), m_parts(std::make_unique<Parts>(m_ports, m_paths)) {}

AppDelegate::~AppDelegate() {
  // While everything is there: hiding takes a crush back that still flies.
  if (m_parts->panel) m_parts->panel->hideBoard();
  if (g_shared == this) g_shared = nullptr;
}

AppDelegate* AppDelegate::shared() { return g_shared; }
ModelContainer* AppDelegate::container() const { return m_parts->container.get(); }
FloatingPanel* AppDelegate::panel() const { return m_parts->panel.get(); }

void AppDelegate::applicationDidFinishLaunching() {
  g_shared = this;
  registerDefaultSettings(m_parts->defaults);
  migrateSettingsOnce(m_parts->defaults);
  makeCommands();
  auto opened = ModelContainer::open(m_paths.store);
  if (!opened) {
    presentStoreError(opened.error());
    return;
  }
  m_parts->container = opened.take();
  makeParts();
  startParts();
}

void AppDelegate::presentStoreError(const Error& error) {
  m_parts->alert = std::make_unique<StoreAlert>(error, m_paths.store);
  connect(m_parts->alert.get(), &StoreAlert::quitChosen, this, &AppDelegate::quitRequested);
  m_parts->alert->present();
}

void AppDelegate::makeCommands() {
  RunningProgram running;
  running.toggle = [this] { toggleBoard(); };
  running.board = [this] {
    if (m_parts->panel) m_parts->panel->present();
  };
  running.newNote = [this] { showAddTask(); };
  running.open = [this](const QStringList& paths) { openFiles(paths); };
  running.quit = [this] { Q_EMIT quitRequested(); };
  running.status = [this] { return status(); };
  m_parts->commands = std::make_unique<CommandRunner>(CommandEnvironment{
      m_parts->defaults, m_parts->center, m_ports.clock, m_parts->git,
      [this]() -> Result<const BoardServices*> {
        if (m_parts->services) {
          if (m_parts->board) m_parts->board->prepare();  // it hears what a command asks of its cards
          return static_cast<const BoardServices*>(m_parts->services.get());
        }
        return Error{ErrorKind::Unavailable, m_parts->alert ? m_parts->alert->text() : tr("the store is not open yet")};
      },
      std::move(running)});
}

CommandReply AppDelegate::runCommand(const CommandCall& call) {
  if (!m_parts->commands) return {1, {}, "tarnwick: still starting\n"};
  return m_parts->commands->run(call);
}

StatusReport AppDelegate::status() const {
  const auto& parts = *m_parts;
  StatusReport report;
  report.version = UpdateChecker::currentVersion();
  report.pid = QCoreApplication::applicationPid();
  const auto space = m_ports.screens.space();
  if (parts.panel) {
    report.board = {parts.panel->isPresented(), parts.panel->isDismissing(), std::nullopt};
    if (parts.panel->isPresented()) report.board.frame = devicePixels(parts.panel->boardFrame(), space, parts.panel->rim());
    for (const auto& torn : parts.panel->tornWindows()) {
      report.windows.push_back({torn.id, devicePixels(torn.frame, space), torn.isVisible, torn.level, torn.isGhost,
                                torn.isTucked, torn.isDocked, torn.sharing, torn.opacity});
    }
  }
  report.context = parts.context.snapshot();
  if (const auto& last = parts.context.lastExternalApp()) report.lastExternalApp = last->bundleID;
  report.reminders = m_ports.notifications.pending();
  report.platform.session = m_ports.session;
  report.platform.tray = QSystemTrayIcon::isSystemTrayAvailable()
                             ? PortTraits::served(QStringLiteral("QSystemTrayIcon"))
                             : PortTraits::unavailable(tr("this desktop shows no tray"));
  report.platform.hotKey = m_ports.hotKeys.traits();
  if (report.platform.hotKey.isAvailable && !(parts.hotkey && parts.hotkey->isRegistered())) {
    report.platform.hotKey = PortTraits::unavailable(tr("the chord could not be registered"));
  }
  report.platform.accessibility = m_ports.accessibility.traits();
  report.platform.notifications = m_ports.notifications.traits();
  report.platform.audio = m_ports.audio.traits();
  report.platform.captureExclusion = m_ports.captureWatch.traits();
  report.platform.captureLevel = m_ports.captureWatch.exclusion();
  return report;
}

void AppDelegate::makeParts() {
  auto& parts = *m_parts;
  parts.backgroundContext = std::make_unique<ModelContext>(*parts.container);
  parts.services = std::make_unique<BoardServices>(BoardServices{
      *parts.container, parts.defaults, parts.center, m_ports.clock, m_ports.scheduler, m_ports.screens,
      m_ports.workspace, m_ports.haptics, parts.sound, parts.flight, parts.reminders, parts.undo, parts.context,
      parts.updates, [&parts] { return parts.torn(); }, m_ports.otherWindows.sight()});

  backUp();
  parts.scheduler = std::make_unique<TaskScheduler>(
      *parts.backgroundContext,
      TaskScheduler::Ports{m_ports.clock, m_ports.scheduler, parts.defaults, parts.reminders,
                           [this] { backUp(); }},
      [&parts] { return parts.torn(); });

  auto board = std::make_unique<ContentView>(*parts.services);
  parts.board = board.get();
  parts.panel = std::make_unique<FloatingPanel>(
      *parts.services,
      ShellPorts{m_ports.windowServer, m_ports.otherWindows, m_ports.accessibility, m_ports.captureWatch},
      std::move(board));

  parts.statusBar = std::make_unique<StatusBarController>(
      *parts.panel, StatusBarController::Services{m_ports.screens, m_ports.scheduler, parts.prefs},
      StatusBarController::Actions{[this] { showAddTask(); }, [this] { showSettings(); },
                                   [this] { Q_EMIT quitRequested(); }});
  connect(parts.panel.get(), &FloatingPanel::presented, parts.board, &ContentView::takeFocus);
  parts.hotkey = std::make_unique<HotkeyManager>(m_ports.hotKeys, parts.defaults, [this] { toggleBoard(); });
  parts.wakeResurface = std::make_unique<WakeResurfaceController>(
      m_ports.power, m_ports.scheduler, parts.defaults, [this] { m_parts->panel->resurfaceTornNotes(); });
  parts.welcome = std::make_unique<WelcomeWindowController>(
      WelcomeWindowController::Ports{m_ports.accessibility, m_ports.scheduler, m_ports.workspace, m_ports.windowServer,
                                     m_ports.screens},
      parts.defaults);
}

void AppDelegate::startParts() {
  auto& parts = *m_parts;
  connect(parts.statusBar.get(), &StatusBarController::trayMissing, this, [this] {
    m_ports.notifications.add({QStringLiteral("tray-missing"), tr("Tarnwick is running"),
                               tr("This desktop shows no tray. Open the board with %1, with the command "
                                  "\"tarnwick toggle\", or with Tarnwick's icon in the launcher.")
                                   .arg(m_parts->hotkey->chord().replace(QStringLiteral("Meta"), QStringLiteral("Super"))),
                               m_ports.clock.now()});
  });
  parts.statusBar->start();
  parts.hotkey->start();
  parts.wakeResurface->start();
  parts.context.start();
  parts.actedOnObserver = m_ports.notifications.onActedOn(
      [this](const QString& identifier, const QString& action) { actOnReminder(identifier, action); });
  parts.reminders.requestPermission();
  parts.reminders.rescheduleAll(parts.backgroundContext->fetchTasks());
  followEdits(parts.center, parts.container->mainContext(), parts.reminders, this);
  restickDueNotes();
  parts.calendarObserver = m_ports.power.observe([this](PowerEvent event) { followCalendar(event); });
  parts.updates.checkIfDue();
  // Once the icon is in the tray: nobody looks before, and nothing sounds.
  parts.boardReady = m_ports.scheduler.after(kBoardAfterLaunch, [&parts] { parts.board->prepare(); });
  parts.soundsReady = m_ports.scheduler.after(kSoundsAfterLaunch, [&parts] { parts.sound.prepare(); });
  if (parts.defaults.boolean(keys::kHasSeenWelcome)) {
    schedulePlanNudge(kNudgeAfterLaunch);
  } else {
    parts.welcome->show([this] { m_parts->panel->present(); });
  }
  parts.wakeObserver = m_ports.power.observe([this](PowerEvent event) {
    const bool isWake = event == PowerEvent::DidWake || event == PowerEvent::ScreensDidWake ||
                        event == PowerEvent::SessionBecameActive;
    if (isWake) schedulePlanNudge(kNudgeAfterWake);
  });
}

void AppDelegate::followCalendar(PowerEvent event) {
  if (event == PowerEvent::DayChanged) {
    backUp();
    m_parts->scheduler->performDailyBurn(TaskScheduler::Burn::BeforeToday);
    restickDueNotes();
    m_parts->updates.checkIfDue();
  } else if (event == PowerEvent::ClockChanged) {
    m_parts->reminders.rescheduleAll(m_parts->backgroundContext->fetchTasks());
  }
}

void AppDelegate::actOnReminder(const QString& identifier, const QString& action) {
  auto& parts = *m_parts;
  const auto task = parts.container->mainContext().findTask(NotificationEngine::noteOf(identifier));
  if (action.isEmpty()) {
    if (task && parts.panel->isOpen(task->id())) {
      parts.panel->tearOffTask(task, std::nullopt);
    } else {
      parts.panel->present();
      if (task) parts.board->showNote(task->id());
    }
    return;
  }
  if (!task || task->isCompleted() || task->isBurned()) return;
  if (action == NotificationEngine::kRemindLater) parts.reminders.remindLater(*task, identifier);
  // A note whose crush cannot be saved is left as it is, and is still due.
  if (action == NotificationEngine::kCrush) static_cast<void>(crushAtOnce(*parts.services, *task));
}

void AppDelegate::schedulePlanNudge(std::chrono::milliseconds delay) {
  m_parts->pendingNudges.push_back(m_ports.scheduler.after(delay, [this] { planNudgeIfDue(); }));
  constexpr size_t kKept = 8;  // more wakes than that within 1.2 s are one wake
  if (m_parts->pendingNudges.size() > kKept) m_parts->pendingNudges.erase(m_parts->pendingNudges.begin());
}

void AppDelegate::backUp() {
  // Without the room for a copy the notes themselves still work.
  static_cast<void>(m_parts->container->backUp(Calendar::of(m_ports.clock).day(m_ports.clock.now())));
}

void AppDelegate::planNudgeIfDue() {
  tarnwick::planNudgeIfDue(m_parts->defaults, m_ports.clock,
                           {[this] { return m_parts->panel->isPresented(); }, [this] { m_parts->panel->present(); }});
}

void AppDelegate::restickDueNotes() {
  tarnwick::restickDueNotes(m_parts->container->mainContext(), *m_parts->panel, m_ports.clock);
}

void AppDelegate::applicationShouldHandleReopen() {
  if (m_parts->alert) {
    m_parts->alert->present();
    return;
  }
  const bool hasVisibleWindows =
      (m_parts->settings && m_parts->settings->isVisible()) || (m_parts->welcome && m_parts->welcome->isVisible());
  if (!hasVisibleWindows && m_parts->panel) m_parts->panel->present();
}

void AppDelegate::applicationWillTerminate() {
  if (m_parts->container) static_cast<void>(m_parts->container->mainContext().save());
  if (m_parts->hotkey) m_parts->hotkey->stop();
  if (m_parts->scheduler) m_parts->scheduler->invalidate();
  if (m_parts->wakeResurface) m_parts->wakeResurface->stop();
  m_parts->context.stop();
}

void AppDelegate::showAddTask() {
  if (!m_parts->panel) return;
  if (!m_parts->panel->isPresented() || m_parts->panel->isDismissing()) m_parts->panel->present();
  if (auto* window = m_parts->panel->windowHandle()) m_ports.windowServer.activate(*window);
  Q_EMIT m_parts->center.showAddTask();
}

void AppDelegate::toggleBoard() {
  if (m_parts->panel) m_parts->panel->toggle();
}

void AppDelegate::showSettings() {
  auto& parts = *m_parts;
  if (!parts.settings) {
    parts.settings = std::make_unique<SettingsView>(SettingsServices{parts.defaults, parts.center, parts.sound,
                                                                     parts.updates, m_ports.loginItem,
                                                                     m_ports.captureWatch, m_ports.workspace,
                                                                     m_ports.scheduler, m_ports.screens,
                                                                     m_ports.dockPreferences});
    connect(parts.settings.get(), &SettingsView::importRequested, this, [this] {
      if (m_parts->services) {
        importWindow().choose();
      } else {
        m_parts->alert->present();
      }
    });
  }
  parts.settings->show();
  if (auto* window = parts.settings->windowHandle()) m_ports.windowServer.activate(*window);
}

ImportWindow& AppDelegate::importWindow() {
  auto& window = m_parts->importWindow;
  if (!window) window = std::make_unique<ImportWindow>(*m_parts->services, QDir::homePath());
  return *window;
}

void AppDelegate::openFiles(const QStringList& names) {
  QStringList paths;
  for (const auto& name : names) {
    const QUrl url(name);
    paths.append(url.isLocalFile() ? url.toLocalFile() : name);
  }
  if (!m_parts->services || paths.isEmpty()) {
    applicationShouldHandleReopen();
    return;
  }
  importWindow().preview(paths);
  if (auto* window = importWindow().windowHandle()) m_ports.windowServer.activate(*window);
}

void AppDelegate::runAction(const QString& action) {
  // The settings need no store.
  if (action == u"settings") {
    showSettings();
  } else if (m_parts->alert) {
    m_parts->alert->present();
  } else if (action == u"toggle-board") {
    toggleBoard();
  } else if (action == u"new-note") {
    showAddTask();
  }
}

}  // namespace tarnwick
