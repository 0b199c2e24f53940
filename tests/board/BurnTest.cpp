// SPDX-License-Identifier: MIT
#include "board/Ashes.h"
#include "board/BoardQueries.h"
#include "board/TaskScheduler.h"
#include "support/Desk.h"

namespace tarnwick::test {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class Burn : public testing::Test {
 protected:
  TaskScheduler scheduler() {
    return TaskScheduler(desk.notes(), {desk.time, desk.time, desk.defaults, desk.reminders},
                         [this]() -> TornNotes* { return desk.hasBoardPanel ? &desk.torn : nullptr; });
  }
  TaskPtr yesterdays(const std::function<void(TaskRecord&)>& change = {}) {
    return desk.add(u"yesterday"_s, [&](auto& r) {
      r.createdAt = desk.time.now().addDays(-1);
      if (change) change(r);
    });
  }

  Desk desk;
};

}  // namespace

TEST_F(Burn, takesYesterdaysNoteAtTheFirstPassAndStampsThePass) {
  const auto task = yesterdays([](auto& r) { r.isTornOff = true; });
  desk.torn.open.insert(task->id());
  const auto made = scheduler();
  EXPECT_TRUE(task->isBurned());
  EXPECT_EQ(task->record().burnedAt, desk.time.now());
  EXPECT_EQ(task->record().isTornOff, false);
  EXPECT_FALSE(desk.torn.isOpen(task->id()));
  EXPECT_EQ(desk.stored(task->id()), task->record());
}

TEST_F(Burn, sparesWhatIsNotItsOwn) {
  const auto as = [](auto change) { return std::function<void(TaskRecord&)>(change); };
  const std::vector<std::pair<const char*, std::function<void(TaskRecord&)>>> rows{
      {"dated", as([&](TaskRecord& r) { r.dueDate = desk.time.now().addDays(-1); })},
      {"repeating", as([](TaskRecord& r) { r.recurrenceRaw = u"daily"_s; })},
      {"unknown rule", as([](TaskRecord& r) { r.recurrenceRaw = u"yearly"_s; })},
      {"finished", as([](TaskRecord& r) { r.isCompleted = true; })},
      {"today", as([&](TaskRecord& r) { r.createdAt = desk.time.now(); })},
      {"later today", as([&](TaskRecord& r) { r.createdAt = desk.time.now().addSecs(3600); })},
  };
  std::vector<TaskPtr> spared;
  for (const auto& [name, change] : rows) spared.push_back(yesterdays(change));
  const auto ash = yesterdays([](auto& r) {
    r.isBurned = true;
    r.burnedAt = QDateTime(QDate(2026, 3, 1), QTime(0, 0), Qt::UTC);
  });
  const auto made = scheduler();
  for (size_t i = 0; i < rows.size(); ++i) EXPECT_FALSE(spared[i]->isBurned()) << rows[i].first;
  EXPECT_EQ(ash->record().burnedAt, QDateTime(QDate(2026, 3, 1), QTime(0, 0), Qt::UTC)) << "burned once";
}

TEST_F(Burn, comesWithinAMinuteAfterLocalMidnight) {
  struct Row {
    const char* zone;
    QString created;
    QString firstSafe;
  };
  // In Santiago that day begins at one o'clock; in Berlin it has 25 hours.
  const Row rows[] = {
      {"Europe/Berlin", u"2026-10-24T23:59:00"_s, u"2026-10-25T00:00:00"_s},
      {"America/Santiago", u"2026-09-05T23:59:00"_s, u"2026-09-06T01:00:00"_s},
  };
  for (const auto& row : rows) {
    Desk there;
    there.time.setZone(QTimeZone(row.zone));
    there.time.setLocal(row.created);
    const auto late = there.add(u"late"_s);
    const TaskScheduler made(there.notes(), {there.time, there.time, there.defaults, there.reminders},
                             [&]() -> TornNotes* { return &there.torn; });
    there.time.advance(59s);
    EXPECT_FALSE(late->isBurned());
    there.time.setLocal(row.firstSafe);
    const auto early = there.add(u"early"_s);
    there.time.advance(1min);
    EXPECT_TRUE(late->isBurned()) << row.zone;
    EXPECT_FALSE(early->isBurned()) << row.zone;
    there.time.advance(10h);
    EXPECT_FALSE(early->isBurned()) << row.zone;
  }
}

TEST_F(Burn, catchesUpAfterSleep) {
  const auto task = desk.add(u"note"_s);
  const auto made = scheduler();
  desk.time.jump(std::chrono::hours(30));
  EXPECT_FALSE(task->isBurned());
  desk.time.advance(60s);
  EXPECT_TRUE(task->isBurned());
}

TEST_F(Burn, restsWhileTheSettingIsOff) {
  const auto task = yesterdays();
  ASSERT_TRUE(desk.defaults.setBoolean(keys::kDailyBurn, false).isOk());
  auto made = scheduler();
  desk.time.advance(5min);
  EXPECT_FALSE(task->isBurned());
  made.performDailyBurn(TaskScheduler::Burn::Forced);
  EXPECT_TRUE(task->isBurned());
}

TEST_F(Burn, isOnForAValueThatIsNoBool) {
  const auto task = yesterdays();
  ASSERT_TRUE(desk.defaults.setText(keys::kDailyBurn, u"false"_s).isOk());
  const auto made = scheduler();
  EXPECT_TRUE(task->isBurned());
}

TEST_F(Burn, forcedTakesTodaysNotesToo) {
  const auto task = desk.add(u"today"_s);
  auto made = scheduler();
  made.performDailyBurn(TaskScheduler::Burn::BeforeToday);
  EXPECT_FALSE(task->isBurned());
  made.performDailyBurn(TaskScheduler::Burn::Forced);
  EXPECT_TRUE(task->isBurned());
}

TEST_F(Burn, doesWithoutABoardPanel) {
  desk.hasBoardPanel = false;
  const auto task = yesterdays([](auto& r) { r.isTornOff = true; });
  const auto made = scheduler();
  EXPECT_TRUE(task->isBurned());
  EXPECT_FALSE(task->isTornOff());
}

TEST_F(Burn, stopsWithItsSchedulerAndWhenInvalidated) {
  auto made = std::make_unique<TaskScheduler>(scheduler());
  EXPECT_EQ(desk.time.repeatingCount(), 1);
  made->invalidate();
  EXPECT_EQ(desk.time.repeatingCount(), 0);
}

TEST_F(Burn, takesExactlyTheNotesThatTheBoardCounts) {
  yesterdays();
  yesterdays([](auto& r) { r.boardRaw = u"Work"_s; });
  yesterdays([](auto& r) { r.recurrenceRaw = u"daily"_s; });
  const int counted = burnableTonight(desk.notes().fetchTasks());
  const auto made = scheduler();
  EXPECT_EQ(static_cast<int>(burnedTasks(desk.notes().fetchTasks()).size()), counted);
}

TEST_F(Burn, leavesARevivedNoteUntilTheComingMidnight) {
  const auto task = yesterdays();
  const auto made = scheduler();
  ASSERT_TRUE(task->isBurned());
  ASSERT_TRUE(reviveNotes(desk.notes(), {task}, desk.reminders, desk.time.now()).isOk());
  EXPECT_FALSE(task->isBurned());
  EXPECT_FALSE(task->record().burnedAt);
  EXPECT_EQ(ashesFromLastNight(desk.notes().fetchTasks(), desk.time.now(), desk.calendar()), 0);
  desk.time.advance(10min);
  EXPECT_FALSE(task->isBurned());
  desk.time.advance(14h);
  EXPECT_TRUE(task->isBurned());
}

TEST_F(Burn, revivesANoteThatCouldNotBurnAsItWas) {
  const auto created = desk.time.now().addDays(-9);
  const auto task = yesterdays([&](auto& r) {
    r.createdAt = created;
    r.dueDate = desk.at(u"2026-03-05T14:00:00"_s);
    r.isBurned = true;
    r.isCompleted = true;
    r.completedAt = created;
  });
  ASSERT_TRUE(reviveNotes(desk.notes(), {task}, desk.reminders, desk.time.now()).isOk());
  EXPECT_EQ(task->record().createdAt, created);
  EXPECT_FALSE(task->isCompleted());
  EXPECT_FALSE(task->record().completedAt);
  EXPECT_EQ(desk.notifications.requests.size(), 3u);
}

TEST_F(Burn, leavesAshesWhenRevivingThemCannotBeSaved) {
  const auto task = yesterdays([](auto& r) { r.isBurned = true; });
  const auto before = task->record();
  desk.refuseWrites();
  EXPECT_FALSE(reviveNotes(desk.notes(), {task}, desk.reminders, desk.time.now()).isOk());
  EXPECT_EQ(task->record(), before);
}

TEST_F(Burn, sweepsAshesForGood) {
  const auto ash = yesterdays([](auto& r) { r.isBurned = true; });
  const auto note = desk.add(u"note"_s);
  desk.torn.open.insert(ash->id());
  for (const auto& each : {ash, note}) ASSERT_TRUE(desk.defaults.setReals(appNoteOffsetKey(each->id()), {1, 2}).isOk());
  ASSERT_TRUE(sweepNotes(desk.notes(), {ash}, &desk.torn, desk.defaults).isOk());
  EXPECT_TRUE(desk.torn.open.empty());
  EXPECT_EQ(desk.notes().fetchTasks(), TaskList{note});
  EXPECT_FALSE(desk.stored(ash->id()));
  EXPECT_EQ(desk.defaults.storedKeys().filter(keys::kAppNoteOffsetPrefix), QStringList{appNoteOffsetKey(note->id())});
  EXPECT_TRUE(sweepNotes(desk.notes(), {}, &desk.torn, desk.defaults).isOk());
}

TEST_F(Burn, keepsAshesThatCannotBeSwept) {
  const auto ash = yesterdays([](auto& r) { r.isBurned = true; });
  const auto id = ash->id();
  desk.refuseWrites();
  EXPECT_FALSE(sweepNotes(desk.notes(), {ash}, nullptr, desk.defaults).isOk());
  EXPECT_TRUE(desk.notes().findTask(id));
  desk.allowWrites();
  EXPECT_TRUE(desk.notes().save().isOk());
  EXPECT_TRUE(desk.stored(id));
}

}  // namespace tarnwick::test
