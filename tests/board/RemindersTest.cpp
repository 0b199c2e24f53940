// SPDX-License-Identifier: MIT
#include "board/DeskDuties.h"
#include "support/Desk.h"

namespace tarnwick::test {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class Reminders : public testing::Test {
 protected:
  TaskPtr due(const QString& local, const std::function<void(TaskRecord&)>& change = {}) {
    return desk.add(u"Call Ada"_s, [&](auto& r) {
      r.dueDate = desk.at(local);
      if (change) change(r);
    });
  }
  /// "-early 13:45 Due in 15 minutes" for each request of the note, in the order of time.
  [[nodiscard]] QStringList pending(const TaskPtr& task) const {
    auto requests = desk.notifications.requests;
    std::ranges::sort(requests, {}, &NotificationRequest::firesAt);
    QStringList lines;
    const auto id = task->id().toString(QUuid::WithoutBraces).toUpper();
    for (const auto& request : requests) {
      EXPECT_EQ(request.body, task->text());
      EXPECT_TRUE(request.identifier.startsWith(id));
      lines.append(request.identifier.sliced(id.size()) + u' ' + desk.local(request.firesAt) + u' ' + request.title);
    }
    return lines;
  }

  Desk desk;
};

}  // namespace

TEST_F(Reminders, askAgainInAnHourUntilTheNoteIsScheduledAnew) {
  const auto task = due(u"2026-03-04T14:00:00"_s);
  desk.reminders.schedule(*task);
  desk.time.setLocal(u"2026-03-04T13:59:00"_s);
  desk.time.advance(1min);
  const auto identifier = task->id().toString(QUuid::WithoutBraces).toUpper() + u"-due"_s;
  desk.notifications.requests.clear();  // all three have come
  desk.reminders.remindLater(*task, identifier);
  EXPECT_EQ(pending(task), QStringList{u"-due 2026-03-04 15:00 Due now"_s});
  EXPECT_EQ(desk.notifications.requests[0].actions.size(), 2u);
  desk.reminders.rescheduleAll({task});
  EXPECT_EQ(pending(task), QStringList{u"-due 2026-03-04 15:00 Due now"_s}) << "the clock was set: still in an hour";
  task->set(&TaskRecord::dueDate, desk.at(u"2026-03-04T14:10:00"_s));
  desk.reminders.schedule(*task);
  EXPECT_EQ(pending(task), QStringList{u"-due 2026-03-04 14:10 Due now"_s});
  desk.reminders.rescheduleAll({task});
  EXPECT_EQ(pending(task), QStringList{u"-due 2026-03-04 14:10 Due now"_s}) << "a new date is no longer put off";
  desk.reminders.remindLater(*task, u"tray-missing"_s);
  EXPECT_EQ(desk.notifications.requests.size(), 1u);
}

TEST_F(Reminders, areAtMostThreeAndNeverPast) {
  struct Row {
    QString now;
    QString due;
    QStringList expected;
  };
  const Row rows[] = {
      {u"2026-03-03T09:50:00"_s, u"2026-03-03T10:00:00"_s, {u"-due 2026-03-03 10:00 Due now"_s}},
      {u"2026-03-03T09:45:00"_s, u"2026-03-03T10:00:00"_s, {u"-due 2026-03-03 10:00 Due now"_s}},
      {u"2026-03-03T09:44:59.999"_s,
       u"2026-03-03T10:00:00"_s,
       {u"-early 2026-03-03 09:45 Due in 15 minutes"_s, u"-due 2026-03-03 10:00 Due now"_s}},
      {u"2026-03-03T10:00:00"_s,
       u"2026-03-04T14:00:00"_s,
       {u"-morning 2026-03-04 09:00 Deadline today"_s, u"-early 2026-03-04 13:45 Due in 15 minutes"_s,
        u"-due 2026-03-04 14:00 Due now"_s}},
      {u"2026-03-03T10:00:00"_s, u"2026-03-04T00:00:00"_s, {u"-day 2026-03-04 09:00 Due today"_s}},
      {u"2026-03-03T10:00:00"_s, u"2026-03-03T00:00:00"_s, {}},
      {u"2026-03-03T08:00:00"_s, u"2026-03-03T00:00:00"_s, {u"-day 2026-03-03 09:00 Due today"_s}},
      {u"2026-03-03T10:00:00"_s, u"2026-03-03T10:00:00"_s, {}},
      {u"2026-03-03T10:00:00"_s, u"2026-03-01T14:00:00"_s, {}},
      // 09:00 stays 09:00 on the day the clocks change; fifteen minutes before are elapsed ones.
      {u"2026-03-28T10:00:00"_s,
       u"2026-03-29T03:05:00"_s,
       {u"-early 2026-03-29 01:50 Due in 15 minutes"_s, u"-due 2026-03-29 03:05 Due now"_s,
        u"-morning 2026-03-29 09:00 Deadline today"_s}},
  };
  for (const auto& row : rows) {
    desk.time.setLocal(row.now);
    const auto task = due(row.due);
    desk.notifications.requests.clear();
    desk.reminders.schedule(*task);
    EXPECT_EQ(pending(task), row.expected) << row.now.toStdString() << " due " << row.due.toStdString();
  }
}

TEST_F(Reminders, takeTheFirstMomentOfADayWithoutMidnightForADate) {
  desk.time.setZone(QTimeZone("America/Santiago"));
  desk.time.setLocal(u"2026-09-05T10:00:00"_s);
  const auto task = desk.add(u"date"_s, [&](auto& r) { r.dueDate = desk.calendar().startOfDay(QDate(2026, 9, 6)); });
  desk.reminders.schedule(*task);
  EXPECT_EQ(pending(task), QStringList{u"-day 2026-09-06 09:00 Due today"_s});
}

TEST_F(Reminders, goWhenTheNoteNeedsNone) {
  const auto as = [](auto change) { return std::function<void(Task&)>(change); };
  const std::vector<std::pair<const char*, std::function<void(Task&)>>> rows{
      {"finished", as([](Task& t) { t.set(&TaskRecord::isCompleted, true); })},
      {"burned", as([](Task& t) { t.set(&TaskRecord::isBurned, true); })},
      {"undated", as([](Task& t) { t.set(&TaskRecord::dueDate, std::nullopt); })},
  };
  for (const auto& [name, change] : rows) {
    const auto task = due(u"2026-03-05T14:00:00"_s);
    desk.reminders.schedule(*task);
    ASSERT_EQ(desk.notifications.requests.size(), 3u);
    change(*task);
    desk.reminders.schedule(*task);
    EXPECT_TRUE(desk.notifications.requests.empty()) << name;
  }
}

TEST_F(Reminders, areReplacedNotAdded) {
  const auto task = due(u"2026-03-05T14:00:00"_s);
  desk.reminders.schedule(*task);
  task->set(&TaskRecord::dueDate, desk.at(u"2026-03-06T00:00:00"_s));
  desk.reminders.schedule(*task);
  EXPECT_EQ(pending(task), QStringList{u"-day 2026-03-06 09:00 Due today"_s});
}

TEST_F(Reminders, ofOtherNotesStayWhenOneIsCancelled) {
  const auto first = due(u"2026-03-05T14:00:00"_s);
  const auto second = due(u"2026-03-06T00:00:00"_s);
  desk.reminders.rescheduleAll({first, second});
  EXPECT_EQ(desk.notifications.removeAllCalls, 1);
  desk.reminders.cancel(first->id());
  EXPECT_EQ(pending(second).size(), 1);
}

TEST_F(Reminders, tellWhichNoteTheyBelongTo) {
  const auto id = QUuid::createUuid();
  const auto text = id.toString(QUuid::WithoutBraces).toUpper();
  for (const char* suffix : {"-early", "-due", "-morning", "-day"}) {
    EXPECT_EQ(NotificationEngine::noteOf(text + QString::fromLatin1(suffix)), id);
  }
  EXPECT_TRUE(NotificationEngine::noteOf(u"tray-missing"_s).isNull());
  EXPECT_TRUE(NotificationEngine::noteOf(text).isNull());
}

TEST_F(Reminders, followAnEdit) {
  QObject owner;
  followEdits(desk.center, desk.notes(), desk.reminders, &owner);
  const auto task = due(u"2026-03-05T14:00:00"_s);
  Q_EMIT desk.center.taskDidUpdate(task->id());
  EXPECT_EQ(pending(task).size(), 3);
  Q_EMIT desk.center.taskDidUpdate(QUuid::createUuid());
  EXPECT_EQ(pending(task).size(), 3);
}

namespace {

class DeskDuties : public testing::Test {
 protected:
  bool nudge(const QString& local) {
    desk.time.setLocal(local);
    return planNudgeIfDue(desk.defaults, desk.time, {[this] { return isBoardVisible; }, [this] { ++presents; }});
  }

  Desk desk;
  bool isBoardVisible = false;
  int presents = 0;
};

}  // namespace

TEST_F(DeskDuties, putWhatBelongsThereBackOnTheDesktop) {
  const auto as = [](auto change) { return std::function<void(TaskRecord&)>(change); };
  const auto make = [&](const std::function<void(TaskRecord&)>& change) {
    return desk.add(u"note"_s, [&](auto& r) {
      r.isTornOff = true;
      change(r);
    });
  };
  const auto torn = make([](auto&) {});
  const auto open = make([](auto&) {});
  desk.torn.open.insert(open->id());
  desk.torn.nearRects[open->id()] = DesktopRect{1, 2, 3, 4};
  const auto due = make([&](TaskRecord& r) {
    r.recurrenceRaw = u"daily"_s;
    r.dueDate = desk.at(u"2026-03-03T23:59:00"_s);
  });
  const std::vector<std::pair<const char*, TaskPtr>> others{
      {"finished", make(as([](TaskRecord& r) { r.isCompleted = true; }))},
      {"burned", make(as([](TaskRecord& r) { r.isBurned = true; }))},
      {"on the board", make(as([](TaskRecord& r) { r.isTornOff.reset(); }))},
      {"asleep", make(as([&](TaskRecord& r) {
         r.recurrenceRaw = u"daily"_s;
         r.dueDate = desk.at(u"2026-03-04T00:00:00"_s);
       }))},
  };
  restickDueNotes(desk.notes(), desk.torn, desk.time);
  EXPECT_TRUE(desk.torn.isOpen(torn->id()));
  EXPECT_TRUE(desk.torn.isOpen(due->id()));
  EXPECT_EQ(desk.torn.nearRects[torn->id()], std::nullopt);
  EXPECT_TRUE(desk.torn.nearRects[open->id()]) << "an open window stays where it is";
  for (const auto& [name, task] : others) EXPECT_FALSE(desk.torn.isOpen(task->id())) << name;

  desk.time.setLocal(u"2026-03-04T00:00:00"_s);
  restickDueNotes(desk.notes(), desk.torn, desk.time);
  EXPECT_TRUE(desk.torn.isOpen(others.back().second->id())) << "its day has come";
}

TEST_F(DeskDuties, dropTheBoardOncePerDayFromFiveOn) {
  ASSERT_TRUE(desk.defaults.setBoolean(keys::kHasSeenWelcome, true).isOk());
  EXPECT_FALSE(nudge(u"2026-03-03T04:59:59"_s));
  EXPECT_TRUE(nudge(u"2026-03-03T05:00:00"_s));
  EXPECT_EQ(desk.defaults.text(keys::kLastPlanNudgeDay), u"2026-03-03"_s);
  EXPECT_FALSE(nudge(u"2026-03-03T05:00:01"_s));
  EXPECT_FALSE(nudge(u"2026-03-03T23:59:59"_s));
  EXPECT_FALSE(nudge(u"2026-03-04T00:00:00"_s));
  EXPECT_TRUE(nudge(u"2026-03-04T23:30:00"_s));
  EXPECT_EQ(presents, 2);
}

TEST_F(DeskDuties, waitForTheBoardTheWelcomeAndTheSetting) {
  EXPECT_FALSE(nudge(u"2026-03-03T08:00:00"_s)) << "the welcome flow comes first";
  ASSERT_TRUE(desk.defaults.setBoolean(keys::kHasSeenWelcome, true).isOk());
  isBoardVisible = true;
  EXPECT_FALSE(nudge(u"2026-03-03T08:00:00"_s));
  EXPECT_FALSE(desk.defaults.text(keys::kLastPlanNudgeDay)) << "a board that is there was not dropped";
  isBoardVisible = false;
  ASSERT_TRUE(desk.defaults.setBoolean(keys::kPlanNudge, false).isOk());
  EXPECT_FALSE(nudge(u"2026-03-03T08:00:00"_s));
  ASSERT_TRUE(desk.defaults.setText(keys::kPlanNudge, u"off"_s).isOk());
  EXPECT_TRUE(nudge(u"2026-03-03T08:00:00"_s)) << "what is no bool counts as on";
}

TEST_F(DeskDuties, dropTheBoardByTheUsersOwnDay) {
  ASSERT_TRUE(desk.defaults.setBoolean(keys::kHasSeenWelcome, true).isOk());
  EXPECT_TRUE(nudge(u"2026-03-03T22:00:00"_s));
  // In Tokyo it is the next morning already.
  desk.time.setZone(QTimeZone("Asia/Tokyo"));
  EXPECT_TRUE(planNudgeIfDue(desk.defaults, desk.time, {[] { return false; }, [] {}}));
  EXPECT_EQ(desk.defaults.text(keys::kLastPlanNudgeDay), u"2026-03-04"_s);
}

}  // namespace tarnwick::test
