// SPDX-License-Identifier: MIT
#include "ShellWorld.h"
#include "shell/NoteSpots.h"

#include <QPushButton>
#include <QSignalSpy>

namespace tarnwick::test {
namespace {

constexpr DesktopRect kTarget{100, 100, 800, 600};

class NoteWindow : public ShellWorld {
 protected:
  TornNotePanel& docked(const TaskPtr& task, DesktopRect target = kTarget) {
    auto& note = torn(task);
    otherWindows.move(kEditor.pid, target);
    workspace.activate(kEditor);
    leaveKeyboard();
    return note;
  }
  [[nodiscard]] WindowLevel level(const TornNotePanel& note) { return window(note).level; }
};

class PaintCount final : public QObject {
 public:
  explicit PaintCount(QObject& watched) { watched.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++paints;
    return false;
  }
  int paints = 0;
};

TEST_F(NoteWindow, paintsAnewForItsOwnChangesOnly) {
  const auto task = note();
  const auto other = note();
  auto& view = torn(task).noteView();
  pass(1s);
  PaintCount count(view);
  other->set(&TaskRecord::text, QStringLiteral("Something else"));
  ASSERT_TRUE(container->mainContext().save());
  pass(1s);
  EXPECT_EQ(count.paints, 0);
  task->set(&TaskRecord::text, QStringLiteral("Book two ferries"));
  ASSERT_TRUE(container->mainContext().save());
  pass(1s);
  EXPECT_GT(count.paints, 0);
}

// --- Display modes ---

TEST_F(NoteWindow, floatsSitsOnTheDesktopOrLetsClicksThrough) {
  auto& note = torn(this->note());
  EXPECT_EQ(level(note), WindowLevel::Floating);
  setMode(QStringLiteral("desktop"));
  EXPECT_EQ(level(note), WindowLevel::Desktop);
  EXPECT_EQ(window(note).clickThrough, ClickThrough::Off);
  EXPECT_FALSE(note.isGhost());
  setMode(QStringLiteral("mouseThrough"));
  EXPECT_EQ(level(note), WindowLevel::Floating);
  EXPECT_EQ(window(note).clickThrough, ClickThrough::On);
  EXPECT_EQ(window(note).opacity, 0.6);
  EXPECT_EQ(window(note).sharing, SharingType::None);
  EXPECT_EQ(time.repeatingCount(), 1);
  setMode(QStringLiteral("somethingNew"));
  EXPECT_EQ(window(note).clickThrough, ClickThrough::Off);
  EXPECT_EQ(window(note).opacity, 1);
  EXPECT_EQ(window(note).sharing, SharingType::ReadOnly);
  EXPECT_EQ(time.repeatingCount(), 0);
}

TEST_F(NoteWindow, openedInAModeItIsInItFromTheStart) {
  setText(keys::kNoteDisplayMode, QStringLiteral("desktop"));
  EXPECT_EQ(level(torn(note())), WindowLevel::Desktop);
}

TEST_F(NoteWindow, aGhostFadesUnderThePointerAndIsGrabbedWithTheOptionKey) {
  setText(keys::kNoteDisplayMode, QStringLiteral("mouseThrough"));
  auto& note = torn(this->note());
  otherWindows.pointerState = {note.frame().center(), false};
  pass(300ms);
  EXPECT_DOUBLE_EQ(window(note).opacity, 0.12);
  otherWindows.pointerState = {{0, 0}, false};
  pass(300ms);
  EXPECT_DOUBLE_EQ(window(note).opacity, 0.6);
  otherWindows.pointerState = {note.frame().center(), true};
  pass(100ms);
  EXPECT_EQ(window(note).clickThrough, ClickThrough::Off);
  const double onTheWay = window(note).opacity;
  EXPECT_GT(onTheWay, 0.6);
  EXPECT_LT(onTheWay, 1);
  pass(200ms);
  EXPECT_EQ(window(note).opacity, 1);
  otherWindows.pointerState.isOptionDown = false;
  pass(300ms);
  EXPECT_EQ(window(note).clickThrough, ClickThrough::On);
  EXPECT_DOUBLE_EQ(window(note).opacity, 0.12);
}

TEST_F(NoteWindow, aGhostThatDoesNotMoveIsLeftAlone) {
  setText(keys::kNoteDisplayMode, QStringLiteral("mouseThrough"));
  torn(note());
  pass(1s);
  QSignalSpy ticks(&center, &NotificationCenter::ghostTick);
  pass(5s);
  EXPECT_EQ(ticks.count(), 0);
  EXPECT_EQ(time.repeatingCount(), 1);
}

TEST_F(NoteWindow, thePollerEndsWithTheLastGhost) {
  setText(keys::kNoteDisplayMode, QStringLiteral("mouseThrough"));
  const auto a = note();
  const auto b = note();
  torn(a);
  torn(b);
  board().redockTask(a);
  EXPECT_EQ(time.repeatingCount(), 1);
  board().redockTask(b);
  EXPECT_EQ(time.repeatingCount(), 0);
}

TEST_F(NoteWindow, aGhostStaysOpaqueWithoutACompositor) {
  screens.hasCompositor = false;
  setText(keys::kNoteDisplayMode, QStringLiteral("mouseThrough"));
  auto& note = torn(this->note());
  otherWindows.pointerState = {note.frame().center(), false};
  pass(400ms);
  EXPECT_EQ(window(note).opacity, 1);
  EXPECT_EQ(window(note).clickThrough, ClickThrough::On);
  EXPECT_FALSE(note.mask().isEmpty());
}

// --- Privacy ---

TEST_F(NoteWindow, keepsOutOfCapturesForAnyOfThreeReasons) {
  const auto task = note();
  auto& window = torn(task);
  EXPECT_EQ(this->window(window).sharing, SharingType::ReadOnly);
  window.noteView().togglePrivate();
  EXPECT_EQ(this->window(window).sharing, SharingType::None);
  EXPECT_EQ(task->record().isPrivate, std::optional(true));
  window.noteView().togglePrivate();
  EXPECT_EQ(this->window(window).sharing, SharingType::ReadOnly);
  EXPECT_EQ(task->record().isPrivate, std::nullopt);
  ASSERT_TRUE(defaults.setBoolean(keys::kHideFromScreenShare, true));
  Q_EMIT center.notePrivacyChanged();
  EXPECT_EQ(this->window(window).sharing, SharingType::None);
}

TEST_F(NoteWindow, isOutOfSightWhileACastRunsAndALittleLonger) {
  auto& open = torn(note());
  auto& hidden = torn(note([](TaskRecord& record) { record.isPrivate = true; }));
  capture.setCasting(true);
  EXPECT_TRUE(open.isVisible());
  EXPECT_FALSE(hidden.isVisible());
  EXPECT_TRUE(hidden.isOrderedIn());
  capture.setCasting(false);
  pass(2s);
  capture.setCasting(true);  // only reconfigured
  capture.setCasting(false);
  pass(3900ms);
  EXPECT_FALSE(hidden.isVisible());
  pass(200ms);
  EXPECT_TRUE(hidden.isVisible());
}

TEST_F(NoteWindow, tornOffDuringACastItWaitsForItsEnd) {
  capture.setCasting(true);
  auto& hidden = torn(note([](TaskRecord& record) { record.isPrivate = true; }));
  EXPECT_FALSE(hidden.isVisible());
  hidden.noteView().togglePrivate();
  EXPECT_TRUE(hidden.isVisible());
}

// --- The tab ---

TEST_F(NoteWindow, aDockedNoteStartsAsATab) {
  auto& note = docked(pinnedNote(kEditor));
  EXPECT_TRUE(note.isDocked());
  EXPECT_TRUE(note.isTucked());
  EXPECT_TRUE(note.hover().isTucked());
  EXPECT_EQ(note.frame(), (DesktopRect{672, 590, 210, 46}));
}

TEST_F(NoteWindow, staysOpenWhereTheUserWantsNoTabsOrSeesThrough) {
  ASSERT_TRUE(defaults.setBoolean(keys::kAppNotesTuck, false));
  auto& open = docked(pinnedNote(kEditor));
  EXPECT_FALSE(open.isTucked());
  EXPECT_EQ(open.frame(), (DesktopRect{632, 406, 250, 230}));
  ASSERT_TRUE(defaults.remove(keys::kAppNotesTuck));
  setMode(QStringLiteral("mouseThrough"));
  EXPECT_FALSE(docked(pinnedNote(kEditor)).isTucked());
}

TEST_F(NoteWindow, opensUnderThePointerAndFoldsAfterAWhile) {
  auto& note = docked(pinnedNote(kEditor));
  hover(note, true);
  EXPECT_FALSE(note.isTucked());
  EXPECT_TRUE(note.hover().isTucked());  // the tab shows until the window has its size
  pass(100ms);
  EXPECT_GT(note.frame().height, 60);
  EXPECT_LT(note.frame().height, 220);
  EXPECT_EQ(note.frame().maxX(), 882);
  EXPECT_EQ(note.frame().maxY(), 636);
  pass(120ms);
  EXPECT_EQ(note.frame(), (DesktopRect{632, 406, 250, 230}));
  EXPECT_FALSE(note.hover().isTucked());
  hover(note, false);
  pass(790ms);
  EXPECT_FALSE(note.isTucked());
  pass(20ms);
  EXPECT_TRUE(note.isTucked());
  pass(300ms);
  EXPECT_EQ(note.frame(), (DesktopRect{672, 590, 210, 46}));
}

TEST_F(NoteWindow, leavingAndComingBackInTimeNeverFolds) {
  auto& note = docked(pinnedNote(kEditor));
  hover(note, true);
  pass(300ms);
  for (int i = 0; i < 5; ++i) {
    hover(note, false);
    pass(700ms);
    hover(note, true);
    pass(200ms);
    EXPECT_FALSE(note.isTucked());
  }
  pass(5s);
  EXPECT_FALSE(note.isTucked());
}

TEST_F(NoteWindow, foldsOnlyWhenItHasLostTheKeyboard) {
  auto& note = docked(pinnedNote(kEditor));
  hover(note, true);
  pass(300ms);
  note.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&note));
  hover(note, false);
  pass(5s);
  EXPECT_FALSE(note.isTucked());
  leaveKeyboard();
  pass(790ms);
  EXPECT_FALSE(note.isTucked());
  pass(20ms);
  EXPECT_TRUE(note.isTucked());
}

TEST_F(NoteWindow, unfoldsToTheSizeItHad) {
  auto& note = docked(pinnedNote(kEditor));
  hover(note, true);
  pass(300ms);
  note.setFrame({500, 300, 321, 287});
  const auto before = note.frame();
  note.setTucked(true, Animation::Immediate);
  EXPECT_EQ(note.frame(), (DesktopRect{611, 541, 210, 46}));
  note.setTucked(false, Animation::Immediate);
  EXPECT_EQ(note.frame(), before);
}

TEST_F(NoteWindow, turningBackHalfWayKeepsTheFullSize) {
  auto& note = docked(pinnedNote(kEditor));
  note.setTucked(false, Animation::Animated);
  pass(100ms);
  note.setTucked(true, Animation::Animated);
  pass(100ms);
  note.setTucked(false, Animation::Animated);
  pass(300ms);
  EXPECT_EQ(note.frame(), (DesktopRect{632, 406, 250, 230}));
  EXPECT_FALSE(note.hover().isTucked());
}

TEST_F(NoteWindow, becomingAGhostUnfoldsAtOnce) {
  auto& note = docked(pinnedNote(kEditor));
  ASSERT_TRUE(note.isTucked());
  setMode(QStringLiteral("mouseThrough"));
  EXPECT_FALSE(note.isTucked());
  EXPECT_EQ(note.frame().size(), (DesktopSize{250, 230}));
  hover(note, true);
  hover(note, false);
  pass(2s);
  EXPECT_FALSE(note.isTucked());
}

TEST_F(NoteWindow, foldsWithoutMotionWhenMotionIsReduced) {
  auto& note = docked(pinnedNote(kEditor));
  workspace.hasReducedMotion = true;
  hover(note, true);
  EXPECT_EQ(note.frame().size(), (DesktopSize{250, 230}));
}

TEST_F(NoteWindow, anUndockedNoteNeverFolds) {
  auto& note = torn(this->note());
  hover(note, true);
  hover(note, false);
  pass(3s);
  EXPECT_FALSE(note.isTucked());
}

// --- Dragging and resizing ---

class NoteDrag : public NoteWindow {
 protected:
  void press(TornNotePanel& note, QPoint at) { QTest::mousePress(note.windowHandle(), Qt::LeftButton, {}, at); }
  void move(TornNotePanel& note, QPoint to) { QTest::mouseMove(note.windowHandle(), to); }
  static void report(TornNotePanel& note, QPoint corner) {
    note.windowHandle()->setPosition(corner);
    QCoreApplication::processEvents();
  }
  void release(TornNotePanel& note, QPoint at) { QTest::mouseRelease(note.windowHandle(), Qt::LeftButton, {}, at); }
};

TEST_F(NoteDrag, movesTheWindowByAnySpotOfIt) {
  auto& note = torn(this->note());
  dragBy(note, {125, 120}, {-100, 30});
  EXPECT_EQ(note.frame(), (DesktopRect{830, 490, 250, 230}));
  EXPECT_EQ(note.pos(), QPoint(830, 80));
  EXPECT_EQ(window(note).activations, 1);
}

TEST_F(NoteDrag, upToFourPointsIsAClick) {
  const auto task = note([](TaskRecord& record) { record.text = QStringLiteral("- [ ] one\n- [ ] two"); });
  auto& window = torn(task);
  const auto frame = window.frame();
  const QPoint box(34, 50);
  press(window, box);
  move(window, box + QPoint(0, 4));
  release(window, box + QPoint(0, 4));
  EXPECT_EQ(window.frame(), frame);
  EXPECT_EQ(task->text(), QStringLiteral("- [x] one\n- [ ] two"));
  dragBy(window, box, {0, 5});
  EXPECT_NE(window.frame(), frame);
  EXPECT_EQ(task->text(), QStringLiteral("- [x] one\n- [ ] two"));
}

TEST_F(NoteDrag, aDragThatBeginsOnTheCircleDoesNotCrush) {
  auto& note = torn(this->note());
  const QPoint circle = note.noteView().face().circleCenter().toPoint();
  dragBy(note, circle, {-40, 0});
  EXPECT_FALSE(note.noteView().isCrushing());
  EXPECT_EQ(note.frame().x, 890);
  QTest::mouseClick(note.windowHandle(), Qt::LeftButton, {}, circle);
  EXPECT_TRUE(note.noteView().isCrushing());
}

TEST_F(NoteDrag, pullsTheEdgesOfThePaperDownToTheSmallestSize) {
  auto& note = torn(this->note());
  dragBy(note, {240, 120}, {30, 0});
  EXPECT_EQ(note.frame(), (DesktopRect{930, 520, 280, 230}));
  dragBy(note, {268, 210}, {0, 40});  // the lower right corner
  EXPECT_EQ(note.frame(), (DesktopRect{930, 480, 280, 270}));
  dragBy(note, {10, 150}, {200, 0});
  EXPECT_EQ(note.frame(), (DesktopRect{1010, 480, 200, 270}));
}

TEST_F(NoteDrag, aDockedTabStaysWhereItWasDroppedRelativeToItsTarget) {
  const auto task = pinnedNote(kEditor);
  auto& note = docked(task);
  dragBy(note, {100, 20}, {-50, 100});
  EXPECT_EQ(note.frame().origin(), (DesktopPoint{622, 490}));
  const auto key = keys::kAppNoteOffsetPrefix + upper(task->id());
  EXPECT_EQ(defaults.reals(key), (std::vector<double>{-68, -164}));
  otherWindows.move(kEditor.pid, DesktopRect{200, 150, 800, 600});
  EXPECT_EQ(note.frame().origin(), (DesktopPoint{722, 540}));
  // The place of a docked note is no place of its own.
  EXPECT_EQ(note.home(), (DesktopRect{930, 520, 250, 230}));
}

TEST_F(NoteDrag, takesTheWindowsTruePlaceFromThePress) {
  auto& note = torn(this->note());
  // A window manager put it elsewhere and the report was lost.
  note.move(400, 200);
  press(note, {125, 120});
  move(note, {135, 120});
  EXPECT_EQ(note.pos(), QPoint(410, 200));
  release(note, {135, 120});
}

TEST_F(NoteDrag, believesTheWindowManagerAboutTheTruePlaceOnly) {
  const auto task = note();
  auto& note = torn(task);
  pass(1s);
  const auto before = note.frame();
  windowServer.place(note.windowHandle(), before);
  report(note, {400, 200});  // what was read while the window was being framed
  EXPECT_EQ(note.pos(), QPoint(400, 200));
  pass(1s);
  EXPECT_EQ(note.frame(), before);
  EXPECT_EQ(note.pos(), QPoint(930, 50));
  EXPECT_EQ(time.pendingCount(), 0);
  // With the option key it is the window manager that moves it.
  windowServer.place(note.windowHandle(), {300, 310, 250, 230});
  report(note, {300, 260});
  pass(1s);
  EXPECT_EQ(note.frame(), (DesktopRect{300, 310, 250, 230}));
  EXPECT_EQ(note.home(), note.frame());
}

TEST_F(NoteDrag, insistsOnItsPlaceWhenTheWindowManagerFindsOneForANewWindow) {
  const auto task = note();
  auto& note = torn(task);
  const auto wanted = note.frame();
  windowServer.place(note.windowHandle(), {300, 310, 250, 230});
  report(note, {300, 260});
  pass(700ms);
  EXPECT_EQ(note.frame(), wanted);
  EXPECT_EQ(note.pos(), QPoint(930, 50));
  windowServer.place(note.windowHandle(), wanted);
  pass(1s);
  EXPECT_EQ(note.frame(), wanted);
}

TEST_F(NoteDrag, isWhereTheWindowManagerWantsItWhenItInsistsToo) {
  auto& note = torn(this->note());
  pass(1ms);
  windowServer.place(note.windowHandle(), {300, 310, 250, 230});  // and nothing is reported
  pass(2s);
  EXPECT_EQ(note.frame(), (DesktopRect{300, 310, 250, 230}));
  EXPECT_EQ(note.pos(), QPoint(300, 260));
  EXPECT_EQ(time.pendingCount(), 0);
}

TEST_F(NoteDrag, whoTakesItWhileItIsNewMayHaveItMovedByTheWindowManagerLater) {
  const auto task = note();
  auto& note = torn(task);
  pass(1ms);
  press(note, {125, 120});
  move(note, {115, 120});
  pass(1s);
  release(note, {125, 120});
  const auto there = note.frame();
  EXPECT_EQ(there.x, 920);
  windowServer.place(note.windowHandle(), there);
  pass(1s);
  windowServer.place(note.windowHandle(), {300, 310, 250, 230});
  report(note, {300, 260});
  pass(1s);
  EXPECT_EQ(note.frame(), (DesktopRect{300, 310, 250, 230}));
  EXPECT_EQ(time.pendingCount(), 0);
}

TEST_F(NoteDrag, aDockedTabThatTheWindowManagerMovesStaysThereToo) {
  const auto task = pinnedNote(kEditor);
  auto& note = docked(task);
  pass(1s);
  windowServer.place(note.windowHandle(), {622, 490, 210, 46});
  report(note, {622, 264});
  pass(1s);
  EXPECT_EQ(defaults.reals(keys::kAppNoteOffsetPrefix + upper(task->id())), (std::vector<double>{-68, -164}));
}

// --- Deep work ---

TEST_F(NoteWindow, deepWorkHidesAllButTheDailyThree) {
  auto& plain = torn(note());
  auto& daily = torn(note([](TaskRecord& record) { record.isDaily3 = true; }));
  auto& hidden = torn(note());
  hidden.orderOut();
  Q_EMIT center.workspaceModeChanged(QStringLiteral("deepWork"));
  EXPECT_FALSE(plain.isVisible());
  EXPECT_TRUE(daily.isVisible());
  Q_EMIT center.workspaceModeChanged(QStringLiteral("normal"));
  EXPECT_TRUE(plain.isVisible());
  EXPECT_FALSE(hidden.isVisible());
  plain.orderOut();
  Q_EMIT center.workspaceModeChanged(QString());
  EXPECT_TRUE(plain.isVisible());
}

TEST_F(NoteWindow, cannotBeClosedFromOutside) {
  auto& note = torn(this->note());
  EXPECT_FALSE(note.close());
  EXPECT_TRUE(note.isVisible());
}

TEST_F(NoteWindow, asksForItsPlaceAgainShortlyAfterItCameUp) {
  auto& note = torn(this->note());
  note.move(0, 0);
  pass(100ms);
  EXPECT_EQ(note.pos(), QPoint(930, 50));
}

TEST_F(NoteWindow, anIdleDeskWakesNothing) {
  torn(note()).activateWindow();
  pass(1s);
  EXPECT_EQ(time.repeatingCount(), 0);
  docked(pinnedNote(kEditor));
  pass(10s);
  EXPECT_EQ(time.repeatingCount(), 0);
  pass(2s);  // what was painted meanwhile lets go of its picture
  EXPECT_EQ(time.pendingCount(), 0);
}

}  // namespace
}  // namespace tarnwick::test
