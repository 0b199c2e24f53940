// SPDX-License-Identifier: MIT
// What the user does on the paper of a note on the desktop.
#include "ShellWorld.h"
#include "board/ChecklistEdit.h"
#include "shell/NoteEditPlate.h"

#include <QSignalSpy>
#include <QApplication>

namespace tarnwick::test {
namespace {

class TornNote : public ShellWorld {
 protected:
  TornStickyNoteView& view(const TaskPtr& task) { return torn(task).noteView(); }
  QAbstractButton& button(QWidget& root, const QString& name) {
    for (auto* candidate : root.findChildren<QAbstractButton*>()) {
      if (candidate->accessibleName() == name && candidate->isVisible()) return *candidate;
    }
    throw std::runtime_error("no visible button is named " + name.toStdString());
  }
  void click(QWidget& root, const char* name) { QTest::mouseClick(&button(root, QString::fromUtf8(name)), Qt::LeftButton); }
  /// Types over what the open editor holds.
  void type(TornStickyNoteView& view, const QString& text) {
    view.editPlate().editor().selectAll();
    view.editPlate().editor().insertPlainText(text);
  }
};

TEST_F(TornNote, isEditedInPlace) {
  const auto task = note();
  auto& view = this->view(task);
  QSignalSpy told(&center, &NotificationCenter::taskDidUpdate);
  click(view, "Edit");
  EXPECT_TRUE(view.isEditing());
  EXPECT_EQ(view.editPlate().draft(), QStringLiteral("Book the ferry"));
  type(view, QStringLiteral("  Book the train \n"));
  click(view, "Save");
  EXPECT_FALSE(view.isEditing());
  EXPECT_EQ(task->text(), QStringLiteral("Book the train"));
  ASSERT_EQ(told.count(), 1);
  EXPECT_EQ(told[0][0].value<QUuid>(), task->id());
}

TEST_F(TornNote, blankTextIsNotSavedAndStaysOpen) {
  const auto task = note();
  auto& view = this->view(task);
  view.beginEditing();
  type(view, QStringLiteral(" \n\t "));
  view.saveEdit();
  EXPECT_TRUE(view.isEditing());
  EXPECT_FALSE(view.hasSaveError());
  EXPECT_EQ(task->text(), QStringLiteral("Book the ferry"));
}

TEST_F(TornNote, aFailedSaveRollsBackAndKeepsTheDraft) {
  const auto task = note();
  auto& view = this->view(task);
  QSignalSpy told(&center, &NotificationCenter::taskDidUpdate);
  view.beginEditing();
  type(view, QStringLiteral("Book the train"));
  breakStore();
  view.saveEdit();
  EXPECT_TRUE(view.isEditing());
  EXPECT_TRUE(view.hasSaveError());
  EXPECT_EQ(task->text(), QStringLiteral("Book the ferry"));
  EXPECT_EQ(view.editPlate().draft(), QStringLiteral("Book the train"));
  EXPECT_EQ(told.count(), 0);
  const auto labels = view.findChildren<QWidget*>();
  EXPECT_TRUE(std::ranges::any_of(labels, [](const QWidget* widget) {
    return widget->isVisible() && widget->accessibleName() == QStringLiteral("Couldn’t save. Try again.");
  }));
  // Opened anew the failure is forgotten and the draft is the note's text.
  click(view, "Cancel");
  view.beginEditing();
  EXPECT_FALSE(view.hasSaveError());
  EXPECT_EQ(view.editPlate().draft(), QStringLiteral("Book the ferry"));
}

TEST_F(TornNote, escapeLeavesTheTextAndCommandReturnSavesIt) {
  const auto task = note();
  auto& view = this->view(task);
  view.beginEditing();
  type(view, QStringLiteral("other"));
  QTest::keyClick(&view.editPlate().editor(), Qt::Key_Escape);
  EXPECT_FALSE(view.isEditing());
  EXPECT_EQ(task->text(), QStringLiteral("Book the ferry"));
  for (const auto command : {Qt::ControlModifier, Qt::MetaModifier}) {
    view.beginEditing();
    type(view, command == Qt::ControlModifier ? QStringLiteral("one") : QStringLiteral("two"));
    QTest::keyClick(&view.editPlate().editor(), Qt::Key_Return, command);
    EXPECT_FALSE(view.isEditing());
  }
  EXPECT_EQ(task->text(), QStringLiteral("two"));
}

TEST_F(TornNote, linesBecomeCheckboxes) {
  const auto task = note();
  auto& view = this->view(task);
  view.beginEditing();
  type(view, QStringLiteral("jars\n\nlids"));
  click(view, "Turn lines into checkboxes");
  EXPECT_EQ(view.editPlate().draft(), QStringLiteral("- [ ] jars\n- [ ] lids"));
}

TEST_F(TornNote, aTextWithoutBoxesOpensOnADoubleClick) {
  auto& view = this->view(note());
  QTest::mouseDClick(view.window()->windowHandle(), Qt::LeftButton, {}, QPoint(60, 50));
  EXPECT_TRUE(view.isEditing());
}

TEST_F(TornNote, theCaretStandsStillTenSecondsAfterTheLastKey) {
  auto& view = this->view(note());
  const int flashing = QApplication::cursorFlashTime();
  view.window()->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(view.window()));
  view.beginEditing();
  pass(9s);
  QTest::keyClick(&view.editPlate().editor(), Qt::Key_A);
  pass(9s);
  EXPECT_EQ(QApplication::cursorFlashTime(), flashing);
  pass(2s);
  EXPECT_EQ(QApplication::cursorFlashTime(), 0);
  QTest::keyClick(&view.editPlate().editor(), Qt::Key_A);
  EXPECT_EQ(QApplication::cursorFlashTime(), flashing);
  pass(11s);
  view.cancelEdit();
  EXPECT_EQ(QApplication::cursorFlashTime(), flashing);
}

TEST_F(TornNote, boxesAreTickedByTheKeyboardToo) {
  const auto task = note([](TaskRecord& record) { record.text = QStringLiteral("Shop\n- [ ] jars\n- [x] lids"); });
  auto& view = this->view(task);
  QWidget* words = nullptr;
  for (auto* child : view.findChildren<QWidget*>()) {
    if (child->accessibleName().startsWith(QStringLiteral("Shop"))) words = child;
  }
  ASSERT_TRUE(words);
  for (const auto key : {Qt::Key_Down, Qt::Key_Space}) QTest::keyClick(words, key);
  EXPECT_EQ(task->text(), QStringLiteral("Shop\n- [x] jars\n- [x] lids"));
  for (const auto key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Space}) QTest::keyClick(words, key);
  EXPECT_EQ(task->text(), QStringLiteral("Shop\n- [x] jars\n- [ ] lids"));
  QTest::keyClick(words, Qt::Key_Return);
  EXPECT_TRUE(view.isEditing());
}

TEST_F(TornNote, toolsChangeTheNoteAndSaveIt) {
  const auto task = note();
  auto& view = this->view(task);
  QSignalSpy saves(container.get(), &ModelContainer::didSave);
  click(view, "Change colour");
  EXPECT_EQ(task->colorHex(), QStringLiteral("#FF7597"));
  EXPECT_EQ(sounds(QStringLiteral("stick")), 1);
  click(view, "Add to daily three");
  EXPECT_TRUE(task->isDaily3());
  EXPECT_EQ(sounds(QStringLiteral("stick")), 2);
  click(view, "Private");
  EXPECT_TRUE(task->isPrivate());
  EXPECT_EQ(saves.count(), 3);
  click(view, "Put back on board");
  time.settle();
  EXPECT_FALSE(board().isOpen(task->id()));
  EXPECT_FALSE(task->isTornOff());
}

TEST_F(TornNote, showsWhatTheBoardChanged) {
  const auto task = note();
  auto& view = this->view(task);
  task->set(&TaskRecord::text, QStringLiteral("Book two ferries"));
  ASSERT_TRUE(container->mainContext().save());
  EXPECT_EQ(view.face().text, QStringLiteral("Book two ferries"));
}

TEST_F(TornNote, itsDateTurnsOverdueByItselfAndChangesAtMidnight) {
  const auto task = note([this](TaskRecord& record) { record.dueDate = time.now().addSecs(3600); });
  auto& view = this->view(task);
  EXPECT_EQ(view.face().due->text, QStringLiteral("Today"));
  EXPECT_FALSE(view.face().due->isOverdue);
  pass(3601s);
  EXPECT_TRUE(view.face().due->isOverdue);
  pass(14h);
  EXPECT_EQ(view.face().due->text, QStringLiteral("Mar 3"));
}

// --- Crushing ---

class TornCrush : public TornNote {};

TEST_F(TornCrush, fliesFromItsWindowAndCompletesWhenItLands) {
  const auto task = note();
  auto& note = torn(task);
  const auto frame = note.frame();
  QSignalSpy done(&center, &NotificationCenter::crushDidComplete);
  click(note.noteView(), "Crush note");
  EXPECT_EQ(sounds(QStringLiteral("crush")), 1);
  EXPECT_EQ(haptics.performed.size(), 1u);
  ASSERT_EQ(flight.plays.size(), 1u);
  EXPECT_EQ(flight.plays[0].from, frame);
  EXPECT_EQ(window(note).opacity, 0);
  EXPECT_FALSE(task->isCompleted());
  flight.land();
  time.settle();
  EXPECT_TRUE(task->isCompleted());
  EXPECT_FALSE(task->isTornOff());
  EXPECT_FALSE(board().isOpen(task->id()));
  EXPECT_EQ(done.count(), 1);
  ASSERT_TRUE(undo.last);
  EXPECT_TRUE(undo.last->wasTornOff);
}

TEST_F(TornCrush, aRepeatingNoteGoesButStaysTornOff) {
  const auto task = note([this](TaskRecord& record) {
    record.dueDate = time.now().addDays(-3);
    record.recurrenceRaw = QStringLiteral("daily");
  });
  auto& note = torn(task);
  note.noteView().crush();
  flight.land();
  time.settle();
  EXPECT_FALSE(task->isCompleted());
  EXPECT_TRUE(task->isTornOff());
  EXPECT_FALSE(board().isOpen(task->id()));
}

TEST_F(TornCrush, aSecondRequestTakesItBackAndTheNoteFadesIn) {
  const auto task = note();
  auto& note = torn(task);
  note.noteView().crush();
  EXPECT_EQ(window(note).opacity, 0);
  note.noteView().crush();
  pass(100ms);
  EXPECT_GT(window(note).opacity, 0.3);
  pass(150ms);
  EXPECT_EQ(window(note).opacity, 1);
  flight.land();
  EXPECT_FALSE(task->isCompleted());
  EXPECT_TRUE(board().isOpen(task->id()));
}

TEST_F(TornCrush, isShreddedInPlaceForASecond) {
  setText(keys::kCompletionEffect, QStringLiteral("shred"));
  const auto task = note();
  auto& note = torn(task);
  note.noteView().crush();
  EXPECT_TRUE(flight.plays.empty());
  pass(990ms);
  EXPECT_FALSE(task->isCompleted());
  EXPECT_EQ(window(note).opacity, 1);
  pass(20ms);
  EXPECT_TRUE(task->isCompleted());
  EXPECT_FALSE(board().isOpen(task->id()));
  EXPECT_EQ(time.repeatingCount(), 0);
}

TEST_F(TornCrush, aShredCanBeTakenBack) {
  setText(keys::kCompletionEffect, QStringLiteral("shred"));
  const auto task = note();
  auto& note = torn(task);
  note.noteView().crush();
  pass(500ms);
  note.noteView().crush();
  pass(2s);
  EXPECT_FALSE(task->isCompleted());
  EXPECT_TRUE(board().isOpen(task->id()));
  EXPECT_EQ(time.repeatingCount(), 0);
}

TEST_F(TornCrush, withReducedMotionItIsDoneAtOnce) {
  workspace.hasReducedMotion = true;
  const auto task = note();
  torn(task).noteView().crush();
  EXPECT_TRUE(flight.plays.empty());
  pass(140ms);
  EXPECT_FALSE(task->isCompleted());
  pass(20ms);
  EXPECT_TRUE(task->isCompleted());
}

TEST_F(TornCrush, aWindowThatClosesTakesItsCrushAlong) {
  const auto task = note();
  torn(task).noteView().crush();
  board().closePanel(task->id());
  time.settle();
  flight.land();
  EXPECT_FALSE(task->isCompleted());
}

TEST_F(TornCrush, aGhostStaysOutOfSightWhileItFlies) {
  setText(keys::kNoteDisplayMode, QStringLiteral("mouseThrough"));
  auto& note = torn(this->note());
  note.noteView().crush();
  otherWindows.pointerState.position = {5, 5};
  pass(400ms);
  EXPECT_EQ(window(note).opacity, 0);
}

}  // namespace
}  // namespace tarnwick::test
