// SPDX-License-Identifier: MIT
// A walk at random through everything that can happen to the notes on a desktop, the same one each time; after each step
// the table, the store and the windows must agree. TARNWICK_WALK_SECONDS makes it as long as that.
#include "board/NoteCrush.h"
#include "shell/Placement.h"
#include "shell/ShellWorld.h"

#include <QElapsedTimer>

#include <algorithm>
#include <set>

namespace tarnwick::test {
namespace {

constexpr int kFewestSteps = 1500;
constexpr int kNotes = 8;
constexpr int kStepsBetweenReads = 50;

const ScreenFacts kRight{QStringLiteral("right"), {1280, 0, 1280, 800}, {1280, 40, 1280, 760}, 1};
const ScreenFacts kLeft{QStringLiteral("left"), {0, 0, 1280, 800}, {0, 0, 1280, 770}, 1};
const ScreenFacts kSmall{QStringLiteral("small"), {0, 0, 300, 200}, {0, 0, 300, 170}, 1};

class Walk : public ShellWorld {
 protected:
  quint32 next(quint32 range) {
    m_seed = m_seed * 1664525u + 1013904223u;
    return (m_seed >> 16) % range;
  }
  bool coin() { return next(2) == 0; }
  QPoint somewhere(int reach) { return {int(next(quint32(2 * reach))) - reach, int(next(quint32(2 * reach))) - reach}; }

  void makeNotes() {
    for (int i = 0; i < kNotes; ++i) {
      tasks.push_back(note([i](TaskRecord& record) {
        record.id = QUuid::createUuidV5(QUuid(), QString::number(i));
        record.isDaily3 = i < 3;
        record.recurrenceRaw = i == 1 ? QStringLiteral("daily") : QStringLiteral("none");
        if (i >= kNotes - 2) record.pinnedBundleID = kEditor.bundleID;
      }));
    }
  }
  TornNotePanel* open(const TaskPtr& task) { return board().tornPanel(task->id()); }

  void step() {
    const auto& task = tasks[next(kNotes)];
    auto* window = open(task);
    m_last = int(next(26));
    switch (m_last) {
      case 0: case 1: tear(task, std::nullopt); break;
      case 2: tear(task, DesktopRect{double(next(2300)), double(next(700)), 175, 112}); break;
      case 3: tear(task, board().boardFrame()); break;
      case 4: board().redockTask(task); break;
      case 5: case 6: if (window && window->isVisible()) dragBy(*window, {125, 120}, somewhere(900)); break;
      case 7: if (window && window->isVisible()) dragBy(*window, {248, 228}, somewhere(200)); break;
      case 8: case 9: if (window) hover(*window, coin()); break;
      case 10: if (window && !window->isGhost()) window->setTucked(coin(), coin() ? Animation::Animated : Animation::Immediate); break;
      case 11: setMode(std::array{"alwaysOnTop", "desktop", "mouseThrough"}[next(3)]); break;
      case 12: crush(task); break;
      case 13: undo.undo(container->mainContext()); break;
      case 14: monitors(); break;
      case 15: board().toggle(); break;
      case 16: board().resurfaceTornNotes(); break;
      case 17: workspace.activate(coin() ? kEditor : kBrowser); break;
      case 18: otherWindows.move(kEditor.pid, DesktopRect{double(next(2000)), double(next(600)), 700, 500}); break;
      case 19: capture.setCasting(coin()); break;
      case 20: if (window) window->noteView().togglePrivate(); break;
      case 21: pointer(); break;
      case 22: restartSometimes(); break;
      case 23: deepWork(); break;
      case 24: Q_EMIT center.workspaceModeChanged(QStringLiteral("normal")); break;
      default: pass(std::chrono::milliseconds(next(1500)));
    }
    time.settle();
    QCoreApplication::processEvents();
  }

  void setMode(const char* mode) { ShellWorld::setMode(QString::fromLatin1(mode)); }
  void tear(const TaskPtr& task, const std::optional<DesktopRect>& near) {
    if (!task->isCompleted()) board().tearOffTask(task, near);
  }
  void crush(const TaskPtr& task) {
    if (task->isCompleted()) return;
    ASSERT_TRUE(crushAtOnce(services, *task));
  }
  void pointer() {
    otherWindows.pointerState.position = {double(next(2560)), double(next(800))};
    otherWindows.pointerState.isOptionDown = coin();
    pass(100ms);
  }
  void monitors() {
    const auto before = screens.screens;
    switch (next(6)) {
      case 0: screens.screens = {kLeft}; break;
      case 1: case 2: screens.screens = {kLeft, kRight}; break;
      case 3: screens.screens = {kSmall}; break;
      case 4: screens.screens = {kRight, kLeft}; break;
      default: screens.hasCompositor = !screens.hasCompositor;
    }
    screens.changed.notify();
    if (screens.screens == before) return;  // where the user dragged a note it stays
    for (const auto& facts : board().tornWindows()) {
      const double needed = facts.isTucked ? placement::kTabSize.height : placement::kReach;
      ASSERT_TRUE(std::ranges::any_of(screens.screens, [&](const auto& screen) {
        const auto seen = facts.frame.intersected(screen.visibleFrame);
        return seen.width >= placement::kReach && seen.height >= needed;
      })) << "out of reach after a change of monitors";
    }
  }
  /// Begins, and may end at once.
  void deepWork() {
    const auto orderedIn = [this](bool isDeep) {
      std::set<QUuid> ids;
      for (const auto& task : tasks) {
        if (const auto* window = open(task); window && window->isOrderedIn() && (!isDeep || task->isDaily3())) ids.insert(task->id());
      }
      return ids;
    };
    const auto before = orderedIn(false);
    const auto daily = orderedIn(true);
    Q_EMIT center.workspaceModeChanged(QStringLiteral("deepWork"));
    ASSERT_EQ(orderedIn(false), daily);
    if (coin()) return;
    Q_EMIT center.workspaceModeChanged(QStringLiteral("normal"));
    ASSERT_EQ(orderedIn(false), before);
  }
  void restartSometimes() {
    if (next(8) != 0) return;
    ASSERT_TRUE(container->mainContext().save());
    restart();
    for (const auto& task : tasks) {
      if (task->isTornOff() && !task->isSleeping(time.now(), Calendar::of(time))) board().tearOffTask(task, std::nullopt);
    }
  }

  void expectAgreement() {
    std::set<QUuid> torn;
    for (const auto& task : tasks) {
      const auto* window = open(task);
      // A repeating note that was crushed waits for its next day without a window.
      const bool mayWait = task->record().recurrenceRaw != QStringLiteral("none");
      ASSERT_TRUE(task->isTornOff() == (window != nullptr) || (mayWait && !window))
          << (task->isTornOff() ? "torn off" : "on the board") << (window ? ", open" : ", no window") << ", last: " << m_last;
      if (!window) continue;
      torn.insert(task->id());
      const auto facts = window->facts();
      ASSERT_EQ(facts.isVisible, window->isVisible());
      ASSERT_EQ(window->geometry(), screens.space().toQt(facts.frame).toRect()) << "last: " << m_last;
      const auto mode = defaults.text(keys::kNoteDisplayMode);
      ASSERT_EQ(facts.isGhost, mode == QStringLiteral("mouseThrough"));
      if (facts.isVisible) {
        const auto& seen = this->window(*window);
        ASSERT_EQ(seen.level, mode == QStringLiteral("desktop") ? WindowLevel::Desktop : WindowLevel::Floating);
        ASSERT_EQ(seen.sharing, facts.sharing);
        ASSERT_EQ(seen.opacity, facts.opacity);
        // A ghost hears of the option key a moment later.
        ASSERT_TRUE(facts.isGhost || seen.clickThrough == ClickThrough::Off) << "last: " << m_last;
      }
      ASSERT_FALSE(facts.isTucked && facts.isGhost);
      ASSERT_TRUE(!facts.isDocked || task->record().pinnedBundleID == kEditor.bundleID);
      ASSERT_FALSE(facts.sharing == SharingType::None && capture.casting && facts.isVisible);
      ASSERT_EQ(facts.sharing == SharingType::None, task->isPrivate() || facts.isGhost);
      const auto isFullSize = [window] {
        const auto now = window->facts();
        return now.isTucked || (now.frame.width >= placement::kMinimumNoteSize.width &&
                                now.frame.height >= placement::kMinimumNoteSize.height);
      };
      if (!isFullSize()) pass(1s);  // it is unfolding
      ASSERT_TRUE(isFullSize()) << window->frame().width << " x " << window->frame().height;
    }
    ASSERT_EQ(board().tornWindows().size(), torn.size());
    std::size_t windows = 0;
    for (const auto* widget : QApplication::topLevelWidgets()) {
      if (qobject_cast<const TornNotePanel*>(widget)) ++windows;
    }
    ASSERT_EQ(windows, torn.size()) << "no window is left behind";
  }

  /// What another program would read in the file.
  void expectStored() {
    ASSERT_TRUE(container->mainContext().save());
    sqlite3* connection = nullptr;
    ASSERT_EQ(sqlite3_open(container->path().toUtf8().constData(), &connection), SQLITE_OK);
    std::set<QUuid> stored;
    const auto add = [](void* into, int, char** values, char**) {
      static_cast<std::set<QUuid>*>(into)->insert(QUuid(QString::fromUtf8(values[0])));
      return 0;
    };
    ASSERT_EQ(sqlite3_exec(connection, "SELECT id FROM Task WHERE isTornOff = 1", add, &stored, nullptr), SQLITE_OK);
    sqlite3_close(connection);
    std::set<QUuid> torn;
    for (const auto& task : tasks) {
      if (task->isTornOff()) torn.insert(task->id());
    }
    ASSERT_EQ(stored, torn);
  }

  std::vector<TaskPtr> tasks;

 private:
  quint32 m_seed = 20260303;
  int m_last = 0;  // what was done in the last step
};

TEST_F(Walk, tableStoreAndWindowsAgreeWhateverHappens) {
  const qint64 least = qEnvironmentVariableIntValue("TARNWICK_WALK_SECONDS") * 1000LL;
  makeNotes();
  QElapsedTimer walked;
  walked.start();
  int number = 0;
  for (; number < kFewestSteps || walked.elapsed() < least; ++number) {
    SCOPED_TRACE(number);
    step();
    if (HasFatalFailure()) return;
    expectAgreement();
    if (HasFatalFailure()) return;
    if (number % kStepsBetweenReads == 0) expectStored();
    if (HasFatalFailure()) return;
  }
  RecordProperty("steps", number);
  std::printf("%d steps in %lld s\n", number, static_cast<long long>(walked.elapsed() / 1000));
}

}  // namespace
}  // namespace tarnwick::test
