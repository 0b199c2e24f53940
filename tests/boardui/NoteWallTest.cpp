// SPDX-License-Identifier: MIT
#include "BoardHarness.h"

#include <QHelpEvent>
#include <QSignalSpy>
#include <QTextDocument>
#include <QToolTip>
#include <QWheelEvent>

#include <thread>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

const QPointF kCircle{CardFace::kWidth - 19, 19};
const QPointF kPaper{60, 60};

class Wall : public BoardHarness {
 protected:
  TaskList addNotes(int count) {
    TaskList notes;
    for (int i = 0; i < count; ++i) {
      notes.insert(notes.begin(), desk.add(QStringLiteral("note %1").arg(i)));
      desk.time.jump(1s);
    }
    return notes;  // as they hang: the newest first
  }
  void press(const TaskPtr& task, const QPointF& at) {
    QTest::mouseClick(&wall(), Qt::LeftButton, {}, pointOn(task, at));
  }
};

}  // namespace

TEST_F(Wall, makesCardsOnlyForWhatIsInView) {
  auto& notes = desk.notes();
  for (int i = 0; i < 10'000; ++i) {
    auto record = Desk::record(QString::number(i));
    record.createdAt = desk.time.now().addSecs(-i);
    notes.insert(record);
  }
  ASSERT_TRUE(notes.save().isOk());
  open().grab();
  EXPECT_EQ(wall().notes().size(), 10'000u);
  EXPECT_LT(wall().cardObjectCount(), 20);
  key(Qt::Key_Right);
  for (int i = 0; i < 40; ++i) key(Qt::Key_Down);
  open().grab();
  EXPECT_GT(wall().scrollOffset(), 39 * NoteWall::kRowPitch - 390);
  EXPECT_LT(wall().cardObjectCount(), 40);
  const QRectF card = wall().cardRect(wall().indexOf(*wall().selection()));
  EXPECT_TRUE(QRectF(wall().rect()).contains(card)) << "the selected card came into view";
}

TEST_F(Wall, showsWhatAnotherThreadHasDrawnAheadUnlessTheNoteHasChangedSince) {
  const auto notes = addNotes(1);
  open();
  auto& card = *wall().card(notes.front()->id());
  const auto changeAndDrawAhead = [&] {
    card.cycleColor();
    std::jthread(card.poseAhead(2, 1)).join();
  };
  const auto shown = [&](double angle) { return card.posed(angle, 1).pixmap.toImage(); };
  const auto drawnHere = [&] {
    (void)shown(3);  // only the last pose is kept
    return shown(2);
  };
  changeAndDrawAhead();
  const QPixmap since(1, 1);
  const QImage ahead = shown(2);
  EXPECT_LT(card.posed(2, 1).pixmap.cacheKey(), since.cacheKey()) << "it was made before";
  EXPECT_EQ(drawnHere(), ahead);
  changeAndDrawAhead();
  card.cycleColor();
  const QImage late = shown(2);
  EXPECT_EQ(drawnHere(), late) << "of what was drawn too early nothing is shown";
  EXPECT_FALSE(card.poseAhead(2, 1)) << "it is drawn already";
}

TEST_F(Wall, crushesFromTheCircleTheWholeHitAreaOver) {
  const auto notes = addNotes(1);
  open();
  struct Row {
    QPointF at;
    bool crushes;
  };
  for (const auto& [at, crushes] : {Row{kCircle + QPointF(0, 15), true}, Row{kCircle + QPointF(-15, 0), true},
                                    Row{kCircle + QPointF(-24, 0), false}, Row{kCircle + QPointF(0, 24), false}}) {
    hover(notes[0], kPaper);
    settle();  // the card hangs straight: its tilt differs from note to note
    press(notes[0], at);
    EXPECT_EQ(desk.flight.plays.size(), crushes ? 1u : 0u) << at.x() << ' ' << at.y();
    desk.flight.plays.clear();
    wall().rest();
    settle();
  }
}

TEST_F(Wall, fliesFromTheCardsPlaceOnTheDesktop) {
  const auto notes = addNotes(3);
  open();
  host().move(100, 50);
  press(notes[1], kCircle);
  ASSERT_EQ(desk.flight.plays.size(), 1u);
  const QPoint corner = wall().mapToGlobal(wall().cardRect(1).topLeft().toPoint());
  const DesktopRect from = desk.flight.plays[0].from;
  EXPECT_EQ(from.minX(), corner.x());
  EXPECT_EQ(from.maxY(), 800 - corner.y());
  EXPECT_EQ(from.width, 175);
  EXPECT_EQ(from.height, 112);
}

TEST_F(Wall, aSecondPressTakesARunningCrushBack) {
  const auto notes = addNotes(1);
  open();
  press(notes[0], kCircle);
  EXPECT_TRUE(wall().card(notes[0]->id())->isCrushing());
  press(notes[0], kCircle);
  EXPECT_FALSE(wall().card(notes[0]->id())->isCrushing());
  desk.flight.land();
  settle();
  EXPECT_FALSE(notes[0]->isCompleted());
  EXPECT_EQ(wall().notes().size(), 1u);
}

TEST_F(Wall, closingTheBoardBeforeThePaperLandsLeavesTheNote) {
  const auto notes = addNotes(1);
  open();
  press(notes[0], kCircle);
  host().hide();
  desk.flight.land();
  EXPECT_FALSE(notes[0]->isCompleted());
}

TEST_F(Wall, aDragWithinTheThresholdIsAClick) {
  const auto notes = addNotes(1);
  open();
  QSignalSpy torn(&wall(), &NoteWall::tearOffRequested);
  const QPoint start = pointOn(notes[0], kPaper);
  struct Row {
    QPoint way;
    bool selects;
  };
  for (const auto& [way, selects] : {Row{{3, 2}, true}, Row{{4, 3}, false}}) {
    wall().setSelection(std::nullopt);
    QTest::mousePress(&wall(), Qt::LeftButton, {}, start);
    QTest::mouseMove(&wall(), start + way);
    QTest::mouseRelease(&wall(), Qt::LeftButton, {}, start + way);
    EXPECT_EQ(wall().selection().has_value(), selects) << way.x();
  }
  EXPECT_TRUE(torn.isEmpty());
}

TEST_F(Wall, aCardDraggedOffTheBoardIsTornOffWhereItWasDropped) {
  const auto notes = addNotes(1);
  open();
  host().move(400, 100);
  const QPoint start = pointOn(notes[0], kPaper);
  const QPoint drop = wall().mapFromGlobal(QPoint(150, 300));
  QTest::mousePress(&wall(), Qt::LeftButton, {}, start);
  QTest::mouseMove(&wall(), start + QPoint(20, 0));
  QTest::mouseMove(&wall(), drop);
  QTest::mouseRelease(&wall(), Qt::LeftButton, {}, drop);
  ASSERT_TRUE(desk.torn.isOpen(notes[0]->id()));
  const auto near = desk.torn.nearRects[notes[0]->id()];
  ASSERT_TRUE(near);
  EXPECT_TRUE(near->contains({150, 800 - 300}));
}

TEST_F(Wall, aDragThatEndsOnTheBoardOrIsTakenBackTearsNothing) {
  const auto notes = addNotes(1);
  open();
  const QPoint start = pointOn(notes[0], kPaper);
  QTest::mousePress(&wall(), Qt::LeftButton, {}, start);
  QTest::mouseMove(&wall(), start + QPoint(0, 80));
  QTest::mouseRelease(&wall(), Qt::LeftButton, {}, start + QPoint(0, 80));
  QTest::mousePress(&wall(), Qt::LeftButton, {}, start);
  QTest::mouseMove(&wall(), start + QPoint(20, 0));
  QTest::mouseMove(&wall(), QPoint(-300, 0));
  key(Qt::Key_Escape);
  QTest::mouseRelease(&wall(), Qt::LeftButton, {}, QPoint(-300, 0));
  EXPECT_TRUE(desk.torn.open.empty());
}

TEST_F(Wall, showsToolsAShortWhileAfterThePointerCame) {
  const auto notes = addNotes(1);
  open();
  hover(notes[0], kPaper);
  auto* card = wall().card(notes[0]->id());
  EXPECT_EQ(card->hit({30, 90}).part, CardPart::Paper);
  settle();
  EXPECT_EQ(card->hit({30, 90}).part, CardPart::Edit);
  EXPECT_EQ(card->hit({70, 90}).part, CardPart::ChangeColor);
  EXPECT_EQ(card->hit({110, 90}).part, CardPart::Daily3);
  EXPECT_EQ(card->hit({150, 90}).part, CardPart::TearOff);
}

TEST_F(Wall, eachToolDoesWhatItSays) {
  const auto notes = addNotes(1);
  open();
  hover(notes[0], kPaper);
  settle();
  press(notes[0], {70, 90});
  EXPECT_EQ(desk.stored(notes[0]->id())->colorHex, u"#FF7597"_s);
  EXPECT_EQ(desk.audio.log.filter(u"play stick"_s).size(), 1);
  press(notes[0], {110, 90});
  EXPECT_EQ(desk.stored(notes[0]->id())->isDaily3, true);
  EXPECT_EQ(desk.audio.log.filter(u"play stick"_s).size(), 2);
  press(notes[0], {150, 90});
  EXPECT_TRUE(desk.torn.isOpen(notes[0]->id()));
  press(notes[0], {30, 90});
  EXPECT_EQ(open().viewState(), ContentView::ViewState::edit);
}

TEST_F(Wall, aTapOnABoxTicksIt) {
  const auto task = desk.add(u"Shopping\n- [ ] Milk"_s);
  open();
  press(task, {18, 11 + 17 + 8});
  EXPECT_EQ(desk.stored(task->id())->text, u"Shopping\n- [x] Milk"_s);
  EXPECT_FALSE(wall().selection()) << "ticking is no selecting";
}

TEST_F(Wall, theMenuOfACardDoesWhatItsToolsDo) {
  const auto notes = addNotes(1);
  open();
  const auto pick = [&](const QString& entry) { chooseAt(wall(), pointOn(notes[0], kPaper), entry); };
  pick(u"Change colour"_s);
  EXPECT_EQ(desk.stored(notes[0]->id())->colorHex, u"#FF7597"_s);
  for (const bool isDaily3 : {true, false}) {
    pick(u"Daily three"_s);
    EXPECT_EQ(desk.stored(notes[0]->id())->isDaily3, isDaily3);
  }
  pick(u"Tear off"_s);
  EXPECT_TRUE(desk.torn.isOpen(notes[0]->id()));
  pick(u"Crush"_s);
  EXPECT_EQ(desk.flight.plays.size(), 1u);
  wall().rest();
  pick(u"Edit"_s);
  EXPECT_EQ(open().viewState(), ContentView::ViewState::edit);
}

TEST_F(Wall, theMenuKeyBringsTheMenuOfTheSelectedCard) {
  const auto notes = addNotes(2);
  open();
  key(Qt::Key_Right);
  key(Qt::Key_Right);
  const QPoint middle = wall().rect().center();
  QContextMenuEvent asks(QContextMenuEvent::Keyboard, middle, wall().mapToGlobal(middle));
  QApplication::sendEvent(&wall(), &asks);
  chooseFromMenu(u"Daily three"_s);
  EXPECT_TRUE(notes[1]->isDaily3());
}

TEST_F(Wall, aTipShowsTheWholeTextAndObeysNoMarkup) {
  const auto tip = [&](const QString& text) {
    desk.time.jump(1s);
    const auto task = desk.add(text);
    settle();
    const QPoint at = pointOn(task, kPaper);
    QHelpEvent asks(QEvent::ToolTip, at, wall().mapToGlobal(at));
    QApplication::sendEvent(&wall(), &asks);
    QTextDocument shown;
    shown.setHtml(QToolTip::text());
    QToolTip::hideText();
    return shown.toPlainText();
  };
  open();
  EXPECT_EQ(tip(u"short <b>and</b> plain"_s), QString());
  const QString marked = u"<img src=\"file:///etc/passwd\"> & <h1>loud</h1>\n\n  two\nthree\nfour\nfive"_s;
  EXPECT_EQ(tip(marked), marked);
  const QString endless = tip(QString(100'000, u'w'));
  EXPECT_LT(endless.size(), 1000);
  EXPECT_TRUE(endless.endsWith(QChar(0x2026)));
}

TEST_F(Wall, theMenuOfACardSetsItsTag) {
  const auto notes = addNotes(1);
  open();
  QContextMenuEvent asks(QContextMenuEvent::Mouse, pointOn(notes[0], kPaper),
                         wall().mapToGlobal(pointOn(notes[0], kPaper)));
  QApplication::sendEvent(&wall(), &asks);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_TRUE(menu);
  for (auto* action : menu->actions()) {
    if (!action->menu()) continue;
    ASSERT_EQ(action->menu()->actions().size(), 7);
    EXPECT_TRUE(action->menu()->actions()[0]->isChecked());
    action->menu()->actions()[5]->trigger();
  }
  menu->close();
  EXPECT_EQ(notes[0]->tag(), TaskTag::blue);
  EXPECT_EQ(desk.stored(notes[0]->id())->tagRaw, u"blue"_s);
}

TEST_F(Wall, breathesOnlyWhileEmbersAreInView) {
  desk.time.setLocal(u"2026-03-03T20:00:00"_s);
  addNotes(2);
  open();
  open().grab();
  const int breathing = desk.time.repeatingCount();
  EXPECT_EQ(breathing, 1);
  host().hide();
  EXPECT_EQ(desk.time.repeatingCount(), 0);
  host().show();
  desk.workspace.hasReducedMotion = true;
  settle();
  open().grab();
  EXPECT_EQ(desk.time.repeatingCount(), 0);
}

TEST_F(Wall, turnsWithTheWheelAndStopsAtItsEnds) {
  addNotes(12);
  open();
  const auto turn = [&](int steps) {
    QWheelEvent event(QPointF(100, 100), wall().mapToGlobal(QPointF(100, 100)), {}, {0, 120 * steps}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&wall(), &event);
  };
  turn(3);
  EXPECT_EQ(wall().scrollOffset(), 0);
  turn(-1);
  EXPECT_GT(wall().scrollOffset(), 30);
  turn(-100);
  const double end = wall().scrollOffset();
  EXPECT_LE(wall().cardRect(11).bottom(), wall().height());
  turn(-1);
  EXPECT_EQ(wall().scrollOffset(), end);
}

}  // namespace tarnwick::test
