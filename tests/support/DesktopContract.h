// SPDX-License-Identifier: MIT
// What the ports about other programs promise, told once and tried on the fakes and on a real desktop. A stage plays the
// other programs, each with one window: workspace(), others(), launch(), bringToFront(pid), move(pid, x), end(pid),
// openAnother(pid), a window of another application from the same process, and soon(condition), which waits where things
// take their time.
#pragma once

#include "platform/OtherWindows.h"
#include "platform/Workspace.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>

namespace tarnwick::test {

template <typename Stage>
class DesktopContract : public testing::Test {
 protected:
  [[nodiscard]] bool isFront(qint64 pid) {
    const auto front = stage.workspace().frontmost();
    return front && front->pid == pid;
  }
  /// A program whose window is in front now.
  [[nodiscard]] qint64 inFront() {
    const auto pid = stage.launch();
    EXPECT_TRUE(stage.soon([&] { return isFront(pid); }));
    return pid;
  }
  [[nodiscard]] Workspace::Observer into(QStringList& log, const char* what) {
    return [&log, what](const RunningApplication& application) {
      log << QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(application.pid);
    };
  }
  Stage stage;
};

TYPED_TEST_SUITE_P(DesktopContract);

TYPED_TEST_P(DesktopContract, theOneInFrontLeavesBeforeTheNextComes) {
  auto& workspace = this->stage.workspace();
  const auto first = this->inFront();
  const auto second = this->inFront();
  QStringList log;
  const auto on = workspace.onActivated(this->into(log, "on"));
  const auto off = workspace.onDeactivated(this->into(log, "off"));
  this->stage.bringToFront(first);
  ASSERT_TRUE(this->stage.soon([&] { return log.size() >= 2; }));
  EXPECT_EQ(log, (QStringList{QStringLiteral("off %1").arg(second), QStringLiteral("on %1").arg(first)}));
  EXPECT_TRUE(this->isFront(first));
}

TYPED_TEST_P(DesktopContract, anEndIsToldOnceAndNobodyRunsOn) {
  auto& workspace = this->stage.workspace();
  const auto first = this->inFront();
  const auto second = this->inFront();
  QStringList log;
  const auto end = workspace.onTerminated(this->into(log, "end"));
  this->stage.end(second);
  ASSERT_TRUE(this->stage.soon([&] { return !log.isEmpty(); }));
  EXPECT_EQ(log, QStringList{QStringLiteral("end %1").arg(second)});
  EXPECT_FALSE(this->isFront(second));
  EXPECT_TRUE(this->stage.soon([&] {
    const auto running = workspace.running();
    const auto has = [&](qint64 pid) {
      return std::any_of(running.begin(), running.end(), [&](const auto& each) { return each.pid == pid; });
    };
    return has(first) && !has(second);
  }));
}

TYPED_TEST_P(DesktopContract, oneProcessMayBeSeveralApplications) {
  auto& workspace = this->stage.workspace();
  const auto pid = this->inFront();
  const auto first = workspace.frontmost()->bundleID;
  QStringList log;
  const auto into = [&](const char* what) {
    return [&log, what](const RunningApplication& application) { log << QLatin1String(what) + application.bundleID; };
  };
  const auto on = workspace.onActivated(into("on "));
  const auto off = workspace.onDeactivated(into("off "));
  this->stage.openAnother(pid);
  ASSERT_TRUE(this->stage.soon([&] { return log.size() >= 2; }));
  EXPECT_EQ(log, (QStringList{QStringLiteral("off ") + first, QStringLiteral("on Another")}));
  EXPECT_TRUE(this->isFront(pid));
  log.clear();
  const auto end = workspace.onTerminated(into("end "));
  this->stage.end(pid);
  ASSERT_TRUE(this->stage.soon([&] { return log.size() >= 2; }));
  log.sort();
  EXPECT_EQ(log, (QStringList{QStringLiteral("end Another"), QStringLiteral("end ") + first})) << "both are told";
}

TYPED_TEST_P(DesktopContract, whoNoLongerListensHearsNothing) {
  auto& workspace = this->stage.workspace();
  const auto first = this->inFront();
  (void)this->inFront();
  QStringList gone;
  QStringList once;
  QStringList log;
  auto cancelled = workspace.onActivated(this->into(gone, "on"));
  cancelled.cancel();
  Registration itself;
  itself = workspace.onActivated([&](const RunningApplication&) {
    once << QStringLiteral("on");
    itself.cancel();  // while it is told
  });
  const auto last = workspace.onActivated(this->into(log, "on"));
  this->stage.bringToFront(first);
  ASSERT_TRUE(this->stage.soon([&] { return log.size() == 1; }));
  const auto third = this->inFront();
  ASSERT_TRUE(this->stage.soon([&] { return log.size() == 2; }));
  EXPECT_TRUE(log.last().endsWith(QString::number(third)));
  EXPECT_TRUE(gone.isEmpty());
  EXPECT_EQ(once.size(), 1);
}

TYPED_TEST_P(DesktopContract, aFollowedWindowIsReportedAtOnceAsItMovesAndWhenItGoes) {
  const auto pid = this->inFront();
  std::optional<DesktopRect> frame;
  int reports = 0;
  const auto handle = this->stage.others().followFocusedWindow(pid, [&](std::optional<DesktopRect> seen) {
    frame = seen;
    ++reports;
  });
  EXPECT_EQ(reports, 1);
  ASSERT_TRUE(handle.isHeld());
  ASSERT_TRUE(this->stage.soon([&] { return frame.has_value(); }));
  const double x = frame->x;
  this->stage.move(pid, 400);
  EXPECT_TRUE(this->stage.soon([&] { return frame && frame->x > x + 50; }));
  this->stage.end(pid);
  EXPECT_TRUE(this->stage.soon([&] { return !frame; }));
}

TYPED_TEST_P(DesktopContract, aWindowThatNobodyFollowsAnyMoreIsNotReported) {
  const auto pid = this->inFront();
  int left = 0;
  std::optional<DesktopRect> frame;
  auto handle = this->stage.others().followFocusedWindow(pid, [&](auto) { ++left; });
  const auto stays = this->stage.others().followFocusedWindow(pid, [&](auto seen) { frame = seen; });
  handle.cancel();
  const int before = left;
  this->stage.move(pid, 400);
  EXPECT_TRUE(this->stage.soon([&] { return frame && frame->x > 350; }));
  EXPECT_EQ(left, before);
  EXPECT_FALSE(this->stage.others().followFocusedWindow(0, [](auto) {}).isHeld()) << "what is no process";
}

TYPED_TEST_P(DesktopContract, windowsAreListedFrontToBack) {
  const auto below = this->inFront();
  const auto above = this->inFront();
  const auto order = [&] {
    std::vector<qint64> pids;
    for (const auto& window : this->stage.others().onScreen()) {
      if (window.pid == below || window.pid == above) pids.push_back(window.pid);
    }
    return pids;
  };
  EXPECT_TRUE(this->stage.soon([&] { return order() == std::vector{above, below}; }));
  this->stage.bringToFront(below);
  EXPECT_TRUE(this->stage.soon([&] { return order() == std::vector{below, above}; }));
}

TYPED_TEST_P(DesktopContract, anUnknownIdentifierIsItsOwnName) {
  const auto [name, icon] = this->stage.workspace().identity(QStringLiteral("nothing.of.that.name"));
  EXPECT_EQ(name, u"nothing.of.that.name");
  EXPECT_TRUE(icon.isNull());
}

REGISTER_TYPED_TEST_SUITE_P(DesktopContract, theOneInFrontLeavesBeforeTheNextComes, anEndIsToldOnceAndNobodyRunsOn,
                            oneProcessMayBeSeveralApplications, whoNoLongerListensHearsNothing,
                            aFollowedWindowIsReportedAtOnceAsItMovesAndWhenItGoes,
                            aWindowThatNobodyFollowsAnyMoreIsNotReported, windowsAreListedFrontToBack,
                            anUnknownIdentifierIsItsOwnName);

}  // namespace tarnwick::test
