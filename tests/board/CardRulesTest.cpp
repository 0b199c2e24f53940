// SPDX-License-Identifier: MIT
#include "board/BoardKeys.h"
#include "board/CardRules.h"
#include "board/PlanNudge.h"
#include "fakes/ManualTime.h"
#include "model/Color.h"

#include <gtest/gtest.h>

#include <set>

namespace tarnwick::test {

namespace {

using namespace Qt::StringLiterals;

TaskRecord plainNote() {
  TaskRecord record;
  record.id = QUuid::createUuid();
  record.text = u"note"_s;
  record.colorHex = u"#FFE169"_s;
  return record;
}

QDateTime local(const ManualTime& time, const QString& iso) {
  ManualTime other;
  other.setZone(time.timeZone());
  other.setLocal(iso);
  return other.now();
}

}  // namespace

TEST(PlanNudge, speaksByTheHour) {
  struct Row {
    QString local;
    QString kicker;
    QString title;
    bool showSlots;
  };
  const Row rows[] = {
      {u"2026-03-03T04:59:59"_s, u"LATE NIGHT"_s, u"Desk is clear"_s, false},
      {u"2026-03-03T05:00:00"_s, u"TUESDAY MORNING"_s, u"What's today's plan?"_s, true},
      {u"2026-03-03T11:59:59"_s, u"TUESDAY MORNING"_s, u"What's today's plan?"_s, true},
      {u"2026-03-03T12:00:00"_s, u"TUESDAY AFTERNOON"_s, u"What still has to happen today?"_s, true},
      {u"2026-03-03T16:59:59"_s, u"TUESDAY AFTERNOON"_s, u"What still has to happen today?"_s, true},
      {u"2026-03-03T17:00:00"_s, u"TUESDAY EVENING"_s, u"Anything left for today?"_s, true},
      {u"2026-03-08T21:59:59"_s, u"SUNDAY EVENING"_s, u"Anything left for today?"_s, true},
      {u"2026-03-03T22:00:00"_s, u"LATE NIGHT"_s, u"Desk is clear"_s, false},
      {u"2026-03-03T00:00:00"_s, u"LATE NIGHT"_s, u"Desk is clear"_s, false},
  };
  ManualTime time;
  for (const auto& row : rows) {
    time.setLocal(row.local);
    const auto nudge = planNudge(time.now(), Calendar::of(time), DailyBurn::On);
    EXPECT_EQ(nudge.kicker, row.kicker) << row.local.toStdString();
    EXPECT_EQ(nudge.title, row.title) << row.local.toStdString();
    EXPECT_EQ(nudge.showSlots, row.showSlots) << row.local.toStdString();
  }
}

TEST(PlanNudge, threatensWithTheBurnOnlyWhileNotesBurn) {
  ManualTime time;
  time.setLocal(u"2026-03-03T14:00:00"_s);
  const auto calendar = Calendar::of(time);
  EXPECT_EQ(planNudge(time.now(), calendar, DailyBurn::On).subtitle,
            u"Stick it before it slips. Unfinished notes burn at midnight.");
  EXPECT_EQ(planNudge(time.now(), calendar, DailyBurn::Off).subtitle, u"Stick it before it slips.");
}

TEST(PlanNudge, namesTheDayOfTheUsersZoneAndLanguage) {
  ManualTime time;
  time.setLocal(u"2026-03-03T23:30:00"_s);
  time.setZone(QTimeZone("Asia/Tokyo"));
  time.setLocale(QLocale(QLocale::German, QLocale::Germany));
  EXPECT_EQ(planNudge(time.now(), Calendar::of(time), DailyBurn::On).kicker, u"MITTWOCH MORNING");
  time.setLocale(QLocale(QLocale::Turkish, QLocale::Turkey));
  time.advance(std::chrono::hours(48));
  EXPECT_EQ(planNudge(time.now(), Calendar::of(time), DailyBurn::On).kicker, u"CUMA MORNING");
}

TEST(Card, leansByOneOfNineTiltsAndKeepsIt) {
  std::set<int> tilts;
  std::set<int> tornTilts;
  for (int i = 0; i < 2000; ++i) {
    const auto id = QUuid::createUuid();
    EXPECT_EQ(naturalAngle(id), naturalAngle(id));
    const double steps = naturalAngle(id) / 0.4;
    EXPECT_NEAR(steps, std::round(steps), 1e-9);
    tilts.insert(static_cast<int>(std::round(steps)));
    tornTilts.insert(static_cast<int>(std::round(tornTilt(id) / 0.45)));
  }
  EXPECT_EQ(tilts, (std::set<int>{-4, -3, -2, -1, 0, 1, 2, 3, 4}));
  EXPECT_EQ(tornTilts, (std::set<int>{-2, -1, 0, 1, 2}));
}

TEST(Card, countsTheHoursLeftOfTheDay) {
  ManualTime time;
  const auto hours = [&](const QString& iso) {
    time.setLocal(iso);
    return hoursUntilMidnight(time.now(), Calendar::of(time));
  };
  EXPECT_DOUBLE_EQ(hours(u"2026-03-03T16:59:59"_s), 7.0);
  EXPECT_GT(hours(u"2026-03-03T16:59:58"_s), 7.0);
  EXPECT_DOUBLE_EQ(hours(u"2026-03-03T23:59:59.500"_s), 0.0);
  EXPECT_NEAR(hours(u"2026-03-29T00:00:00"_s), 23.0, 0.001);
  EXPECT_NEAR(hours(u"2026-10-25T00:00:00"_s), 25.0, 0.001);
}

TEST(Card, smoldersInTheLastHoursOfANoteThatWillBurn) {
  struct Row {
    const char* name;
    QString local;
    DailyBurn dailyBurn;
    std::function<void(TaskRecord&)> change;
    bool isSmoldering;
  };
  const QString evening = u"2026-03-03T18:00:00"_s;
  const auto as = [](auto change) { return std::function<void(TaskRecord&)>(change); };
  const Row rows[] = {
      {"just before", u"2026-03-03T16:59:58"_s, DailyBurn::On, {}, false},
      {"from here on", u"2026-03-03T16:59:59"_s, DailyBurn::On, {}, true},
      {"burn off", evening, DailyBurn::Off, {}, false},
      {"dated", evening, DailyBurn::On, as([](TaskRecord& r) { r.dueDate = QDateTime(QDate(2026, 3, 9), QTime(9, 0), Qt::UTC); }), false},
      {"repeating", evening, DailyBurn::On, as([](TaskRecord& r) { r.recurrenceRaw = u"daily"_s; }), false},
      {"unknown rule", evening, DailyBurn::On, as([](TaskRecord& r) { r.recurrenceRaw = u"yearly"_s; }), false},
      {"finished", evening, DailyBurn::On, as([](TaskRecord& r) { r.isCompleted = true; }), false},
      {"burned", evening, DailyBurn::On, as([](TaskRecord& r) { r.isBurned = true; }), false},
  };
  ManualTime time;
  for (const auto& row : rows) {
    time.setLocal(row.local);
    auto record = plainNote();
    if (row.change) row.change(record);
    EXPECT_EQ(isSmoldering(Task(record), row.dailyBurn, time.now(), Calendar::of(time)), row.isSmoldering) << row.name;
  }
}

TEST(Card, isOverdueByTheMomentOrForARepeatingNoteByTheDay) {
  struct Row {
    const char* rule;
    QString due;
    bool isOverdue;
  };
  const Row rows[] = {
      {"none", u"2026-03-03T08:00:00"_s, true},   {"none", u"2026-03-03T20:00:00"_s, false},
      {"none", u"2026-03-03T20:00:01"_s, false},  {"daily", u"2026-03-03T08:00:00"_s, false},
      {"daily", u"2026-03-03T00:00:00"_s, false}, {"daily", u"2026-03-02T23:59:59"_s, true},
      {"unknown", u"2026-03-03T08:00:00"_s, true},
  };
  ManualTime time;
  time.setLocal(u"2026-03-03T20:00:00"_s);
  for (const auto& row : rows) {
    auto record = plainNote();
    record.recurrenceRaw = QString::fromLatin1(row.rule);
    EXPECT_EQ(isOverdue(Task(record), local(time, row.due), time.now(), Calendar::of(time)), row.isOverdue)
        << row.rule << ' ' << row.due.toStdString();
  }
}

TEST(Card, namesTheDueDayAsTheLocaleWritesIt) {
  struct Row {
    QLocale locale;
    QString due;
    QString label;
  };
  const QLocale us(QLocale::English, QLocale::UnitedStates);
  const Row rows[] = {
      {us, u"2026-11-14T00:00:00"_s, u"Today"_s},
      {us, u"2026-11-14T23:59:59"_s, u"Today"_s},
      {us, u"2026-11-15T00:00:00"_s, u"Tomorrow"_s},
      {us, u"2026-11-16T00:00:00"_s, u"Nov 16"_s},
      {us, u"2026-11-13T23:59:00"_s, u"Nov 13"_s},
      {us, u"2027-11-15T12:00:00"_s, u"Nov 15"_s},
      {QLocale(QLocale::English, QLocale::UnitedKingdom), u"2026-12-01T12:00:00"_s, u"1 Dec"_s},
      {QLocale(QLocale::German, QLocale::Germany), u"2026-12-01T12:00:00"_s, u"1. Dez."_s},
      {QLocale(QLocale::French, QLocale::France), u"2026-12-01T12:00:00"_s, u"1 déc."_s},
      {QLocale(QLocale::Japanese, QLocale::Japan), u"2026-12-01T12:00:00"_s, u"12月1日"_s},
      {QLocale(QLocale::Spanish, QLocale::Spain), u"2026-12-01T12:00:00"_s, u"1 de dic"_s},
  };
  ManualTime time;
  time.setLocal(u"2026-11-14T10:00:00"_s);
  for (const auto& row : rows) {
    time.setLocale(row.locale);
    EXPECT_EQ(dueLabel(local(time, row.due), time.now(), Calendar::of(time)), row.label) << row.locale.name().toStdString();
  }
}

TEST(Card, cyclesThroughThePaletteAndBack) {
  Task task(plainNote());
  QStringList seen;
  for (int i = 0; i < 7; ++i) {
    cycleColor(task);
    seen.append(task.colorHex());
  }
  EXPECT_EQ(seen.join(u' '), u"#FF7597 #FFA647 #06D6A0 #4CC9F0 #3A86FF #C77DFF #FFE169");
  EXPECT_EQ(nextColor(u"#ffe169"_s), kPaperPalette.front()) << "compared to the letter";
}

TEST(Card, togglesTheDailyThreeFromAbsent) {
  Task task(plainNote());
  toggleDaily3(task);
  EXPECT_EQ(task.record().isDaily3, true);
  toggleDaily3(task);
  EXPECT_EQ(task.record().isDaily3, false);
}

namespace {

/// Presses a key on a wall of five notes or fewer; notes are named by their index, -1 is none.
struct Wall {
  std::vector<QUuid> ids;
  explicit Wall(int count) {
    for (int i = 0; i < count; ++i) ids.push_back(QUuid::createUuid());
  }
  [[nodiscard]] std::optional<QUuid> at(int index) const {
    if (index < 0) return std::nullopt;
    return ids[static_cast<size_t>(index)];
  }
  [[nodiscard]] int indexOf(const std::optional<QUuid>& id) const {
    if (!id) return -1;
    const auto found = std::ranges::find(ids, *id);
    return found == ids.end() ? -2 : static_cast<int>(found - ids.begin());
  }
};

}  // namespace

TEST(BoardKeys, moveTheSelectionTwoByRowAndClampIt) {
  struct Row {
    int count;
    int selected;
    Qt::Key key;
    int expected;
  };
  const Row rows[] = {
      {1, -1, Qt::Key_Left, 0},  {1, -1, Qt::Key_Right, 0}, {1, -1, Qt::Key_Up, 0},   {1, -1, Qt::Key_Down, 0},
      {5, -1, Qt::Key_Up, 0},    {5, 3, Qt::Key_Down, 4},   {5, 3, Qt::Key_Up, 1},    {5, 3, Qt::Key_Left, 2},
      {5, 3, Qt::Key_Right, 4},  {5, 4, Qt::Key_Right, 4},  {5, 4, Qt::Key_Down, 4},  {5, 0, Qt::Key_Left, 0},
      {5, 1, Qt::Key_Up, 0},     {5, 2, Qt::Key_Down, 4},
  };
  for (const auto& row : rows) {
    const Wall wall(row.count);
    const auto outcome = handleBoardKey(wall.ids, wall.at(row.selected), row.key, Qt::KeypadModifier);
    EXPECT_TRUE(outcome.isHandled);
    EXPECT_EQ(wall.indexOf(outcome.selection), row.expected) << row.selected << " key " << row.key;
    EXPECT_FALSE(outcome.crush || outcome.open);
  }
}

TEST(BoardKeys, crushWithCommandAndSelectTheNoteThatMovesUp) {
  struct Row {
    int count;
    int selected;
    Qt::KeyboardModifiers modifiers;
    bool isHandled;
    int selectionAfter;
  };
  const Row rows[] = {
      {5, 4, Qt::ControlModifier, true, 3},
      {5, 1, Qt::MetaModifier, true, 2},
      {1, 0, Qt::ControlModifier, true, -1},
      {5, 2, Qt::ControlModifier | Qt::AltModifier, true, 3},
      {5, 2, Qt::NoModifier, false, 2},
      {5, 2, Qt::ShiftModifier, false, 2},
      {1, -1, Qt::ControlModifier, false, -1},
  };
  for (const auto& row : rows) {
    const Wall wall(row.count);
    const auto outcome = handleBoardKey(wall.ids, wall.at(row.selected), Qt::Key_Backspace, row.modifiers);
    EXPECT_EQ(outcome.isHandled, row.isHandled) << row.selected;
    EXPECT_EQ(outcome.crush, row.isHandled ? wall.at(row.selected) : std::nullopt) << row.selected;
    EXPECT_EQ(wall.indexOf(outcome.selection), row.selectionAfter) << row.selected;
  }
}

TEST(BoardKeys, treatASelectedNoteThatIsGoneAsNone) {
  const Wall wall(3);
  const auto gone = QUuid::createUuid();
  EXPECT_EQ(wall.indexOf(handleBoardKey(wall.ids, gone, Qt::Key_Down, {}).selection), 0);
  EXPECT_FALSE(handleBoardKey(wall.ids, gone, Qt::Key_Backspace, Qt::ControlModifier).isHandled);
  EXPECT_FALSE(handleBoardKey(wall.ids, gone, Qt::Key_Return, {}).isHandled);
  const auto escaped = handleBoardKey(wall.ids, gone, Qt::Key_Escape, {});
  EXPECT_TRUE(escaped.isHandled);
  EXPECT_FALSE(escaped.selection);
}

TEST(BoardKeys, openTheSelectedNoteOnReturn) {
  const Wall wall(3);
  const auto outcome = handleBoardKey(wall.ids, wall.at(1), Qt::Key_Return, {});
  EXPECT_EQ(outcome, (BoardKeyOutcome{true, wall.at(1), {}, wall.at(1)}));
  EXPECT_FALSE(handleBoardKey(wall.ids, {}, Qt::Key_Return, {}).isHandled);
}

TEST(BoardKeys, leaveWhatIsNotTheirs) {
  const Wall wall(3);
  EXPECT_FALSE(handleBoardKey(wall.ids, {}, Qt::Key_Escape, {}).isHandled);
  EXPECT_FALSE(handleBoardKey(wall.ids, wall.at(0), Qt::Key_A, {}).isHandled);
  EXPECT_EQ(handleBoardKey(wall.ids, wall.at(0), Qt::Key_A, {}).selection, wall.at(0));
  for (const auto key : {Qt::Key_Down, Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Escape}) {
    EXPECT_FALSE(handleBoardKey({}, wall.at(0), key, Qt::ControlModifier).isHandled);
  }
}

TEST(BoardKeys, undoOnCommandZWithoutShift) {
  EXPECT_TRUE(isUndoKey(Qt::Key_Z, Qt::ControlModifier));
  EXPECT_TRUE(isUndoKey(Qt::Key_Z, Qt::MetaModifier));
  EXPECT_TRUE(isUndoKey(Qt::Key_Z, Qt::MetaModifier | Qt::AltModifier));
  EXPECT_FALSE(isUndoKey(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier));
  EXPECT_FALSE(isUndoKey(Qt::Key_Z, Qt::NoModifier));
  EXPECT_FALSE(isUndoKey(Qt::Key_Y, Qt::ControlModifier));
}

}  // namespace tarnwick::test
