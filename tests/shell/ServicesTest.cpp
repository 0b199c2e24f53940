// SPDX-License-Identifier: MIT
// The tray, the hot key, waking, and what follows windows and pointer.
#include "ShellWorld.h"
#include "model/AppNotesPrefs.h"
#include "shell/AppWindowTracker.h"
#include "shell/HotkeyManager.h"
#include "shell/PolledWindowTracker.h"
#include "shell/StatusBarController.h"
#include "shell/WakeResurfaceController.h"

#include <QMenu>
#include <QSignalSpy>

namespace tarnwick::test {
namespace {

// --- Hot key ---

class HotKey : public ShellWorld {
 protected:
  FakeHotKeys hotKeys;
  int toggles = 0;
  HotkeyManager manager{hotKeys, defaults, [this] { ++toggles; }};
};

TEST_F(HotKey, togglesTheBoardWithTheGivenChord) {
  EXPECT_TRUE(hotKeys.chords.empty());
  manager.start();
  hotKeys.press(QStringLiteral("Meta+Shift+T"));
  EXPECT_EQ(toggles, 1);
  EXPECT_TRUE(manager.isRegistered());
  manager.stop();
  EXPECT_TRUE(hotKeys.chords.empty());
}

TEST_F(HotKey, followsTheSetting) {
  manager.start();
  setText(keys::kHotKey, QStringLiteral("Ctrl+Alt+N"));
  hotKeys.press(QStringLiteral("Meta+Shift+T"));
  EXPECT_EQ(toggles, 0);
  hotKeys.press(QStringLiteral("Ctrl+Alt+N"));
  EXPECT_EQ(toggles, 1);
  ASSERT_TRUE(defaults.remove(keys::kHotKey));
  hotKeys.press(QStringLiteral("Meta+Shift+T"));
  EXPECT_EQ(toggles, 2);
  manager.stop();
  setText(keys::kHotKey, QStringLiteral("Ctrl+Alt+N"));
  EXPECT_TRUE(hotKeys.chords.empty());
}

QString lastWarning;
void keepWarning(QtMsgType, const QMessageLogContext&, const QString& text) { lastWarning = text; }

TEST_F(HotKey, aTakenChordIsLoggedWithItsStatusAndNothingElse) {
  hotKeys.status = 10;
  const auto previous = qInstallMessageHandler(keepWarning);
  manager.start();
  qInstallMessageHandler(previous);
  EXPECT_EQ(lastWarning, QStringLiteral("Tarnwick: ⌘⇧T hotkey registration failed (status 10). "
                                        "Another app may own this chord."));
  EXPECT_FALSE(manager.isRegistered());
}

// --- Waking ---

class Wake : public ShellWorld {
 protected:
  FakePower power;
  int resurfaced = 0;
  WakeResurfaceController controller{power, time, defaults, [this] { ++resurfaced; }};
};

TEST_F(Wake, bringsTheNotesBackWhenTheWindowSystemHasSettled) {
  controller.start();
  power.events.notify(PowerEvent::DidWake);
  pass(590ms);
  EXPECT_EQ(resurfaced, 0);
  pass(20ms);
  EXPECT_EQ(resurfaced, 1);
  for (const auto other : {PowerEvent::ScreensDidWake, PowerEvent::SessionBecameActive, PowerEvent::DayChanged}) {
    power.events.notify(other);
  }
  pass(1s);
  EXPECT_EQ(resurfaced, 1);
}

TEST_F(Wake, theSettingIsReadAtTheLastMoment) {
  controller.start();
  power.events.notify(PowerEvent::DidWake);
  pass(500ms);
  ASSERT_TRUE(defaults.setBoolean(keys::kWakeResurface, false));
  pass(1s);
  EXPECT_EQ(resurfaced, 0);
}

TEST_F(Wake, startedTwiceItObservesOnceAndStoppedNotAtAll) {
  controller.start();
  controller.start();
  EXPECT_EQ(power.events.count(), 1);
  power.events.notify(PowerEvent::DidWake);
  controller.stop();
  pass(1s);
  EXPECT_EQ(resurfaced, 0);
  EXPECT_EQ(power.events.count(), 0);
}

// --- Trackers ---

TEST(WindowTrackers, pickTheFrontmostOrdinaryWindowLargerThanAPalette) {
  const std::vector<OtherWindow> windows{{7, 0, {0, 0, 900, 900}},  {8, 3, {1, 0, 900, 900}}, {8, 0, {2, 0, 160, 900}},
                                         {8, 0, {3, 0, 900, 120}},  {8, 0, {4, 0, 161, 121}}, {8, 0, {5, 0, 900, 900}}};
  EXPECT_EQ(PolledWindowTracker::frontWindowFrame(windows, 8), (DesktopRect{4, 0, 161, 121}));
  EXPECT_EQ(PolledWindowTracker::frontWindowFrame(windows, 9), std::nullopt);
}

class Trackers : public ShellWorld {
 protected:
  std::vector<std::optional<DesktopRect>> reports;
  WindowTracking::FrameObserver observer = [this](std::optional<DesktopRect> frame) { reports.push_back(frame); };
};

TEST_F(Trackers, areNotMadeForWhatCannotBeFollowed) {
  EXPECT_FALSE(AppWindowTracker::make(accessibility, otherWindows, 0, observer));
  EXPECT_FALSE(PolledWindowTracker::make(otherWindows, time, 0, observer));
  otherWindows.canFollow = false;
  EXPECT_FALSE(AppWindowTracker::make(accessibility, otherWindows, 7, observer));
  otherWindows.canFollow = true;
  accessibility.hasFrames = false;
  EXPECT_FALSE(AppWindowTracker::make(accessibility, otherWindows, 7, observer));
}

TEST_F(Trackers, pollingReportsTheFirstLookAndThenChangesOnly) {
  const auto tracker = PolledWindowTracker::make(otherWindows, time, 7, observer);
  pass(1s);
  EXPECT_EQ(reports, (std::vector<std::optional<DesktopRect>>{std::nullopt}));
  otherWindows.windows = {{7, 0, {0, 0, 400, 400}}};
  pass(1s);
  otherWindows.windows = {{7, 0, {5, 0, 400, 400}}};
  pass(1s);
  otherWindows.windows.clear();
  pass(1s);
  ASSERT_EQ(reports.size(), 4u);
  EXPECT_EQ(reports[2], (DesktopRect{5, 0, 400, 400}));
  EXPECT_FALSE(reports[3]);
  tracker->stop();
  otherWindows.windows = {{7, 0, {0, 0, 400, 400}}};
  pass(1s);
  EXPECT_EQ(reports.size(), 4u);
}

TEST_F(Trackers, eventsAreReportedUntilItStops) {
  otherWindows.move(7, DesktopRect{1, 2, 300, 200});
  const auto tracker = AppWindowTracker::make(accessibility, otherWindows, 7, observer);
  ASSERT_TRUE(tracker);
  EXPECT_EQ(tracker->lastFrame(), (DesktopRect{1, 2, 300, 200}));
  otherWindows.move(7, std::nullopt);
  EXPECT_EQ(tracker->lastFrame(), std::nullopt);
  tracker->stop();
  otherWindows.move(7, DesktopRect{1, 2, 300, 200});
  EXPECT_EQ(reports.size(), 2u);
}

TEST_F(Trackers, theGhostPollerTellsOfChangesOnly) {
  GhostController ghost(otherWindows, time, center);
  QSignalSpy ticks(&center, &NotificationCenter::ghostTick);
  ghost.start();
  ghost.start();
  EXPECT_EQ(time.repeatingCount(), 1);
  otherWindows.pointerState = {{10, 20}, true};
  pass(1s);
  EXPECT_EQ(ticks.count(), 1);
  EXPECT_TRUE(ghost.isOptionDown());
  EXPECT_EQ(ghost.mouse(), (DesktopPoint{10, 20}));
  otherWindows.pointerState.position.x = 11;
  pass(1s);
  EXPECT_EQ(ticks.count(), 2);
  ghost.stop();
  EXPECT_FALSE(ghost.isOptionDown());
  EXPECT_EQ(time.repeatingCount(), 0);
}

// --- Tray ---

class Tray : public ShellWorld {
 protected:
  StatusBarController& tray() {
    if (!controller) {
      controller = std::make_unique<StatusBarController>(
          board(), StatusBarController::Services{screens, time, prefs, [this] { return isTrayPresent; }},
          StatusBarController::Actions{[this] { ++added; }, [this] { ++settings; }, [this] { ++quits; }});
    }
    return *controller;
  }
  void TearDown() override { controller.reset(); }
  QAction& item(const QString& title) {
    Q_EMIT tray().menu().aboutToShow();
    for (auto* action : tray().menu().actions()) {
      if (action->text() == title) return *action;
    }
    throw std::runtime_error("no item " + title.toStdString());
  }
  AppNotesPrefs prefs{defaults, center};
  bool isTrayPresent = true;
  int added = 0, settings = 0, quits = 0;
  std::unique_ptr<StatusBarController> controller;
};

TEST_F(Tray, itsMenuHoldsFiveItemsInTheirOrder) {
  Q_EMIT tray().menu().aboutToShow();
  Q_EMIT tray().menu().aboutToShow();
  QStringList titles;
  for (const auto* action : tray().menu().actions()) titles.append(action->isSeparator() ? QStringLiteral("-") : action->text());
  EXPECT_EQ(titles, (QStringList{QStringLiteral("Open Board"), QStringLiteral("New Note"), QStringLiteral("-"),
                                 QStringLiteral("Hide Notes from Screen Sharing"), QStringLiteral("Settings…"),
                                 QStringLiteral("Quit Tarnwick")}));
  EXPECT_EQ(tray().menu().title(), QStringLiteral("Tarnwick"));
}

TEST_F(Tray, itsItemsDoWhatTheySay) {
  item(QStringLiteral("New Note")).trigger();
  item(QStringLiteral("Settings…")).trigger();
  item(QStringLiteral("Quit Tarnwick")).trigger();
  EXPECT_EQ(added + settings * 10 + quits * 100, 111);
  item(QStringLiteral("Open Board")).trigger();
  EXPECT_TRUE(board().isPresented());
  pass(1s);
  item(QStringLiteral("Open Board")).trigger();
  EXPECT_TRUE(board().isDismissing());
}

TEST_F(Tray, thePrivacyItemTogglesTheSettingAndShowsItAsItIsNow) {
  QSignalSpy told(&center, &NotificationCenter::notePrivacyChanged);
  EXPECT_FALSE(item(QStringLiteral("Hide Notes from Screen Sharing")).isChecked());
  const auto off = tray().menu().grab().toImage();
  item(QStringLiteral("Hide Notes from Screen Sharing")).trigger();
  EXPECT_TRUE(defaults.boolean(keys::kHideFromScreenShare));
  EXPECT_TRUE(item(QStringLiteral("Hide Notes from Screen Sharing")).isChecked());
  EXPECT_NE(tray().menu().grab().toImage(), off) << "beside its symbol it has a mark";
  EXPECT_EQ(told.count(), 1);
  ASSERT_TRUE(defaults.setBoolean(keys::kHideFromScreenShare, false));
  EXPECT_FALSE(item(QStringLiteral("Hide Notes from Screen Sharing")).isChecked());
}

TEST_F(Tray, aClickDropsTheBoardAndAnotherTucksItBack) {
  tray().statusItemPressed(QSystemTrayIcon::Trigger);
  EXPECT_TRUE(board().isPresented());
  pass(1s);
  tray().statusItemPressed(QSystemTrayIcon::Trigger);
  EXPECT_TRUE(board().isDismissing());
  // The second of two quick clicks brings it back.
  tray().statusItemPressed(QSystemTrayIcon::DoubleClick);
  EXPECT_FALSE(board().isDismissing());
  pass(1s);
  EXPECT_TRUE(board().isPresented());
  // The menu's button is not a click.
  tray().statusItemPressed(QSystemTrayIcon::Context);
  tray().statusItemPressed(QSystemTrayIcon::MiddleClick);
  EXPECT_FALSE(board().isDismissing());
}

TEST_F(Tray, anItemWithoutAPlaceHangsTheBoardWhereItWasClicked) {
  EXPECT_FALSE(tray().anchor());
  board().present();
  EXPECT_EQ(board().boardFrame().origin(), (DesktopPoint{862, 352}));
  board().orderOut();
  QCursor::setPos(400, 12);
  tray().statusItemPressed(QSystemTrayIcon::Trigger);
  EXPECT_EQ(board().boardFrame().origin(), (DesktopPoint{205, 374}));
  board().orderOut();
  QCursor::setPos(100, 500);
  board().present();  // by the hot key: the item is where it was
  EXPECT_EQ(board().boardFrame().origin(), (DesktopPoint{205, 374}));
}

TEST_F(Tray, aDesktopWithoutATrayIsToldOnceAndNotTooEarly) {
  isTrayPresent = false;
  QSignalSpy missing(&tray(), &StatusBarController::trayMissing);
  tray().start();
  pass(5s);
  EXPECT_EQ(missing.count(), 0);
  pass(60s);
  EXPECT_EQ(missing.count(), 1);
}

TEST_F(Tray, aTrayThatComesLateIsNoLoss) {
  isTrayPresent = false;
  QSignalSpy missing(&tray(), &StatusBarController::trayMissing);
  tray().start();
  pass(5s);
  isTrayPresent = true;
  pass(60s);
  EXPECT_EQ(missing.count(), 0);
}

}  // namespace
}  // namespace tarnwick::test
