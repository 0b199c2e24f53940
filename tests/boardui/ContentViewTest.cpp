// SPDX-License-Identifier: MIT
#include "BoardHarness.h"

#include "board/BoardFilters.h"
#include "board/UndoKeyMonitor.h"
#include "effects/BoardSurfaceView.h"

#include <QLineEdit>
#include <QSignalSpy>

#include <cmath>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class Board : public BoardHarness {
 protected:
  TaskList addNotes(int count) {
    TaskList notes;
    for (int i = 0; i < count; ++i) {
      notes.insert(notes.begin(), desk.add(QStringLiteral("note %1").arg(i)));
      desk.time.jump(1s);
    }
    return notes;
  }
  /// As if the note had been crushed last.
  void remember(const TaskPtr& task) {
    desk.undo.last.emplace();
    desk.undo.last->id = task->id();
  }
};

}  // namespace

TEST_F(Board, crushesTheSelectedNoteByKeyAndTakesItBack) {
  const auto notes = addNotes(3);
  notes[1]->set(&TaskRecord::dueDate, desk.at(u"2026-03-05T14:00:00"_s));
  desk.reminders.schedule(*notes[1]);
  open();
  key(Qt::Key_Right);
  key(Qt::Key_Right);
  EXPECT_EQ(wall().selection(), notes[1]->id());
  key(Qt::Key_Backspace, Qt::ControlModifier);
  ASSERT_EQ(desk.flight.plays.size(), 1u);
  EXPECT_EQ(wall().selection(), notes[2]->id());
  EXPECT_FALSE(notes[1]->isCompleted());
  desk.flight.land();
  settle(200ms);
  EXPECT_TRUE(notes[1]->isCompleted());
  EXPECT_EQ(find<UndoToast>().text(), u"Crushed — ⌘Z to undo"_s);
  EXPECT_EQ(shownTexts(), (QStringList{u"note 2"_s, u"note 0"_s}));
  EXPECT_TRUE(desk.notifications.requests.empty());

  key(Qt::Key_Z, Qt::MetaModifier);
  EXPECT_FALSE(notes[1]->isCompleted());
  EXPECT_EQ(find<UndoToast>().text(), u"Restored"_s);
  EXPECT_EQ(shownTexts().size(), 3);
  EXPECT_EQ(desk.notifications.requests.size(), 3u) << "its reminders are back too";
  key(Qt::Key_Z, Qt::MetaModifier);
  EXPECT_FALSE(notes[1]->isCompleted());
}

TEST_F(Board, takesACrushedNoteOffTheWallThoughItCannotBeSaved) {
  addNotes(2);
  open();
  key(Qt::Key_Right);
  desk.refuseWrites();
  key(Qt::Key_Backspace, Qt::ControlModifier);
  desk.flight.land();
  settle();
  EXPECT_EQ(shownTexts(), QStringList{u"note 0"_s});
}

TEST_F(Board, staysRoundWhileOnePageFadesIntoAnother) {
  ContentView& board = open();
  board.showAshes();
  desk.time.advance(60ms);
  QImage picture(host().size(), QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  host().render(&picture, {}, {}, QWidget::DrawChildren);
  EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0);
  EXPECT_EQ(picture.pixelColor(ContentView::kSide - 1, 0).alpha(), 0);
}

TEST_F(Board, staysRoundWhereCardsReachItsCorners) {
  addNotes(8);
  open();
  constexpr int kRadius = static_cast<int>(BoardSurfaceView::kRadius);
  QImage picture(host().size(), QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  host().render(&picture, {}, {}, QWidget::DrawChildren);
  const int side = ContentView::kSide;
  EXPECT_GT(picture.pixelColor(kRadius, side - 8).red(), 200) << "a card is there";
  for (int x = 0; x < kRadius; ++x) {
    for (int y = 0; y < kRadius; ++y) {
      if (std::hypot(kRadius - x - .5, y + .5) < kRadius + 1.5) continue;
      EXPECT_EQ(picture.pixelColor(x, side - kRadius + y).alpha(), 0) << x << ", " << y;
      EXPECT_EQ(picture.pixelColor(side - 1 - x, side - kRadius + y).alpha(), 0) << x << ", " << y;
    }
  }
}

TEST_F(Board, keepsItsToastsForTheirTime) {
  const auto notes = addNotes(1);
  open();
  Q_EMIT desk.center.crushDidComplete();
  desk.time.advance(3499ms);
  EXPECT_TRUE(find<UndoToast>().isShown());
  desk.time.advance(1ms);
  EXPECT_FALSE(find<UndoToast>().isShown());
  remember(notes[0]);
  key(Qt::Key_Z, Qt::ControlModifier);
  desk.time.advance(1099ms);
  EXPECT_TRUE(find<UndoToast>().isShown());
  desk.time.advance(1ms);
  EXPECT_FALSE(find<UndoToast>().isShown());
}

TEST_F(Board, leavesControlZToATextFieldWithTypingToTakeBack) {
  const auto notes = addNotes(1);
  open().showComposer();
  settle();
  remember(notes[0]);
  type(u"abc"_s);
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(desk.undo.last) << "the field took it";
  EXPECT_EQ(form().text().noteText(), QString());
  type(u"abc"_s);
  key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(desk.undo.last);
  key(Qt::Key_Z, Qt::MetaModifier);
  EXPECT_FALSE(desk.undo.last) << "the other command key always undoes the crush";
  EXPECT_EQ(form().text().noteText(), u"abc"_s);
}

TEST_F(Board, takesControlZFromAFieldWithNothingToTakeBack) {
  const auto notes = addNotes(1);
  open().showComposer();
  settle();
  remember(notes[0]);
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(desk.undo.last);
}

TEST_F(Board, opensTheSelectedNoteAndComesBack) {
  const auto notes = addNotes(2);
  open();
  key(Qt::Key_Right);
  key(Qt::Key_Return);
  EXPECT_EQ(open().viewState(), ContentView::ViewState::edit);
  EXPECT_EQ(form().text().noteText(), u"note 1"_s);
  EXPECT_TRUE(form().text().hasFocus());
  key(Qt::Key_Escape);
  EXPECT_EQ(open().viewState(), ContentView::ViewState::list);
  EXPECT_TRUE(wall().hasFocus());
  EXPECT_EQ(wall().selection(), notes[0]->id());
}

TEST_F(Board, letsEscapeGoOnWhenNothingIsSelected) {
  addNotes(1);
  open();
  key(Qt::Key_Right);
  QKeyEvent first(QEvent::KeyPress, Qt::Key_Escape, {});
  QApplication::sendEvent(&wall(), &first);
  EXPECT_TRUE(first.isAccepted());
  EXPECT_FALSE(wall().selection());
  QKeyEvent second(QEvent::KeyPress, Qt::Key_Escape, {});
  QApplication::sendEvent(&wall(), &second);
  EXPECT_FALSE(second.isAccepted());
}

TEST_F(Board, opensTheComposerByKeyButtonAndRequest) {
  open();
  key(Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(open().viewState(), ContentView::ViewState::add);
  key(Qt::Key_Escape);
  EXPECT_EQ(open().viewState(), ContentView::ViewState::list);
  click(u"New Note"_s);
  EXPECT_EQ(open().viewState(), ContentView::ViewState::add);
  open().showList();
  settle();
  Q_EMIT desk.center.showAddTask();
  EXPECT_EQ(open().viewState(), ContentView::ViewState::add);
  type(u"half a thought"_s);
  Q_EMIT desk.center.showAddTask();
  EXPECT_EQ(form().text().noteText(), u"half a thought"_s);
}

TEST_F(Board, narrowsTheWallBySearchAndWidensItAgain) {
  desk.add(u"Order paper"_s);
  desk.add(u"Ring Ola"_s);
  open();
  click(u"Search"_s);
  type(u"PAPER"_s);
  EXPECT_EQ(shownTexts(), QStringList{u"Order paper"_s});
  type(u" "_s);
  EXPECT_EQ(shownTexts(), QStringList{}) << "blanks count";
  key(Qt::Key_Escape);
  EXPECT_EQ(shownTexts().size(), 2);
  EXPECT_FALSE(find<SearchField>().isVisible());
}

TEST_F(Board, filtersByTagOnlyWhileTheRowIsShown) {
  desk.add(u"blue"_s, [](auto& r) { r.tagRaw = u"blue"_s; });
  desk.add(u"none"_s);
  open();
  click(u"Tags"_s);
  auto& row = find<TagRow>();
  QTest::mouseClick(&row, Qt::LeftButton, {}, row.itemRect(5).center().toPoint());
  EXPECT_EQ(shownTexts(), QStringList{u"blue"_s});
  click(u"Tags"_s);
  EXPECT_EQ(shownTexts().size(), 2);
  click(u"Tags"_s);
  EXPECT_EQ(shownTexts(), QStringList{u"blue"_s});
  QTest::mouseClick(&row, Qt::LeftButton, {}, row.itemRect(0).center().toPoint());
  EXPECT_EQ(shownTexts().size(), 2);
}

TEST_F(Board, movesTheWallBelowWhatOpensAboveIt) {
  addNotes(2);
  open();
  const auto top = [&] { return wall().y() + wall().cardRect(0).top(); };
  EXPECT_EQ(top(), 72 + 12);
  click(u"Tags"_s);
  EXPECT_EQ(top(), 108 + 12);
  click(u"Search"_s);
  EXPECT_EQ(top(), 138 + 12);
  click(u"Tags"_s);
  EXPECT_EQ(top(), 108 + 12);
  click(u"Search"_s);
  click(u"Stats"_s);
  EXPECT_EQ(top(), 238 + 12);
}

TEST_F(Board, changesTabsByArrowsAndKeepsANewOne) {
  desk.add(u"at work"_s, [](auto& r) { r.boardRaw = u"Work"_s; });
  desk.add(u"at home"_s);
  open();
  auto& tabs = find<BoardTabs>();
  EXPECT_EQ(tabs.tabs(), (QStringList{u"All"_s, u"Focus"_s, u"General"_s, u"Work"_s}));
  tabs.setFocus();
  key(Qt::Key_Right);
  EXPECT_EQ(shownTexts(), QStringList{});
  key(Qt::Key_Right);
  EXPECT_EQ(shownTexts(), QStringList{u"at home"_s});
  key(Qt::Key_Right);
  EXPECT_EQ(shownTexts(), QStringList{u"at work"_s});
  tabs.choose(3);
  EXPECT_EQ(desk.audio.log.count(u"play stick"_s), 3) << "once for each that was not shown";
  click(u"Add Board"_s);
  type(u"  Garden "_s);
  key(Qt::Key_Return);
  EXPECT_EQ(desk.audio.log.count(u"play stick"_s), 4);
  EXPECT_EQ(tabs.tabs().last(), u"Garden"_s);
  EXPECT_EQ(tabs.current(), 4);
  click(u"New Note"_s);
  EXPECT_EQ(form().draft().board, u"Garden"_s);
}

TEST_F(Board, storesTheDisplayModeAndTells) {
  open();
  QSignalSpy told(&desk.center, &NotificationCenter::noteDisplayModeChanged);
  auto& segment = find<DisplayModeSegment>();
  QTest::mouseClick(&segment, Qt::LeftButton, {}, segment.itemRect(2).center().toPoint());
  EXPECT_EQ(desk.defaults.text(keys::kNoteDisplayMode), u"mouseThrough"_s);
  EXPECT_EQ(told.size(), 1);
  (void)desk.defaults.setText(keys::kNoteDisplayMode, u"desktop"_s);
  EXPECT_EQ(segment.current(), 1);
}

TEST_F(Board, countsDownByTheMinuteWhileItIsSeen) {
  addNotes(3);
  desk.time.setLocal(u"2026-03-03T21:55:30"_s);
  open();
  auto& label = find<BurnCountdownLabel>();
  EXPECT_EQ(label.text(), u"3 burn in 2h 4m"_s);
  desk.time.advance(30s + 100ms);
  EXPECT_EQ(label.text(), u"3 burn in 2h 3m"_s);
  host().hide();
  EXPECT_EQ(desk.time.pendingCount(), 0);
  desk.time.advance(std::chrono::hours(1));
  host().show();
  EXPECT_EQ(label.text(), u"3 burn in 1h 3m"_s);
  (void)desk.defaults.setBoolean(keys::kDailyBurn, false);
  EXPECT_FALSE(label.isVisible());
}

TEST_F(Board, paintsNothingInAMinuteThatChangesNothing) {
  struct Paints final : QObject {
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint) ++count;
      return false;
    }
  } paints;
  desk.add(u"dated"_s, [&](auto& r) { r.dueDate = desk.at(u"2026-03-05T14:00:00"_s); });
  open();
  click(u"Search"_s);
  wall().setFocus();
  settle(2s);
  open().installEventFilter(&paints);
  for (auto* part : open().findChildren<QWidget*>()) part->installEventFilter(&paints);
  desk.time.advance(65s);
  (void)desk.defaults.setText(keys::kDismissedUpdateVersion, u"0.1"_s);
  QCoreApplication::processEvents();
  EXPECT_EQ(paints.count, 0);
  wall().notes()[0]->set(&TaskRecord::text, u"changed"_s);
  ASSERT_TRUE(desk.notes().save().isOk());
  QCoreApplication::processEvents();
  EXPECT_GT(paints.count, 0);
}

TEST_F(Board, greetsAnEmptyWallByTheHour) {
  desk.time.setLocal(u"2026-03-03T11:59:40"_s);
  open();
  auto& nudge = find<PlanNudgeView>();
  ASSERT_TRUE(nudge.isVisible());
  EXPECT_EQ(nudge.nudge().kicker, u"TUESDAY MORNING"_s);
  desk.time.advance(60s);
  EXPECT_EQ(nudge.nudge().kicker, u"TUESDAY AFTERNOON"_s);
  click(u"Plan slot 2 of 3"_s);
  EXPECT_EQ(open().viewState(), ContentView::ViewState::add);
  type(u"Ring Ola"_s);
  key(Qt::Key_Return, Qt::ControlModifier);
  ASSERT_EQ(shownTexts(), QStringList{u"Ring Ola"_s});
  const auto planned = desk.stored(wall().notes()[0]->id());
  EXPECT_EQ(planned->colorHex, u"#4CC9F0"_s);
  EXPECT_EQ(planned->isDaily3, true);
  EXPECT_EQ(desk.audio.log.filter(u"play stick"_s).size(), 1);
  EXPECT_FALSE(nudge.isVisible());
  click(u"New Note"_s);
  EXPECT_FALSE(form().draft().isDaily3) << "only a slot plans";
}

TEST_F(Board, saysThatNothingMatchesInsteadOfGreeting) {
  desk.add(u"a note"_s);
  open();
  click(u"Search"_s);
  type(u"zzz"_s);
  EXPECT_TRUE(wall().notes().empty());
  EXPECT_FALSE(find<PlanNudgeView>().isVisible());
  EXPECT_EQ(wall().accessibleDescription(), u"No notes match."_s);
  const QImage words = wall().grab().toImage();
  wall().setEmptyText({});
  EXPECT_NE(wall().grab().toImage(), words);
  type(u"z"_s);
  EXPECT_EQ(wall().accessibleDescription(), u"No notes match."_s);
  key(Qt::Key_Escape);
  EXPECT_EQ(wall().accessibleDescription(), QString());
}

TEST_F(Board, changesItsSurfaceFromTheMenuOfAnyBarePlace) {
  const auto mood = [&] { return desk.defaults.text(keys::kBoardMood); };
  chooseAt(find<PlanNudgeView>(), {195, 350}, u"Corkboard"_s);
  EXPECT_EQ(mood(), u"corkboard"_s);
  addNotes(1);
  settle();
  const QImage cork = open().grab().toImage();
  chooseAt(wall(), {300, 200}, u"Obsidian"_s);
  EXPECT_EQ(mood(), u"obsidian"_s);
  EXPECT_NE(open().grab().toImage(), cork);
  chooseAt(find<BoardRail>(), {200, 5}, u"Ashes"_s);
  EXPECT_TRUE(find<AshesOverlay>().isVisible()) << "those of earlier nights too";
}

TEST_F(Board, readsWhatChangedWhileItWasHidden) {
  open();
  host().hide();
  desk.add(u"from elsewhere"_s);
  desk.time.advance(2s);
  EXPECT_EQ(desk.time.pendingCount(), 0) << "one pass, then nothing wakes the hidden board";
  host().show();
  EXPECT_EQ(shownTexts(), QStringList{u"from elsewhere"_s});
}

TEST_F(Board, putsNotesOfTheOpenRepositoryFirst) {
  desk.add(u"of the repository"_s, [](auto& r) { r.gitRepoPath = u"/src/app"_s; });
  desk.time.jump(1s);
  desk.add(u"newer"_s);
  open();
  EXPECT_EQ(shownTexts().first(), u"newer"_s);
}

TEST_F(Board, walksTheKeyboardRoundInOrder) {
  addNotes(1);
  open();
  click(u"Search"_s);
  click(u"Tags"_s);
  wall().setFocus();
  QStringList names;
  for (int i = 0; i < 12; ++i) {
    key(Qt::Key_Tab);
    names << QApplication::focusWidget()->accessibleName();
    if (QApplication::focusWidget() == &wall()) break;
  }
  EXPECT_EQ(names, (QStringList{u"Boards"_s, u"Add Board"_s, u"New Note"_s, u"Torn-off notes"_s, u"Search"_s, u"Tags"_s,
                                u"Stats"_s, u"Search"_s, u"Tags"_s, u"Notes"_s}));
}

}  // namespace tarnwick::test
