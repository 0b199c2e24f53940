// SPDX-License-Identifier: MIT
#include "fakes/ManualTime.h"
#include "model/AppNotesPrefs.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "support/Notes.h"

#include <QDir>
#include <QSignalSpy>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

class SettingsTest : public testing::Test {
 protected:
  [[nodiscard]] std::unique_ptr<UserDefaults> open() const { return std::make_unique<UserDefaults>(m_path, m_time); }
  [[nodiscard]] std::unique_ptr<UserDefaults> launch() const {
    auto defaults = open();
    registerDefaultSettings(*defaults);
    migrateSettingsOnce(*defaults);
    return defaults;
  }
  void write(const QByteArray& bytes) const {
    QDir().mkpath(QFileInfo(m_path).path());
    QFile file(m_path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  [[nodiscard]] QByteArray bytes(const QString& path) const {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  [[nodiscard]] QStringList files() const { return QDir(QFileInfo(m_path).path()).entryList(QDir::Files, QDir::Name); }

  QTemporaryDir m_folder;
  QString m_path = m_folder.filePath(u"config/app/settings.json"_s);
  ManualTime m_time;
};

TEST_F(SettingsTest, aFreshUserReadsTheRegisteredChoices) {
  const auto defaults = open();
  registerDefaultSettings(*defaults);
  EXPECT_TRUE(defaults->boolean(keys::kDailyBurn));
  EXPECT_TRUE(defaults->boolean(keys::kSoundEffectsEnabled));
  EXPECT_TRUE(defaults->boolean(keys::kWakeResurface));
  EXPECT_FALSE(defaults->boolean(keys::kClipboardCaptureEnabled));
  EXPECT_EQ(defaults->text(keys::kCompletionEffect), u"crush"_s);
  EXPECT_EQ(defaults->text(keys::kNoteDisplayMode), u"alwaysOnTop"_s);
  EXPECT_TRUE(defaults->storedKeys().isEmpty());
  EXPECT_FALSE(QFile::exists(m_path)) << "reading writes nothing";
  EXPECT_FALSE(defaults->boolean(keys::kHasSeenWelcome));
  EXPECT_EQ(defaults->date(keys::kLastUpdateCheck), std::nullopt);
}

TEST_F(SettingsTest, whatWasStoredIsReadByTheNextLaunch) {
  {
    const auto defaults = open();
    ASSERT_TRUE(defaults->setBoolean(keys::kDailyBurn, false));
    ASSERT_TRUE(defaults->setText(keys::kDismissedUpdateVersion, u"1.2 „ä“\n"_s));
    ASSERT_TRUE(defaults->setDate(keys::kLastUpdateCheck, utc("2026-03-29T01:00:00.001")));
    ASSERT_TRUE(defaults->setReals(keys::kAppNoteOffsetPrefix + u"X"_s, {-18.5, 0.1}));
    ASSERT_TRUE(defaults->setText(u"gone"_s, u"x"_s));
    ASSERT_TRUE(defaults->remove(u"gone"_s));
  }
  const auto defaults = launch();
  EXPECT_FALSE(defaults->boolean(keys::kDailyBurn));
  EXPECT_EQ(defaults->text(keys::kDismissedUpdateVersion), u"1.2 „ä“\n"_s);
  EXPECT_EQ(defaults->date(keys::kLastUpdateCheck), utc("2026-03-29T01:00:00.001"));
  EXPECT_EQ(defaults->reals(keys::kAppNoteOffsetPrefix + u"X"_s), (std::vector{-18.5, 0.1}));
  EXPECT_EQ(defaults->text(u"gone"_s), std::nullopt);
}

TEST_F(SettingsTest, valuesOfAnotherTypeReadAsAbsentOrAsOnWhereThatIsTheRule) {
  write(R"({"planNudge": "no", "dailyBurn": 0, "noteDisplayMode": true, "lastUpdateCheck": "yesterday",
            "a": [1, 2, "3"], "b": [1, 2, 3], "c": null})");
  const auto defaults = open();
  registerDefaultSettings(*defaults);
  EXPECT_TRUE(defaults->booleanOrOn(keys::kPlanNudge));
  EXPECT_FALSE(defaults->boolean(keys::kPlanNudge));
  EXPECT_FALSE(defaults->boolean(keys::kDailyBurn));
  EXPECT_EQ(defaults->text(keys::kNoteDisplayMode), std::nullopt);
  EXPECT_EQ(defaults->date(keys::kLastUpdateCheck), std::nullopt);
  EXPECT_EQ(defaults->reals(u"a"_s), std::nullopt);
  EXPECT_EQ(defaults->reals(u"b"_s)->size(), 3U);
  EXPECT_TRUE(defaults->booleanOrOn(u"c"_s));
}

TEST_F(SettingsTest, theMigrationRunsOnceWhateverWasChosenBefore) {
  write(R"({"noteDisplayMode": "desktop", "clipboardCaptureEnabled": true})");
  {
    const auto defaults = launch();
    EXPECT_EQ(defaults->text(keys::kNoteDisplayMode), u"alwaysOnTop"_s);
    EXPECT_FALSE(defaults->boolean(keys::kClipboardCaptureEnabled));
    EXPECT_TRUE(defaults->boolean(keys::kV1SellableDefaultsApplied));
    ASSERT_TRUE(defaults->setBoolean(keys::kClipboardCaptureEnabled, true));
    ASSERT_TRUE(defaults->setText(keys::kNoteDisplayMode, u"desktop"_s));
  }
  const auto defaults = launch();
  EXPECT_TRUE(defaults->boolean(keys::kClipboardCaptureEnabled));
  EXPECT_EQ(defaults->text(keys::kNoteDisplayMode), u"desktop"_s);
}

TEST_F(SettingsTest, tellsWhoeverListensOfChangesOnly) {
  const auto defaults = open();
  QSignalSpy changed(defaults.get(), &UserDefaults::changed);
  ASSERT_TRUE(defaults->setBoolean(keys::kDailyBurn, false));
  ASSERT_TRUE(defaults->setBoolean(keys::kDailyBurn, false));
  ASSERT_TRUE(defaults->remove(keys::kDailyBurn));
  ASSERT_TRUE(defaults->remove(keys::kDailyBurn));
  ASSERT_EQ(changed.count(), 2);
  EXPECT_EQ(changed[0][0].toString(), keys::kDailyBurn);
}

TEST_F(SettingsTest, aDamagedFileIsSetAsideUnderItsTime) {
  const struct {
    const char* name;
    QByteArray bytes;
  } rows[] = {
      {"cut off", "{\"dailyBurn\": fal"},          {"a list", "[1]"},
      {"binary", QByteArray("\0\xff\x13\x37", 4)}, {"empty", ""},
      {"deep", QByteArray(100000, '[')},           {"two objects", "{}{}"},
  };
  m_time.setLocal(u"2026-03-03T10:11:12"_s);
  QStringList asides;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    write(row.bytes);
    const auto defaults = launch();
    EXPECT_TRUE(defaults->boolean(keys::kDailyBurn));
    const auto aside =
        m_path + u".damaged-20260303-101112"_s + (asides.isEmpty() ? u""_s : u"-%1"_s.arg(asides.size() + 1));
    EXPECT_EQ(bytes(aside), row.bytes);
    EXPECT_TRUE(open()->boolean(keys::kV1SellableDefaultsApplied)) << "the new file is written";
    asides.append(aside);
    ASSERT_TRUE(QFile::remove(m_path));
  }
  for (const auto& aside : asides) EXPECT_TRUE(QFile::exists(aside)) << aside.toStdString();
}

TEST_F(SettingsTest, whatCannotBeReadIsNotReplaced) {
  QDir().mkpath(m_path);
  const auto defaults = open();
  const auto result = defaults->setBoolean(keys::kDailyBurn, false);
  EXPECT_FALSE(result);
  EXPECT_FALSE(defaults->boolean(keys::kDailyBurn)) << "for this run the choice holds";
  EXPECT_TRUE(QFileInfo(m_path).isDir());
}

TEST_F(SettingsTest, theFileIsForItsOwnerAndLeavesNothingBeside) {
  const auto defaults = launch();
  constexpr auto kOthers =
      QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
  EXPECT_FALSE(QFile::permissions(m_path) & kOthers);
  EXPECT_FALSE(QFile::permissions(QFileInfo(m_path).path()) & kOthers);
  EXPECT_EQ(files(), QStringList{u"settings.json"_s});
}

TEST_F(SettingsTest, aLinkedFileStaysALink) {
  const auto target = m_folder.filePath(u"dotfiles.json"_s);
  QFile file(target);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("{}");
  file.close();
  QDir().mkpath(QFileInfo(m_path).path());
  ASSERT_TRUE(QFile::link(target, m_path));
  ASSERT_TRUE(open()->setText(u"k"_s, u"v"_s));
  EXPECT_TRUE(QFileInfo(m_path).isSymLink());
  EXPECT_TRUE(bytes(target).contains("\"k\""));
}

TEST_F(SettingsTest, theTableIsCompleteAndItsFallbacksAreWhatReadersSee) {
  const auto defaults = launch();
  QStringList names;
  for (const auto& setting : settingDescriptors()) {
    names.append(setting.key);
    if (setting.type == SettingType::Boolean && !defaults->stored(setting.key).isBool()) {
      const bool isOnWhenAbsent = setting.key == keys::kPlanNudge || setting.key == keys::kAppNotesTuck ||
                                  setting.key == keys::kAutoCheckUpdates;
      const auto seen = isOnWhenAbsent ? defaults->booleanOrOn(setting.key) : defaults->boolean(setting.key);
      EXPECT_EQ(setting.fallback, seen ? u"true"_s : u"false"_s) << setting.key.toStdString();
    }
    if (setting.type == SettingType::Text && defaults->object(setting.key).isString()) {
      EXPECT_EQ(setting.fallback, defaults->text(setting.key)) << setting.key.toStdString();
    }
  }
  EXPECT_EQ(names.size(), 21);
  EXPECT_EQ(names.mid(15).join(u' '),
            u"lastUpdateCheck dismissedUpdateVersion dockTrashFrame rememberTornNotes "
            "crushTarget hotKey"_s);
}

TEST_F(SettingsTest, pinnedNotesTuckUnlessToldOtherwise) {
  const auto defaults = launch();
  NotificationCenter center;
  AppNotesPrefs prefs(*defaults, center);
  EXPECT_TRUE(prefs.tuck());
  ASSERT_TRUE(defaults->setText(keys::kAppNotesTuck, u"false"_s));
  EXPECT_TRUE(prefs.tuck());
  ASSERT_TRUE(defaults->setBoolean(keys::kAppNotesTuck, false));
  EXPECT_FALSE(prefs.tuck());
}

TEST_F(SettingsTest, hidingFromCaptureIsStoredBeforeItIsTold) {
  const auto defaults = launch();
  NotificationCenter center;
  AppNotesPrefs prefs(*defaults, center);
  int told = 0;
  QObject::connect(&center, &NotificationCenter::notePrivacyChanged, [&] {
    ++told;
    EXPECT_TRUE(prefs.hideFromCapture());
  });
  prefs.setHideFromCapture(true);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(defaults->stored(keys::kHideFromScreenShare), QJsonValue(true));
}

}  // namespace
}  // namespace tarnwick::test
