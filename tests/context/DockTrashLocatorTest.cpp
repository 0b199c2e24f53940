// SPDX-License-Identifier: MIT
#include "context/DockTrashLocator.h"

#include "fakes/FakeDesktop.h"
#include "fakes/FakeServices.h"
#include "fakes/ManualTime.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

constexpr DesktopRect kTile{1192, 5, 30, 30};

class DockTrash : public testing::Test {
 protected:
  FakeAccessibility::Node& node(const QString& path, ElementFacts facts = {}) {
    accessibility.nodes[path].facts = std::move(facts);
    return accessibility.nodes[path];
  }
  /// A dock whose elements hang below each other: /d/0/1/2..., the last one with these facts.
  void chain(int depth, const ElementFacts& last) {
    accessibility.dockPaths = {u"/d"_s};
    QString path = u"/d"_s;
    node(path);
    for (int level = 0; level <= depth; ++level) {
      const QString child = path + u'/' + QString::number(level);
      accessibility.nodes[path].children = {child};
      node(child, level == depth ? last : ElementFacts{});
      path = child;
    }
  }
  static ElementFacts titled(const QString& title, DesktopRect frame = kTile) { return {title, {}, {}, {}, frame, {}}; }

  QTemporaryDir folder;
  ManualTime time;
  UserDefaults defaults{folder.filePath(u"defaults.json"_s), time};
  FakeAccessibility accessibility;
  FakeDockPreferences dock;
  FakeScreens screens;
  FakeWorkspace workspace;
  DockTrashLocator locator{{accessibility, dock, screens, workspace}, defaults};
};

struct Recognition {
  const char* name;
  ElementFacts facts;
  bool isTrash;
};

class DockTrashRecognition : public DockTrash, public testing::WithParamInterface<Recognition> {};

TEST_P(DockTrashRecognition, byWhatTheElementSaysOfItself) {
  chain(0, GetParam().facts);
  EXPECT_EQ(locator.axTrashFrame(), GetParam().isTrash ? std::optional(kTile) : std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    rows, DockTrashRecognition,
    testing::Values(Recognition{"subroleWinsOverTitle", {u"Papierkorb"_s, {}, u"AXTrashDockItem"_s, {}, kTile, {}}, true},
                    Recognition{"titleTrimmedAndFolded", {u"  trash\n"_s, {}, {}, {}, kTile, {}}, true},
                    Recognition{"bin", {u"BIN"_s, {}, {}, {}, kTile, {}}, true},
                    Recognition{"description", {{}, {}, {}, u"Trash is empty"_s, kTile, {}}, true},
                    Recognition{"descriptionBin", {{}, {}, {}, u"The recycle Bin"_s, kTile, {}}, true},
                    Recognition{"titleMustBeWhole", {u"Trash can"_s, {}, {}, {}, kTile, {}}, false},
                    Recognition{"otherSubrole", {u"Files"_s, {}, u"AXApplicationDockItem"_s, {}, kTile, {}}, false},
                    Recognition{"noFrame", {u"Trash"_s, {}, {}, {}, std::nullopt, {}}, false}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(DockTrash, smallElementsAreSkippedButTheirChildrenAreNot) {
  for (const DesktopRect small : {DesktopRect{0, 0, 8, 40}, DesktopRect{0, 0, 40, 8}}) {
    chain(1, titled(u"Trash"_s));
    accessibility.nodes[u"/d/0"_s].facts = titled(u"Trash"_s, small);
    EXPECT_EQ(locator.axTrashFrame(), kTile);
  }
  const DesktopRect justEnough{0, 0, 8.5, 8.5};
  accessibility.nodes[u"/d/0"_s].facts = titled(u"Trash"_s, justEnough);
  EXPECT_EQ(locator.axTrashFrame(), justEnough);
}

TEST_F(DockTrash, theSearchEndsAtTheEighthLevel) {
  chain(7, titled(u"Trash"_s));
  EXPECT_EQ(locator.axTrashFrame(), kTile);
  chain(8, titled(u"Trash"_s));
  accessibility.visited.clear();
  EXPECT_EQ(locator.axTrashFrame(), std::nullopt);
  EXPECT_FALSE(accessibility.visited.contains(u"/d/0/1/2/3/4/5/6/7/8"_s));
}

TEST_F(DockTrash, listsAndDocksAreSearchedFromTheirEnd) {
  const DesktopRect first{0, 0, 20, 20};
  const DesktopRect last{100, 0, 20, 20};
  for (const auto& [role, expected] : std::vector<std::pair<QString, DesktopRect>>{
           {u"AXList"_s, last}, {u"AXGroup"_s, last}, {u"AXDockArea"_s, last}, {u"AXWindow"_s, first}}) {
    accessibility.dockPaths = {u"/d"_s};
    node(u"/d"_s).children = {u"/d/list"_s};
    node(u"/d/list"_s, {{}, role, {}, {}, std::nullopt, {}}).children = {u"/a"_s, u"/b"_s};
    node(u"/a"_s, titled(u"Trash"_s, first));
    node(u"/b"_s, titled(u"Trash"_s, last));
    EXPECT_EQ(locator.axTrashFrame(), expected) << role.toStdString();
  }
}

TEST_F(DockTrash, unreadableBranchesDoNotEndTheSearch) {
  accessibility.dockPaths = {u"/gone"_s, u"/d"_s};
  node(u"/d"_s).children = {u"/d/mute"_s, u"/d/trash"_s};
  node(u"/d/mute"_s).isReadable = false;
  node(u"/d/trash"_s, titled(u"Trash"_s));
  EXPECT_EQ(locator.axTrashFrame(), kTile);
}

TEST_F(DockTrash, aFoundFrameIsRememberedForWhenItCannotBeAsked) {
  chain(2, titled(u"Trash"_s));
  EXPECT_EQ(locator.trashFrame(), kTile);
  EXPECT_EQ(defaults.text(keys::kDockTrashFrame), u"{{1192, 5}, {30, 30}}"_s);
  accessibility.dockPaths.clear();
  EXPECT_EQ(locator.trashFrame(), kTile);
}

TEST_F(DockTrash, aRememberedFrameOfAnotherScreenIsLeftAlone) {
  screens.screens.push_back({u"right"_s, {1280, 0, 1280, 800}, {1280, 0, 1280, 800}, 1});
  [[maybe_unused]] const auto set = defaults.setText(keys::kDockTrashFrame, u"{{1192, 5}, {30, 30}}"_s);
  EXPECT_EQ(locator.trashFrame(screens.screens[0]), kTile);
  EXPECT_EQ(locator.trashFrame(screens.screens[1]), locator.estimatedFrame(screens.screens[1]));
  EXPECT_EQ(locator.trashFrame(), kTile) << "without a screen the primary one counts";
}

TEST_F(DockTrash, rememberedTextThatIsNoUsableFrameFallsThrough) {
  for (const auto& text : {u"{{100, 100}, {8, 30}}"_s, u"nonsense"_s, u"{{1, 2}, {3}}"_s, QString()}) {
    [[maybe_unused]] const auto set = defaults.setText(keys::kDockTrashFrame, text);
    EXPECT_EQ(locator.trashFrame(), locator.estimatedFrame(screens.screens[0])) << text.toStdString();
  }
}

TEST_F(DockTrash, thePickedTargetGoesFirstWhileItsMonitorIsThere) {
  chain(2, titled(u"Trash"_s));
  [[maybe_unused]] auto set = defaults.setText(keys::kCrushTarget, u"{{40, 60}, {50, 50}}"_s);
  EXPECT_EQ(locator.trashFrame(), (DesktopRect{40, 60, 50, 50}));
  for (const auto& other : {u"automatic"_s, u"{{4000, 60}, {50, 50}}"_s, u"{{40, 60}, {0, 50}}"_s}) {
    set = defaults.setText(keys::kCrushTarget, other);
    EXPECT_EQ(locator.trashFrame(), kTile) << other.toStdString();
  }
}

struct Estimate {
  const char* name;
  DesktopRect visible;  // of a frame 0, 0, 1280, 800
  std::optional<double> tile;
  DesktopRect expected;
};

class DockTrashEstimate : public DockTrash, public testing::WithParamInterface<Estimate> {};

TEST_P(DockTrashEstimate, bySideAndTile) {
  dock.state.tileSize = GetParam().tile;
  screens.screens[0].visibleFrame = GetParam().visible;
  const auto found = locator.trashFrame();
  EXPECT_NEAR(found.x, GetParam().expected.x, 1e-9);
  EXPECT_NEAR(found.y, GetParam().expected.y, 1e-9);
  EXPECT_EQ(found.size(), GetParam().expected.size());
}

INSTANTIATE_TEST_SUITE_P(
    rows, DockTrashEstimate,
    testing::Values(
        // One tile, one separator: 48 * (1 + 0.45 + 0.2) = 79.2 wide.
        Estimate{"bottom", {0, 60, 1280, 740}, std::nullopt, {640 + 39.6 - 4.8 - 48, 6, 48, 48}},
        Estimate{"right", {0, 0, 1216, 800}, 40, {1248 - 20, 22 - 20, 40, 40}},
        Estimate{"left", {64, 0, 1216, 800}, 40, {32 - 20, 22 - 20, 40, 40}},
        Estimate{"rightWithoutTileSize", {0, 0, 1216, 800}, std::nullopt, {1248 - 24, 26.4 - 24, 48, 48}},
        // A strip of more than 6 is a dock.
        Estimate{"slimBottom", {0, 6.5, 1280, 793.5}, std::nullopt, {640 + 39.6 - 4.8 - 48, (6.5 - 48) / 2, 48, 48}},
        Estimate{"slimRight", {0, 0, 1273.5, 800}, std::nullopt, {1276.75 - 24, 26.4 - 24, 48, 48}},
        Estimate{"slimLeft", {6.5, 0, 1273.5, 800}, std::nullopt, {3.25 - 24, 26.4 - 24, 48, 48}},
        Estimate{"hidden", {0, 0, 1280, 770}, 64, {1240 - 32, 36 - 32, 64, 64}},
        Estimate{"thinStripIsNoDock", {0, 6, 1274, 764}, 48, {1234 - 24, 36 - 24, 48, 48}}),
    [](const auto& row) { return std::string(row.param.name); });

struct Tiles {
  const char* name;
  int pinned;
  int unpinnedRunning;
  int pinnedRunning;
  std::optional<bool> showsRecents;
  int recents;
  int others;
  double left;  // of the tile, on a frame 1280 wide with tiles of 48
};

class DockTrashTiles : public DockTrash, public testing::WithParamInterface<Tiles> {};

TEST_P(DockTrashTiles, countIntoTheDocksWidth) {
  const auto& row = GetParam();
  dock.state.tileSize = 48;
  dock.state.isShowingRecents = row.showsRecents;
  dock.state.recentApps = row.recents;
  dock.state.persistentOthers = row.others;
  for (int i = 0; i < row.pinned; ++i) dock.state.persistentApps.append(u"pinned.%1"_s.arg(i));
  for (int i = 0; i < row.pinnedRunning; ++i) workspace.applications.push_back({u"pinned.%1"_s.arg(i), 100 + i, {}});
  for (int i = 0; i < row.unpinnedRunning; ++i) workspace.applications.push_back({u"other.%1"_s.arg(i), 200 + i, {}});
  workspace.applications.push_back({u"service"_s, 300, {}, false, false});
  screens.screens[0].visibleFrame = {0, 60, 1280, 740};
  EXPECT_NEAR(locator.estimatedFrame(screens.screens[0]).x, row.left, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(
    rows, DockTrashTiles,
    testing::Values(
        // 48 * 15 + 48 * 2 * 0.45 + 9.6 = 772.8
        Tiles{"full", 10, 2, 3, true, 3, 1, 640 + 386.4 - 4.8 - 48},
        Tiles{"recentsUnsetCountAsShown", 10, 2, 0, std::nullopt, 3, 1, 640 + 386.4 - 4.8 - 48},
        // 48 * 14 + 48 * 0.45 + 9.6 = 703.2
        Tiles{"recentsHidden", 10, 2, 0, false, 3, 1, 640 + 351.6 - 4.8 - 48},
        // 48 * 16 + 43.2 + 9.6 = 820.8
        Tiles{"moreRunningThanRecent", 10, 4, 0, true, 3, 1, 640 + 410.4 - 4.8 - 48},
        // 48 * 12 + 21.6 + 9.6 = 607.2: no separator for recents that are not there
        Tiles{"noRecents", 10, 0, 2, true, 0, 1, 640 + 303.6 - 4.8 - 48},
        // 48 * 12 + 43.2 + 9.6 = 628.8
        Tiles{"oneRecent", 10, 0, 0, true, 1, 0, 640 + 314.4 - 4.8 - 48},
        Tiles{"neverBeyondTheScreen", 40, 0, 0, false, 0, 0, 1280 - 48}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(DockTrash, thePointInABottomDockIsInTheMiddleOfItsStrip) {
  dock.state.tileSize = 40;
  EXPECT_EQ(locator.geometricFallback({{}, {0, 0, 1280, 800}, {10, 60, 1200, 740}, 1}), (DesktopPoint{1210 - 22, 30}));
}

TEST_F(DockTrash, withoutAnyScreenThereIsStillARectangle) {
  screens.screens.clear();
  EXPECT_FALSE(locator.trashFrame().isEmpty());
}

}  // namespace
}  // namespace tarnwick::test
