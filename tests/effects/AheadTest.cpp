// SPDX-License-Identifier: MIT
#include "effects/Ahead.h"
#include "effects/PixmapCache.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <latch>
#include <thread>

namespace tarnwick {
namespace {

TEST(ValuesMadeAhead, AreMadeOnceByWhoeverComesFirst) {
  std::atomic<int> count = 0;
  const auto make = [&] { return ++count; };
  Ahead<int> early(make);
  std::jthread([&] { early.make(); }).join();
  EXPECT_EQ(early.take(), 1);
  Ahead<int> late(make);
  EXPECT_EQ(late.take(), 2) << "nobody else had the time";
  late.make();
  EXPECT_EQ(count, 2);
}

TEST(ValuesMadeAhead, AreWaitedForWhileTheyAreBeingMade) {
  std::latch begun(1);
  std::latch mayEnd(1);
  Ahead<int> value([&] {
    begun.count_down();
    mayEnd.wait();
    return 7;
  });
  const std::jthread other([&] { value.make(); });
  begun.wait();
  const std::jthread release([&] { mayEnd.count_down(); });
  EXPECT_EQ(value.take(), 7);
}

TEST(PicturesKeptForAllThreads, ArePaintedOnceEachAndHoldUpNoOther) {
  PixmapCache cache(64);
  std::atomic<bool> isPainting = false;
  std::latch asks(1);
  std::latch mayEnd(1);
  std::atomic<int> count = 0;
  const auto slow = [&] {
    ++count;
    isPainting = true;
    isPainting.notify_all();
    mayEnd.wait();
    return QPixmap(3, 3);
  };
  std::array<QPixmap, 2> seen;
  std::jthread first([&] { seen[0] = cache.fetch(QStringLiteral("slow"), slow); });
  isPainting.wait(false);
  std::jthread second([&] {
    asks.count_down();
    seen[1] = cache.fetch(QStringLiteral("slow"), slow);
  });
  asks.wait();
  for (int i = 0; i < 2000; ++i) {  // time enough for the second to be where it waits
    EXPECT_EQ(cache.fetch(QString::number(i), [] { return QPixmap(5, 5); }).width(), 5);
  }
  mayEnd.count_down();
  first.join();
  second.join();
  EXPECT_EQ(count, 1);
  EXPECT_EQ(seen[0].cacheKey(), seen[1].cacheKey());
}

}  // namespace
}  // namespace tarnwick
