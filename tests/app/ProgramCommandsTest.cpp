// SPDX-License-Identifier: MIT
#include "app/CommandDesk.h"
#include "app/commands/OfflineServices.h"

#include <QSignalSpy>

namespace tarnwick::test {

using namespace Qt::StringLiterals;

using ProgramCommands = CommandDesk;

TEST_F(ProgramCommands, reachTheRunningProgram) {
  for (const auto& verb : {u"toggle"_s, u"board"_s, u"new"_s, u"quit"_s}) EXPECT_EQ(done({verb}), u"");
  EXPECT_EQ(calls.join(u' '), u"toggle board new quit");
  EXPECT_EQ(storeOpenings, 0);
}

TEST_F(ProgramCommands, sayThatNothingRuns) {
  program = Program::Absent;
  for (const QStringList& words :
       {QStringList{u"toggle"_s}, QStringList{u"board"_s}, QStringList{u"new"_s}, QStringList{u"quit"_s},
        QStringList{u"undo"_s}, QStringList{u"status"_s}, QStringList{u"tear"_s, u"abcd"_s},
        QStringList{u"redock"_s, u"abcd"_s}}) {
    EXPECT_EQ(fails(1, words), u"not running");
  }
  EXPECT_EQ(storeOpenings, 0);
  fails(2, {u"toggle"_s, u"twice"_s});
}

TEST_F(ProgramCommands, tellVersionAndHelp) {
  EXPECT_EQ(done({u"--version"_s}), u"tarnwick "_s + QLatin1StringView(TARNWICK_VERSION) + u'\n');
  EXPECT_TRUE(done({u"--help"_s}).startsWith(u"Usage: tarnwick"));
  EXPECT_TRUE(done({u"list"_s, u"--help"_s}).contains(u"--state"));
}

TEST_F(ProgramCommands, tellWhatRunsAsJson) {
  EXPECT_EQ(done({u"status"_s, u"--json"_s}),
            u"{\"version\":\"\",\"pid\":0,\"board\":{\"visible\":false,\"dismissing\":false,\"frame\":null},"
            "\"windows\":[],\"context\":{\"frontBundleID\":null,\"folderPath\":null,\"gitRoot\":null,"
            "\"gitBranch\":null,\"lastExternalApp\":null},\"reminders\":[],\"platform\":{\"session\":\"\","
            "\"tray\":\"unavailable\",\"hotKey\":\"unavailable\",\"accessibility\":\"unavailable\","
            "\"notifications\":\"unavailable\",\"audio\":\"unavailable\",\"captureExclusion\":\"unavailable: not available here\"}}\n"_s);
  status.version = u"0.1.0"_s;
  status.pid = 4711;
  status.board = {true, false, QRect(875, 36, 390, 390)};
  StatusReport::Window window;
  window.id = QUuid::fromString(u"0f8e7d6c-5b4a-4938-8271-605f4e3d2c1b"_s);
  window.frame = QRect(-10, 20, 250, 230);
  window.isVisible = true;
  window.level = WindowLevel::Desktop;
  window.isGhost = true;
  window.isDocked = true;
  window.sharing = SharingType::None;
  window.opacity = 0.55;
  status.windows.push_back(window);
  status.context = {u"code"_s, u"/repo/src"_s, u"/repo"_s, u"main"_s};
  status.lastExternalApp = u"code"_s;
  status.reminders.push_back({u"ID-day"_s, u"Due today"_s, u"body"_s, desk.at(u"2026-07-04T09:00:00"_s)});
  status.platform.session = u"x11"_s;
  status.platform.tray = PortTraits::served(u"StatusNotifierItem"_s);
  status.platform.audio = PortTraits::unavailable(u"no \"sound\" server"_s);
  status.platform.captureExclusion = PortTraits::served(u"pipewire"_s);
  status.platform.captureLevel = CaptureExclusion::HiddenWhileSharing;
  EXPECT_EQ(done({u"status"_s, u"--json"_s}),
            u"{\"version\":\"0.1.0\",\"pid\":4711,\"board\":{\"visible\":true,\"dismissing\":false,"
            "\"frame\":[875,36,390,390]},\"windows\":[{\"id\":\"0F8E7D6C-5B4A-4938-8271-605F4E3D2C1B\","
            "\"frame\":[-10,20,250,230],\"visible\":true,\"level\":\"desktop\",\"ghost\":true,\"tucked\":false,"
            "\"docked\":true,\"sharing\":\"none\",\"opacity\":0.55}],\"context\":{\"frontBundleID\":\"code\","
            "\"folderPath\":\"/repo/src\",\"gitRoot\":\"/repo\",\"gitBranch\":\"main\",\"lastExternalApp\":\"code\"},"
            "\"reminders\":[{\"identifier\":\"ID-day\",\"title\":\"Due today\","
            "\"firesAt\":\"2026-07-04T09:00:00.000+02:00\"}],\"platform\":{\"session\":\"x11\","
            "\"tray\":\"StatusNotifierItem\",\"hotKey\":\"unavailable\",\"accessibility\":\"unavailable\","
            "\"notifications\":\"unavailable\",\"audio\":\"unavailable: no \\\"sound\\\" server\","
            "\"captureExclusion\":\"pipewire: hidden while sharing is detected\"}}\n"_s);
}

TEST_F(ProgramCommands, tellWhatRunsInWords) {
  status.board.isVisible = true;
  status.windows.push_back({});
  const QString text = done({u"status"_s});
  EXPECT_TRUE(text.contains(u"board: shown\n"));
  EXPECT_TRUE(text.contains(u"notes on the desktop: 1\n"));
  EXPECT_TRUE(text.contains(u"audio: unavailable\n"));
}

TEST_F(ProgramCommands, printSettingsAsTheyRead) {
  const std::vector<std::pair<QString, QString>> rows{
      {keys::kNoteDisplayMode, u"alwaysOnTop"_s}, {keys::kDailyBurn, u"true"_s},
      {keys::kClipboardCaptureEnabled, u"false"_s}, {keys::kCompletionEffect, u"crush"_s},
      {keys::kHasSeenWelcome, u"false"_s}, {keys::kPlanNudge, u"true"_s},
      {keys::kLastPlanNudgeDay, QString()}, {keys::kBoardMood, u"obsidian"_s},
      {keys::kHideFromScreenShare, u"false"_s}, {keys::kDefaultPaperTheme, u"plain"_s},
      {keys::kLastUpdateCheck, QString()}, {u"appNoteOffset.0F8E7D6C-5B4A-4938-8271-605F4E3D2C1B"_s, u"-18,-64"_s},
  };
  for (const auto& [key, value] : rows) EXPECT_EQ(done({u"settings"_s, key}), value + u'\n') << key.toStdString();
  const QStringList lines = done({u"settings"_s}).split(u'\n');
  ASSERT_EQ(lines.size(), static_cast<qsizetype>(settingDescriptors().size()) + 1);
  EXPECT_EQ(lines[0], u"noteDisplayMode=alwaysOnTop");
  EXPECT_EQ(lines[1], u"dailyBurn=true");
  EXPECT_EQ(storeOpenings, 0);
}

TEST_F(ProgramCommands, setSettingsInTheFormTheyPrint) {
  const QString offset = u"appNoteOffset.0F8E7D6C-5B4A-4938-8271-605F4E3D2C1B"_s;
  const std::vector<std::tuple<QString, QString, QString>> rows{
      {keys::kDailyBurn, u"false"_s, u"false"_s},
      {keys::kPlanNudge, u"true"_s, u"true"_s},
      {keys::kNoteDisplayMode, u"mouseThrough"_s, u"mouseThrough"_s},
      {keys::kBoardMood, u"corkboard"_s, u"corkboard"_s},
      {keys::kCompletionEffect, u"shred"_s, u"shred"_s},
      {keys::kDefaultPaperTheme, u"construction"_s, u"construction"_s},
      {keys::kHotKey, u"Ctrl+Alt+N"_s, u"Ctrl+Alt+N"_s},
      {keys::kCrushTarget, u"{{1, 2}, {3, 4}}"_s, u"{{1, 2}, {3, 4}}"_s},
      {keys::kLastUpdateCheck, u"2026-03-01T08:00:00.250Z"_s, u"2026-03-01T09:00:00.250+01:00"_s},
      {keys::kLastUpdateCheck, u"2026-03-02"_s, u"2026-03-02T00:00:00.000+01:00"_s},
      {keys::kLastUpdateCheck, u"2026-03-01T09:00:00.000+01:00"_s, u"2026-03-01T09:00:00.000+01:00"_s},
      {keys::kDismissedUpdateVersion, u"2.0"_s, u"2.0"_s},
      {offset, u"-20,12.5"_s, u"-20,12.5"_s},
  };
  for (const auto& [key, value, printed] : rows) {
    EXPECT_EQ(done({u"settings"_s, key, value}), u"");
    EXPECT_EQ(done({u"settings"_s, key}), printed + u'\n') << key.toStdString();
  }
  EXPECT_TRUE(done({u"settings"_s}).endsWith(offset + u"=-20,12.5\n"_s));
  EXPECT_EQ(desk.defaults.reals(offset), (std::vector<double>{-20, 12.5}));
}

TEST_F(ProgramCommands, refuseAnUnknownKeyOrAValueOfAnotherType) {
  const std::vector<std::pair<QString, QString>> rows{
      {keys::kDailyBurn, u"yes"_s},          {keys::kDailyBurn, u"1"_s},
      {keys::kDailyBurn, QString()},         {keys::kNoteDisplayMode, u"ghost"_s},
      {keys::kBoardMood, u"Obsidian"_s},     {keys::kCompletionEffect, u"burn"_s},
      {keys::kDefaultPaperTheme, u"dark"_s}, {keys::kLastUpdateCheck, u"soon"_s},
      {keys::kLastUpdateCheck, u"2026-02-30"_s}, {keys::kHotKey, u"Hyper"_s},
      {keys::kHotKey, QString()},            {keys::kCrushTarget, u"here"_s},
      {u"dailyburn"_s, u"true"_s},           {u"appNoteOffset.me"_s, u"1,2"_s},
      {u"appNoteOffset.0F8E7D6C-5B4A-4938-8271-605F4E3D2C1B"_s, u"1,2,3"_s},
      {u"appNoteOffset.0F8E7D6C-5B4A-4938-8271-605F4E3D2C1B"_s, u"1,nan"_s},
      {u"appNoteOffset.0F8E7D6C-5B4A-4938-8271-605F4E3D2C1B"_s, u"1;2"_s},
  };
  for (const auto& [key, value] : rows) fails(2, {u"settings"_s, key, value});
  EXPECT_EQ(fails(2, {u"settings"_s, u"nope"_s}), u"unknown key nope");
  EXPECT_EQ(fails(2, {u"settings"_s, keys::kDailyBurn, u"yes"_s}), u"yes is no value for dailyBurn");
}

TEST_F(ProgramCommands, postTheNoticesOfThePanes) {
  QSignalSpy privacy(&desk.center, &NotificationCenter::notePrivacyChanged);
  QSignalSpy mode(&desk.center, &NotificationCenter::noteDisplayModeChanged);
  done({u"settings"_s, keys::kHideFromScreenShare, u"true"_s});
  EXPECT_EQ(privacy.size(), 1);
  EXPECT_EQ(mode.size(), 0);
  done({u"settings"_s, keys::kNoteDisplayMode, u"desktop"_s});
  EXPECT_EQ(mode.size(), 1);
  done({u"settings"_s, keys::kDailyBurn, u"false"_s});
  EXPECT_EQ(privacy.size() + mode.size(), 2);
}

TEST_F(ProgramCommands, keepTheOldValueWhenASettingCannotBeWritten) {
  done({u"settings"_s, keys::kDailyBurn, u"false"_s});
  const QString path = desk.folder.filePath(u"settings.json"_s);
  ASSERT_TRUE(QFile::remove(path));
  ASSERT_TRUE(QDir().mkpath(path + u"/in the way"_s));
  QSignalSpy privacy(&desk.center, &NotificationCenter::notePrivacyChanged);
  fails(1, {u"settings"_s, keys::kDailyBurn, u"true"_s});
  fails(1, {u"settings"_s, keys::kHideFromScreenShare, u"true"_s});
  EXPECT_EQ(privacy.size(), 0);
  EXPECT_EQ(done({u"settings"_s, keys::kDailyBurn}), u"false\n");
}

namespace {

/// The command alone: a store and settings of its own, opened anew for every call.
class Alone : public testing::Test {
 protected:
  CommandReply run(const QStringList& words, const QByteArray& input = {}) {
    OfflineServices services({folder.filePath(u"data/Tarnwick.store"_s), folder.filePath(u"config/settings.json"_s)},
                             time, time, git);
    return services.run({words, input, folder.path()});
  }
  QByteArray done(const QStringList& words) {
    const auto reply = run(words);
    EXPECT_EQ(reply.exitStatus, 0) << reply.error.toStdString();
    return reply.output;
  }

  ManualTime time;
  FakeGitRunner git;
  QTemporaryDir folder;
};

}  // namespace

TEST_F(Alone, keepsNotesFromOneCallToTheNext) {
  const QByteArray id = done({u"add"_s, u"milk"_s, u"--due"_s, u"tomorrow"_s}).trimmed();
  EXPECT_EQ(id.size(), 36);
  EXPECT_TRUE(done({u"list"_s}).contains("milk"));
  done({u"crush"_s, QString::fromLatin1(id)});
  EXPECT_EQ(done({u"list"_s}), QByteArray());
  EXPECT_TRUE(done({u"list"_s, u"--state"_s, u"completed"_s}).contains("milk"));
  EXPECT_EQ(run({u"undo"_s}).error, "tarnwick: not running\n");
}

TEST_F(Alone, needsNoStoreForSettings) {
  EXPECT_EQ(done({u"settings"_s, keys::kDailyBurn}), "true\n");
  done({u"settings"_s, keys::kDailyBurn, u"false"_s});
  EXPECT_EQ(done({u"settings"_s, keys::kDailyBurn}), "false\n");
  EXPECT_FALSE(QFileInfo::exists(folder.filePath(u"data"_s)));
}

TEST_F(Alone, migratesAsALaunchDoes) {
  QDir(folder.path()).mkpath(u"config"_s);
  QFile file(folder.filePath(u"config/settings.json"_s));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("{\"clipboardCaptureEnabled\": true, \"noteDisplayMode\": \"desktop\"}");
  file.close();
  EXPECT_EQ(done({u"settings"_s, keys::kNoteDisplayMode}), "alwaysOnTop\n");
  EXPECT_EQ(done({u"settings"_s, keys::kV1SellableDefaultsApplied}), "true\n");
  done({u"settings"_s, keys::kNoteDisplayMode, u"desktop"_s});
  EXPECT_EQ(done({u"settings"_s, keys::kNoteDisplayMode}), "desktop\n") << "once per user";
}

TEST_F(Alone, saysWhenAnotherHoldsTheStore) {
  done({u"add"_s, u"milk"_s});
  const auto held = ModelContainer::open(folder.filePath(u"data/Tarnwick.store"_s));
  ASSERT_TRUE(held.isOk());
  const auto reply = run({u"list"_s});
  EXPECT_EQ(reply.exitStatus, 1);
  EXPECT_EQ(reply.error, "tarnwick: the store is in use\n");
  EXPECT_EQ(run({u"list"_s, u"--frob"_s}).exitStatus, 2) << "wrong words are told first";
}

TEST_F(Alone, leavesADamagedStoreAlone) {
  QDir(folder.path()).mkpath(u"data"_s);
  QFile file(folder.filePath(u"data/Tarnwick.store"_s));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  const QByteArray garbage(4096, 'x');
  file.write(garbage);
  file.close();
  EXPECT_EQ(run({u"add"_s, u"milk"_s}).exitStatus, 1);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(), garbage);
}

}  // namespace tarnwick::test
