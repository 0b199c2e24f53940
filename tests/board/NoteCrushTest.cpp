// SPDX-License-Identifier: MIT
#include "board/NoteCrush.h"

#include "board/Ashes.h"
#include "board/DeskDuties.h"
#include "model/AppNotesPrefs.h"
#include "support/Desk.h"

#include <QSignalSpy>

namespace tarnwick::test {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class Crush : public testing::Test {
 protected:
  std::unique_ptr<NoteCrush> card(const TaskPtr& task) {
    return std::make_unique<NoteCrush>(desk.services, task, NoteCrush::Card{[] { return kCardFrame; }, {}});
  }
  std::unique_ptr<NoteCrush> tornNote(const TaskPtr& task) {
    desk.torn.open.insert(task->id());
    return std::make_unique<NoteCrush>(
        desk.services, task,
        NoteCrush::TornNote{[this] { return window; }, [] { return DesktopPoint{500, 300}; }, {}, [this] { ++redocks; },
                            [this] { flightsWhenHidden.push_back(desk.flight.plays.size()); }});
  }
  TaskPtr oneOff(const std::function<void(TaskRecord&)>& change = {}) { return desk.add(u"one-off"_s, change); }
  TaskPtr daily(const QString& due) {
    return desk.add(u"daily"_s, [&](auto& r) {
      r.recurrenceRaw = u"daily"_s;
      r.dueDate = desk.at(due);
      r.isTornOff = true;
    });
  }

  static constexpr DesktopRect kCardFrame{10, 20, 175, 112};
  Desk desk;
  std::optional<DesktopRect> window = DesktopRect{100, 100, 250, 230};
  int redocks = 0;
  std::vector<std::size_t> flightsWhenHidden;
};

}  // namespace

TEST_F(Crush, ofACardSoundsAtOnceAndWritesWhenThePaperLands) {
  const auto task = oneOff();
  const auto before = task->record();
  const auto crush = card(task);
  QSignalSpy told(&desk.center, &NotificationCenter::crushDidComplete);
  crush->crush();
  EXPECT_TRUE(crush->isCrushing());
  EXPECT_EQ(desk.audio.log.filter(u"play crush"_s).size(), 1);
  EXPECT_EQ(desk.haptics.performed, std::vector{HapticPattern::Generic});
  ASSERT_EQ(desk.flight.plays.size(), 1u);
  EXPECT_EQ(desk.flight.plays[0].from, kCardFrame);
  EXPECT_EQ(desk.flight.plays[0].paper.name().toUpper(), u"#FFE169");
  EXPECT_EQ(task->record(), before);

  desk.time.advance(900ms);
  desk.flight.land();
  EXPECT_TRUE(task->isCompleted());
  EXPECT_EQ(task->record().completedAt, desk.time.now());
  EXPECT_EQ(desk.stored(task->id()), task->record());
  EXPECT_EQ(told.size(), 1);
  EXPECT_FALSE(crush->isCrushing());
}

TEST_F(Crush, fliesAPlainSheetWhereCapturesMustNotReadTheNote) {
  const auto readable = [] {
    QImage picture(4, 4, QImage::Format_ARGB32);
    picture.fill(Qt::yellow);
    return picture;
  };
  struct Row {
    const char* what;
    bool isPrivate;
    bool isHiddenFromSharing;
    bool isPictured;
  };
  for (const auto& row : {Row{"an open note", false, false, true}, Row{"a private note", true, false, false},
                          Row{"every note is hidden", false, true, false}}) {
    AppNotesPrefs(desk.defaults, desk.center).setHideFromCapture(row.isHiddenFromSharing);
    const auto task = oneOff([&](auto& r) {
      if (row.isPrivate) r.isPrivate = true;
    });
    NoteCrush fromCard(desk.services, task, NoteCrush::Card{[] { return kCardFrame; }, readable});
    fromCard.begin();
    NoteCrush fromWindow(desk.services, task,
                         NoteCrush::TornNote{[this] { return window; }, [] { return DesktopPoint{}; }, readable, {}});
    fromWindow.begin();
    ASSERT_EQ(desk.flight.plays.size(), 2u);
    for (const auto& play : desk.flight.plays) EXPECT_EQ(!play.picture.isNull(), row.isPictured) << row.what;
    desk.flight.plays.clear();
  }
}

TEST_F(Crush, ofACardClosesTheNotesWindowBeforeTheFlight) {
  const auto task = oneOff([](auto& r) { r.isTornOff = true; });
  desk.torn.open.insert(task->id());
  const auto crush = card(task);
  crush->begin();
  EXPECT_FALSE(desk.torn.isOpen(task->id()));
  EXPECT_TRUE(task->isTornOff());
  desk.flight.land();
  EXPECT_FALSE(task->isTornOff());
  ASSERT_TRUE(desk.undo.last);
  EXPECT_TRUE(desk.undo.last->wasTornOff);
}

TEST_F(Crush, movesAMissedDailyNoteToTomorrowAndKeepsItActive) {
  desk.time.setLocal(u"2026-03-28T10:00:00"_s);
  const auto task = daily(u"2026-03-25T02:30:00"_s);
  desk.torn.open.insert(task->id());
  const auto crush = card(task);
  crush->begin();
  desk.flight.land();
  EXPECT_FALSE(task->isCompleted());
  EXPECT_FALSE(task->record().completedAt);
  // 02:30 does not exist in the night of the change; the note takes the first moment after the gap.
  EXPECT_EQ(desk.local(task->dueDate()), u"2026-03-29 03:00");
  EXPECT_TRUE(task->isTornOff());
  EXPECT_EQ(desk.notifications.requests.size(), 3u);
  ASSERT_TRUE(desk.undo.last);
  EXPECT_TRUE(desk.undo.last->recurrenceAdvanced);
  EXPECT_EQ(desk.local(desk.undo.last->previousDueDate), u"2026-03-25 02:30");
  EXPECT_EQ(desk.undo.last->dueDateAfterCrush, task->dueDate());
}

TEST_F(Crush, takesAReminderAwayWithTheNote) {
  const auto task = oneOff([&](auto& r) { r.dueDate = desk.at(u"2026-03-05T14:00:00"_s); });
  desk.reminders.schedule(*task);
  ASSERT_EQ(desk.notifications.requests.size(), 3u);
  const auto crush = card(task);
  crush->begin();
  desk.flight.land();
  EXPECT_TRUE(desk.notifications.requests.empty());
  EXPECT_EQ(desk.local(task->dueDate()), u"2026-03-05 14:00") << "a finished note keeps its date";
}

TEST_F(Crush, isTakenBackByASecondRequest) {
  for (const bool isTorn : {false, true}) {
    const auto task = oneOff();
    const auto before = task->record();
    const auto crush = isTorn ? tornNote(task) : card(task);
    QSignalSpy told(&desk.center, &NotificationCenter::crushDidComplete);
    QSignalSpy aborted(crush.get(), &NoteCrush::aborted);
    crush->crush();
    crush->crush();
    EXPECT_FALSE(crush->isCrushing());
    EXPECT_EQ(aborted.size(), 1);
    EXPECT_EQ(desk.flight.takenBack, isTorn ? 2 : 1) << "nothing flies on";
    desk.flight.land();
    EXPECT_EQ(task->record(), before);
    EXPECT_EQ(told.size(), 0);
    EXPECT_FALSE(desk.undo.last);
  }
}

TEST_F(Crush, opensTheWindowAgainThatItsCardHadClosed) {
  const auto task = oneOff([](auto& r) { r.isTornOff = true; });
  const auto onBoard = oneOff();
  desk.torn.open.insert(task->id());
  for (const auto& note : {task, onBoard}) {
    const auto crush = card(note);
    crush->crush();
    EXPECT_FALSE(desk.torn.isOpen(note->id()));
    crush->crush();
    EXPECT_EQ(desk.torn.isOpen(note->id()), note == task);
  }
}

TEST_F(Crush, landsOnceWhenTheFirstFlightWasTakenBack) {
  const auto task = oneOff();
  const auto crush = card(task);
  crush->crush();
  crush->crush();
  crush->crush();
  QSignalSpy told(&desk.center, &NotificationCenter::crushDidComplete);
  desk.flight.land();
  EXPECT_FALSE(task->isCompleted()) << "the first flight belongs to the crush that was taken back";
  desk.flight.land();
  EXPECT_TRUE(task->isCompleted());
  EXPECT_EQ(told.size(), 1);
}

TEST_F(Crush, endsWithoutEffectWhenTheNoteIsOverBeforeThePaperLands) {
  const auto as = [](auto change) { return std::function<void(const TaskPtr&)>(change); };
  const std::vector<std::pair<const char*, std::function<void(const TaskPtr&)>>> rows{
      {"burned", as([this](const TaskPtr& task) { burn(*task, desk.time.now()); })},
      {"crushed elsewhere", as([this](const TaskPtr& task) { ASSERT_TRUE(crushAtOnce(desk.services, *task).isOk()); })},
      {"deleted", as([this](const TaskPtr& task) { desk.notes().remove(task); })},
  };
  for (const auto& [name, change] : rows) {
    for (const bool isTorn : {false, true}) {
      const auto task = oneOff([](auto& r) { r.isTornOff = true; });
      const auto crush = isTorn ? tornNote(task) : card(task);
      crush->crush();
      change(task);
      const auto before = task->record();
      const auto last = desk.undo.last;
      QSignalSpy told(&desk.center, &NotificationCenter::crushDidComplete);
      desk.time.advance(1s);
      desk.flight.land();
      EXPECT_EQ(task->record(), before) << name;
      EXPECT_EQ(desk.undo.last, last) << name;
      EXPECT_EQ(told.size(), 0) << name;
      EXPECT_FALSE(crush->isCrushing()) << name;
      EXPECT_TRUE(isTorn || !desk.torn.isOpen(task->id())) << name;
    }
  }
}

TEST_F(Crush, endsWithoutEffectWhenItsViewIsGone) {
  const auto task = oneOff();
  auto crush = card(task);
  crush->begin();
  crush.reset();
  desk.flight.land();
  EXPECT_FALSE(task->isCompleted());
}

TEST_F(Crush, survivesThatItsViewGoesWhileItFinishes) {
  const auto task = oneOff();
  auto crush = card(task);
  QObject::connect(desk.container.get(), &ModelContainer::didSave, &desk.center, [&] { crush.reset(); });
  QSignalSpy told(&desk.center, &NotificationCenter::crushDidComplete);
  crush->begin();
  desk.flight.land();
  EXPECT_FALSE(crush);
  EXPECT_EQ(told.size(), 1);
  EXPECT_TRUE(desk.undo.last);
}

TEST_F(Crush, ofATornNoteFliesFromItsWindow) {
  const auto task = oneOff([](auto& r) { r.isTornOff = true; });
  const auto crush = tornNote(task);
  crush->crush();
  ASSERT_EQ(desk.flight.plays.size(), 1u);
  EXPECT_EQ(desk.flight.plays[0].from, *window);
  EXPECT_EQ(flightsWhenHidden, std::vector<std::size_t>{1}) << "the window goes when the sheet lies on it";
  QSignalSpy told(&desk.center, &NotificationCenter::crushDidComplete);
  desk.flight.land();
  EXPECT_TRUE(task->isCompleted());
  EXPECT_FALSE(task->isTornOff());
  EXPECT_EQ(redocks, 1);
  EXPECT_EQ(told.size(), 1);
  EXPECT_TRUE(desk.undo.last->wasTornOff);
  EXPECT_EQ(desk.stored(task->id()), task->record());
}

TEST_F(Crush, ofATornNoteThatLandsAtOnceHidesNoWindow) {
  desk.flight.landsAtOnce = true;
  const auto crush = tornNote(oneOff([](auto& r) { r.isTornOff = true; }));
  crush->crush();
  EXPECT_EQ(redocks, 1);
  EXPECT_TRUE(flightsWhenHidden.empty());
}

TEST_F(Crush, ofATornNoteWithoutAWindowFliesFromThePointer) {
  window.reset();
  const auto crush = tornNote(oneOff());
  crush->crush();
  ASSERT_EQ(desk.flight.plays.size(), 1u);
  EXPECT_EQ(desk.flight.plays[0].from, (DesktopRect{400, 200, 200, 200}));
}

TEST_F(Crush, ofARepeatingTornNoteClosesItsWindowAndKeepsItTornOff) {
  const auto task = daily(u"2026-03-03T09:00:00"_s);
  const auto crush = tornNote(task);
  crush->crush();
  desk.flight.land();
  EXPECT_FALSE(desk.torn.isOpen(task->id()));
  EXPECT_TRUE(task->isTornOff());
  EXPECT_EQ(redocks, 0);
  EXPECT_EQ(desk.local(task->dueDate()), u"2026-03-04 09:00");
}

TEST_F(Crush, shredsATornNoteInPlace) {
  struct Row {
    QString effect;
    bool hasReducedMotion;
    std::chrono::milliseconds duration;
  };
  const Row rows[] = {{u"shred"_s, false, 1000ms}, {u"shred"_s, true, 150ms}, {u"crush"_s, true, 150ms}};
  for (const auto& row : rows) {
    ASSERT_TRUE(desk.defaults.setText(keys::kCompletionEffect, row.effect).isOk());
    desk.workspace.hasReducedMotion = row.hasReducedMotion;
    const auto task = oneOff();
    const auto crush = tornNote(task);
    crush->crush();
    EXPECT_EQ(crush->isShredding(), row.effect == u"shred");
    EXPECT_TRUE(desk.flight.plays.empty());
    desk.time.advance(row.duration - 1ms);
    EXPECT_FALSE(task->isCompleted());
    desk.time.advance(1ms);
    EXPECT_TRUE(task->isCompleted());
  }
}

TEST_F(Crush, ofAShreddingNoteCanBeTakenBack) {
  ASSERT_TRUE(desk.defaults.setText(keys::kCompletionEffect, u"shred"_s).isOk());
  const auto task = oneOff();
  const auto crush = tornNote(task);
  crush->crush();
  crush->crush();
  desk.time.advance(2s);
  EXPECT_FALSE(task->isCompleted());
  crush->crush();
  desk.time.advance(1s);
  EXPECT_TRUE(task->isCompleted());
}

TEST_F(Crush, ofACardFliesEvenWhereNotesAreShredded) {
  ASSERT_TRUE(desk.defaults.setText(keys::kCompletionEffect, u"shred"_s).isOk());
  desk.workspace.hasReducedMotion = true;
  const auto crush = card(oneOff());
  crush->crush();
  ASSERT_EQ(desk.flight.plays.size(), 1u);
  EXPECT_EQ(desk.flight.plays[0].motion, Motion::Reduced);
  EXPECT_FALSE(crush->isShredding());
}

TEST_F(Crush, keepsItsStateInMemoryWhenTheSaveFails) {
  const auto task = oneOff();
  const auto crush = card(task);
  QSignalSpy told(&desk.center, &NotificationCenter::crushDidComplete);
  desk.refuseWrites();
  crush->begin();
  desk.flight.land();
  EXPECT_TRUE(task->isCompleted());
  EXPECT_EQ(told.size(), 1);
}

TEST_F(Crush, atOnceDoesWithoutSoundAndFlight) {
  const auto task = oneOff([&](auto& r) {
    r.isTornOff = true;
    r.dueDate = desk.at(u"2026-03-05T14:00:00"_s);
  });
  desk.reminders.schedule(*task);
  desk.torn.open.insert(task->id());
  QSignalSpy told(&desk.center, &NotificationCenter::crushDidComplete);
  const auto crushed = crushAtOnce(desk.services, *task);
  ASSERT_TRUE(crushed.isOk());
  EXPECT_FALSE(crushed.value());
  EXPECT_TRUE(task->isCompleted());
  EXPECT_FALSE(task->isTornOff());
  EXPECT_FALSE(desk.torn.isOpen(task->id()));
  EXPECT_TRUE(desk.notifications.requests.empty());
  EXPECT_TRUE(desk.audio.log.isEmpty());
  EXPECT_TRUE(desk.flight.plays.empty());
  EXPECT_EQ(told.size(), 1);
  EXPECT_TRUE(desk.undo.last->wasTornOff);
}

TEST_F(Crush, atOnceChangesNothingWhenTheSaveFails) {
  const auto task = oneOff([](auto& r) { r.isTornOff = true; });
  desk.torn.open.insert(task->id());
  const auto before = task->record();
  desk.refuseWrites();
  EXPECT_FALSE(crushAtOnce(desk.services, *task).isOk());
  EXPECT_EQ(task->record(), before);
  EXPECT_TRUE(desk.torn.isOpen(task->id()));
  EXPECT_FALSE(desk.undo.last);
}

TEST_F(Crush, isUndoneToTheStateBefore) {
  const auto task = oneOff([&](auto& r) { r.dueDate = desk.at(u"2026-03-05T14:00:00"_s); });
  const auto crush = card(task);
  crush->begin();
  desk.flight.land();
  EXPECT_TRUE(undoLastCrush(desk.services));
  EXPECT_FALSE(task->isCompleted());
  EXPECT_FALSE(task->record().completedAt);
  EXPECT_EQ(desk.local(task->dueDate()), u"2026-03-05 14:00");
  EXPECT_TRUE(desk.torn.open.empty());
  EXPECT_EQ(desk.notifications.requests.size(), 3u) << "the reminders are back";
  EXPECT_EQ(desk.stored(task->id()), task->record());
  EXPECT_FALSE(undoLastCrush(desk.services)) << "there is one step";
}

TEST_F(Crush, isUndoneToTheDesktopAtTheWindowsOwnPlace) {
  desk.time.setLocal(u"2026-01-31T10:00:00"_s);
  const auto task = desk.add(u"monthly"_s, [&](auto& r) {
    r.recurrenceRaw = u"monthly"_s;
    r.dueDate = desk.at(u"2026-01-31T09:00:00"_s);
    r.isTornOff = true;
  });
  const auto crush = tornNote(task);
  crush->begin();
  desk.flight.land();
  EXPECT_EQ(desk.local(task->dueDate()), u"2026-02-28 09:00");
  EXPECT_TRUE(desk.undo.undo(desk.notes()));
  EXPECT_EQ(desk.local(task->dueDate()), u"2026-01-31 09:00");
  EXPECT_TRUE(task->isTornOff());
  EXPECT_TRUE(desk.torn.isOpen(task->id()));
  EXPECT_EQ(desk.torn.nearRects[task->id()], std::nullopt);
}

TEST_F(Crush, isUndoneForTheLastNoteOnly) {
  const auto first = oneOff();
  const auto second = oneOff();
  ASSERT_TRUE(crushAtOnce(desk.services, *first).isOk());
  ASSERT_TRUE(crushAtOnce(desk.services, *second).isOk());
  EXPECT_TRUE(desk.undo.undo(desk.notes()));
  EXPECT_TRUE(first->isCompleted());
  EXPECT_FALSE(second->isCompleted());
  EXPECT_FALSE(desk.undo.undo(desk.notes()));
}

TEST_F(Crush, cannotBeUndoneOnceTheNoteIsGone) {
  const auto task = oneOff();
  ASSERT_TRUE(crushAtOnce(desk.services, *task).isOk());
  desk.notes().remove(task);
  ASSERT_TRUE(desk.notes().save().isOk());
  EXPECT_FALSE(undoLastCrush(desk.services));
}

TEST_F(Crush, isUndoneEvenWhenTheSaveFails) {
  const auto task = oneOff();
  ASSERT_TRUE(crushAtOnce(desk.services, *task).isOk());
  desk.refuseWrites();
  EXPECT_TRUE(desk.undo.undo(desk.notes()));
  EXPECT_FALSE(task->isCompleted());
}

}  // namespace tarnwick::test
