// SPDX-License-Identifier: MIT
// A year at the desk: a user who does anything at any time, in zones that change their clocks, against a plain reference
// of what should be there.
#include "WholeProgram.h"

#include "model/Task.h"


#include <algorithm>
#include <map>
#include <ostream>
#include <random>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// What is known of a note without asking the program.
struct Kept {
  QDateTime created;
  std::optional<QDateTime> due;
  QString rule = u"none"_s;
  QString text;
  bool isCompleted = false;
  bool isBurned = false;
  bool isTornOff = false;
};

struct Journey {
  const char* name;
  QLocale locale;
  std::vector<QByteArray> zones;  // lived in by turns
  unsigned seed;
};
void PrintTo(const Journey& journey, std::ostream* stream) { *stream << journey.name; }

class AYear : public testing::TestWithParam<Journey> {
 protected:
  void SetUp() override {
    program.time.setLocale(GetParam().locale);
    program.time.setZone(QTimeZone(GetParam().zones.front()));
    program.time.setLocal(u"2027-01-01T08:00:00"_s);
    program.writeSettings(WholeProgram::seasoned());
    program.launch();
  }

  // -- chance
  int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
  std::optional<QString> any(const std::function<bool(const Kept&)>& isMeant) {
    std::vector<QString> meant;
    for (const auto& [id, note] : kept) {
      if (isMeant(note)) meant.push_back(id);
    }
    if (meant.empty()) return std::nullopt;
    return meant[static_cast<std::size_t>(below(static_cast<int>(meant.size())))];
  }

  // -- time
  [[nodiscard]] QDateTime now() const { return program.time.now(); }
  [[nodiscard]] QDate day(const QDateTime& moment) const { return moment.toTimeZone(program.time.timeZone()).date(); }
  /// What the desktop says when it notices another day.
  void lookAtTheDay() {
    if (std::exchange(today, day(now())) != today) program.power.events.notify(PowerEvent::DayChanged);
    program.settle();
  }
  void work(std::chrono::minutes duration) {
    for (; duration > 0min; duration -= 1min) {
      program.time.advance(1min);
      if (day(now()) != today) lookAtTheDay();
    }
    program.settle();
    burn();
  }
  void sleep(std::chrono::minutes duration) {
    program.time.jump(duration);
    program.power.events.notify(PowerEvent::DidWake);
    lookAtTheDay();
    burn();
  }
  void fly() {
    const auto& zones = GetParam().zones;
    program.time.setZone(QTimeZone(zones[static_cast<std::size_t>(below(static_cast<int>(zones.size())))]));
    program.power.events.notify(PowerEvent::ClockChanged);
    lookAtTheDay();
    work(2min);
  }

  // -- the reference
  [[nodiscard]] bool isSleeping(const Kept& note) const {
    return note.rule != u"none" && note.due && day(*note.due) > day(now());
  }
  [[nodiscard]] static bool isOpen(const Kept& note) { return !note.isCompleted && !note.isBurned; }
  [[nodiscard]] bool isOnTheWall(const Kept& note) const { return isOpen(note) && !isSleeping(note); }
  void burn() {
    for (auto& [id, note] : kept) {
      if (!isOpen(note) || note.rule != u"none" || note.due || day(note.created) == day(now())) continue;
      note.isBurned = true;
      note.isTornOff = false;
    }
    std::erase_if(program.notifications.requests, [this](const auto& each) { return each.firesAt <= now(); });
  }

  // -- what the user does
  void create() {
    static const QStringList kRules{u"daily"_s, u"every3Days"_s, u"weekdays"_s, u"weekly"_s, u"monthly"_s};
    constexpr int kMostHabits = 12;  // a habit never ends: who has more than these keeps none
    QStringList words{u"add"_s, u"note %1\n- [ ] step"_s.arg(++made)};
    Kept note;
    const auto habits = std::ranges::count_if(kept, [](const auto& each) { return each.second.rule != u"none"; });
    if (habits < kMostHabits && below(3) == 0) note.rule = kRules[below(static_cast<int>(kRules.size()))];
    if (note.rule != u"none") words << u"--repeat"_s << note.rule;
    if (below(3) == 0) words << u"--due"_s << when();
    note.isTornOff = below(10) == 0;
    words << (note.isTornOff ? u"--tear"_s : u"--no-tear"_s);
    const auto id = program.tarnwick(words);
    note.created = now();
    note.text = words[1];
    note.due = program.note(id)->dueDate();
    EXPECT_EQ(note.due.has_value(), words.contains(u"--due"_s) || note.rule != u"none");
    kept[id] = note;
  }
  QString when() {
    const auto date = day(now()).addDays(below(12) - 2).toString(Qt::ISODate);
    static const QStringList kTimes{u"02:30"_s, u"08:00"_s, u"09:00"_s, u"14:45"_s, u"23:59"_s};
    return below(3) == 0 ? date : date + u'T' + kTimes[below(static_cast<int>(kTimes.size()))];
  }
  void edit() {
    const auto id = any([](const Kept& note) { return isOpen(note); });
    if (!id) return;
    auto& note = kept[*id];
    if (note.rule == u"none" && below(3) == 0) {
      program.tarnwick({u"edit"_s, *id, u"--no-due"_s});
      note.due.reset();
    } else {
      note.text = u"note again\n- [x] step %1"_s.arg(++made);
      program.tarnwick({u"edit"_s, *id, u"--text"_s, note.text, u"--due"_s, when()});
      note.due = program.note(*id)->dueDate();
      EXPECT_TRUE(note.due);
    }
  }
  void crush() {
    const auto id = any([this](const Kept& note) { return isOnTheWall(note); });
    if (!id) return;
    auto& note = kept[*id];
    last = {*id, note};
    program.tarnwick({u"crush"_s, *id});
    if (note.rule == u"none") {
      note.isCompleted = true;
      note.isTornOff = false;
    } else {
      const auto old = day(*note.due);
      note.due = program.note(*id)->dueDate();
      checkNextDate(note, old);
    }
  }
  void checkNextDate(const Kept& note, QDate old) {
    const auto tomorrow = day(now()).addDays(1);
    const auto next = day(*note.due);
    static const std::map<QString, int> kLongest{{u"daily"_s, 1}, {u"every3Days"_s, 3}, {u"weekdays"_s, 4}, {u"weekly"_s, 7}, {u"monthly"_s, 31}};
    EXPECT_GE(next, tomorrow) << note.rule.toStdString();
    EXPECT_LT(tomorrow.daysTo(next), kLongest.at(note.rule)) << note.rule.toStdString();
    const int step = note.rule == u"every3Days" ? 3 : note.rule == u"weekly" ? 7 : 1;
    EXPECT_EQ(old.daysTo(next) % step, 0) << note.rule.toStdString();
    const auto workdays = GetParam().locale.weekdays();
    EXPECT_TRUE(note.rule != u"weekdays" || workdays.contains(Qt::DayOfWeek(next.dayOfWeek())));
  }
  void undo() {
    const bool isPossible = last && kept.contains(last->first);
    program.tarnwick({u"undo"_s}, isPossible ? 0 : 1);
    if (!isPossible) return;
    auto& note = kept[last->first];
    note.isCompleted = false;
    if (note.rule != u"none") note.due = last->second.due;
    note.isTornOff = last->second.isTornOff;
    last.reset();
  }
  void tearOrRedock() {
    const auto id = any([this](const Kept& note) { return isOnTheWall(note); });
    if (!id) return;
    program.tarnwick({kept[*id].isTornOff ? u"redock"_s : u"tear"_s, *id});
    kept[*id].isTornOff = !kept[*id].isTornOff;
  }
  void tick() {
    const auto id = any([this](const Kept& note) { return isOnTheWall(note); });
    if (!id) return;
    program.tarnwick({u"check"_s, *id, u"1"_s});
    auto& text = kept[*id].text;
    text.contains(u"[ ]") ? text.replace(u"[ ]"_s, u"[x]"_s) : text.replace(u"[x]"_s, u"[ ]"_s);
  }
  void revive() {
    const auto id = any([](const Kept& note) { return note.isBurned; });
    if (!id) return;
    program.tarnwick({u"revive"_s, *id});
    kept[*id].isBurned = false;
    kept[*id].created = now();
  }
  void sweep() {
    program.tarnwick({u"sweep"_s, u"--yes"_s});
    std::erase_if(kept, [](const auto& entry) { return entry.second.isBurned; });
  }
  void restart() {
    last.reset();
    program.notifications.requests.clear();
    program.launch();
    burn();
  }
  void step() {
    const int chance = below(100);
    if (chance < 24) create();
    else if (chance < 40) edit();
    else if (chance < 66) crush();
    else if (chance < 72) undo();
    else if (chance < 78) tearOrRedock();
    else if (chance < 86) tick();
    else if (chance < 94) revive();
    else if (chance < 97) sweep();
    else if (chance < 98) fly();
    else if (chance < 99) sleep(std::chrono::minutes(below(600)));
    else if (below(4) == 0) restart();
  }

  // -- what must hold after each step
  void check() {
    QStringList wall;
    const auto all = program.context().fetchTasks();
    ASSERT_EQ(all.size(), kept.size());
    for (const auto& task : all) {
      const auto id = idText(task->id());
      ASSERT_TRUE(kept.contains(id));
      const auto& note = kept[id];
      EXPECT_EQ(task->text(), note.text);
      EXPECT_EQ(task->dueDate(), note.due);
      EXPECT_EQ(task->isCompleted(), note.isCompleted);
      EXPECT_EQ(task->record().completedAt.has_value(), note.isCompleted);
      EXPECT_EQ(task->isBurned(), note.isBurned) << note.text.toStdString() << " made " << note.created.toString().toStdString();
      EXPECT_EQ(task->record().burnedAt.has_value(), note.isBurned);
      EXPECT_EQ(task->isTornOff(), note.isTornOff);
      EXPECT_TRUE(!program.panel().isOpen(task->id()) || (note.isTornOff && isOpen(note)));
      if (isOnTheWall(note)) wall.append(id.left(8));
    }
    QStringList shown;
    for (const auto& line : program.tarnwick({u"list"_s}).split(u'\n', Qt::SkipEmptyParts)) shown << line.section(u' ', 0, 0);
    shown.sort();
    wall.sort();
    EXPECT_EQ(shown, wall);
    EXPECT_EQ(reminders(), wanted());
  }
  /// Those that the note's day began with count no more on the day itself: planned anew they would not be.
  [[nodiscard]] QMap<QString, QDateTime> reminders() const {
    QMap<QString, QDateTime> pending;
    for (const auto& each : program.notifications.requests) {
      const bool isOfToday = each.identifier.endsWith(u"-morning") && day(each.firesAt) == day(now());
      if (each.identifier != u"tray-missing" && !isOfToday) pending[each.identifier] = each.firesAt;
    }
    return pending;
  }
  [[nodiscard]] QMap<QString, QDateTime> wanted() const {
    QMap<QString, QDateTime> all;
    const auto zone = program.time.timeZone();
    for (const auto& [id, note] : kept) {
      if (!isOpen(note) || !note.due) continue;
      const auto add = [&](const char* suffix, const QDateTime& moment) {
        if (moment > now()) all[id + QLatin1String(suffix)] = moment.toUTC();
      };
      const auto local = note.due->toTimeZone(zone);
      const QDateTime morning(local.date(), QTime(9, 0), zone);
      if (local == local.date().startOfDay(zone)) {
        add("-day", morning);
        continue;
      }
      add("-early", note.due->addSecs(-900));
      add("-due", *note.due);
      if (day(*note.due) != day(now())) add("-morning", morning);
    }
    return all;
  }

  WholeProgram program;
  std::mt19937 random{GetParam().seed};
  std::map<QString, Kept> kept;
  std::optional<std::pair<QString, Kept>> last;
  QDate today{2027, 1, 1};
  int made = 0;
};

TEST_P(AYear, isKeptAsAPlainListWouldKeepIt) {
  const QDate end = today.addDays(365);
  while (today < end && !HasFailure()) {
    SCOPED_TRACE(today.toString(Qt::ISODate).toStdString() + ' ' + program.time.timeZone().id().toStdString());
    for (int steps = 1 + below(5); steps > 0; --steps) {
      step();
      work(std::chrono::minutes(1 + below(25)));
      check();
    }
    // some work through midnight, most sleep over it, a few are away for days
    const auto local = now().toTimeZone(program.time.timeZone());
    const auto left = std::chrono::minutes(local.secsTo(local.date().addDays(1).startOfDay(program.time.timeZone())) / 60);
    const int night = below(20);
    if (night < 1) work(left + 2min);
    else sleep(left + std::chrono::minutes(night == 19 ? 4000 : 420));
    check();
  }
  EXPECT_GT(made, 150);
}

INSTANTIATE_TEST_SUITE_P(
    journeys, AYear,
    testing::Values(Journey{"home", QLocale(QLocale::English, QLocale::UnitedStates), {"Europe/Berlin", "America/New_York"}, 1},
                    Journey{"abroad", QLocale(QLocale::Arabic, QLocale::Egypt), {"Australia/Lord_Howe", "Africa/Cairo", "America/Santiago"}, 2}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace tarnwick::test
