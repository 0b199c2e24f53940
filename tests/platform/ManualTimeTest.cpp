// SPDX-License-Identifier: MIT
#include "fakes/ManualTime.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace tarnwick::test {
namespace {

using namespace std::chrono_literals;

TEST(ManualTime, runsDueWorkInOrderAtItsOwnMoment) {
  ManualTime time;
  QStringList log;
  const auto start = time.now();
  const auto note = [&](const char* what) {
    log.append(QStringLiteral("%1@%2").arg(QLatin1StringView(what)).arg(start.msecsTo(time.now())));
  };
  const auto late = time.after(30ms, [&] { note("late"); });
  const auto early = time.after(10ms, [&] { note("early"); });
  const auto twice = time.every(20ms, [&] { note("tick"); });
  time.advance(45ms);
  EXPECT_EQ(log.join(u' '), QStringLiteral("early@10 tick@20 late@30 tick@40"));
}

TEST(ManualTime, workThatCancelsOthersOrItselfIsHonoured) {
  ManualTime time;
  int runs = 0;
  Registration repeating;
  repeating = time.every(5ms, [&] {
    if (++runs == 3) repeating.cancel();
  });
  Registration victim = time.after(20ms, [&] { runs = 100; });
  const auto killer = time.after(10ms, [&] { victim.cancel(); });
  time.advance(1s);
  EXPECT_EQ(runs, 3);
}

TEST(ManualTime, aJumpMovesTheWallClockWithoutRunningWork) {
  ManualTime time;
  int runs = 0;
  const auto work = time.after(10s, [&] { ++runs; });
  const auto before = time.now();
  time.jump(1h);
  EXPECT_EQ(before.secsTo(time.now()), 3600);
  EXPECT_EQ(runs, 0);
  time.advance(10s);
  EXPECT_EQ(runs, 1);
}

}  // namespace
}  // namespace tarnwick::test
