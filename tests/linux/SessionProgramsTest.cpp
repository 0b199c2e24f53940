// SPDX-License-Identifier: MIT
// Other programs and their windows, against a real window manager.
#include "Session.h"
#include "linux/LinuxPorts.h"
#include "linux/atspi/AtSpiDocuments.h"
#include "linux/x11/X11Clients.h"
#include "platform/Accessibility.h"
#include "platform/OtherWindows.h"
#include "platform/Screens.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QUrl>
#include <QWidget>

#include <csignal>

namespace tarnwick {
namespace {

using test::holdsSoon;
using test::PeerProgram;
using test::xdotool;

class Programs : public testing::Test {
 protected:
  [[nodiscard]] bool isFront(const PeerProgram& peer) const {
    const auto front = workspace.frontmost();
    return front && front->pid == peer.pid();
  }
  LinuxPorts ports;
  Workspace& workspace = ports.workspace();
  OtherWindows& others = ports.otherWindows();
};

TEST_F(Programs, AreReportedAsTheyComeToTheFrontLeaveItAndEnd) {
  QStringList log;
  const auto note = [&](const char* what) {
    return [&log, what](const RunningApplication& application) {
      log << QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(application.pid);
    };
  };
  const auto on = workspace.onActivated(note("on"));
  const auto off = workspace.onDeactivated(note("off"));
  const auto end = workspace.onTerminated(note("end"));
  PeerProgram first("first");
  first.tell("window 100 100 300 200 First");
  ASSERT_TRUE(holdsSoon([&] { return isFront(first); }));
  EXPECT_EQ(workspace.frontmost()->bundleID, u"tarnwick_peer") << "its class, as no entry is installed";
  EXPECT_TRUE(workspace.frontmost()->isRegular);
  log.clear();
  PeerProgram second("second");
  second.tell("window 500 100 300 200 Second");
  ASSERT_TRUE(holdsSoon([&] { return isFront(second); }));
  EXPECT_EQ(log, (QStringList{QStringLiteral("off %1").arg(first.pid()), QStringLiteral("on %1").arg(second.pid())}));
  log.clear();
  const auto pid = first.pid();
  kill(static_cast<pid_t>(pid), SIGKILL);
  ASSERT_TRUE(holdsSoon([&] { return log.contains(QStringLiteral("end %1").arg(pid)); }));
  EXPECT_TRUE(holdsSoon([&] { return workspace.running().size() >= 1 && isFront(second); }));
  for (const auto& application : workspace.running()) EXPECT_NE(application.pid, pid);
}

TEST_F(Programs, AreKnownByTheirConnectionWhateverTheirWindowsSay) {
  for (const char* claim : {"claim 0", "claim 2"}) {  // none; a number of a sandbox's own
    PeerProgram peer;
    peer.tell("window 100 100 300 200 Claims");
    ASSERT_TRUE(holdsSoon([&] { return isFront(peer); }));
    peer.tell(claim);
    ASSERT_TRUE(peer.says(QStringLiteral("claimed")));
    PeerProgram other;
    other.tell("window 500 100 300 200 Other");
    ASSERT_TRUE(holdsSoon([&] { return isFront(other); }));
    peer.tell("front");
    EXPECT_TRUE(holdsSoon([&] { return isFront(peer); })) << claim;
    std::optional<DesktopRect> frame;
    const auto handle = others.followFocusedWindow(peer.pid(), [&](auto seen) { frame = seen; });
    EXPECT_TRUE(holdsSoon([&] { return frame && frame->width >= 300; })) << claim;
  }
}

TEST_F(Programs, IncludeOurselvesUnderOurOwnIdentifier) {
  QWidget window;
  window.show();
  window.activateWindow();
  ASSERT_TRUE(holdsSoon([&] { return workspace.frontmost() && workspace.frontmost()->bundleID == kApplicationID; }));
  EXPECT_EQ(workspace.frontmost()->pid, QCoreApplication::applicationPid());
}

TEST_F(Programs, StayInFrontBehindOurPanels) {
  PeerProgram peer;
  peer.tell("window 100 100 300 200 Behind");
  ASSERT_TRUE(holdsSoon([&] { return isFront(peer); }));
  QStringList log;
  const auto on = workspace.onActivated([&](const auto& application) { log << QString::number(application.pid); });
  const auto off = workspace.onDeactivated([&](const auto&) { log << QStringLiteral("off"); });
  QWidget panel(nullptr, Qt::Tool);
  panel.setGeometry(500, 300, 200, 120);
  panel.show();
  ports.windowServer().activate(*panel.windowHandle());
  ASSERT_TRUE(holdsSoon([&] { return !log.isEmpty(); }));
  EXPECT_EQ(log, QStringList{QString::number(QCoreApplication::applicationPid())}) << "our activation is told";
  EXPECT_TRUE(isFront(peer));
  peer.tell("front");
  EXPECT_TRUE(holdsSoon([&] { return log.size() == 2; }));
  EXPECT_EQ(log.last(), QString::number(peer.pid())) << "and that it is back, which it never left";
}

TEST_F(Programs, AreNobodyWhenNoWindowHasTheKeyboard) {
  PeerProgram peer;
  peer.tell("window 100 100 300 200 Only");
  ASSERT_TRUE(holdsSoon([&] { return isFront(peer); }));
  peer.tell("minimize");
  EXPECT_TRUE(holdsSoon([&] { return !isFront(peer); }));
}

class AFollowedWindow : public Programs {
 protected:
  void follow(const PeerProgram& peer) {
    handle = others.followFocusedWindow(peer.pid(), [this](std::optional<DesktopRect> frame) {
      ++reports;
      last = frame;
    });
  }
  [[nodiscard]] bool isWide(double width) const { return last && last->width >= width && last->width <= width + 20; }
  Registration handle;
  int reports = 0;
  std::optional<DesktopRect> last;
};

TEST_F(AFollowedWindow, IsReportedAtOnceAndWithItsWholeFrame) {
  PeerProgram peer;
  peer.tell("window 200 150 400 250 Followed");
  ASSERT_TRUE(holdsSoon([&] { return isFront(peer); }));
  follow(peer);
  EXPECT_EQ(reports, 1);
  ASSERT_TRUE(holdsSoon([&] { return isWide(400); }));
  EXPECT_GT(last->height, 250) << "the title bar is part of it";
}

TEST_F(AFollowedWindow, ReportsMovesSizesMinimizingAndItsEnd) {
  PeerProgram peer;
  peer.tell("window 200 150 400 250 Followed");
  ASSERT_TRUE(holdsSoon([&] { return isFront(peer); }));
  follow(peer);
  ASSERT_TRUE(holdsSoon([&] { return isWide(400); }));
  const double x = last->x;
  peer.tell("move 350 150");
  EXPECT_TRUE(holdsSoon([&] { return last && last->x > x + 100; }));
  peer.tell("resize 460 250");
  EXPECT_TRUE(holdsSoon([&] { return isWide(460); }));
  peer.tell("minimize");
  EXPECT_TRUE(holdsSoon([&] { return !last; }));
  peer.tell("restore");
  EXPECT_TRUE(holdsSoon([&] { return isWide(460); }));
  peer.tell("close");
  EXPECT_TRUE(holdsSoon([&] { return !last; }));
  handle.cancel();
  const int before = reports;
  peer.tell("window 100 100 300 200 Again");
  ASSERT_TRUE(holdsSoon([&] { return isFront(peer); }));
  EXPECT_EQ(reports, before) << "nobody listens any more";
}

TEST_F(AFollowedWindow, IsReportedToEachThatFollowsIt) {
  PeerProgram peer;
  peer.tell("window 200 150 400 250 Followed");
  ASSERT_TRUE(holdsSoon([&] { return isFront(peer); }));
  follow(peer);
  std::optional<DesktopRect> seen;
  auto second = others.followFocusedWindow(peer.pid(), [&](auto frame) { seen = frame; });
  EXPECT_TRUE(seen) << "at once, to the second too";
  peer.tell("resize 460 250");
  EXPECT_TRUE(holdsSoon([&] { return isWide(460) && seen == last; }));
  second.cancel();
  peer.tell("resize 520 250");
  EXPECT_TRUE(holdsSoon([&] { return isWide(520); })) << "the first goes on";
  EXPECT_NE(seen, last);
}

TEST_F(AFollowedWindow, IsFollowedThroughADragByItsTitleBar) {
  PeerProgram peer;
  peer.tell("window 200 150 400 250 Dragged");
  ASSERT_TRUE(holdsSoon([&] { return isFront(peer); }));
  follow(peer);
  ASSERT_TRUE(holdsSoon([&] { return isWide(400); }));
  const double height = ports.screens().all().front().frame.height;
  const auto start = *last;
  const int x = static_cast<int>(start.midX());
  const int y = static_cast<int>(height - start.maxY() + 8);
  reports = 0;
  xdotool(QStringLiteral("mousemove %1 %2 mousedown 1").arg(x).arg(y));
  for (int step = 1; step <= 10; ++step) {
    xdotool(QStringLiteral("mousemove %1 %2").arg(x + 10 * step).arg(y + 5 * step));
  }
  EXPECT_TRUE(holdsSoon([&] { return last && last->x > start.x + 60; })) << "still held";
  xdotool(QStringLiteral("mouseup 1"));
  EXPECT_GE(reports, 4);
}

TEST_F(Programs, WindowsAreListedFrontToBackWithoutOurs) {
  PeerProgram below("below");
  below.tell("window 100 100 300 200 Below");
  ASSERT_TRUE(holdsSoon([&] { return isFront(below); }));
  PeerProgram above("above");
  above.tell("window 150 150 300 200 Above");
  ASSERT_TRUE(holdsSoon([&] { return isFront(above); }));
  QWidget ours;
  ours.show();
  const auto order = [&] {
    std::vector<qint64> pids;
    for (const auto& window : others.onScreen()) {
      EXPECT_NE(window.pid, QCoreApplication::applicationPid());
      if (window.layer == 0) pids.push_back(window.pid);
    }
    return pids;
  };
  EXPECT_TRUE(holdsSoon([&] { return order() == std::vector<qint64>{above.pid(), below.pid()}; }));
  below.tell("front");
  EXPECT_TRUE(holdsSoon([&] { return order() == std::vector<qint64>{below.pid(), above.pid()}; }));
}

TEST_F(Programs, PointerAndOptionKeyAreRead) {
  xdotool(QStringLiteral("mousemove 321 123"));
  const double height = ports.screens().all().front().frame.height;
  EXPECT_EQ(others.pointer().position, (DesktopPoint{321, height - 123}));
  EXPECT_FALSE(others.pointer().isOptionDown);
  xdotool(QStringLiteral("keydown Alt_L"));
  EXPECT_TRUE(others.pointer().isOptionDown);
  xdotool(QStringLiteral("keyup Alt_L"));
  EXPECT_FALSE(others.pointer().isOptionDown);
}

TEST(TheSession, SaysWhoseWindowsCanBeSeen) {
  const auto session = qgetenv("XDG_SESSION_TYPE");
  EXPECT_EQ(LinuxPorts().otherWindows().sight(), WindowSight::All);
  qputenv("XDG_SESSION_TYPE", "wayland");
  EXPECT_EQ(LinuxPorts().otherWindows().sight(), WindowSight::SomePrograms);
  qputenv("XDG_SESSION_TYPE", session);
}

class TheAccessibleDesktop : public Programs {
 protected:
  [[nodiscard]] std::optional<ElementFacts> trash(const ElementRef& element, int depth = 0) const {
    const auto facts = access.facts(element);
    if (facts && facts->title == u"Trash" && facts->frame) return facts;
    if (depth > 8) return std::nullopt;
    for (const auto& child : access.children(element).value_or(std::vector<ElementRef>())) {
      if (const auto found = trash(child, depth + 1)) return found;
    }
    return std::nullopt;
  }
  [[nodiscard]] std::optional<ElementFacts> trashOfDocks() const {
    for (const auto& dock : access.docks()) {
      if (const auto found = trash(dock)) return found;
    }
    return std::nullopt;
  }
  Accessibility& access = ports.accessibility();
};

TEST_F(TheAccessibleDesktop, KnowsFrameAndTitleOfTheFocusedWindow) {
  PeerProgram peer;
  peer.tell("window 200 150 400 250 Title here");
  ASSERT_TRUE(holdsSoon([&] { return isFront(peer); }));
  EXPECT_TRUE(access.isTrusted(AccessNeed::Frames));
  ASSERT_TRUE(access.focusedWindow(peer.pid()));
  const auto facts = access.facts(*access.focusedWindow(peer.pid()));
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->title, u"Title here");
  EXPECT_TRUE(facts->frame && facts->frame->width >= 400);
  EXPECT_FALSE(access.focusedWindow(0));
}

TEST_F(TheAccessibleDesktop, TellsOfAnotherTitleAndOfAnotherFocusedWindow) {
  PeerProgram peer;
  PeerProgram stranger;
  stranger.tell("window 500 150 300 200 Strange");
  ASSERT_TRUE(holdsSoon([&] { return isFront(stranger); }));
  peer.tell("window 200 150 400 250 One");
  ASSERT_TRUE(holdsSoon([&] { return isFront(peer); }));
  QStringList titles;
  auto handle = access.onFocusedWindowChanged(peer.pid(), [&] {
    const auto window = access.focusedWindow(peer.pid());
    const auto facts = window ? access.facts(*window) : std::nullopt;
    const auto title = facts ? facts->title : QString();
    if (titles.isEmpty() || titles.last() != title) titles << title;
  });
  int strangers = 0;
  const auto other = access.onFocusedWindowChanged(stranger.pid(), [&] { ++strangers; });
  peer.tell("title Two");
  ASSERT_TRUE(holdsSoon([&] { return titles == QStringList{QStringLiteral("Two")}; }));
  EXPECT_EQ(strangers, 0);
  peer.tell("another 500 300 300 200 Another");
  EXPECT_TRUE(holdsSoon([&] { return titles.size() == 2; })) << "another window of its";
  peer.tell("front");
  EXPECT_TRUE(holdsSoon([&] { return titles.size() == 3 && titles.last() == u"Two"; }));
  handle.cancel();
  peer.tell("title Three");
  stranger.tell("title Stranger");
  EXPECT_TRUE(holdsSoon([&] { return strangers > 0; }));
  EXPECT_EQ(titles.size(), 3) << "nobody listens any more";
}

TEST_F(TheAccessibleDesktop, IsSwitchedOnByTheUserAndNeverByAStart) {
  const auto isOn = [] {
    return test::run(QStringLiteral("gdbus"),
                     {QStringLiteral("call"), QStringLiteral("--session"), QStringLiteral("-d"),
                      QStringLiteral("org.a11y.Bus"), QStringLiteral("-o"), QStringLiteral("/org/a11y/bus"),
                      QStringLiteral("-m"), QStringLiteral("org.freedesktop.DBus.Properties.Get"),
                      QStringLiteral("org.a11y.Status"), QStringLiteral("IsEnabled")})
        .contains(QStringLiteral("true"));
  };
  ASSERT_TRUE(holdsSoon([&] { return access.isTrusted(AccessNeed::Tree); }));
  test::run(QStringLiteral("gdbus"), {QStringLiteral("call"), QStringLiteral("--session"), QStringLiteral("-d"),
                                      QStringLiteral("org.a11y.Bus"), QStringLiteral("-o"),
                                      QStringLiteral("/org/a11y/bus"), QStringLiteral("-m"),
                                      QStringLiteral("org.freedesktop.DBus.Properties.Set"),
                                      QStringLiteral("org.a11y.Status"), QStringLiteral("IsEnabled"),
                                      QStringLiteral("<false>")});
  ASSERT_TRUE(holdsSoon([&] { return !access.isTrusted(AccessNeed::Tree); }));
  access.requestTrust(TrustRequest::AtStart);
  EXPECT_FALSE(isOn());  // the question goes over the same bus, behind whatever the request sent
  access.requestTrust(TrustRequest::ByUser);
  EXPECT_TRUE(holdsSoon([&] { return access.isTrusted(AccessNeed::Tree); }));
  EXPECT_TRUE(isOn());
}

struct AddressRow {
  const char* address;
  const char* programFolder;
  const char* document;
};
class APublishedAddress : public testing::TestWithParam<AddressRow> {};
TEST_P(APublishedAddress, IsADocumentWhenItIsAFileOfTheUsers) {
  const auto& row = GetParam();
  EXPECT_EQ(userDocument(QString::fromUtf8(row.address), QString::fromUtf8(row.programFolder)).value_or(QString()),
            QString::fromUtf8(row.document));
}
INSTANTIATE_TEST_SUITE_P(
    Rows, APublishedAddress,
    testing::Values(AddressRow{"file:///home/ada/a%20b/main.c", "/usr/bin", "/home/ada/a b/main.c"},
                    AddressRow{"/home/ada/100%/main.c", "/usr/bin", "/home/ada/100%/main.c"},
                    AddressRow{"vscode-file://vscode-app/usr/share/code/workbench.html", "/usr/share/code", ""},
                    AddressRow{"file:///usr/share/code/resources/workbench.html", "/usr/share/code", ""},
                    AddressRow{"https://example.org/main.c", "", ""}, AddressRow{"about:blank", "", ""},
                    AddressRow{"", "", ""}));

// No editor of the distribution publishes its document; a browser does.
TEST_F(TheAccessibleDesktop, TellsTheDocumentOfAWindowThatPublishesIt) {
  if (!qEnvironmentVariableIsSet("TARNWICK_FULL")) GTEST_SKIP() << "only in the full run, which has a browser";
  ASSERT_TRUE(holdsSoon([&] { return access.isTrusted(AccessNeed::Tree); }));
  QTemporaryDir folder;
  QFile page(folder.filePath(QStringLiteral("a page.html")));
  ASSERT_TRUE(page.open(QIODevice::WriteOnly));
  page.write("<title>Told</title><p>Text</p>");
  page.close();
  QProcess browser;
  browser.start(QStringLiteral("firefox-esr"),
                {QStringLiteral("--profile"), folder.path(), QStringLiteral("--new-window"),
                 QUrl::fromLocalFile(page.fileName()).toString(QUrl::FullyEncoded)});
  ASSERT_TRUE(browser.waitForStarted());
  std::optional<QString> document;
  const auto handle = access.onFocusedWindowChanged(browser.processId(), [&] {
    const auto window = access.focusedWindow(browser.processId());
    const auto facts = window ? access.facts(*window) : std::nullopt;
    if (facts) document = facts->document;
  });
  EXPECT_TRUE(holdsSoon([&] { return document == page.fileName(); })) << "told as it becomes known, without another look";
  browser.terminate();
  browser.waitForFinished(20000);
}

TEST_F(TheAccessibleDesktop, ShowsTheTrashOfAPanelByAndBy) {
  ASSERT_TRUE(holdsSoon([&] { return access.isTrusted(AccessNeed::Tree); }));
  PeerProgram panel;
  panel.tell("dock 0 0 300 40 40");
  std::optional<ElementFacts> found;
  ASSERT_TRUE(holdsSoon([&] { return (found = trashOfDocks()).has_value(); }));
  const double height = ports.screens().all().front().frame.height;
  EXPECT_EQ(*found->frame, (DesktopRect{10, height - 40, 30, 40}));
  panel.tell("quit");
  EXPECT_TRUE(holdsSoon([&] { return !trashOfDocks(); }));
}

}  // namespace
}  // namespace tarnwick
