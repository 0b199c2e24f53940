// SPDX-License-Identifier: MIT
#include "ShellWorld.h"
#include "shell/Placement.h"

namespace tarnwick::test {
namespace {

class TornNotesTable : public ShellWorld {};

TEST_F(TornNotesTable, tearingOffOpensAWindowMarksTheNoteAndIsHeard) {
  const auto task = note();
  auto& window = torn(task);
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(window.frame(), (DesktopRect{930, 520, 250, 230}));
  EXPECT_EQ(window.geometry(), QRect(930, 50, 250, 230));
  EXPECT_TRUE(task->isTornOff());
  EXPECT_EQ(sounds(QStringLiteral("tear")), 1);
  EXPECT_TRUE(board().isOpen(task->id()));
  const auto path = container->path();
  panel.reset();
  container.reset();
  container = open(path);
  EXPECT_TRUE(container->mainContext().findTask(task->id())->isTornOff());
}

TEST_F(TornNotesTable, tearingOffTwiceOnlyBringsTheWindowForward) {
  const auto task = note();
  auto& first = torn(task);
  const auto frame = first.frame();
  const int raises = window(first).raises;
  auto& second = torn(task, DesktopRect{500, 400, 175, 112});
  EXPECT_EQ(&first, &second);
  EXPECT_EQ(second.frame(), frame);
  EXPECT_EQ(window(first).raises, raises + 1);
  EXPECT_EQ(sounds(QStringLiteral("tear")), 1);
}

TEST_F(TornNotesTable, theSeventhLiesWhereTheFirstDoes) {
  std::vector<DesktopPoint> places;
  for (int i = 0; i < 7; ++i) places.push_back(torn(note()).frame().origin());
  EXPECT_EQ(places[1], (DesktopPoint{902, 492}));
  EXPECT_EQ(places[6], places[0]);
  EXPECT_EQ(board().tornWindows().size(), 7u);
}

TEST_F(TornNotesTable, goesBesideItsCardOnTheScreenOfThePointer) {
  screens.screens.push_back({QStringLiteral("right"), {1280, 0, 1280, 800}, {1280, 40, 1280, 760}, 1});
  EXPECT_EQ(torn(note(), DesktopRect{900, 400, 175, 112}).frame().origin(), (DesktopPoint{634, 341}));
  otherWindows.pointerState.position = {1500, 300};
  EXPECT_EQ(torn(note()).frame().origin(), (DesktopPoint{2182, 522}));
  // Seen from the pointer's screen the card is too far left.
  EXPECT_EQ(torn(note(), DesktopRect{1300, 400, 175, 112}).frame().origin(), (DesktopPoint{1491, 341}));
  // The board on the left hangs at the border: its note would lie across it.
  EXPECT_EQ(torn(note(), DesktopRect{860, 370, 390, 390}).frame().origin(), (DesktopPoint{1292, 450}));
}

TEST_F(TornNotesTable, thoseAddedOneAfterAnotherDoNotHideEachOther) {
  const auto beside = board().boardFrame();
  const auto first = torn(note(), beside).frame();
  EXPECT_EQ(first.origin(), (DesktopPoint{beside.x - 250 - 16, beside.midY() - 115}));
  EXPECT_EQ(torn(note(), beside).frame().origin(), (DesktopPoint{first.x - 28, first.y - 28}));
  EXPECT_EQ(torn(note(), beside).frame().origin(), (DesktopPoint{first.x - 56, first.y - 56}));
  for (int i = 0; i < 3; ++i) torn(note(), beside);
  EXPECT_EQ(torn(note(), beside).frame(), first) << "after six steps it starts over";
}

TEST_F(TornNotesTable, withoutAnyScreenTheBoardsOwnFrameServes) {
  screens.screens.clear();
  EXPECT_TRUE(torn(note()).isVisible());
}

TEST_F(TornNotesTable, redockingClosesTheWindowAndUnmarksTheNote) {
  const auto task = note();
  torn(task);
  board().redockTask(task);
  time.settle();
  EXPECT_FALSE(board().isOpen(task->id()));
  EXPECT_FALSE(task->isTornOff());
  EXPECT_EQ(sounds(QStringLiteral("stick")), 1);
  // Without a window it is the same, only nothing closes.
  task->set(&TaskRecord::isTornOff, true);
  board().redockTask(task);
  EXPECT_FALSE(task->isTornOff());
  EXPECT_EQ(sounds(QStringLiteral("stick")), 2);
}

TEST_F(TornNotesTable, closingLeavesTheNoteAsItIs) {
  const auto task = note();
  torn(task);
  const auto record = task->record();
  board().closePanel(task->id());
  EXPECT_FALSE(board().isOpen(task->id()));
  EXPECT_EQ(task->record(), record);
  board().closePanel(task->id());
  board().closePanel(QUuid::createUuid());
}

TEST_F(TornNotesTable, aFailedSaveChangesNothingForTheWindows) {
  const auto task = note();
  breakStore();
  torn(task);
  EXPECT_TRUE(board().isOpen(task->id()));
  board().redockTask(task);
  EXPECT_FALSE(board().isOpen(task->id()));
}

TEST_F(TornNotesTable, takesTheKeyboardOnlyFromItself) {
  // Another program has the keyboard: a note that comes by itself leaves it there.
  auto& quiet = torn(note());
  EXPECT_EQ(window(quiet).activations, 0);
  workspace.front = ourselves();
  auto& asked = torn(note());
  EXPECT_EQ(window(asked).activations, 1);
}

TEST_F(TornNotesTable, wakingBringsForwardWhatBelongsToTheFront) {
  board().resurfaceTornNotes();  // no notes: nothing, not even activation
  auto& plain = torn(note());
  auto& mine = torn(pinnedNote(kEditor));
  auto& other = torn(pinnedNote(kBrowser));
  auto& repo = torn(note([](TaskRecord& record) {
    record.pinnedBundleID = kEditor.bundleID;
    record.gitRepoPath = QStringLiteral("/home/me/parser");
  }));
  const auto raises = [this](TornNotePanel& each) { return window(each).raises; };
  const auto activations = [&] {
    int sum = 0;
    for (auto* each : {&plain, &mine, &other, &repo}) sum += window(*each).activations;
    return sum;
  };
  workspace.front = kEditor;
  const int before[] = {raises(plain), raises(mine), raises(other), raises(repo)};
  board().resurfaceTornNotes();
  EXPECT_EQ(raises(plain), before[0] + 1);
  EXPECT_EQ(raises(mine), before[1] + 1);
  EXPECT_EQ(raises(other), before[2]);
  EXPECT_EQ(raises(repo), before[3] + 1);
  EXPECT_EQ(activations(), 1);
}

TEST_F(TornNotesTable, tellsWhatItsWindowsAre) {
  const auto task = note([](TaskRecord& record) { record.isPrivate = true; });
  torn(task);
  const auto facts = board().tornWindows();
  ASSERT_EQ(facts.size(), 1u);
  EXPECT_EQ(facts[0].id, task->id());
  EXPECT_EQ(facts[0].frame, (DesktopRect{930, 520, 250, 230}));
  EXPECT_TRUE(facts[0].isVisible);
  EXPECT_EQ(facts[0].level, WindowLevel::Floating);
  EXPECT_EQ(facts[0].sharing, SharingType::None);
  EXPECT_EQ(facts[0].opacity, 1);
  EXPECT_FALSE(facts[0].isGhost || facts[0].isTucked || facts[0].isDocked);
}

// --- Frames that outlive the program ---

class RememberedFrames : public ShellWorld {
 protected:
  void drag(TornNotePanel& note, QPoint way) { dragBy(note, {125, 120}, way); }
  [[nodiscard]] QString key(const TaskPtr& task) const { return keys::kTornNoteFramePrefix + upper(task->id()); }
};

TEST_F(RememberedFrames, aNoteOpensWhereItWasAfterARestart) {
  const auto task = note();
  drag(torn(task), {-300, 60});
  EXPECT_EQ(defaults.reals(key(task)), (std::vector<double>{630, 460, 250, 230}));
  restart();
  EXPECT_EQ(torn(task).frame(), (DesktopRect{630, 460, 250, 230}));
  // The next time in this run it goes where notes go.
  board().redockTask(task);
  EXPECT_EQ(torn(task).frame(), (DesktopRect{930, 520, 250, 230}));
}

TEST_F(RememberedFrames, goWithTheWindow) {
  const auto task = note();
  torn(task);
  EXPECT_TRUE(defaults.reals(key(task)));
  board().closePanel(task->id());
  EXPECT_FALSE(defaults.reals(key(task)));
}

TEST_F(RememberedFrames, areNotKeptWhenTheUserDoesNotWantIt) {
  ASSERT_TRUE(defaults.setBoolean(keys::kRememberTornNotes, false));
  const auto task = note();
  drag(torn(task), {-300, 60});
  EXPECT_FALSE(defaults.reals(key(task)));
  ASSERT_TRUE(defaults.setReals(key(task), {100, 100, 250, 230}));
  restart();
  EXPECT_EQ(torn(task).frame().origin(), (DesktopPoint{930, 520}));
}

TEST_F(RememberedFrames, damagedOrOrphanedOnesAreDropped) {
  const auto task = note([](TaskRecord& record) { record.isTornOff = true; });
  const auto onBoard = note();
  ASSERT_TRUE(defaults.setReals(key(task), {100, 100, 250}));
  ASSERT_TRUE(defaults.setReals(key(onBoard), {100, 100, 250, 230}));
  ASSERT_TRUE(defaults.setReals(keys::kTornNoteFramePrefix + upper(QUuid::createUuid()), {1, 2, 250, 230}));
  EXPECT_EQ(torn(task).frame().origin(), (DesktopPoint{930, 520}));
  EXPECT_FALSE(defaults.reals(key(onBoard)));
  const auto stored = defaults.storedKeys();
  EXPECT_EQ(std::ranges::count_if(stored, [](const auto& k) { return k.startsWith(keys::kTornNoteFramePrefix); }), 1);
}

TEST_F(RememberedFrames, aPlaceOutOfSightIsBroughtIntoViewAndKept) {
  const auto task = note([](TaskRecord& record) { record.isTornOff = true; });
  ASSERT_TRUE(defaults.setReals(key(task), {3000, 300, 250, 230}));
  EXPECT_EQ(torn(task).frame(), (DesktopRect{1030, 300, 250, 230}));
  EXPECT_EQ(defaults.reals(key(task)), (std::vector<double>{3000, 300, 250, 230}));
}

// --- Monitors ---

class Monitors : public ShellWorld {};

TEST_F(Monitors, aNoteComesIntoViewAndReturnsWithItsMonitor) {
  const ScreenFacts right{QStringLiteral("right"), {1280, 0, 1280, 800}, {1280, 0, 1280, 800}, 1};
  screens.screens.push_back(right);
  otherWindows.pointerState.position = {1500, 300};
  auto& note = torn(this->note());
  const auto home = note.frame();
  ASSERT_GE(home.x, 1280);
  screens.screens.pop_back();
  screens.changed.notify();
  EXPECT_EQ(note.frame(), (DesktopRect{1030, 540, 250, 230}));
  screens.screens.push_back(right);
  screens.changed.notify();
  EXPECT_EQ(note.frame(), home);
}

TEST_F(Monitors, aNoteKeepsItsPlaceOnTheGlassWhenThePrimaryScreenGetsHigher) {
  auto& note = torn(this->note());
  const auto before = note.geometry();
  screens.screens[0] = {QStringLiteral("left"), {0, 0, 1280, 1024}, {0, 0, 1280, 994}, 1};
  screens.changed.notify();
  EXPECT_EQ(note.geometry(), before);
  // Also after a restart: what is remembered is counted from the new lower edge.
  time.settle();
  const auto task = note.task();
  restart();
  EXPECT_EQ(torn(task).geometry(), before);
}

TEST_F(Monitors, aCompositorThatComesOrGoesMovesNothing) {
  auto& note = torn(this->note());
  dragBy(note, {125, 120}, {330, 0});  // the user wants it nearly out of sight
  const auto there = note.frame();
  ASSERT_GT(there.minX(), 1280 - 48);
  for (const bool isOn : {false, true}) {
    screens.hasCompositor = isOn;
    screens.changed.notify();
    EXPECT_EQ(note.frame(), there);
  }
}

}  // namespace
}  // namespace tarnwick::test
