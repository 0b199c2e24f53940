// SPDX-License-Identifier: MIT
#include "WholeProgram.h"

#include "board/NotificationEngine.h"
#include "shell/TornNotePanel.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tarnwick::test {
namespace {

using namespace std::chrono_literals;

class NoteLife : public testing::Test {
 protected:
  void SetUp() override {
    program.writeSettings(WholeProgram::seasoned());
    program.launch();
  }
  QString add(const QStringList& words) { return program.tarnwick(QStringList{QStringLiteral("add")} + words); }
  WholeProgram program;
};

TEST_F(NoteLife, aNewNoteIsTornOffRemindedAndThereAfterARestart) {
  const auto id = add({QStringLiteral("Call home"), QStringLiteral("--due"), QStringLiteral("2026-03-04T14:00")});
  const auto uuid = QUuid::fromString(id);
  EXPECT_TRUE(program.panel().isOpen(uuid));
  ASSERT_EQ(program.notifications.requests.size(), 3U);
  const auto before = program.note(id)->record();
  program.notifications.requests.clear();
  program.launch();
  EXPECT_EQ(program.note(id)->record(), before);
  EXPECT_TRUE(program.panel().isOpen(uuid));
  EXPECT_EQ(program.notifications.requests.size(), 3U) << "reminders are planned again at launch";
}

TEST_F(NoteLife, aReminderIsActedOnFromItsNotification) {
  const auto acts = [this](const QString& note, const QString& action) {
    program.notifications.actedOn.notify(note + QStringLiteral("-due"), action);
    program.settle();
  };
  const auto due = [this](const QString& text) {
    return add({text, QStringLiteral("--due"), QStringLiteral("2026-03-03T14:00"), QStringLiteral("--no-tear")});
  };
  const auto note = due(QStringLiteral("Call home"));
  acts(note, {});
  EXPECT_TRUE(program.panel().isPresented()) << "the board shows the note";
  program.advance(4h);
  acts(note, NotificationEngine::kRemindLater);
  auto& requests = program.notifications.requests;
  const auto later = std::ranges::find(requests, note + QStringLiteral("-due"), &NotificationRequest::identifier);
  ASSERT_NE(later, requests.end());
  EXPECT_EQ(later->firesAt, program.time.now().addSecs(3600));
  acts(note, NotificationEngine::kCrush);
  EXPECT_TRUE(program.note(note)->isCompleted());
  std::erase_if(requests, [](const auto& each) { return each.identifier == u"tray-missing"; });
  EXPECT_TRUE(requests.empty());
  const auto finished = program.note(note)->record();
  for (const auto& action : {NotificationEngine::kCrush, NotificationEngine::kRemindLater, QStringLiteral("nonsense")}) {
    acts(note, action);
    acts(QStringLiteral("00000000-0000-0000-0000-000000000001"), action);
  }
  EXPECT_EQ(program.note(note)->record(), finished);
  EXPECT_TRUE(requests.empty());
}

TEST_F(NoteLife, theDaysCopyIsMadeBeforeTheBurn) {
  program.time.setLocal(QStringLiteral("2026-03-03T23:59:30"));
  add({QStringLiteral("Nobody cared")});
  program.advance(2min);  // the pass comes before anybody says that the day has changed
  const auto copy = QFileInfo(program.storePath()).dir().filePath(QStringLiteral("backups/Tarnwick-2026-03-04.store"));
  const auto yesterday = ModelContainer::open(copy);
  ASSERT_TRUE(yesterday.isOk());
  EXPECT_FALSE(yesterday.value()->mainContext().fetchTasks().front()->isBurned());
}

TEST_F(NoteLife, midnightBurnsWhatNobodyCrushedAndClosesItsWindow) {
  program.time.setLocal(QStringLiteral("2026-03-03T23:58:30"));
  const auto plain = add({QStringLiteral("Nobody cared")});
  const auto dated = add({QStringLiteral("Dated"), QStringLiteral("--due"), QStringLiteral("2026-03-09")});
  const auto daily = add({QStringLiteral("Daily"), QStringLiteral("--repeat"), QStringLiteral("daily")});
  program.advance(3min);
  EXPECT_TRUE(program.note(plain)->isBurned());
  EXPECT_FALSE(program.panel().isOpen(QUuid::fromString(plain)));
  EXPECT_FALSE(program.note(dated)->isBurned());
  EXPECT_FALSE(program.note(daily)->isBurned());
  EXPECT_TRUE(program.panel().isOpen(QUuid::fromString(dated)));
  program.tarnwick({QStringLiteral("revive"), plain});
  EXPECT_FALSE(program.note(plain)->isBurned());
  program.advance(5min);
  EXPECT_FALSE(program.note(plain)->isBurned()) << "a revived note has its day";
}

TEST_F(NoteLife, aRepeatingNoteSleepsAfterItsCrushAndComesBackOnItsDay) {
  const auto id = add({QStringLiteral("Stretch"), QStringLiteral("--repeat"), QStringLiteral("daily"),
                       QStringLiteral("--due"), QStringLiteral("2026-03-03T09:00")});
  program.tarnwick({QStringLiteral("crush"), id});
  EXPECT_FALSE(program.note(id)->isCompleted());
  program.advance(14h);
  program.power.events.notify(PowerEvent::DayChanged);
  program.settle();
  EXPECT_EQ(program.time.now().toTimeZone(program.time.timeZone()).date(), QDate(2026, 3, 4));
  EXPECT_FALSE(program.note(id)->isBurned());
  const auto active = QJsonDocument::fromJson(program.tarnwick({QStringLiteral("list"), QStringLiteral("--json")}).toUtf8());
  ASSERT_EQ(active.array().size(), 1);
  EXPECT_EQ(active[0][u"dueDate"].toString(), QStringLiteral("2026-03-04T09:00:00.000+01:00"));
}

TEST_F(NoteLife, crushUndoAndUndoAgain) {
  const auto id = add({QStringLiteral("Once")});
  program.tarnwick({QStringLiteral("crush"), id});
  EXPECT_TRUE(program.note(id)->isCompleted());
  EXPECT_FALSE(program.panel().isOpen(QUuid::fromString(id)));
  program.tarnwick({QStringLiteral("undo")});
  EXPECT_FALSE(program.note(id)->isCompleted());
  EXPECT_TRUE(program.panel().isOpen(QUuid::fromString(id)));
  program.tarnwick({QStringLiteral("undo")}, 1);
}

TEST_F(NoteLife, aNoteThatLetsGoOfItsWindowKeepsItsPlace) {
  const auto id = add({QStringLiteral("Here")});
  auto* panel = program.panel().tornPanel(QUuid::fromString(id));
  ASSERT_NE(panel, nullptr);
  program.tarnwick({QStringLiteral("redock"), id});
  EXPECT_FALSE(program.note(id)->isTornOff());
  EXPECT_FALSE(program.panel().isOpen(QUuid::fromString(id)));
  program.tarnwick({QStringLiteral("tear"), id});
  EXPECT_TRUE(program.note(id)->isTornOff());
}

}  // namespace
}  // namespace tarnwick::test
