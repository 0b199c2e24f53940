// SPDX-License-Identifier: MIT
#include "effects/SoundEngine.h"

#include "fakes/FakeServices.h"
#include "fakes/ManualTime.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

class SoundEngineTest : public testing::Test {
 protected:
  QTemporaryDir folder;
  ManualTime time;
  UserDefaults defaults{folder.filePath(u"defaults.json"_s), time};
  FakeAudio audio;

  void playAll(SoundEngine& engine) {
    audio.log.clear();
    engine.playCrush();
    engine.playStick();
    engine.playTear();
  }
  const QStringList prepared{u"rewind crush"_s, u"volume crush 0.85"_s, u"play crush"_s,
                             u"rewind stick"_s, u"volume stick 0.7"_s,  u"play stick"_s,
                             u"rewind tear"_s,  u"volume tear 0.75"_s,  u"play tear"_s};
};

TEST_F(SoundEngineTest, preparesEachImageOnceAndPlaysItFromItsBeginning) {
  SoundEngine engine(audio, defaults);
  EXPECT_EQ(audio.images.size(), 0) << "a start does not wait for it";
  engine.prepare();
  ASSERT_EQ(audio.images.size(), 3);
  EXPECT_EQ(audio.images[0].size(), 33560);
  EXPECT_EQ(audio.images[1].size(), 10628);
  EXPECT_EQ(audio.images[2].size(), 19448);
  EXPECT_TRUE(audio.log.isEmpty());
  playAll(engine);
  EXPECT_EQ(audio.log, prepared);
  EXPECT_EQ(audio.images.size(), 3);
}

TEST_F(SoundEngineTest, aSecondRequestRestartsTheSameSound) {
  SoundEngine engine(audio, defaults);
  engine.playCrush();
  engine.playCrush();
  const QStringList once = prepared.mid(0, 3);
  EXPECT_EQ(audio.log, once + once);
}

TEST_F(SoundEngineTest, withoutPlayersTheStockSoundsStandIn) {
  audio.canPrepare = false;
  SoundEngine engine(audio, defaults);
  playAll(engine);
  EXPECT_EQ(audio.log, (QStringList{u"stock Pop"_s, u"stock Tink"_s, u"stock Purr"_s}));
}

TEST_F(SoundEngineTest, onlyAStoredFalseSilences) {
  SoundEngine engine(audio, defaults);
  [[maybe_unused]] auto set = defaults.setText(keys::kSoundEffectsEnabled, u"no"_s);
  playAll(engine);
  EXPECT_EQ(audio.log, prepared) << "a value of another type counts as on";
  set = defaults.setBoolean(keys::kSoundEffectsEnabled, false);
  EXPECT_FALSE(engine.isEnabled());
  playAll(engine);
  EXPECT_TRUE(audio.log.isEmpty());
  set = defaults.setBoolean(keys::kSoundEffectsEnabled, true);
  playAll(engine);
  EXPECT_EQ(audio.log, prepared);
}

TEST_F(SoundEngineTest, offSilencesTheStockSoundsToo) {
  audio.canPrepare = false;
  SoundEngine engine(audio, defaults);
  [[maybe_unused]] const auto set = defaults.setBoolean(keys::kSoundEffectsEnabled, false);
  playAll(engine);
  EXPECT_TRUE(audio.log.isEmpty());
}

}  // namespace
}  // namespace tarnwick::test
