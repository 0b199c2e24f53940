// SPDX-License-Identifier: MIT
#include "app/CommandDesk.h"
#include "app/commands/NoteText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>

namespace tarnwick::test {

using namespace Qt::StringLiterals;

using NoteCommands = CommandDesk;

TEST_F(NoteCommands, addANoteAsTheComposerDoes) {
  ASSERT_TRUE(desk.defaults.setText(keys::kDefaultPaperTheme, u"lined"_s).isOk());
  const QString output = done({u"add"_s, u"  Buy milk\n"_s});
  const auto task = only();
  EXPECT_EQ(output, idOf(task) + u'\n');
  EXPECT_EQ(task->text(), u"Buy milk");
  EXPECT_EQ(task->record().paperThemeRaw, u"lined"_s);
  EXPECT_EQ(task->board(), u"General");
  EXPECT_EQ(desk.audio.log.filter(u"play stick"_s).size(), 1);
  EXPECT_EQ(desk.torn.nearRects[task->id()], desk.torn.board);
  EXPECT_EQ(desk.torn.boardHides, 1);
}

TEST_F(NoteCommands, addWithEveryOption) {
  folder = u"/home/ada"_s;
  desk.git.answers[u"-C /home/ada/code/src rev-parse --show-toplevel"_s] = u"/home/ada/code"_s;
  desk.git.answers[u"-C /home/ada/code branch --show-current"_s] = u"main"_s;
  done({u"add"_s, u"--board"_s, u"Work"_s, u"--color"_s, u"c77dff"_s, u"--theme"_s, u"graph"_s, u"--stamp"_s,
        u"urgent"_s, u"--tag"_s, u"blue"_s, u"--repeat"_s, u"weekdays"_s, u"--due"_s, u"2026-03-29T02:30"_s, u"--pin"_s,
        u"org.gnome.Builder"_s, u"--repo"_s, u"code/src"_s, u"--private"_s, u"--no-tear"_s, u"text"_s});
  const auto record = only()->record();
  EXPECT_EQ(record.boardRaw, u"Work"_s);
  EXPECT_EQ(record.colorHex, u"#C77DFF");
  EXPECT_EQ(record.paperThemeRaw, u"graph"_s);
  EXPECT_EQ(record.stampRaw, u"urgent"_s);
  EXPECT_EQ(record.tagRaw, u"blue"_s);
  EXPECT_EQ(record.recurrenceRaw, u"weekdays");
  EXPECT_EQ(desk.local(record.dueDate), u"2026-03-29 03:00");
  EXPECT_EQ(record.pinnedBundleID, u"org.gnome.Builder"_s);
  EXPECT_EQ(record.gitRepoPath, u"/home/ada/code"_s);
  EXPECT_EQ(record.gitBranch, u"main"_s);
  EXPECT_EQ(record.isPrivate, true);
  EXPECT_TRUE(desk.torn.open.empty());
  EXPECT_EQ(desk.stored(record.id), record);
}

TEST_F(NoteCommands, addFromStandardInput) {
  done({u"add"_s, u"-"_s}, "grüne\nTinte\n");
  EXPECT_EQ(only()->text(), u"grüne\nTinte");
}

TEST_F(NoteCommands, addAHyphenedTextAsItStands) {
  done({u"add"_s, u"--"_s, u"--tear"_s});
  EXPECT_EQ(only()->text(), u"--tear");
}

TEST_F(NoteCommands, addRefusesWrongWordsBeforeItOpensTheStore) {
  const std::vector<std::pair<QStringList, const char*>> rows{
      {{u"add"_s, u" \n "_s}, "TEXT is blank"},
      {{u"add"_s, u""_s}, "TEXT is blank"},
      {{u"add"_s, u"a"_s, u"--color"_s, u"blue"_s}, "blue is no colour of six hexadecimal digits"},
      {{u"add"_s, u"a"_s, u"--due"_s, u"soon"_s}, "soon is no date"},
      {{u"add"_s, u"a"_s, u"--theme"_s, u"Graph"_s}, "Graph is no value for --theme"},
      {{u"add"_s, u"a"_s, u"--stamp"_s, u"x"_s}, "x is no value for --stamp"},
      {{u"add"_s, u"a"_s, u"--tag"_s, u"purple"_s}, "purple is no value for --tag"},
      {{u"add"_s, u"a"_s, u"--repeat"_s, u"yearly"_s}, "yearly is no value for --repeat"},
      {{u"add"_s, u"a"_s, u"--board"_s, u" "_s}, "the value of --board is blank"},
      {{u"add"_s, u"a"_s, u"--pin="_s}, "the value of --pin is blank"},
  };
  for (const auto& [words, expected] : rows) EXPECT_EQ(fails(2, words).toStdString(), expected);
  EXPECT_EQ(fails(2, {u"add"_s, u"-"_s}, "\xff"), u"standard input is not valid UTF-8 text");
  EXPECT_EQ(fails(2, {u"add"_s, u"-"_s}, QByteArray("a\0b", 3)), u"standard input is not valid UTF-8 text");
  EXPECT_EQ(fails(2, {u"add"_s, u"-"_s}, "\n"), u"TEXT is blank");
  EXPECT_EQ(storeOpenings, 0);
}

TEST_F(NoteCommands, addNothingOutsideARepositoryOrWithoutADisk) {
  EXPECT_EQ(fails(1, {u"add"_s, u"a"_s, u"--repo"_s, u"nowhere"_s}), u"nowhere is inside no repository");
  desk.refuseWrites();
  fails(1, {u"add"_s, u"a"_s});
  EXPECT_TRUE(desk.torn.open.empty());
}

TEST_F(NoteCommands, addWaitsForASlowGit) {
  desk.git.answersAtOnce = false;
  desk.git.answers[u"-C /repo rev-parse --show-toplevel"_s] = u"/repo"_s;
  QTimer answering;
  QObject::connect(&answering, &QTimer::timeout, [&] {
    auto waiting = std::exchange(desk.git.waiting, {});
    for (const auto& answer : waiting) answer();
  });
  answering.start(0);
  done({u"add"_s, u"a"_s, u"--repo"_s, u"/repo"_s});
  EXPECT_EQ(only()->record().gitRepoPath, u"/repo"_s);
  EXPECT_FALSE(only()->record().gitBranch) << "a detached head has no branch";
}

TEST_F(NoteCommands, addAloneLeavesTheNoteOnTheBoard) {
  program = Program::Absent;
  EXPECT_EQ(fails(1, {u"add"_s, u"a"_s, u"--tear"_s}), u"--tear: not running");
  done({u"add"_s, u"a"_s});
  EXPECT_TRUE(desk.torn.open.empty());
}

TEST_F(NoteCommands, editOnlyWhatIsNamed) {
  const auto task = desk.add(u" spaced "_s, [&](auto& r) {
    r.recurrenceRaw = u"yearly"_s;
    r.paperThemeRaw = u"velvet"_s;
    r.dueDate = desk.at(u"2026-03-05T14:00:00"_s);
    r.gitRepoPath = u"/repo"_s;
    r.isPrivate = false;
  });
  QSignalSpy told(&desk.center, &NotificationCenter::taskDidUpdate);
  auto expected = task->record();
  done({u"edit"_s, idOf(task), u"--stamp"_s, u"idea"_s});
  expected.stampRaw = u"idea"_s;
  EXPECT_EQ(task->record(), expected);
  EXPECT_EQ(told.size(), 1);
  EXPECT_EQ(desk.stored(task->id()), expected);
}

TEST_F(NoteCommands, editTakesFieldsAway) {
  const auto task = desk.add(u"a"_s, [&](auto& r) {
    r.dueDate = desk.at(u"2026-03-05T14:00:00"_s);
    r.pinnedBundleID = u"firefox"_s;
    r.gitRepoPath = u"/repo"_s;
    r.gitBranch = u"main"_s;
    r.isPrivate = true;
  });
  done({u"edit"_s, idOf(task), u"--no-due"_s, u"--no-pin"_s, u"--no-repo"_s, u"--no-private"_s});
  const auto& record = task->record();
  EXPECT_FALSE(record.dueDate || record.pinnedBundleID || record.gitRepoPath || record.gitBranch || record.isPrivate);
}

TEST_F(NoteCommands, editReplacesThePinAndTheText) {
  const auto task = desk.add(u"a"_s, [](auto& r) { r.pinnedBundleID = u"firefox"_s; });
  done({u"edit"_s, idOf(task).toLower().left(8), u"--pin"_s, u"org.gnome.Maps"_s, u"--text"_s, u" new "_s});
  EXPECT_EQ(task->record().pinnedBundleID, u"org.gnome.Maps"_s);
  EXPECT_EQ(task->text(), u"new");
}

TEST_F(NoteCommands, editChangesNothingWhenItFails) {
  const auto task = desk.add(u"a"_s);
  EXPECT_EQ(fails(2, {u"edit"_s, idOf(task), u"--text"_s, u" "_s}), u"the value of --text is blank");
  EXPECT_EQ(fails(1, {u"edit"_s, u"ffff"_s, u"--text"_s, u"b"_s}), u"no note with the id ffff");
  EXPECT_EQ(fails(1, {u"edit"_s, idOf(task), u"--repo"_s, u"/none"_s}), u"/none is inside no repository");
  desk.refuseWrites();
  fails(1, {u"edit"_s, idOf(task), u"--text"_s, u"b"_s});
  desk.allowWrites();
  EXPECT_TRUE(desk.notes().save().isOk());
  EXPECT_EQ(desk.stored(task->id())->text, u"a");
}

TEST_F(NoteCommands, findANoteByABeginningOfItsIdThatIsItsOwn) {
  const auto made = [&](const char* id) {
    return desk.add(u"a"_s, [&](auto& r) { r.id = QUuid::fromString(QLatin1StringView(id)); });
  };
  const auto first = made("ABCD1234-0000-4000-8000-000000000001");
  const auto second = made("ABCD1234-0000-4000-8000-000000000002");
  const auto third = made("ABCE1234-0000-4000-8000-000000000003");
  const auto find = [&](const char* word) { return findNote(desk.notes(), QString::fromLatin1(word)); };
  EXPECT_EQ(find("abce").value(), third);
  EXPECT_EQ(find("abcd1234-0000-4000-8000-000000000002").value(), second);
  EXPECT_EQ(find("ABCD1234-0000-4000-8000-000000000001").value(), first);
  for (const char* word : {"abcd", "abc", "", "abcf", "bcd1", "{ABCE1234-0000-4000-8000-000000000003}",
                           "ABCE1234-0000-4000-8000-0000000000031"}) {
    EXPECT_FALSE(find(word)) << word;
  }
  EXPECT_EQ(fails(1, {u"show"_s, u"abcd"_s}), u"more than one note has an id that begins with abcd");
}

TEST_F(NoteCommands, listTheBoardAndTheOtherStates) {
  const auto note = [&](const QString& text, const std::function<void(TaskRecord&)>& change = {}) {
    desk.time.advance(std::chrono::seconds(1));
    return desk.add(text, change);
  };
  note(u"active"_s, [](auto& r) { r.tagRaw = u"red"_s; });
  note(u"work"_s, [](auto& r) { r.boardRaw = u"Work"_s; });
  note(u"asleep"_s, [&](auto& r) {
    r.recurrenceRaw = u"daily"_s;
    r.dueDate = desk.at(u"2026-03-04T09:00:00"_s);
  });
  note(u"finished"_s, [](auto& r) { r.isCompleted = true; });
  note(u"burned"_s, [](auto& r) {
    r.isBurned = true;
    r.boardRaw = u"Work"_s;
  });
  const auto list = [&](QStringList options) {
    const auto array = QJsonDocument::fromJson(done(QStringList{u"list"_s, u"--json"_s} + options).toUtf8()).array();
    QStringList texts;
    for (const auto& each : array) texts.append(each[u"text"].toString());
    return texts.join(u' ');
  };
  EXPECT_EQ(list({}), u"work active");
  EXPECT_EQ(list({u"--state"_s, u"active"_s, u"--board"_s, u"Work"_s}), u"work");
  EXPECT_EQ(list({u"--state"_s, u"sleeping"_s}), u"asleep");
  EXPECT_EQ(list({u"--state"_s, u"completed"_s}), u"finished");
  EXPECT_EQ(list({u"--state"_s, u"burned"_s}), u"burned");
  EXPECT_EQ(list({u"--state"_s, u"burned"_s, u"--board"_s, u"General"_s}), u"");
  EXPECT_EQ(list({u"--state"_s, u"all"_s}), u"burned finished asleep work active");
  EXPECT_EQ(list({u"--tag"_s, u"red"_s}), u"active");
  EXPECT_EQ(list({u"--tag"_s, u"none"_s}), u"work active");
  EXPECT_EQ(list({u"--search"_s, u"ORK"_s}), u"work");
  EXPECT_EQ(fails(2, {u"list"_s, u"--state"_s, u"old"_s}), u"old is no value for --state");
  EXPECT_EQ(fails(2, {u"list"_s, u"--tag"_s, u"grey"_s}), u"grey is no value for --tag");
  EXPECT_EQ(done({u"list"_s, u"--search"_s, u"nothing like it"_s}), u"");
}

TEST_F(NoteCommands, listANoteOnOneLine) {
  const auto task = desk.add(u"Call \x1b[31mAda\nabout it"_s, [&](auto& r) {
    r.boardRaw = u"Work"_s;
    r.dueDate = desk.at(u"2026-03-04T09:00:00"_s);
    r.tagRaw = u"red"_s;
  });
  EXPECT_EQ(done({u"list"_s}), idOf(task).left(8) + u"  Call \uFFFD[31mAda …  [Work, Tomorrow, red]\n"_s);
}

TEST_F(NoteCommands, showANoteWhole) {
  const auto task = desk.add(u"one\n- [x] two"_s, [&](auto& r) {
    r.id = QUuid::fromString(u"0f8e7d6c-5b4a-4938-8271-605f4e3d2c1b"_s);
    r.createdAt = desk.at(u"2026-03-01T09:00:00.007"_s);
    r.recurrenceRaw = u"yearly"_s;
    r.isTornOff = false;
    r.focusSeconds = 90;
  });
  EXPECT_EQ(done({u"show"_s, u"0F8E"_s, u"--json"_s}),
            u"{\"id\": \"0F8E7D6C-5B4A-4938-8271-605F4E3D2C1B\", \"text\": \"one\\n- [x] two\", "
            "\"colorHex\": \"#FFE169\", \"recurrence\": \"yearly\", \"isCompleted\": false, "
            "\"createdAt\": \"2026-03-01T09:00:00.007+01:00\", \"isTornOff\": false, \"focusSeconds\": 90}\n"_s);
  EXPECT_EQ(done({u"show"_s, u"0f8e"_s}),
            u"id: 0F8E7D6C-5B4A-4938-8271-605F4E3D2C1B\ntext: one\n  - [x] two\ncolorHex: #FFE169\nrecurrence: yearly\n"
            "isCompleted: false\ncreatedAt: 2026-03-01T09:00:00.007+01:00\nisTornOff: false\nfocusSeconds: 90\n"_s);
  desk.time.setZone(QTimeZone("America/St_Johns"));
  EXPECT_TRUE(done({u"show"_s, u"0f8e"_s}).contains(u"createdAt: 2026-03-01T04:30:00.007-03:30"));
  desk.time.setZone(QTimeZone::utc());
  EXPECT_TRUE(done({u"show"_s, u"0f8e"_s}).contains(u"createdAt: 2026-03-01T08:00:00.007+00:00"));
}

TEST_F(NoteCommands, crushAndUndo) {
  const auto task = desk.add(u"a"_s);
  EXPECT_EQ(done({u"crush"_s, idOf(task)}), u"");
  EXPECT_TRUE(desk.stored(task->id())->isCompleted);
  EXPECT_TRUE(desk.audio.log.isEmpty());
  EXPECT_EQ(fails(1, {u"crush"_s, idOf(task)}), u"the note "_s + idOf(task) + u" is finished"_s);
  EXPECT_EQ(done({u"undo"_s}), u"");
  EXPECT_FALSE(desk.stored(task->id())->isCompleted);
  EXPECT_EQ(fails(1, {u"undo"_s}), u"there is nothing to undo");
}

TEST_F(NoteCommands, crushMovesARepeatingNoteOn) {
  desk.time.setLocal(u"2026-01-31T10:00:00"_s);
  const auto task = desk.add(u"a"_s, [&](auto& r) {
    r.recurrenceRaw = u"monthly"_s;
    r.dueDate = desk.at(u"2026-01-31T09:00:00"_s);
  });
  done({u"crush"_s, idOf(task)});
  EXPECT_FALSE(task->isCompleted());
  EXPECT_EQ(desk.local(task->dueDate()), u"2026-02-28 09:00");
}

TEST_F(NoteCommands, crushNothingThatIsBurnedOrCannotBeSaved) {
  const auto ash = desk.add(u"ash"_s, [](auto& r) { r.isBurned = true; });
  EXPECT_EQ(fails(1, {u"crush"_s, idOf(ash)}), u"the note "_s + idOf(ash) + u" is burned"_s);
  const auto task = desk.add(u"a"_s);
  desk.refuseWrites();
  fails(1, {u"crush"_s, idOf(task)});
}

TEST_F(NoteCommands, checkALineCountedOverAllLines) {
  const auto task = desk.add(u"Shop\n- [ ] milk\n\n- [x] eggs"_s);
  QSignalSpy told(&desk.center, &NotificationCenter::taskDidUpdate);
  done({u"check"_s, idOf(task), u"1"_s});
  done({u"check"_s, idOf(task), u"03"_s});
  EXPECT_EQ(desk.stored(task->id())->text, u"Shop\n- [x] milk\n\n- [ ] eggs");
  EXPECT_EQ(told.size(), 2);
  EXPECT_EQ(fails(1, {u"check"_s, idOf(task), u"0"_s}), u"line 0 has no checkbox");
  EXPECT_EQ(fails(1, {u"check"_s, idOf(task), u"4"_s}), u"the note has no line 4");
  EXPECT_EQ(fails(1, {u"check"_s, idOf(task), u"99999999999"_s}), u"the note has no line 99999999999");
  for (const auto& word : {u"-1"_s, u"+1"_s, u"one"_s, u"1.0"_s, u" 1"_s, u""_s, u"١"_s}) {
    fails(2, {u"check"_s, idOf(task), word});
  }
  desk.refuseWrites();
  fails(1, {u"check"_s, idOf(task), u"1"_s});
}

TEST_F(NoteCommands, reviveAllOrNone) {
  const auto ash = [&] { return desk.add(u"ash"_s, [](auto& r) { r.isBurned = true; }); };
  const auto first = ash();
  const auto second = ash();
  const auto alive = desk.add(u"alive"_s);
  EXPECT_EQ(fails(1, {u"revive"_s, idOf(first), idOf(alive)}), u"the note "_s + idOf(alive) + u" is not burned"_s);
  EXPECT_EQ(fails(1, {u"revive"_s, idOf(first), u"0000"_s}), u"no note with the id 0000");
  done({u"revive"_s, idOf(first), idOf(first)});
  EXPECT_FALSE(desk.stored(first->id())->isBurned.value_or(false));
  EXPECT_TRUE(second->isBurned());
  desk.refuseWrites();
  fails(1, {u"revive"_s, u"--all"_s});
  desk.allowWrites();
  done({u"revive"_s, u"--all"_s});
  EXPECT_FALSE(second->isBurned());
  done({u"revive"_s, u"--all"_s});
}

TEST_F(NoteCommands, sweepOnlyWhenTold) {
  const auto ash = desk.add(u"ash"_s, [](auto& r) { r.isBurned = true; });
  const auto id = ash->id();
  const auto note = desk.add(u"note"_s);
  fails(2, {u"sweep"_s});
  EXPECT_EQ(storeOpenings, 0);
  desk.refuseWrites();
  fails(1, {u"sweep"_s, u"--yes"_s});
  desk.allowWrites();
  done({u"sweep"_s, u"--yes"_s});
  EXPECT_FALSE(desk.stored(id));
  EXPECT_TRUE(desk.stored(note->id()));
}

TEST_F(NoteCommands, tearAndRedock) {
  const auto task = desk.add(u"a"_s);
  done({u"tear"_s, idOf(task)});
  EXPECT_TRUE(desk.torn.isOpen(task->id()));
  EXPECT_EQ(desk.torn.nearRects[task->id()], std::nullopt);
  done({u"redock"_s, idOf(task)});
  EXPECT_FALSE(desk.torn.isOpen(task->id()));
  const auto over = desk.add(u"over"_s, [](auto& r) { r.isCompleted = true; });
  EXPECT_EQ(fails(1, {u"tear"_s, idOf(over)}), u"the note "_s + idOf(over) + u" is finished"_s);
}

TEST_F(NoteCommands, exportAndImportWithoutLoss) {
  const auto task = desk.add(u"a “quoted” \\ note\n🙂"_s, [&](auto& r) {
    r.dueDate = desk.at(u"2026-10-25T02:30:00.001"_s);
    r.isTornOff = true;
    r.paperThemeRaw = u"velvet"_s;
  });
  const auto before = task->record();
  const auto other = desk.add(u"other"_s);
  folder = desk.folder.path();
  EXPECT_EQ(done({u"export"_s, u"--output"_s, u"notes.json"_s}), u"");
  QFile file(desk.folder.filePath(u"notes.json"_s));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(QString::fromUtf8(file.readAll()), done({u"export"_s}));
  EXPECT_EQ(done({u"import"_s, u"notes.json"_s}), u"imported 0, skipped 2\n");
  desk.notes().remove(task);
  ASSERT_TRUE(desk.notes().save().isOk());
  EXPECT_EQ(done({u"import"_s, u"notes.json"_s}), u"imported 1, skipped 1\n");
  EXPECT_EQ(desk.stored(before.id), before);
  EXPECT_TRUE(desk.torn.isOpen(before.id)) << "a torn-off note comes back on the desktop";
  EXPECT_EQ(desk.notifications.requests.size(), 3u);
}

TEST_F(NoteCommands, exportInEveryFormatAndImportWhatWasWritten) {
  desk.add(u"Buy milk"_s, [&](auto& r) { r.dueDate = desk.at(u"2026-03-05T14:00:00"_s); });
  folder = desk.folder.path();
  for (const auto& format : {u"json"_s, u"markdown"_s, u"ics"_s}) {
    done({u"export"_s, u"--format"_s, format, u"--output"_s, u"out"_s});
    desk.notes().remove(only());
    ASSERT_TRUE(desk.notes().save().isOk());
    EXPECT_EQ(done({u"import"_s, u"out"_s}), u"imported 1, skipped 0\n") << format.toStdString();
    EXPECT_EQ(only()->text(), u"Buy milk") << format.toStdString();
    EXPECT_EQ(desk.local(only()->dueDate()), u"2026-03-05 14:00") << format.toStdString();
  }
  EXPECT_EQ(fails(2, {u"export"_s, u"--format"_s, u"xml"_s}), u"xml is no value for --format");
}

TEST_F(NoteCommands, exportAndImportFailWithoutATrace) {
  folder = desk.folder.path();
  desk.add(u"a"_s);
  done({u"export"_s, u"--output"_s, u"good"_s});
  EXPECT_TRUE(fails(1, {u"export"_s, u"--output"_s, u"no/such/folder/x"_s}).startsWith(u"no/such/folder/x could not"));
  EXPECT_TRUE(fails(1, {u"import"_s, u"missing"_s}).startsWith(u"missing: there is no"));
  EXPECT_TRUE(fails(1, {u"import"_s, u"."_s}).startsWith(u".: the folder holds no notes"));
  QFile bad(desk.folder.filePath(u"bad"_s));
  ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
  bad.write("{\"tarnwick\": 1, \"tasks\": [{\"id\": 7}]}");
  bad.close();
  EXPECT_TRUE(fails(1, {u"import"_s, u"bad"_s}).startsWith(u"bad: "));
  desk.notes().remove(only());
  ASSERT_TRUE(desk.notes().save().isOk());
  desk.refuseWrites();
  fails(1, {u"import"_s, u"good"_s});
}

TEST_F(NoteCommands, importReadsStandardInputAndPreviewsWithoutWriting) {
  const QByteArray list = "## Home\n\n- [ ] water the plants\n- [x] pay\n";
  const QString told = done({u"import"_s, u"--preview"_s, u"-"_s}, list);
  EXPECT_TRUE(told.startsWith(u"From Markdown: 2 notes, 2 of them new\nDone: 1\n"_s)) << told.toStdString();
  EXPECT_TRUE(desk.notes().fetchTasks().empty());
  EXPECT_EQ(done({u"import"_s, u"-"_s}, list), u"imported 2, skipped 0\n");
  EXPECT_EQ(done({u"import"_s, u"-"_s}, list), u"imported 0, skipped 2\n");
  fails(1, {u"import"_s, u"-"_s}, "nothing of the kind");
  fails(2, {u"import"_s, u"-"_s}, "- [ ] \xff");
}

TEST_F(NoteCommands, sayWhyTheStoreCannotBeUsed) {
  storeError = Error{ErrorKind::InUse, u"the store is in use"_s};
  for (const QStringList& words :
       {QStringList{u"list"_s}, QStringList{u"add"_s, u"a"_s}, QStringList{u"edit"_s, u"abcd"_s},
        QStringList{u"export"_s}, QStringList{u"sweep"_s, u"--yes"_s}}) {
    EXPECT_EQ(fails(1, words), u"the store is in use");
  }
  done({u"settings"_s});
  done({u"--help"_s});
}

}  // namespace tarnwick::test
