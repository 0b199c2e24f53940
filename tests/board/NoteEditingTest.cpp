// SPDX-License-Identifier: MIT
#include "board/NoteEditing.h"

#include "support/Desk.h"

#include <QSignalSpy>

namespace tarnwick::test {

namespace {

using namespace Qt::StringLiterals;

const RunningApplication kEditor{u"org.gnome.TextEditor"_s, 42, u"Text Editor"_s, false, true};
const RunningApplication kBrowser{u"firefox"_s, 43, u"Firefox"_s, false, true};
const RunningApplication kNameless{QString(), 44, u"xclock"_s, false, true};

class NoteEditing : public testing::Test {
 protected:
  [[nodiscard]] NoteDraft draft(const QString& text) const {
    auto made = NoteDraft::forNewNote(desk.defaults);
    made.text = text;
    return made;
  }
  TaskPtr create(const NoteDraft& from, const NoteExtras& extras = {}) {
    auto created = tarnwick::NoteEditing(desk.services).create(from, extras);
    EXPECT_TRUE(created.isOk());
    return created.isOk() ? created.value() : nullptr;
  }
  /// Saves a changed draft of the note.
  bool save(const TaskPtr& task, const std::function<void(NoteDraft&)>& change, const NoteExtras& extras = {}) {
    auto edited = NoteDraft::of(*task);
    change(edited);
    const auto saved = tarnwick::NoteEditing(desk.services).save(*task, edited, extras);
    return saved.isOk() && saved.value();
  }
  void bringForward(const RunningApplication& application) {
    desk.context.start();
    desk.workspace.activate(application);
  }

  Desk desk;
};

}  // namespace

TEST_F(NoteEditing, refusesBlankTextWithoutATrace) {
  for (const auto& text : {u""_s, u"  \n\t\r\n "_s, u"\u00a0\u2028"_s}) {
    EXPECT_TRUE(draft(text).isEmpty());
    EXPECT_EQ(create(draft(text)), nullptr);
  }
  EXPECT_TRUE(desk.notes().fetchTasks().empty());
  EXPECT_TRUE(desk.audio.log.isEmpty());
  EXPECT_TRUE(desk.haptics.performed.empty());
}

TEST_F(NoteEditing, writesEveryFieldOfANewNote) {
  desk.time.setLocal(u"2026-03-03T10:00:00.123"_s);
  const auto task = create(draft(u"  Buy milk \n"_s));
  ASSERT_TRUE(task);
  TaskRecord expected;
  expected.id = task->id();
  expected.text = u"Buy milk"_s;
  expected.colorHex = u"#FFE169"_s;
  expected.isBurned = false;
  expected.createdAt = desk.time.now();
  expected.tagRaw = u"none"_s;
  expected.paperThemeRaw = u"plain"_s;
  expected.stampRaw = u"none"_s;
  expected.isTornOff = false;
  expected.boardRaw = u"General"_s;
  expected.isDaily3 = false;
  expected.isNorthStar = false;
  expected.focusSeconds = 0;
  EXPECT_FALSE(expected.isPrivate);
  EXPECT_EQ(task->record(), expected);
  EXPECT_EQ(desk.stored(task->id()), expected);
}

TEST_F(NoteEditing, soundsAndTapsOncePerNewNote) {
  create(draft(u"a"_s));
  EXPECT_EQ(desk.audio.log.filter(u"play stick"_s).size(), 1);
  EXPECT_EQ(desk.haptics.performed, std::vector{HapticPattern::Generic});
}

TEST_F(NoteEditing, startsFromTheSetPaperThemeAndFromPlainForAnUnknownOne) {
  ASSERT_TRUE(desk.defaults.setText(keys::kDefaultPaperTheme, u"graph"_s).isOk());
  EXPECT_EQ(create(draft(u"a"_s))->record().paperThemeRaw, u"graph"_s);
  ASSERT_TRUE(desk.defaults.setText(keys::kDefaultPaperTheme, u"velvet"_s).isOk());
  EXPECT_EQ(create(draft(u"a"_s))->record().paperThemeRaw, u"plain"_s);
}

TEST_F(NoteEditing, givesARepeatWithoutADateNineOClockToday) {
  struct Row {
    QString now;
    QString rule;
    QString due;
  };
  const Row rows[] = {
      {u"2026-03-03T10:00:00"_s, u"daily"_s, u"2026-03-03 09:00"_s},
      {u"2026-03-03T00:00:00"_s, u"weekly"_s, u"2026-03-03 09:00"_s},
      {u"2026-03-29T23:59:59"_s, u"monthly"_s, u"2026-03-29 09:00"_s},
      {u"2026-03-03T10:00:00"_s, u"none"_s, u"none"_s},
  };
  for (const auto& row : rows) {
    desk.time.setLocal(row.now);
    auto from = draft(u"a"_s);
    from.recurrenceRaw = row.rule;
    EXPECT_EQ(desk.local(create(from)->dueDate()), row.due) << row.rule.toStdString();
  }
}

TEST_F(NoteEditing, keepsTheChosenDateOfARepeatingNote) {
  auto from = draft(u"a"_s);
  from.recurrenceRaw = u"daily"_s;
  from.dueDate = desk.at(u"2026-04-01T18:30:00"_s);
  EXPECT_EQ(desk.local(create(from)->dueDate()), u"2026-04-01 18:30");
  EXPECT_EQ(desk.notifications.requests.size(), 3u) << "reminders come with the note";
}

TEST_F(NoteEditing, pinsToTheLastOtherApplicationIfThereIsOne) {
  auto from = draft(u"a"_s);
  from.isPinnedToApp = true;
  EXPECT_FALSE(create(from)->record().pinnedBundleID);
  bringForward(kEditor);
  EXPECT_EQ(create(from)->record().pinnedBundleID, kEditor.bundleID);
  desk.workspace.activate(kNameless);
  EXPECT_FALSE(create(from)->record().pinnedBundleID);
}

TEST_F(NoteEditing, storesPrivacyOnlyWhenItIsOn) {
  auto from = draft(u"a"_s);
  from.isPrivate = true;
  const auto task = create(from);
  EXPECT_EQ(task->record().isPrivate, true);
  EXPECT_TRUE(save(task, [](NoteDraft& d) { d.isPrivate = false; }));
  EXPECT_FALSE(task->record().isPrivate.has_value());
}

TEST_F(NoteEditing, leavesNothingBehindWhenANewNoteCannotBeSaved) {
  desk.refuseWrites();
  const auto created = tarnwick::NoteEditing(desk.services).create(draft(u"a"_s));
  EXPECT_FALSE(created.isOk());
  EXPECT_TRUE(desk.notes().fetchTasks().empty());
  EXPECT_TRUE(desk.audio.log.isEmpty());
  desk.allowWrites();
  EXPECT_TRUE(desk.notes().save().isOk());
  EXPECT_TRUE(desk.notes().fetchTasks().empty());
}

TEST_F(NoteEditing, putsANewNoteOntoTheDesktopBesideTheBoardAndHidesTheBoard) {
  const auto task = create(draft(u"a"_s));
  tarnwick::NoteEditing(desk.services).stick(task);
  EXPECT_TRUE(desk.torn.isOpen(task->id()));
  EXPECT_EQ(desk.torn.nearRects[task->id()], desk.torn.board);
  EXPECT_EQ(desk.torn.boardHides, 1);
}

TEST_F(NoteEditing, writesAnEditBackAndTells) {
  const auto task = desk.add(u"old"_s);
  desk.audio.log.clear();
  QSignalSpy told(&desk.center, &NotificationCenter::taskDidUpdate);
  EXPECT_TRUE(save(task, [&](NoteDraft& d) {
    d.text = u"\n new  text "_s;
    d.colorHex = u"#3A86FF"_s;
    d.paperTheme = PaperTheme::parchment;
    d.stamp = TaskStamp::idea;
    d.board = u"Work"_s;
    d.dueDate = desk.at(u"2026-03-04T09:00:00"_s);
    d.recurrenceRaw = u"weekly"_s;
  }));
  const auto record = desk.stored(task->id());
  ASSERT_TRUE(record);
  EXPECT_EQ(record->text, u"new  text");
  EXPECT_EQ(record->colorHex, u"#3A86FF");
  EXPECT_EQ(record->paperThemeRaw, u"parchment"_s);
  EXPECT_EQ(record->stampRaw, u"idea"_s);
  EXPECT_EQ(record->boardRaw, u"Work"_s);
  EXPECT_EQ(desk.local(record->dueDate), u"2026-03-04 09:00");
  EXPECT_EQ(record->recurrenceRaw, u"weekly");
  ASSERT_EQ(told.size(), 1);
  EXPECT_EQ(told[0][0].value<QUuid>(), task->id());
  EXPECT_EQ(desk.audio.log.filter(u"play stick"_s).size(), 1);
}

TEST_F(NoteEditing, writesNothingForABlankEdit) {
  const auto task = desk.add(u"old"_s);
  const auto before = task->record();
  QSignalSpy told(&desk.center, &NotificationCenter::taskDidUpdate);
  EXPECT_FALSE(save(task, [](NoteDraft& d) {
    d.text = u" \n"_s;
    d.board = u"Work"_s;
  }));
  EXPECT_EQ(task->record(), before);
  EXPECT_EQ(told.size(), 0);
}

TEST_F(NoteEditing, clearsTheDateOnlyWhenDueIsOff) {
  const auto task = desk.add(u"a"_s, [&](auto& r) { r.dueDate = desk.at(u"2026-03-04T09:00:00"_s); });
  EXPECT_TRUE(save(task, [](NoteDraft&) {}));
  EXPECT_TRUE(task->dueDate());
  EXPECT_TRUE(save(task, [](NoteDraft& d) { d.dueDate.reset(); }));
  EXPECT_FALSE(task->dueDate());
}

TEST_F(NoteEditing, keepsTheFirstApplicationOfAPinnedNote) {
  const auto task = desk.add(u"a"_s, [](auto& r) { r.pinnedBundleID = kEditor.bundleID; });
  bringForward(kBrowser);
  EXPECT_TRUE(save(task, [](NoteDraft&) {}));
  EXPECT_EQ(task->record().pinnedBundleID, kEditor.bundleID);
  EXPECT_TRUE(save(task, [](NoteDraft& d) { d.isPinnedToApp = false; }));
  EXPECT_FALSE(task->record().pinnedBundleID);
  EXPECT_TRUE(save(task, [](NoteDraft& d) { d.isPinnedToApp = true; }));
  EXPECT_EQ(task->record().pinnedBundleID, kBrowser.bundleID);
}

TEST_F(NoteEditing, restoresANoteWhoseEditCannotBeSaved) {
  const auto task = desk.add(u"old"_s);
  const auto before = task->record();
  QSignalSpy told(&desk.center, &NotificationCenter::taskDidUpdate);
  desk.refuseWrites();
  EXPECT_FALSE(save(task, [](NoteDraft& d) { d.text = u"new"_s; }));
  EXPECT_EQ(task->record(), before);
  EXPECT_EQ(told.size(), 0);
  desk.allowWrites();
  EXPECT_TRUE(desk.notes().save().isOk());
  EXPECT_EQ(desk.stored(task->id()), before);
}

TEST_F(NoteEditing, doesNotBringBackANoteThatIsGone) {
  const auto task = desk.add(u"old"_s);
  desk.notes().remove(task);
  ASSERT_TRUE(desk.notes().save().isOk());
  QSignalSpy told(&desk.center, &NotificationCenter::taskDidUpdate);
  EXPECT_FALSE(save(task, [](NoteDraft& d) { d.text = u"new"_s; }));
  EXPECT_TRUE(desk.notes().fetchTasks().empty());
  EXPECT_EQ(told.size(), 0);
}

TEST_F(NoteEditing, keepsToTheLetterWhatWasNotNamed) {
  const auto task = desk.add(u" spaced "_s, [](auto& r) {
    r.paperThemeRaw = u"velvet"_s;
    r.recurrenceRaw = u"yearly"_s;
    r.isPrivate = false;
    r.tagRaw = u"mauve"_s;
  });
  auto expected = task->record();
  expected.stampRaw = u"star"_s;
  NoteExtras extras;
  extras.unchanged = NoteExtras::Unchanged::Keep;
  EXPECT_TRUE(save(task, [](NoteDraft& d) { d.stamp = TaskStamp::star; }, extras));
  EXPECT_EQ(task->record(), expected);
}

TEST_F(NoteEditing, clearsAFieldByAnEmptyExtra) {
  const auto task = desk.add(u"a"_s, [](auto& r) {
    r.gitRepoPath = u"/repo"_s;
    r.gitBranch = u"main"_s;
  });
  NoteExtras extras;
  extras.gitRepoPath = u"/other"_s;
  extras.gitBranch = QString();
  EXPECT_TRUE(save(task, [](NoteDraft&) {}, extras));
  EXPECT_EQ(task->record().gitRepoPath, u"/other"_s);
  EXPECT_FALSE(task->record().gitBranch);
}

}  // namespace tarnwick::test
