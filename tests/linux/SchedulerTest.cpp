// SPDX-License-Identifier: MIT
// The same rules for the scheduler that waits and for the one that tests move.
#include "fakes/ManualTime.h"
#include "linux/time/QtScheduler.h"
#include "linux/time/SystemClock.h"

#include <QTest>

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

using namespace std::chrono_literals;

struct RealTime {
  SystemClock clock;
  QtScheduler scheduler{clock};
  void until(const std::function<bool()>& holds) { ASSERT_TRUE(QTest::qWaitFor(holds, 20000)); }
};

struct FakeTime {
  test::ManualTime scheduler;
  void until(const std::function<bool()>& holds) {
    for (int i = 0; i < 1000 && !holds(); ++i) scheduler.advance(1ms);
    ASSERT_TRUE(holds());
  }
};

TEST(TheSystemClock, speaksToReadersWhereNoLanguageIsSet) {
  const QLocale before;
  QLocale::setDefault(QLocale::c());
  const QLocale locale = SystemClock().locale();
  QLocale::setDefault(before);
  EXPECT_EQ(locale.dayName(1, QLocale::NarrowFormat), QStringLiteral("M"));
  EXPECT_FALSE(locale.toString(QTime(21, 36, 59), QLocale::ShortFormat).contains(QStringLiteral("59")));
}

template <typename Time>
class AScheduler : public testing::Test {
 protected:
  Time time;
};
using Times = testing::Types<RealTime, FakeTime>;
TYPED_TEST_SUITE(AScheduler, Times);

TYPED_TEST(AScheduler, RunsWorkOnceAfterItsDelayInOrder) {
  QString order;
  const auto late = this->time.scheduler.after(20ms, [&] { order += u'c'; });
  const auto soon = this->time.scheduler.after(3ms, [&] { order += u'b'; });
  const auto now = this->time.scheduler.post([&] { order += u'a'; });
  EXPECT_TRUE(order.isEmpty());
  this->time.until([&] { return order.size() >= 3; });
  EXPECT_EQ(order, u"abc");
}

TYPED_TEST(AScheduler, RunsNothingWhoseHandleWent) {
  bool hasRun = false;
  bool isDone = false;
  {
    const auto dropped = this->time.scheduler.after(1ms, [&] { hasRun = true; });
  }
  const auto later = this->time.scheduler.after(10ms, [&] { isDone = true; });
  this->time.until([&] { return isDone; });
  EXPECT_FALSE(hasRun);
}

TYPED_TEST(AScheduler, RepeatsUntilItsOwnWorkCancelsIt) {
  int runs = 0;
  bool isDone = false;
  Registration repeating = this->time.scheduler.every(2ms, [&] {
    if (++runs == 3) repeating.cancel();
  });
  this->time.until([&] { return runs == 3; });
  const auto later = this->time.scheduler.after(15ms, [&] { isDone = true; });
  this->time.until([&] { return isDone; });
  EXPECT_EQ(runs, 3);
}

TYPED_TEST(AScheduler, TicksFramesWithGrowingMediaTime) {
  std::vector<std::chrono::nanoseconds> ticks;
  const auto frames = this->time.scheduler.frames([&](auto media) { ticks.push_back(media); });
  this->time.until([&] { return ticks.size() >= 3; });
  EXPECT_LT(ticks[0], ticks[1]);
  EXPECT_LT(ticks[1], ticks[2]);
}

TEST(TheRealScheduler, LetsHandlesOutliveIt) {
  Registration handle;
  {
    SystemClock clock;
    QtScheduler scheduler(clock);
    handle = scheduler.after(1h, [] {});
  }
  handle.cancel();
  EXPECT_FALSE(handle.isHeld());
}

TEST(TheRealScheduler, HasNoTimerWhenNobodyWaits) {
  SystemClock clock;
  QtScheduler scheduler(clock);
  int ticks = 0;
  auto frames = scheduler.frames([&](auto) { ++ticks; });
  ASSERT_TRUE(QTest::qWaitFor([&] { return ticks > 0; }, 20000));
  frames.cancel();
  const auto activeTimers = [&] {
    int active = 0;
    for (const auto* timer : scheduler.findChildren<QTimer*>()) active += timer->isActive() ? 1 : 0;
    return active;
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return activeTimers() == 0; }, 20000));
}

}  // namespace
}  // namespace tarnwick
