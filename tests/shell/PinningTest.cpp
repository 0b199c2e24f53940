// SPDX-License-Identifier: MIT
#include "ShellWorld.h"
#include "shell/GitPinning.h"

namespace tarnwick::test {
namespace {

constexpr DesktopRect kTarget{100, 100, 800, 600};

class AppPinned : public ShellWorld {
 protected:
  void SetUp() override {
    otherWindows.move(kEditor.pid, kTarget);
    workspace.front = kBrowser;
  }
};

TEST_F(AppPinned, showsOnlyWhileItsApplicationIsInFront) {
  auto& note = torn(pinnedNote(kEditor));
  workspace.activate(kEditor);
  EXPECT_TRUE(note.isVisible());
  EXPECT_TRUE(note.isDocked());
  workspace.activate(kBrowser);
  EXPECT_FALSE(note.isVisible());
  EXPECT_FALSE(note.isDocked());
  EXPECT_EQ(otherWindows.followerCount(kEditor.pid), 0);
  workspace.activate(kEditor);
  EXPECT_TRUE(note.isVisible());
  EXPECT_EQ(otherWindows.followerCount(kEditor.pid), 1);
}

TEST_F(AppPinned, docksAtOnceWhenItIsTornOffInFrontOfItsApplication) {
  workspace.front = kEditor;
  auto& note = torn(pinnedNote(kEditor));
  EXPECT_TRUE(note.isDocked());
  EXPECT_EQ(note.frame(), (DesktopRect{672, 590, 210, 46}));
  EXPECT_FALSE(torn(pinnedNote(kBrowser)).isDocked());
}

TEST_F(AppPinned, aClickOnTheNoteItselfNeitherHidesNorUndocksIt) {
  auto& note = torn(pinnedNote(kEditor));
  workspace.activate(kEditor);
  workspace.activate(ourselves());
  pass(1s);
  EXPECT_TRUE(note.isVisible());
  EXPECT_TRUE(note.isDocked());
}

TEST_F(AppPinned, isGoneEightHundredthsOfASecondAfterItsApplicationLeft) {
  auto& note = torn(pinnedNote(kEditor));
  workspace.activate(kEditor);
  workspace.front.reset();  // nobody is in front: the desktop was clicked
  workspace.deactivated.notify(kEditor);
  pass(70ms);
  EXPECT_TRUE(note.isVisible());
  pass(20ms);
  EXPECT_FALSE(note.isVisible());
  EXPECT_FALSE(note.isDocked());
}

TEST_F(AppPinned, survivesTheMomentBetweenTwoWindowsOfItsApplication) {
  auto& note = torn(pinnedNote(kEditor));
  workspace.activate(kEditor);
  workspace.front.reset();
  workspace.deactivated.notify(kEditor);
  pass(9ms);
  workspace.activate(kEditor);
  pass(1s);
  EXPECT_TRUE(note.isVisible());
  EXPECT_TRUE(note.isDocked());
}

TEST_F(AppPinned, goesWithAnApplicationThatEndsEvenBehindTheNote) {
  auto& note = torn(pinnedNote(kEditor));
  workspace.activate(kEditor);
  workspace.activate(ourselves());
  workspace.terminate(kEditor);
  pass(90ms);
  EXPECT_FALSE(note.isVisible());
  EXPECT_FALSE(note.isDocked());
  workspace.activate(kEditor);
  EXPECT_TRUE(note.isVisible());
}

TEST_F(AppPinned, staysWhenOneOfItsApplicationsProcessesEndsBehindAnother) {
  workspace.activate(kEditor);
  auto second = kEditor;
  second.pid = kEditor.pid + 1;
  auto& window = torn(pinnedNote(kEditor));
  workspace.activate(second);
  pass(1s);
  workspace.terminate(kEditor);
  pass(1s);
  EXPECT_TRUE(window.isVisible());
  EXPECT_TRUE(window.isDocked());
}

TEST_F(AppPinned, anotherApplicationsEndIsNoMatter) {
  auto& note = torn(pinnedNote(kEditor));
  workspace.activate(kEditor);
  workspace.terminate(kBrowser);
  pass(1s);
  EXPECT_TRUE(note.isVisible());
}

TEST_F(AppPinned, followsTheWindowAndStaysOnTheScreen) {
  auto& note = torn(pinnedNote(kEditor));
  workspace.activate(kEditor);
  EXPECT_EQ(note.frame(), (DesktopRect{672, 590, 210, 46}));
  otherWindows.move(kEditor.pid, DesktopRect{150, 50, 700, 400});
  EXPECT_EQ(note.frame(), (DesktopRect{622, 340, 210, 46}));
  otherWindows.move(kEditor.pid, DesktopRect{900, 50, 700, 400});
  EXPECT_EQ(note.frame().maxX(), 1280);
  otherWindows.move(kEditor.pid, DesktopRect{100, 500, 700, 400});
  EXPECT_EQ(note.frame().maxY(), 770);
}

TEST_F(AppPinned, hidesWhileTheApplicationHasNoWindow) {
  auto& note = torn(pinnedNote(kEditor));
  workspace.activate(kEditor);
  otherWindows.move(kEditor.pid, std::nullopt);
  EXPECT_FALSE(note.isVisible());
  EXPECT_TRUE(note.isDocked());
  otherWindows.move(kEditor.pid, kTarget);
  EXPECT_TRUE(note.isVisible());
}

TEST_F(AppPinned, usesItsOwnOffsetAndTheDefaultForADamagedOne) {
  const auto task = pinnedNote(kEditor);
  const auto key = keys::kAppNoteOffsetPrefix + upper(task->id());
  ASSERT_TRUE(defaults.setReals(key, {-100, -30}));
  auto& note = torn(task);
  workspace.activate(kEditor);
  EXPECT_EQ(note.frame(), (DesktopRect{590, 624, 210, 46}));
  ASSERT_TRUE(defaults.setReals(key, {1, 2, 3}));
  otherWindows.move(kEditor.pid, DesktopRect{100, 100, 800, 590});
  EXPECT_EQ(note.frame(), (DesktopRect{672, 580, 210, 46}));
}

TEST_F(AppPinned, comesBackWithinReachWhenItsMonitorGoes) {
  screens.screens.push_back({QStringLiteral("right"), {1280, 0, 1280, 800}, {1280, 0, 1280, 800}, 1});
  otherWindows.move(kEditor.pid, DesktopRect{1500, 100, 800, 600});
  auto& note = torn(pinnedNote(kEditor));
  workspace.activate(kEditor);
  EXPECT_EQ(note.frame().maxX(), 2282);
  screens.screens.pop_back();
  screens.changed.notify();
  EXPECT_EQ(note.frame().maxX(), 1280);
}

TEST_F(AppPinned, looksFourTimesASecondWhereNobodyTellsOfMoves) {
  accessibility.hasFrames = false;
  otherWindows.windows = {{kEditor.pid, 0, {10, 10, 160, 400}}, {kEditor.pid, 0, kTarget}};
  auto& note = torn(pinnedNote(kEditor));
  workspace.activate(kEditor);
  EXPECT_TRUE(note.isVisible());
  EXPECT_EQ(otherWindows.followerCount(kEditor.pid), 0);
  pass(260ms);
  EXPECT_EQ(note.frame(), (DesktopRect{672, 590, 210, 46}));
  otherWindows.windows.clear();
  pass(250ms);
  EXPECT_FALSE(note.isVisible());
  otherWindows.windows = {{kEditor.pid, 0, {200, 100, 800, 600}}};
  pass(250ms);
  EXPECT_TRUE(note.isVisible());
  EXPECT_EQ(note.frame().x, 772);
  workspace.activate(kBrowser);
  EXPECT_EQ(time.repeatingCount(), 0);
}

TEST_F(AppPinned, looksToWhereFollowingIsRefused) {
  otherWindows.canFollow = false;
  otherWindows.windows = {{kEditor.pid, 0, kTarget}};
  auto& note = torn(pinnedNote(kEditor));
  workspace.activate(kEditor);
  pass(260ms);
  EXPECT_EQ(note.frame(), (DesktopRect{672, 590, 210, 46}));
}

TEST_F(AppPinned, pinsThatAreEditedHoldAtOnce) {
  workspace.front = kEditor;
  const auto task = note();
  auto& window = torn(task);
  const auto home = window.frame();
  const auto pin = [&](const std::optional<QString>& application, const std::optional<QString>& repository) {
    task->set(&TaskRecord::pinnedBundleID, application);
    task->set(&TaskRecord::gitRepoPath, repository);
    Q_EMIT center.taskDidUpdate(task->id());
  };
  pin(kEditor.bundleID, {});
  EXPECT_TRUE(window.isDocked());
  EXPECT_EQ(window.frame(), (DesktopRect{672, 590, 210, 46}));
  pin({}, QStringLiteral("/home/me/parser"));
  EXPECT_FALSE(window.isDocked());
  EXPECT_EQ(window.frame(), home) << "where it was before";
  EXPECT_EQ(otherWindows.followerCount(kEditor.pid), 0);
  workspace.activate(kBrowser);
  EXPECT_TRUE(window.isVisible()) << "the application is no matter any more";
  Q_EMIT center.contextChanged(std::nullopt, kBrowser.bundleID);
  EXPECT_FALSE(window.isVisible());
  pin({}, {});
  EXPECT_TRUE(window.isVisible());
  Q_EMIT center.contextChanged(std::nullopt, kBrowser.bundleID);
  EXPECT_TRUE(window.isVisible());
}

TEST_F(AppPinned, aClosedNoteHearsNothingMore) {
  const auto task = pinnedNote(kEditor);
  torn(task);
  workspace.activate(kEditor);
  workspace.front.reset();
  workspace.deactivated.notify(kEditor);
  board().closePanel(task->id());
  pass(1s);
  EXPECT_EQ(workspace.activated.count(), 0);
  EXPECT_EQ(otherWindows.followerCount(kEditor.pid), 0);
}

// --- Repositories ---

TEST(GitPin, belongsToItsRepositoryAndIfPinnedToItsApplication) {
  const QString repo = QStringLiteral("/home/me/parser");
  const std::optional<QString> editor = QStringLiteral("org.example.Editor");
  const std::optional<QString> other = QStringLiteral("/home/me/lexer");
  const std::optional<QString> none;
  struct Row {
    std::optional<QString> pinned, root, front;
    bool isShown;
  } const rows[] = {
      {none, repo, editor, true},     {none, repo, none, true},     {none, other, editor, false},
      {none, none, editor, false},    {editor, repo, editor, true}, {editor, repo, none, false},
      {editor, other, editor, false}, {editor, repo, QStringLiteral("org.example.Browser"), false},
  };
  for (const auto& row : rows) EXPECT_EQ(belongsToContext(repo, row.pinned, row.root, row.front), row.isShown);
}

class GitPinned : public ShellWorld {
 protected:
  TaskPtr repoNote(bool isPinnedToEditor) {
    return note([&](TaskRecord& record) {
      record.gitRepoPath = QStringLiteral("/home/me/parser");
      record.gitBranch = QStringLiteral("main");
      if (isPinnedToEditor) record.pinnedBundleID = kEditor.bundleID;
    });
  }
  void context(const std::optional<QString>& root, const std::optional<QString>& front) {
    Q_EMIT center.contextChanged(root, front);
  }
  const std::optional<QString> kRepo = QStringLiteral("/home/me/parser");
};

TEST_F(GitPinned, comesAndGoesWithTheRepository) {
  auto& note = torn(repoNote(false));
  EXPECT_TRUE(note.isVisible());
  context(std::nullopt, kBrowser.bundleID);
  EXPECT_FALSE(note.isVisible());
  context(kRepo, kEditor.bundleID);
  EXPECT_TRUE(note.isVisible());
  EXPECT_EQ(window(note).activations, 0);
  context(kRepo, kEditor.bundleID);
  EXPECT_TRUE(note.isVisible());
  context(QStringLiteral("/home/me/lexer"), kEditor.bundleID);
  EXPECT_FALSE(note.isVisible());
}

TEST_F(GitPinned, theRepositoryRuleGoesBeforeTheApplicationRule) {
  auto& note = torn(repoNote(true));
  context(kRepo, kEditor.bundleID);
  workspace.activate(kBrowser);
  EXPECT_TRUE(note.isVisible());
  workspace.activate(kEditor);
  EXPECT_FALSE(note.isDocked());
  context(kRepo, kBrowser.bundleID);
  EXPECT_FALSE(note.isVisible());
}

}  // namespace
}  // namespace tarnwick::test
