// SPDX-License-Identifier: MIT
#include "WholeProgram.h"

#include <QAbstractButton>
#include <QApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMessageBox>

namespace tarnwick::test {
namespace {

using namespace std::chrono_literals;

QJsonObject settingsOf(const WholeProgram& program) {
  QFile file(program.settingsPath());
  return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

int visibleWindows(const char* className) {
  int count = 0;
  for (const auto* widget : QApplication::topLevelWidgets()) {
    if (widget->isVisible() && widget->inherits(className)) ++count;
  }
  return count;
}

TEST(Launch, aFreshAccountIsMigratedGreetedAndNotNudged) {
  WholeProgram program;
  program.launch();
  const auto settings = settingsOf(program);
  EXPECT_TRUE(settings[u"v1SellableDefaultsApplied"].toBool());
  EXPECT_EQ(settings[u"noteDisplayMode"].toString(), QStringLiteral("alwaysOnTop"));
  EXPECT_EQ(settings[u"clipboardCaptureEnabled"], QJsonValue(false));
  EXPECT_FALSE(program.panel().isPresented());
  program.advance(5s);
  EXPECT_FALSE(program.panel().isPresented()) << "the plan nudge waits for the welcome";
  EXPECT_EQ(program.notifications.authorizationRequests, 1);
  EXPECT_TRUE(program.hotKeys.chords.contains(QStringLiteral("Meta+Shift+T")));
}

TEST(Launch, theMigrationRunsOnceAndTheUsersLaterChoiceStands) {
  WholeProgram program;
  program.writeSettings(R"({"hasSeenWelcome": true, "clipboardCaptureEnabled": true, "planNudge": false, "autoCheckUpdates": false})");
  program.launch();
  EXPECT_EQ(settingsOf(program)[u"clipboardCaptureEnabled"], QJsonValue(false));
  program.tarnwick({QStringLiteral("settings"), QStringLiteral("clipboardCaptureEnabled"), QStringLiteral("true")});
  program.launch();
  EXPECT_EQ(settingsOf(program)[u"clipboardCaptureEnabled"], QJsonValue(true));
}

struct NudgeCase {
  const char* now;
  const char* settings;
  bool drops;
};

TEST(Launch, theMorningNudgeDropsTheBoardOnceADay) {
  const NudgeCase cases[] = {
      {"2026-03-03T04:59:00", R"({"hasSeenWelcome": true})", false},
      {"2026-03-03T05:00:00", R"({"hasSeenWelcome": true})", true},
      {"2026-03-03T23:30:00", R"({"hasSeenWelcome": true})", true},
      {"2026-03-03T08:00:00", R"({"hasSeenWelcome": true, "planNudge": false})", false},
      {"2026-03-03T08:00:00", R"({"hasSeenWelcome": true, "planNudge": "off"})", true},
      {"2026-03-03T08:00:00", R"({"hasSeenWelcome": true, "lastPlanNudgeDay": "2026-03-03"})", false},
      {"2026-03-03T08:00:00", R"({"hasSeenWelcome": true, "lastPlanNudgeDay": "2026-03-02"})", true},
  };
  for (const auto& row : cases) {
    WholeProgram program;
    program.time.setLocal(QString::fromLatin1(row.now));
    auto settings = QJsonDocument::fromJson(row.settings).object();
    settings[u"autoCheckUpdates"] = false;
    program.writeSettings(QJsonDocument(settings).toJson());
    program.launch();
    program.advance(790ms);
    EXPECT_FALSE(program.panel().isPresented()) << row.now;
    program.advance(20ms);
    EXPECT_EQ(program.panel().isPresented(), row.drops) << row.now << " " << row.settings;
  }
}

TEST(Launch, wakingNudgesLaterAndOnlyOnce) {
  WholeProgram program;
  program.time.setLocal(QStringLiteral("2026-03-03T03:00:00"));
  program.writeSettings(R"({"hasSeenWelcome": true, "autoCheckUpdates": false})");
  program.launch();
  program.advance(1s);
  program.time.jump(5h);
  program.power.events.notify(PowerEvent::DidWake);
  program.power.events.notify(PowerEvent::ScreensDidWake);
  program.advance(1190ms);
  EXPECT_FALSE(program.panel().isPresented());
  program.advance(20ms);
  EXPECT_TRUE(program.panel().isPresented());
  program.panel().orderOut();
  program.power.events.notify(PowerEvent::SessionBecameActive);
  program.advance(2s);
  EXPECT_FALSE(program.panel().isPresented());
}

TEST(Launch, reopeningPresentsTheBoardUnlessAWindowIsThere) {
  WholeProgram program;
  program.writeSettings(WholeProgram::seasoned());
  auto& delegate = program.launch();
  delegate.applicationShouldHandleReopen();
  EXPECT_TRUE(program.panel().isPresented());
  program.panel().orderOut();
  delegate.showSettings();
  delegate.applicationShouldHandleReopen();
  EXPECT_FALSE(program.panel().isPresented());
}

TEST(Launch, aStoreThatCannotBeOpenedIsLeftAloneAndSaidSo) {
  WholeProgram program;
  program.writeSettings(WholeProgram::seasoned());
  QDir().mkpath(QFileInfo(program.storePath()).path());
  const QByteArray garbage(5000, 'x');
  {
    QFile file(program.storePath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(garbage);
  }
  auto& delegate = program.launch();
  EXPECT_EQ(delegate.panel(), nullptr);
  EXPECT_TRUE(program.hotKeys.chords.empty());
  EXPECT_EQ(visibleWindows("QMessageBox"), 1);
  const auto error = program.tarnwick({QStringLiteral("list")}, 1);
  EXPECT_TRUE(error.startsWith(QStringLiteral("tarnwick: "))) << qPrintable(error);
  EXPECT_EQ(program.tarnwick({QStringLiteral("settings"), QStringLiteral("dailyBurn")}), QStringLiteral("true"));
  const auto status = QJsonDocument::fromJson(
      program.tarnwick({QStringLiteral("status"), QStringLiteral("--json")}).toUtf8()).object();
  EXPECT_FALSE(status[u"board"][u"visible"].toBool(true));
  delegate.applicationShouldHandleReopen();
  delegate.toggleBoard();
  delegate.runAction(QStringLiteral("new-note"));
  delegate.runAction(QStringLiteral("settings"));
  EXPECT_EQ(visibleWindows("tarnwick::SettingsView"), 1) << "the settings need no store";
  for (auto* widget : QApplication::topLevelWidgets()) {
    for (auto* button : widget->findChildren<QAbstractButton*>()) {
      if (button->text() == QStringLiteral("Import…")) button->click();
    }
  }
  EXPECT_EQ(visibleWindows("tarnwick::ImportWindow"), 0) << "there is nowhere to import to";
  program.stop();
  QFile file(program.storePath());
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(), garbage);
}

TEST(Launch, anIdleProgramWakesOnceAMinute) {
  WholeProgram program;
  program.writeSettings(WholeProgram::seasoned());
  program.launch();
  const auto note = program.tarnwick({QStringLiteral("add"), QStringLiteral("Quiet")});
  program.advance(10s);
  EXPECT_EQ(program.time.repeatingCount(), 1) << "nothing but the burn pass repeats while nothing moves";
}

}  // namespace
}  // namespace tarnwick::test
