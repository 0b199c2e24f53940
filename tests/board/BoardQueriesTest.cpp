// SPDX-License-Identifier: MIT
#include "board/BoardQueries.h"

#include "board/TextSearch.h"
#include "fakes/ManualTime.h"

#include <gtest/gtest.h>

namespace tarnwick::test {

namespace {

using namespace Qt::StringLiterals;

/// A wall of notes; the first made is the oldest.
class BoardQueries : public testing::Test {
 protected:
  TaskPtr note(const QString& text, const std::function<void(TaskRecord&)>& change = {}) {
    TaskRecord record;
    record.id = QUuid::createUuid();
    record.text = text;
    record.createdAt = time.now().addSecs(static_cast<qint64>(tasks.size()));
    if (change) change(record);
    tasks.push_back(std::make_shared<Task>(record));
    return tasks.back();
  }
  [[nodiscard]] QString shown(const BoardFilter& filter = {}) {
    return texts(activeTasks(newestFirst(tasks), filter, time.now(), Calendar::of(time)));
  }
  [[nodiscard]] static QString texts(const TaskList& list) {
    QStringList words;
    for (const auto& task : list) words.append(task->text());
    return words.join(u' ');
  }
  [[nodiscard]] BurnCountdown countdown(int count, const QString& local) {
    time.setLocal(local);
    return burnCountdown(count, time.now(), Calendar::of(time));
  }

  ManualTime time;
  TaskList tasks;
};

}  // namespace

TEST_F(BoardQueries, showTheNewestNoteFirst) {
  note(u"old"_s);
  note(u"older"_s, [&](auto& r) { r.createdAt = time.now().addDays(-1); });
  note(u"new"_s);
  EXPECT_EQ(shown(), u"new old older");
}

TEST_F(BoardQueries, keepOneOrderForNotesOfTheSameMoment) {
  for (const char* text : {"a", "b", "c", "d"}) {
    note(QString::fromLatin1(text), [&](auto& r) { r.createdAt = time.now(); });
  }
  const QString first = shown();
  std::ranges::reverse(tasks);
  EXPECT_EQ(shown(), first);
}

TEST_F(BoardQueries, hideWhatIsFinishedBurnedOrAsleep) {
  note(u"active"_s);
  note(u"finished"_s, [](auto& r) { r.isCompleted = true; });
  note(u"burned"_s, [](auto& r) { r.isBurned = true; });
  note(u"asleep"_s, [&](auto& r) {
    r.recurrenceRaw = u"daily"_s;
    r.dueDate = time.now().addDays(1);
  });
  note(u"today"_s, [&](auto& r) {
    r.recurrenceRaw = u"daily"_s;
    r.dueDate = time.now().addSecs(3600);
  });
  note(u"later"_s, [&](auto& r) { r.dueDate = time.now().addDays(9); });
  note(u"unknown"_s, [&](auto& r) {
    r.recurrenceRaw = u"fortnightly"_s;
    r.dueDate = time.now().addDays(9);
  });
  EXPECT_EQ(shown(), u"unknown later today active");
}

TEST_F(BoardQueries, wakeARepeatingNoteAtLocalMidnight) {
  note(u"daily"_s, [&](auto& r) {
    r.recurrenceRaw = u"daily"_s;
    time.setLocal(u"2026-03-29T00:00:00"_s);
    r.dueDate = time.now();
  });
  time.setLocal(u"2026-03-28T23:59:59"_s);
  EXPECT_EQ(shown(), u"");
  time.advance(std::chrono::seconds(1));
  EXPECT_EQ(shown(), u"daily");
}

TEST_F(BoardQueries, sortNotesIntoBoards) {
  note(u"nameless"_s);
  note(u"general"_s, [](auto& r) { r.boardRaw = u"General"_s; });
  note(u"work"_s, [](auto& r) { r.boardRaw = u"Work"_s; });
  note(u"chosen"_s, [](auto& r) {
    r.boardRaw = u"Work"_s;
    r.isDaily3 = true;
  });
  const auto on = [&](const QString& board) { return shown({.selectedBoard = board}); };
  EXPECT_EQ(on(u"All"_s), u"chosen work general nameless");
  EXPECT_EQ(on(u"Focus"_s), u"chosen");
  EXPECT_EQ(on(u"General"_s), u"general nameless");
  EXPECT_EQ(on(u"Work"_s), u"chosen work");
  EXPECT_EQ(on(u"work"_s), u"");
}

TEST_F(BoardQueries, applyTheTagOnlyWhileTagsAreShown) {
  note(u"plain"_s);
  note(u"none"_s, [](auto& r) { r.tagRaw = u"none"_s; });
  note(u"red"_s, [](auto& r) { r.tagRaw = u"red"_s; });
  EXPECT_EQ(shown({.showTags = TagFilter::Off, .selectedTag = TaskTag::red}), u"red none plain");
  EXPECT_EQ(shown({.showTags = TagFilter::On, .selectedTag = TaskTag::red}), u"red");
  EXPECT_EQ(shown({.showTags = TagFilter::On, .selectedTag = TaskTag::none}), u"red none plain");
}

TEST_F(BoardQueries, takeALoneBlankForASearch) {
  note(u"one"_s);
  note(u"two words"_s);
  EXPECT_EQ(shown({.search = u" "_s}), u"two words");
  EXPECT_EQ(shown({.search = QString()}), u"two words one");
}

TEST_F(BoardQueries, putNotesOfTheCurrentRepositoryFirst) {
  const auto in = [](const QString& path) { return [path](TaskRecord& r) { r.gitRepoPath = path; }; };
  note(u"a"_s, in(u"/repo"_s));
  note(u"b"_s);
  note(u"c"_s, in(u"/repo"_s));
  note(u"d"_s, in(u"/repo/sub"_s));
  EXPECT_EQ(shown({.gitRoot = u"/repo"_s}), u"c a d b");
  EXPECT_EQ(shown(), u"d c b a");
}

TEST_F(BoardQueries, countFinishedAndBurnedNotesOnEveryBoard) {
  note(u"both"_s, [&](auto& r) {
    r.isCompleted = true;
    r.isBurned = true;
    r.boardRaw = u"Work"_s;
  });
  note(u"finished"_s, [](auto& r) { r.isCompleted = true; });
  EXPECT_EQ(shown(), u"");
  EXPECT_EQ(completedTasksCount(tasks), 2);
  EXPECT_EQ(texts(burnedTasks(tasks)), u"both");
  EXPECT_EQ(burnableTonight(tasks), 0);
}

TEST_F(BoardQueries, countOnlyWhatMidnightWouldBurn) {
  note(u"plain"_s);
  note(u"elsewhere"_s, [](auto& r) { r.boardRaw = u"Work"_s; });
  note(u"dated"_s, [&](auto& r) { r.dueDate = time.now(); });
  note(u"repeating"_s, [](auto& r) { r.recurrenceRaw = u"weekly"_s; });
  note(u"unknown rule"_s, [](auto& r) { r.recurrenceRaw = u"fortnightly"_s; });
  EXPECT_EQ(burnableTonight(tasks), 2);
}

TEST_F(BoardQueries, countTheAshesOfThisCalendarDay) {
  // The night in which the clocks go forward: this day has 23 hours.
  time.setLocal(u"2026-03-29T12:00:00"_s);
  const auto burnedAt = [&](const QString& local) {
    ManualTime other;
    other.setLocal(local);
    note(local, [&](auto& r) {
      r.isBurned = true;
      r.burnedAt = other.now();
    });
  };
  burnedAt(u"2026-03-28T23:59:59.999"_s);
  burnedAt(u"2026-03-29T00:00:00"_s);
  burnedAt(u"2026-03-29T23:59:59.999"_s);
  burnedAt(u"2026-03-30T00:00:00"_s);
  note(u"without a moment"_s, [](auto& r) { r.isBurned = true; });
  note(u"revived"_s, [&](auto& r) {
    r.isBurned = false;
    r.burnedAt = time.now();
  });
  EXPECT_EQ(ashesFromLastNight(tasks, time.now(), Calendar::of(time)), 2);
}

TEST_F(BoardQueries, nameBoardsInTheOrderOfTheirFirstUse) {
  const auto on = [](const QString& board) { return [board](TaskRecord& r) { r.boardRaw = board; }; };
  note(u"1"_s, [](auto& r) {
    r.boardRaw = u"Zoo"_s;
    r.isCompleted = true;
  });
  note(u"2"_s, on(u"Work"_s));
  note(u"3"_s, on(u"Art"_s));
  note(u"4"_s, on(u"Zoo"_s));
  note(u"5"_s, on(u"All"_s));
  note(u"6"_s, on(QString()));
  note(u"7"_s, [](auto& r) {
    r.boardRaw = u"Over"_s;
    r.isBurned = true;
  });
  EXPECT_EQ(boards(newestFirst(tasks)).join(u' '), u"All Focus General Zoo Work Art");
  EXPECT_EQ(withKept(boards(newestFirst(tasks)), {u"Over"_s, u"Work"_s, u"New"_s}).join(u' '),
            u"All Focus General Zoo Work Art Over New");
}

TEST_F(BoardQueries, countTheMinutesToMidnight) {
  struct Row {
    QString local;
    int count;
    QString label;
    bool isUrgent;
  };
  const Row rows[] = {
      {u"2026-03-03T22:59:00"_s, 3, u"3 burn in 1h 1m"_s, true},
      {u"2026-03-03T23:00:00"_s, 3, u"3 burn in 1h 0m"_s, true},
      {u"2026-03-03T23:01:00"_s, 1, u"1 burns in 59m"_s, true},
      {u"2026-03-03T23:15:00"_s, 1, u"1 burns in 45m"_s, true},
      {u"2026-03-03T21:55:00"_s, 3, u"3 burn in 2h 5m"_s, false},
      {u"2026-03-03T22:00:00"_s, 0, u"0 burn in 2h 0m"_s, false},
      {u"2026-03-03T22:00:00.001"_s, 2, u"2 burn in 1h 59m"_s, true},
      {u"2026-03-03T23:59:59.999"_s, 2, u"2 burn in 0m"_s, true},
      {u"2026-03-03T00:00:00"_s, 2, u"2 burn in 24h 0m"_s, false},
      {u"2026-03-29T00:00:00"_s, 2, u"2 burn in 23h 0m"_s, false},
      {u"2026-10-25T00:00:00"_s, 2, u"2 burn in 25h 0m"_s, false},
  };
  for (const auto& row : rows) {
    const auto result = countdown(row.count, row.local);
    EXPECT_EQ(result.label, row.label) << row.local.toStdString();
    EXPECT_EQ(result.isUrgent, row.isUrgent) << row.local.toStdString();
  }
}

TEST(TextSearch, ignoresCaseByTheRulesOfTheLanguage) {
  struct Row {
    QLocale::Language language;
    QString text;
    QString needle;
    bool isFound;
  };
  const Row rows[] = {
      {QLocale::English, u"Buy MILK"_s, u"milk"_s, true},
      {QLocale::English, u"buy milk"_s, u"MILK"_s, true},
      {QLocale::English, u"ISPARTA"_s, u"isparta"_s, true},
      {QLocale::Turkish, u"ISPARTA"_s, u"isparta"_s, false},
      {QLocale::Turkish, u"ISPARTA"_s, u"ısparta"_s, true},
      {QLocale::Turkish, u"ısparta"_s, u"ISPARTA"_s, true},
      {QLocale::Turkish, u"isparta"_s, u"ISPARTA"_s, false},
      {QLocale::Turkish, u"İSTANBUL gezisi"_s, u"istanbul"_s, true},
      {QLocale::Turkish, u"istanbul"_s, u"İSTANBUL"_s, true},
      {QLocale::Azerbaijani, u"KITAB"_s, u"kıtab"_s, true},
      {QLocale::German, u"Straße fegen"_s, u"STRASSE"_s, true},
      {QLocale::German, u"STRASSE"_s, u"straße"_s, true},
      {QLocale::German, u"STRAẞE"_s, u"strasse"_s, true},
      {QLocale::German, u"Übung"_s, u"übung"_s, true},
      {QLocale::German, u"Übung"_s, u"ubung"_s, false},
      {QLocale::German, u"u\u0308bung"_s, u"Übung"_s, true},
      {QLocale::Polish, u"Do ŁODZI za €40"_s, u"łodzi ZA €"_s, true},
      {QLocale::German, u"ǰota ŉ"_s, u"ǰOTA"_s, true},
      {QLocale::Greek, u"ΟΔΟΣ"_s, u"οδος"_s, true},
      {QLocale::Russian, u"Молоко"_s, u"МОЛО"_s, true},
      {QLocale::English, u"two\nlines"_s, u"o\nl"_s, true},
      {QLocale::English, u"🙂 smile"_s, u"🙂 S"_s, true},
      {QLocale::English, u""_s, u"a"_s, false},
  };
  for (const auto& row : rows) {
    const TextSearch search(row.needle, QLocale(row.language));
    EXPECT_EQ(search.isIn(row.text), row.isFound)
        << row.needle.toStdString() << " in " << row.text.toStdString() << ", "
        << QLocale::languageToString(row.language).toStdString();
  }
}

}  // namespace tarnwick::test
