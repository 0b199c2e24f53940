// SPDX-License-Identifier: MIT
#include "BoardHarness.h"

#include "board/AddTaskView.h"
#include "board/AppPinChip.h"
#include "board/CaretRest.h"
#include "board/DateBlock.h"
#include "board/InkButton.h"
#include "board/PaperSwatches.h"
#include "board/TaskNoteView.h"

#include <QDir>
#include <QSignalSpy>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class Composer : public BoardHarness {
 protected:
  void compose() {
    open().showComposer();
    settle();
  }
  TaskPtr onlyNote() {
    const auto notes = desk.notes().fetchTasks();
    return notes.size() == 1 ? notes.front() : nullptr;
  }
  void stick() { key(Qt::Key_Return, Qt::ControlModifier); }
  void visit(const QString& bundleID, const QString& name) {
    desk.context.start();
    desk.workspace.activate({bundleID, 77, name});
    settle();
  }
  /// An editor comes to the front with a file of that repository.
  QString work(const QString& name, const QString& branch) {
    const QString root = desk.folder.filePath(name);
    QDir().mkpath(root);
    desk.accessibility.windows[77] = u"/w"_s;
    desk.accessibility.nodes[u"/w"_s].facts.document = root + u"/main.c"_s;
    desk.git.answers[u"-C %1 rev-parse --show-toplevel"_s.arg(root)] = root;
    desk.git.answers[u"-C %1 branch --show-current"_s.arg(root)] = branch;
    visit(u"com.sublimetext.4"_s, u"Editor"_s);
    desk.time.advance(1s);
    return root;
  }
};

}  // namespace

TEST_F(Composer, sticksANoteToTheDesktopAndHidesTheBoard) {
  compose();
  EXPECT_TRUE(form().text().hasFocus());
  EXPECT_FALSE(button(u"Stick Note"_s) ? button(u"Stick Note"_s)->isEnabled() : true);
  type(u"  Ring Ola "_s);
  stick();
  const auto note = onlyNote();
  ASSERT_TRUE(note);
  const auto stored = desk.stored(note->id());
  ASSERT_TRUE(stored);
  EXPECT_EQ(stored->text, u"Ring Ola"_s);
  EXPECT_EQ(stored->colorHex, u"#FFE169"_s);
  EXPECT_EQ(stored->boardRaw, u"General"_s);
  EXPECT_FALSE(stored->isPrivate);
  EXPECT_TRUE(desk.torn.isOpen(note->id()));
  EXPECT_EQ(desk.torn.nearRects[note->id()], desk.torn.board);
  EXPECT_EQ(desk.torn.boardHides, 1);
  EXPECT_EQ(desk.audio.log.filter(u"play stick"_s).size(), 1);
  EXPECT_EQ(open().viewState(), ContentView::ViewState::list);
}

TEST_F(Composer, refusesBlankTextWhateverAsksForIt) {
  compose();
  type(u"   "_s);
  key(Qt::Key_Return);
  stick();
  auto* button = this->button(u"Stick Note"_s);
  ASSERT_TRUE(button);
  EXPECT_FALSE(button->isEnabled());
  EXPECT_FALSE(onlyNote());
  EXPECT_EQ(open().viewState(), ContentView::ViewState::add);
  type(u"x"_s);
  EXPECT_TRUE(button->isEnabled());
}

TEST_F(Composer, writesEveryOptionThatWasChosen) {
  visit(u"org.term"_s, u"Terminal"_s);
  compose();
  type(u"Note"_s);
  auto& colors = *form().findChild<ColorSwatches*>();
  QTest::mouseClick(&colors, Qt::LeftButton, {}, colors.itemRect(4).center().toPoint());
  auto& themes = *form().findChild<ThemeChips*>();
  QTest::mouseClick(&themes, Qt::LeftButton, {}, themes.itemRect(2).center().toPoint());
  choose(form().repeatChip(), u"Every week"_s);
  choose(form().stampChip(), u"IDEA"_s);
  QTest::mouseClick(&form().appChip(), Qt::LeftButton);
  QTest::mouseClick(&form().privateChip(), Qt::LeftButton);
  EXPECT_TRUE(form().text().hasFocus()) << "options leave the keyboard with the text";
  stick();
  const auto note = onlyNote();
  ASSERT_TRUE(note);
  const auto& record = note->record();
  EXPECT_EQ(record.colorHex, u"#4CC9F0"_s);
  EXPECT_EQ(record.paperThemeRaw, u"lined"_s);
  EXPECT_EQ(record.recurrenceRaw, u"weekly"_s);
  EXPECT_EQ(desk.local(record.dueDate), u"2026-03-03 09:00"_s);
  EXPECT_EQ(record.stampRaw, u"idea"_s);
  EXPECT_EQ(record.pinnedBundleID, u"org.term"_s);
  EXPECT_EQ(record.isPrivate, true);
}

TEST_F(Composer, startsWithTheTextureOfTheSettings) {
  (void)desk.defaults.setText(keys::kDefaultPaperTheme, u"graph"_s);
  compose();
  EXPECT_EQ(form().findChild<ThemeChips*>()->theme(), PaperTheme::graph);
}

TEST_F(Composer, picksADateFromTheBlock) {
  compose();
  type(u"Note"_s);
  auto& due = form().dueChip();
  EXPECT_EQ(due.text(), u"Due Date"_s);
  due.setFocus();
  key(Qt::Key_Space);
  ASSERT_TRUE(form().isDateBlockOpen());
  key(Qt::Key_Right);  // Wednesday, 4 March
  key(Qt::Key_Down);   // Wednesday, 11 March
  key(Qt::Key_Return);
  EXPECT_FALSE(form().isDateBlockOpen());
  EXPECT_TRUE(due.hasFocus());
  EXPECT_TRUE(due.text().startsWith(u"Mar 11, "_s)) << due.text().toStdString();
  EXPECT_EQ(desk.local(form().draft().dueDate), u"2026-03-11 10:00"_s);
  QTest::mouseClick(&due, Qt::LeftButton, {}, QPoint(due.width() - 14, 18));
  EXPECT_FALSE(form().draft().dueDate);
  EXPECT_EQ(due.text(), u"Due Date"_s);
}

TEST_F(Composer, showsADateWithoutATimeAsThat) {
  const auto task = desk.add(u"Bill"_s, [&](auto& r) { r.dueDate = desk.at(u"2026-03-04T00:00:00"_s); });
  open().showEditor(task);
  EXPECT_EQ(form().dueChip().text(), u"Mar 4"_s);
}

TEST_F(Composer, clearsTheDateFromTheBlock) {
  compose();
  QTest::mouseClick(&form().dueChip(), Qt::LeftButton, {}, QPoint(20, 18));
  EXPECT_TRUE(form().draft().dueDate);
  click(u"Clear due date"_s);
  EXPECT_FALSE(form().isDateBlockOpen());
  EXPECT_FALSE(form().draft().dueDate);
}

TEST_F(Composer, escapeClosesTheDateBlockBeforeTheComposer) {
  compose();
  QTest::mouseClick(&form().dueChip(), Qt::LeftButton, {}, QPoint(20, 18));
  key(Qt::Key_Escape);
  EXPECT_FALSE(form().isDateBlockOpen());
  EXPECT_EQ(open().viewState(), ContentView::ViewState::add);
  key(Qt::Key_Escape);
  EXPECT_EQ(open().viewState(), ContentView::ViewState::list);
  EXPECT_FALSE(onlyNote());
}

TEST_F(Composer, saysWhatThePinWouldDo) {
  compose();
  EXPECT_EQ(form().appChip().toolTip(), u"Switch to an app first, then pin a note to it"_s);
  visit(u"org.term"_s, u"Terminal"_s);
  EXPECT_EQ(form().appChip().text(), u"Terminal"_s);
  EXPECT_EQ(form().appChip().toolTip(), u"Show this note only while Terminal is in front, docked to its window"_s);
}

TEST_F(Composer, offersTheRepositoryInFrontBesideTheApplication) {
  const auto root = work(u"parser"_s, u"trunk"_s);
  compose();
  type(u"Rebase"_s);
  auto& chip = form().appChip();
  EXPECT_EQ(chip.toolTip(), u"Show this note only while Editor is in front, docked to its window\n"
                            "Or pin it to the repository parser (%1)"_s.arg(root));
  choose(chip, u"Repository parser (%1)"_s.arg(root));
  EXPECT_EQ(chip.text(), u"parser"_s);
  choose(chip, u"Editor"_s);
  EXPECT_EQ(chip.text(), u"parser · Editor"_s);
  choose(chip, u"Editor"_s);
  stick();
  const auto note = onlyNote();
  ASSERT_TRUE(note);
  EXPECT_EQ(note->record().gitRepoPath, root);
  EXPECT_EQ(note->record().gitBranch, u"trunk"_s);
  EXPECT_EQ(note->record().pinnedBundleID, std::nullopt);
}

TEST_F(Composer, keepsAndTakesAwayTheRepositoryOfANote) {
  const auto task = desk.add(u"pinned"_s, [](auto& r) {
    r.gitRepoPath = u"/srv/lexer"_s;
    r.gitBranch = u"side"_s;
  });
  work(u"parser"_s, u"trunk"_s);
  open().showEditor(task);
  settle();
  EXPECT_EQ(form().appChip().text(), u"lexer"_s);
  stick();
  EXPECT_EQ(task->record().gitRepoPath, u"/srv/lexer"_s);
  EXPECT_EQ(task->record().gitBranch, u"side"_s);
  open().showEditor(task);
  settle();
  choose(form().appChip(), u"Repository lexer (/srv/lexer)"_s);
  stick();
  EXPECT_EQ(desk.stored(task->id())->gitRepoPath, std::nullopt);
  EXPECT_EQ(desk.stored(task->id())->gitBranch, std::nullopt);
}

TEST_F(Composer, saysWhereThisDesktopHidesItsApplications) {
  visit(u"org.term"_s, u"Terminal"_s);
  desk.services.sight = WindowSight::SomePrograms;
  compose();
  EXPECT_TRUE(form().appChip().toolTip().endsWith(u"only apps that run through XWayland can be seen"_s));
  EXPECT_TRUE(form().appChip().isEnabled());
}

TEST_F(Composer, offersNoPinWhereNoApplicationCanBeSeen) {
  desk.services.sight = WindowSight::None;
  compose();
  EXPECT_TRUE(form().appChip().toolTip().startsWith(u"This desktop does not tell"_s));
  EXPECT_FALSE(form().appChip().isEnabled());
}

TEST_F(Composer, saysWhatPrivateMeans) {
  compose();
  auto& chip = form().privateChip();
  EXPECT_EQ(chip.toolTip(), u"Make private: hide from screen sharing, screenshots and recordings"_s);
  QTest::mouseClick(&chip, Qt::LeftButton);
  EXPECT_EQ(chip.toolTip(), u"Private: hidden from screen sharing, screenshots and recordings"_s);
}

TEST_F(Composer, turnsLinesIntoBoxesAndAddsMore) {
  compose();
  type(u"Milk"_s);
  key(Qt::Key_Return);
  type(u"Salt"_s);
  click(u"Checklist"_s);
  EXPECT_EQ(form().text().noteText(), u"- [ ] Milk\n- [ ] Salt"_s);
  EXPECT_EQ(form().text().toPlainText(), u"Milk\nSalt"_s) << "markers are shown as boxes";
  click(u"Add item"_s);
  type(u"Bread"_s);
  EXPECT_EQ(form().text().noteText(), u"- [ ] Milk\n- [ ] Salt\n- [ ] Bread"_s);
  key(Qt::Key_Return);
  type(u"Tea"_s);
  EXPECT_EQ(form().text().noteText(), u"- [ ] Milk\n- [ ] Salt\n- [ ] Bread\n- [ ] Tea"_s);
  QTest::mouseClick(form().text().viewport(), Qt::LeftButton, {}, QPoint(7, 30));
  EXPECT_EQ(form().text().noteText(), u"- [ ] Milk\n- [x] Salt\n- [ ] Bread\n- [ ] Tea"_s);
  key(Qt::Key_Return);
  key(Qt::Key_Return);
  type(u"Done"_s);
  EXPECT_TRUE(form().text().noteText().endsWith(u"- [ ] Tea\nDone"_s)) << form().text().noteText().toStdString();
}

TEST_F(Composer, letsTheCaretRestTenSecondsAfterTheLastKey) {
  compose();
  const auto isBlinking = [] { return QApplication::cursorFlashTime() > 0; };
  type(u"a"_s);
  desk.time.advance(8s);
  type(u"b"_s);
  desk.time.advance(9s);
  EXPECT_TRUE(isBlinking());
  desk.time.advance(1s);
  EXPECT_FALSE(isBlinking());
  type(u"c"_s);
  EXPECT_TRUE(isBlinking());
}

TEST_F(Composer, walksTheKeyboardRoundInOrder) {
  compose();
  type(u"x"_s);
  QStringList names;
  for (int i = 0; i < 12; ++i) {
    key(Qt::Key_Tab);
    if (form().text().hasFocus()) break;
    names << QApplication::focusWidget()->accessibleName();
  }
  EXPECT_EQ(
      names.join(u"|"_s),
      u"Checklist|Paper colour|Paper theme|Due Date|Repeat: Does not repeat|Stamp: No Stamp|Board: General|Pin to an app|Private||Cancel"_s);
}

TEST_F(Composer, editingWritesBackAndTells) {
  const auto task = desk.add(u"* [X] odd one\nplain [ ] middle"_s, [](auto& r) {
    r.isPrivate = true;
    r.recurrenceRaw = u"fortnightly"_s;
  });
  open().showEditor(task);
  settle();
  QSignalSpy told(&desk.center, &NotificationCenter::taskDidUpdate);
  QTest::mouseClick(&form().privateChip(), Qt::LeftButton);
  stick();
  EXPECT_EQ(open().viewState(), ContentView::ViewState::list);
  const auto stored = desk.stored(task->id());
  EXPECT_EQ(stored->text, u"* [X] odd one\nplain [ ] middle"_s) << "what was not touched stays to the letter";
  EXPECT_FALSE(stored->isPrivate);
  EXPECT_EQ(stored->recurrenceRaw, u"fortnightly"_s);
  ASSERT_EQ(told.size(), 1);
  EXPECT_EQ(told[0][0].toUuid(), task->id());
}

TEST_F(Composer, anEmptiedNoteStaysOpenAndUnwritten) {
  const auto task = desk.add(u"keep me"_s);
  open().showEditor(task);
  settle();
  form().text().selectAll();
  key(Qt::Key_Delete);
  click(u"Save"_s);
  EXPECT_EQ(open().viewState(), ContentView::ViewState::edit);
  EXPECT_EQ(task->text(), u"keep me"_s);
  key(Qt::Key_Escape);
  EXPECT_EQ(desk.stored(task->id())->text, u"keep me"_s);
}

TEST_F(Composer, losesNothingThatWasTypedWhenItCannotBeSaved) {
  const auto task = desk.add(u"old"_s);
  open().showEditor(task);
  settle();
  type(u" and new"_s);
  desk.refuseWrites();
  for (const auto& button : {u"Save"_s, u"Tear off"_s}) {
    click(button);
    EXPECT_EQ(open().viewState(), ContentView::ViewState::edit);
    EXPECT_EQ(form().text().noteText(), u"old and new"_s);
    EXPECT_EQ(task->text(), u"old"_s);
    EXPECT_FALSE(desk.torn.isOpen(task->id()));
  }
  desk.allowWrites();
  click(u"Save"_s);
  EXPECT_EQ(desk.stored(task->id())->text, u"old and new"_s);
  EXPECT_EQ(open().viewState(), ContentView::ViewState::list);

  compose();
  type(u"fresh"_s);
  desk.refuseWrites();
  stick();
  EXPECT_EQ(open().viewState(), ContentView::ViewState::add);
  EXPECT_EQ(form().text().noteText(), u"fresh"_s);
  EXPECT_TRUE(desk.torn.open.empty());
  desk.allowWrites();
  stick();
  EXPECT_EQ(desk.torn.open.size(), 1u);
}

TEST_F(Composer, keepsTheApplicationThatANoteIsPinnedTo) {
  const auto task = desk.add(u"pinned"_s, [](auto& r) { r.pinnedBundleID = u"org.mail"_s; });
  visit(u"org.term"_s, u"Terminal"_s);
  open().showEditor(task);
  settle();
  EXPECT_EQ(form().appChip().text(), u"org.mail"_s);
  stick();
  EXPECT_EQ(task->record().pinnedBundleID, u"org.mail"_s);
}

TEST_F(Composer, tearsOffWhatWasEdited) {
  const auto task = desk.add(u"old"_s);
  open().showEditor(task);
  settle();
  form().text().selectAll();
  type(u"new"_s);
  click(u"Tear off"_s);
  EXPECT_EQ(desk.stored(task->id())->text, u"new"_s);
  EXPECT_TRUE(desk.torn.isOpen(task->id()));
  EXPECT_FALSE(desk.torn.nearRects[task->id()]);
  EXPECT_EQ(open().viewState(), ContentView::ViewState::list);
}

}  // namespace tarnwick::test
