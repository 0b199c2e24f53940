// SPDX-License-Identifier: MIT
#include "app/TarnwickApp.h"

#include "app/AppDelegate.h"
#include "app/StoreLocation.h"
#include "app/commands/CommandLine.h"
#include "app/commands/OfflineServices.h"
#include "context/GitQueue.h"
#include "effects/Controls.h"
#include "effects/HouseStyle.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "linux/LinuxPorts.h"
#include "linux/xdg/ProcessFiles.h"
#include "linux/time/QtScheduler.h"
#include "linux/time/SystemClock.h"
#include "linux/x11/TextScale.h"
#include "linux/x11/XcbLink.h"
#include "platform/Instance.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <cstdio>
#include <cstdlib>
#include <thread>
#include <utility>
#include <vector>

#include <malloc.h>

namespace tarnwick {
namespace {

using namespace std::chrono_literals;

constexpr auto kLooksAfterLaunch = 200ms;

enum class Start { Program, Command };

QStringList wordsOf(int argc, char** argv) {
  QStringList words;
  for (int i = 1; i < argc; ++i) words.append(QString::fromUtf8(argv[i]));
  return words;
}

Start startOf(const QStringList& words) {
  const bool isProgram = words.isEmpty() || words == QStringList{QStringLiteral("--background")} || words[0] == u"--open";
  return isProgram ? Start::Program : Start::Command;
}

void print(const CommandReply& reply) {
  std::fwrite(reply.output.constData(), 1, static_cast<size_t>(reply.output.size()), stdout);
  std::fwrite(reply.error.constData(), 1, static_cast<size_t>(reply.error.size()), stderr);
}

QByteArray readInput(const QStringList& words) {
  if ((words.value(0) != u"add" && words.value(0) != u"import") || !words.contains(QStringLiteral("-"))) return {};
  QFile input;
  return input.open(stdin, QIODevice::ReadOnly) ? input.readAll() : QByteArray();
}

void nameApplication() {
  QCoreApplication::setApplicationName(QStringLiteral("tarnwick"));
  QCoreApplication::setApplicationVersion(QStringLiteral(TARNWICK_VERSION));
}

/// English is what the program is written in; other languages lie among its resources.
void installTranslations(QCoreApplication& application) {
  const std::pair<QString, QString> sources[] = {
      {QStringLiteral("tarnwick"), QStringLiteral(":/translations")},
      {QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)},
  };
  for (const auto& [name, folder] : sources) {
    auto* translator = new QTranslator(&application);
    if (translator->load(QLocale(), name, QStringLiteral("_"), folder)) QCoreApplication::installTranslator(translator);
  }
}

/// Variables as Qt shall find them when it starts; programs that are opened from here get those of the user.
class StartVariables {
 public:
  explicit StartVariables(const XcbLink& server) {
    // Everything is painted by ourselves: the desktop's theme plug-in would cost tens of milliseconds and megabytes.
    set("QT_QPA_PLATFORMTHEME", "generic");
    // In a Wayland session windows keep their place and level only through XWayland.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("DISPLAY")) {
      set("QT_QPA_PLATFORM", "xcb");
    }
    const double textScale = desktopTextScale(server);
    if (textScale <= 1) return;
    bool isGiven = false;
    const double given = qgetenv("QT_SCALE_FACTOR").toDouble(&isGiven);
    set("QT_SCALE_FACTOR", QByteArray::number(textScale * (isGiven && given > 0 ? given : 1)));
    set("QT_FONT_DPI", {});
  }
  void giveBack() {
    for (const auto& [name, value] : m_before) {
      if (value.isNull()) {
        qunsetenv(name);
      } else {
        qputenv(name, value);
      }
    }
  }

 private:
  void set(const char* name, const QByteArray& value) {
    m_before.emplace_back(name, qgetenv(name));
    qputenv(name, value);
  }

  std::vector<std::pair<const char*, QByteArray>> m_before;
};

/// Pictures go back to the system when they are let go: left to itself, the allocator takes larger and larger ones from the
/// heap, where a small block above them keeps their pages.
void keepHeapSmall() {
  constexpr int kPicture = 128 * 1024;  // bytes
  mallopt(M_MMAP_THRESHOLD, kPicture);
}

// The display server gets a copy with each window, and window managers read it: the large ones are a megabyte.
QIcon windowIcon() {
  const QIcon whole = Symbols::applicationIcon();
  QIcon icon;
  for (const int side : {16, 24, 32, 48, 64}) icon.addPixmap(whole.pixmap(QSize(side, side), 1));
  return icon;
}

bool hasDisplay() {
  return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
         !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

AppPorts portsOf(LinuxPorts& ports) {
  // In a session of X11 these ask its server alone: meanwhile the buses let us in.
  auto& screens = ports.screens();
  auto& windowServer = ports.windowServer();
  auto& otherWindows = ports.otherWindows();
  auto& hotKeys = ports.hotKeys();
  return {ports.clock(),     ports.scheduler(),    screens, ports.workspace(),     windowServer,
          otherWindows,      ports.accessibility(), hotKeys, ports.notifications(), ports.audio(),
          ports.haptics(),   ports.power(),         ports.captureWatch(), ports.loginItem(), ports.dockPreferences(),
          ports.downloads(), ports.session(),       processFacts};
}

int runProgram(int& argc, char** argv, const QStringList& words) {
  if (!hasDisplay()) {
    std::fputs("tarnwick: there is no display\n", stderr);
    return 1;
  }
  keepHeapSmall();
  XcbLink server = XcbLink::opened();  // for the scale of text, and for the ports
  StartVariables variables(server);
  QApplication::setStyle(new HouseStyle);
  QApplication application(argc, argv);
  variables.giveBack();
  nameApplication();
  installTranslations(application);
  QGuiApplication::setApplicationDisplayName(QStringLiteral("Tarnwick"));
  QGuiApplication::setDesktopFileName(kApplicationID);
  QApplication::setQuitOnLastWindowClosed(false);

  const std::jthread fonts(tokens::findFamily);  // while ports and store are opened
  LinuxPorts ports(std::move(server));
  AppDelegate delegate(portsOf(ports), {persistentStorePath(), settingsPath()});
  // Not quit(): that asks every window first, and the board and the notes never close, they only hide.
  const auto end = [] { QCoreApplication::exit(0); };
  QObject::connect(&delegate, &AppDelegate::quitRequested, &application, end, Qt::QueuedConnection);

  InstanceHandlers handlers;
  handlers.storePath = persistentStorePath();
  handlers.command = [&delegate](const CommandCall& call) { return delegate.runCommand(call); };
  handlers.reopen = [&delegate] { delegate.applicationShouldHandleReopen(); };
  handlers.action = [&delegate](const QString& action) { delegate.runAction(action); };
  handlers.open = [&delegate](const QStringList& uris) { delegate.openFiles(uris); };
  handlers.sessionEnds = end;
  if (ports.instance().acquire(std::move(handlers)) == InstanceRole::Second) {
    // Another one was quicker. A start by hand is the reopen event for it.
    if (words.isEmpty()) return ports.instance().forward({}).exitStatus;
    if (words[0] == u"--open") return ports.instance().forward({words, {}, QDir::currentPath()}).exitStatus;
    return 0;
  }
  delegate.applicationDidFinishLaunching();
  // Once the icon is in the tray: no window needs them before.
  const Registration looks = ports.scheduler().after(kLooksAfterLaunch, [] {
    QApplication::setWindowIcon(windowIcon());
    styleToolTips();
  });
  if (words.size() > 1) delegate.openFiles(filesOf(words.mid(1), QDir::currentPath()));
  const int status = QApplication::exec();
  delegate.applicationWillTerminate();
  return status;
}

int runCommand(int& argc, char** argv, const QStringList& words) {
  QCoreApplication application(argc, argv);
  nameApplication();
  installTranslations(application);
  SystemClock clock;
  QtScheduler scheduler(clock);
  GitQueue git(scheduler);
  OfflineServices services({persistentStorePath(), settingsPath()}, clock, scheduler, git);
  const auto reply = services.run({words, readInput(words), QDir::currentPath()});
  print(reply);
  return reply.exitStatus;
}

}  // namespace

int TarnwickApp::main(int argc, char** argv) {
  const auto words = wordsOf(argc, argv);
  return startOf(words) == Start::Program ? runProgram(argc, argv, words) : runCommand(argc, argv, words);
}

}  // namespace tarnwick
