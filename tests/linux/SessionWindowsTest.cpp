// SPDX-License-Identifier: MIT
// Monitors, our own windows and chords, against a real window manager.
#include "Session.h"
#include "linux/LinuxPorts.h"
#include "linux/x11/X11Clients.h"
#include "platform/HotKeys.h"
#include "platform/OtherWindows.h"
#include "platform/Screens.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

#include <QWidget>
#include <QWindow>

#include <xcb/shape.h>

#include <algorithm>

namespace tarnwick {
namespace {

using test::holdsSoon;
using test::PeerProgram;
using test::xdotool;

class TheScreens : public testing::Test {
 protected:
  LinuxPorts ports;
  Screens& screens = ports.screens();
};

TEST_F(TheScreens, LoseOnlyThePanelsBandAndOnlyOnItsMonitor) {
  double reserved = 0;
  for (const auto& screen : screens.all()) {
    EXPECT_DOUBLE_EQ(screen.frame.width, screen.visibleFrame.width);
    reserved += screen.frame.height - screen.visibleFrame.height;
  }
  EXPECT_DOUBLE_EQ(reserved, 30);
}

TEST_F(TheScreens, BeginWithThePrimaryOneAtTheOrigin) {
  ASSERT_FALSE(screens.all().empty());
  EXPECT_EQ(screens.all().front().frame.origin(), DesktopPoint{});
  EXPECT_TRUE(screens.isComposited());
}

TEST_F(TheScreens, ReportAPanelThatComesAndGoes) {
  const auto before = screens.all();
  int changes = 0;
  const auto handle = screens.onChanged([&] { ++changes; });
  PeerProgram panel;
  panel.tell("dock 0 0 300 40 40");
  ASSERT_TRUE(holdsSoon([&] { return changes > 0 && screens.all() != before; }));
  EXPECT_LE(screens.all().front().visibleFrame.maxY(), screens.all().front().frame.maxY() - 40);
  panel.tell("close");
  EXPECT_TRUE(holdsSoon([&] { return screens.all() == before; }));
}

class Note : public QWidget {
 public:
  explicit Note(WindowServer& server, WindowLevel level, QRect place) : m_server(server) {
    setAttribute(Qt::WA_TranslucentBackground);
    setGeometry(place);
    winId();
    m_server.applyLevel(*windowHandle(), level);
    show();
    m_server.applyLevel(*windowHandle(), level);
  }
  [[nodiscard]] QWindow& window() { return *windowHandle(); }
  // Not the widget's own number: Qt makes another native window when flags change before a show.
  [[nodiscard]] xcb_window_t id() const { return static_cast<xcb_window_t>(windowHandle()->winId()); }

 private:
  WindowServer& m_server;
};

class OurWindows : public testing::Test {
 protected:
  [[nodiscard]] bool has(const Note& note, const char* state) const { return clients.hasState(note.id(), state); }
  [[nodiscard]] bool isAbove(const Note& upper, const Note& lower) const {
    const auto windows = x.clients();
    const auto place = [&](xcb_window_t id) { return std::find(windows.begin(), windows.end(), id); };
    return place(upper.id()) > place(lower.id()) && place(upper.id()) != windows.end();
  }
  /// Rectangles of the input shape.
  [[nodiscard]] std::vector<QRect> inputShape(const Note& note) const {
    const XcbReply<xcb_shape_get_rectangles_reply_t> reply(
        xcb_shape_get_rectangles_reply(x.get(), xcb_shape_get_rectangles(x.get(), note.id(), XCB_SHAPE_SK_INPUT), nullptr));
    std::vector<QRect> rects;
    if (!reply) return rects;
    const auto* each = xcb_shape_get_rectangles_rectangles(reply.get());
    for (int i = 0; i < xcb_shape_get_rectangles_rectangles_length(reply.get()); ++i) {
      rects.emplace_back(each[i].x, each[i].y, each[i].width, each[i].height);
    }
    return rects;
  }

  LinuxPorts ports;
  WindowServer& server = ports.windowServer();
  XcbConnection x;
  X11Clients clients{x};
};

TEST_F(OurWindows, FloatOnAllDesktopsAlsoAfterTheyWereHidden) {
  Note note(server, WindowLevel::Floating, {100, 100, 200, 120});
  const auto isEverywhere = [&] { return x.cardinal(note.id(), "_NET_WM_DESKTOP") == 0xFFFFFFFFU; };
  EXPECT_TRUE(holdsSoon([&] { return has(note, "_NET_WM_STATE_ABOVE") && isEverywhere(); }));
  note.hide();
  note.show();
  server.applyLevel(note.window(), WindowLevel::Floating);
  EXPECT_TRUE(holdsSoon([&] { return has(note, "_NET_WM_STATE_ABOVE") && isEverywhere(); }));
}

TEST_F(OurWindows, ChangeTheirLevelWhileTheyAreShown) {
  Note note(server, WindowLevel::Floating, {100, 100, 200, 120});
  ASSERT_TRUE(holdsSoon([&] { return has(note, "_NET_WM_STATE_ABOVE"); }));
  server.applyLevel(note.window(), WindowLevel::Desktop);
  EXPECT_TRUE(holdsSoon([&] { return has(note, "_NET_WM_STATE_BELOW") && !has(note, "_NET_WM_STATE_ABOVE"); }));
  server.applyLevel(note.window(), WindowLevel::Floating);
  EXPECT_TRUE(holdsSoon([&] { return has(note, "_NET_WM_STATE_ABOVE") && !has(note, "_NET_WM_STATE_BELOW"); }));
}

TEST_F(OurWindows, LetClicksThroughToTheProgramBelow) {
  PeerProgram peer;
  peer.tell("window 200 200 400 300 Below");
  ASSERT_TRUE(holdsSoon([&] { return ports.workspace().frontmost() && ports.workspace().frontmost()->pid == peer.pid(); }));
  Note note(server, WindowLevel::Floating, {250, 250, 200, 150});
  ASSERT_TRUE(holdsSoon([&] { return has(note, "_NET_WM_STATE_ABOVE"); }));
  server.setClickThrough(note.window(), ClickThrough::On);
  ASSERT_TRUE(holdsSoon([&] { return inputShape(note).empty(); }));
  ASSERT_TRUE(holdsSoon([&] {
    xdotool(QStringLiteral("mousemove 340 320 click 1"));
    return peer.said().contains(QStringLiteral("pressed"));
  }));
  server.setClickThrough(note.window(), ClickThrough::Off);
  EXPECT_TRUE(holdsSoon([&] { return !inputShape(note).empty(); }));
}

TEST_F(OurWindows, TakeNoInputInTheirShadowAlsoAfterAResize) {
  Note note(server, WindowLevel::Floating, {100, 100, 300, 200});
  server.setShadowMargins(note.window(), {20, 10, 20, 30});
  EXPECT_TRUE(holdsSoon([&] { return inputShape(note) == std::vector{QRect(20, 10, 260, 160)}; }));
  EXPECT_EQ(x.cardinals(note.id(), "_GTK_FRAME_EXTENTS"), (std::vector<uint32_t>{20, 20, 10, 30}));
  note.resize(400, 240);
  EXPECT_TRUE(holdsSoon([&] { return inputShape(note) == std::vector{QRect(20, 10, 360, 200)}; }));
}

TEST_F(OurWindows, RiseWithoutTheKeyboardAndTakeItWhenActivated) {
  Note first(server, WindowLevel::Floating, {100, 100, 200, 120});
  Note second(server, WindowLevel::Floating, {150, 140, 200, 120});
  PeerProgram peer;
  peer.tell("window 500 300 300 200 Front");
  // By its own word: what it asks for itself as it comes must not arrive after what is asked here.
  ASSERT_TRUE(peer.says(QStringLiteral("active")));
  ASSERT_TRUE(holdsSoon([&] { return clients.pidOf(clients.active()) == peer.pid(); }));
  server.raiseWithoutActivating(second.window());
  ASSERT_TRUE(holdsSoon([&] { return isAbove(second, first); }));
  server.raiseWithoutActivating(first.window());
  ASSERT_TRUE(holdsSoon([&] { return isAbove(first, second); }));
  EXPECT_EQ(clients.pidOf(clients.active()), peer.pid());
  server.activate(second.window());
  EXPECT_TRUE(holdsSoon([&] { return clients.active() == second.id() && second.isActiveWindow(); }));
}

TEST_F(OurWindows, AreKeptOffTheTaskbarFromTheFirst) {
  QWidget pane(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
  pane.winId();
  const auto isListed = [&] {
    const auto windows = x.clients();
    return std::find(windows.begin(), windows.end(), static_cast<xcb_window_t>(pane.winId())) != windows.end();
  };
  for (const auto* which : {"the first time", "and once more"}) {
    server.applyLevel(*pane.windowHandle(), WindowLevel::Floating);
    pane.show();  // and nothing is asked for afterwards
    ASSERT_TRUE(holdsSoon(isListed)) << which;
    EXPECT_TRUE(clients.hasState(static_cast<xcb_window_t>(pane.winId()), "_NET_WM_STATE_SKIP_TASKBAR")) << which;
    pane.hide();
    ASSERT_TRUE(holdsSoon([&] { return !isListed(); })) << which;
  }
}

TEST_F(OurWindows, FadeAtOnce) {
  Note note(server, WindowLevel::Floating, {100, 100, 200, 120});
  server.setOpacity(note.window(), 0.5);
  // Read on another connection, without turning the event loop: the request must have left already.
  const auto opacity = x.cardinal(note.id(), "_NET_WM_WINDOW_OPACITY");
  ASSERT_TRUE(opacity);
  EXPECT_NEAR(*opacity / 4294967295.0, 0.5, 0.01);
}

class AChord : public testing::Test {
 protected:
  const QString chord = QStringLiteral("Meta+Shift+T");
  LinuxPorts ports;
};

TEST_F(AChord, ReachesUsFromAnotherProgramWithAnyLockKey) {
  int presses = 0;
  const auto held = ports.hotKeys().registerChord(chord, [&] { ++presses; });
  ASSERT_EQ(held.status, 0);
  PeerProgram peer;
  peer.tell("window 200 200 400 300 Other");
  xdotool(QStringLiteral("key super+shift+t"));
  EXPECT_TRUE(holdsSoon([&] { return presses == 1; }));
  xdotool(QStringLiteral("key Num_Lock"));
  xdotool(QStringLiteral("key super+shift+t"));
  EXPECT_TRUE(holdsSoon([&] { return presses == 2; }));
  xdotool(QStringLiteral("key Num_Lock"));
  xdotool(QStringLiteral("key super+t"));
  xdotool(QStringLiteral("key super+shift+t"));
  EXPECT_TRUE(holdsSoon([&] { return presses >= 3; }));
  EXPECT_EQ(presses, 3) << "without the shift key it is another chord";
}

TEST_F(AChord, BelongsToOneProgramAtATime) {
  PeerProgram other;
  other.tell("chord Meta+Shift+T");
  ASSERT_TRUE(other.says(QStringLiteral("status 0")));
  EXPECT_EQ(ports.hotKeys().registerChord(chord, [] {}).status, 10);
  other.tell("quit");
  ASSERT_TRUE(holdsSoon([&] { return other.hasEnded(); }));
  auto held = ports.hotKeys().registerChord(chord, [] {});
  EXPECT_EQ(held.status, 0);
  held.handle.cancel();
  PeerProgram third;
  third.tell("chord Meta+Shift+T");
  EXPECT_TRUE(third.says(QStringLiteral("status 0"))) << "given back";
}

TEST_F(AChord, FollowsTheLetterToAnotherLayout) {
  int presses = 0;
  const auto held = ports.hotKeys().registerChord(chord, [&] { ++presses; });
  for (const char* layout : {"dvorak", "ru", "us"}) {
    presses = 0;
    test::run(QStringLiteral("setxkbmap"), {QLatin1String(layout)});
    // By position where the layout has no such letter.
    const auto key = QLatin1String(layout) == u"ru" ? QStringLiteral("28") : QStringLiteral("t");
    EXPECT_TRUE(holdsSoon([&] {
      if (presses == 0) xdotool(QStringLiteral("key super+shift+") + key);
      return presses > 0;
    })) << layout;
  }
}

}  // namespace
}  // namespace tarnwick
