// SPDX-License-Identifier: MIT
#include "effects/CrushToTrashAnimator.h"

#include "context/DockTrashLocator.h"
#include "effects/CrushOverlayWindow.h"
#include "effects/SoundEngine.h"
#include "fakes/FakeDesktop.h"
#include "fakes/FakeServices.h"
#include "fakes/ManualTime.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class CrushAnimator : public testing::Test {
 protected:
  CrushAnimator() {
    // Beside the note: the shortest flight. The ball lands after 1.00 s, everything ends at 1.16 s.
    [[maybe_unused]] const auto set = defaults.setText(keys::kCrushTarget, u"{{300, 300}, {48, 48}}"_s);
  }
  void play(const DesktopRect& from = {250, 300, 175, 112}, Motion motion = Motion::Full) {
    flights.push_back(animator->play(from, QColor(0xFF, 0xE1, 0x69), {}, motion, [this] { ++completions; }));
  }
  /// Without the preparing of the paper sounds.
  [[nodiscard]] QStringList heard() const { return audio.log.filter(u"stock"_s); }
  static std::vector<CrushOverlayWindow*> overlays() {
    std::vector<CrushOverlayWindow*> found;
    for (auto* widget : QApplication::topLevelWidgets()) {
      if (auto* overlay = qobject_cast<CrushOverlayWindow*>(widget)) found.push_back(overlay);
    }
    return found;
  }

  QTemporaryDir folder;
  ManualTime time;
  UserDefaults defaults{folder.filePath(u"defaults.json"_s), time};
  FakeScreens screens;
  FakeWindowServer windows;
  FakeHaptics haptics;
  FakeAudio audio;
  FakeAccessibility accessibility;
  FakeDockPreferences dock;
  FakeWorkspace workspace;
  SoundEngine sound{audio, defaults};
  DockTrashLocator trash{{accessibility, dock, screens, workspace}, defaults};
  std::unique_ptr<CrushToTrashAnimator> animator = std::make_unique<CrushToTrashAnimator>(
      CrushToTrashAnimator::Ports{screens, time, time, windows, haptics, sound, trash});
  int completions = 0;
  std::vector<Registration> flights;
};

TEST_F(CrushAnimator, completesOnceBehindTheRimAndLeavesNothing) {
  play();
  ASSERT_EQ(overlays().size(), 1U);
  time.advance(1159ms);
  EXPECT_EQ(completions, 0);
  EXPECT_EQ(overlays().size(), 1U);
  time.advance(1ms);
  EXPECT_EQ(completions, 1);
  EXPECT_TRUE(overlays().empty());
  EXPECT_EQ(time.pendingCount(), 0) << "no timer and no frame tick stays behind";
  time.advance(10s);
  EXPECT_EQ(completions, 1);
}

TEST_F(CrushAnimator, beginsAHundredthOfASecondAfterTheCall) {
  QImage black(1, 1, QImage::Format_RGB32);
  black.fill(Qt::black);
  flights.push_back(animator->play({250, 300, 175, 112}, Qt::white, black, Motion::Full, {}));
  time.advance(101ms);  // a frame at 100 ms: 90 of the 200 in which the note's picture fades on its sheet
  const auto shown = overlays().front()->grab().toImage();
  EXPECT_NEAR(qGray(shown.pixel(337, 800 - 356)), 255 * 0.45, 3);
}

TEST_F(CrushAnimator, theLandingIsFeltAndHeardOnce) {
  play();
  time.advance(999ms);
  EXPECT_TRUE(haptics.performed.empty());
  time.advance(1ms);
  EXPECT_EQ(haptics.performed, std::vector{HapticPattern::LevelChange});
  EXPECT_EQ(heard(), QStringList{u"stock Pop"_s});
  time.advance(5s);
  EXPECT_EQ(heard().size(), 1);
}

TEST_F(CrushAnimator, theLandingIsSilentWithSoundEffectsOff) {
  [[maybe_unused]] const auto set = defaults.setBoolean(keys::kSoundEffectsEnabled, false);
  play();
  time.advance(2s);
  EXPECT_TRUE(heard().isEmpty());
  EXPECT_EQ(haptics.performed.size(), 1U);
}

struct AtOnce {
  const char* name;
  DesktopRect from;
  Motion motion;
  bool isComposited;
  int screens;
};

class CrushAtOnce : public CrushAnimator, public testing::WithParamInterface<AtOnce> {};

TEST_P(CrushAtOnce, completesWithoutAWindow) {
  screens.hasCompositor = GetParam().isComposited;
  screens.screens.resize(static_cast<std::size_t>(GetParam().screens));
  play(GetParam().from, GetParam().motion);
  EXPECT_EQ(completions, 1);
  EXPECT_TRUE(overlays().empty());
  EXPECT_EQ(time.pendingCount(), 0);
  time.advance(5s);
  EXPECT_EQ(completions, 1);
  EXPECT_TRUE(heard().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    rows, CrushAtOnce,
    testing::Values(AtOnce{"reducedMotion", {10, 10, 175, 112}, Motion::Reduced, true, 1},
                    AtOnce{"onePointHigh", {10, 10, 175, 1}, Motion::Full, true, 1},
                    AtOnce{"onePointWide", {10, 10, 1, 112}, Motion::Full, true, 1},
                    AtOnce{"noArea", {}, Motion::Full, true, 1},
                    AtOnce{"noCompositor", {10, 10, 175, 112}, Motion::Full, false, 1},
                    AtOnce{"noScreen", {10, 10, 175, 112}, Motion::Full, true, 0}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(CrushAnimator, theOverlayCoversTheNotesScreenAndTakesNoInput) {
  screens.screens.push_back({u"right"_s, {1280, -100, 1024, 768}, {1280, -100, 1024, 768}, 2});
  const std::vector<std::pair<DesktopRect, QRect>> rows{
      {{100, 100, 175, 112}, {0, 0, 1280, 800}},
      {{1600, 100, 175, 112}, {1280, 132, 1024, 768}},
      {{9000, 100, 175, 112}, {0, 0, 1280, 800}},  // on no screen: the primary one
  };
  for (const auto& [from, geometry] : rows) {
    play(from);
    ASSERT_EQ(overlays().size(), 1U);
    auto* overlay = overlays().front();
    EXPECT_EQ(overlay->geometry(), geometry);
    EXPECT_TRUE(overlay->isVisible());
    for (const auto flag : {Qt::BypassWindowManagerHint, Qt::WindowTransparentForInput, Qt::FramelessWindowHint,
                            Qt::WindowStaysOnTopHint}) {
      EXPECT_TRUE(overlay->windowFlags().testFlag(flag)) << flag;
    }
    EXPECT_TRUE(overlay->testAttribute(Qt::WA_TranslucentBackground));
    EXPECT_EQ(windows.of(overlay->windowHandle()).level, WindowLevel::Overlay);
    EXPECT_EQ(windows.of(overlay->windowHandle()).activations, 0);
    time.advance(5s);
  }
}

TEST_F(CrushAnimator, severalFlightsOverlapEachInItsOwnWindow) {
  play();
  time.advance(500ms);
  play();
  EXPECT_EQ(overlays().size(), 2U);
  EXPECT_EQ(animator->flightsUnderWay(), 2);
  time.advance(660ms);
  EXPECT_EQ(completions, 1);
  EXPECT_EQ(overlays().size(), 1U);
  time.advance(500ms);
  EXPECT_EQ(completions, 2);
  EXPECT_EQ(animator->flightsUnderWay(), 0);
}

TEST_F(CrushAnimator, aCompletionMayStartTheNextFlightOrEndTheAnimator) {
  flights.push_back(animator->play({250, 300, 175, 112}, Qt::yellow, {}, Motion::Full, [this] { play(); }));
  time.advance(1160ms);
  EXPECT_EQ(overlays().size(), 1U);
  time.advance(1160ms);
  EXPECT_EQ(completions, 1);
  flights.push_back(animator->play({250, 300, 175, 112}, Qt::yellow, {}, Motion::Full, [this] {
    ++completions;
    animator.reset();
  }));
  time.advance(2s);
  EXPECT_EQ(completions, 2);
  EXPECT_TRUE(overlays().empty());
}

TEST_F(CrushAnimator, anAnimatorThatGoesTakesItsFlightsAlong) {
  play();
  time.advance(300ms);
  animator.reset();
  EXPECT_TRUE(overlays().empty());
  EXPECT_EQ(time.pendingCount(), 0);
  time.advance(5s);
  EXPECT_EQ(completions, 0);
}

TEST_F(CrushAnimator, aFlightThatIsTakenBackLeavesTheScreenWithoutLanding) {
  play();
  play();
  time.advance(400ms);
  flights.front().cancel();
  EXPECT_EQ(overlays().size(), 1U);
  time.advance(5s);
  EXPECT_EQ(completions, 1);
  EXPECT_EQ(haptics.performed.size(), 1U) << "one landing";
}

TEST_F(CrushAnimator, aWallClockThatJumpsMovesNothing) {
  play();
  time.jump(1h);
  time.advance(1159ms);
  EXPECT_EQ(completions, 0);
  time.advance(1ms);
  EXPECT_EQ(completions, 1);
}

}  // namespace
}  // namespace tarnwick::test
