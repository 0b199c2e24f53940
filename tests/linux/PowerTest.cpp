// SPDX-License-Identifier: MIT
#include "fakes/ManualTime.h"
#include "linux/dbus/LogindPower.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

using namespace std::chrono_literals;

class TheDay : public testing::Test {
 protected:
  void start(const char* local) {
    time.setLocal(QLatin1String(local));
    power = std::make_unique<LogindPower>(time, time);
    handle = power->observe([this](PowerEvent event) {
      if (event == PowerEvent::DayChanged) ++days;
    });
  }
  test::ManualTime time;
  std::unique_ptr<LogindPower> power;
  Registration handle;
  int days = 0;
};

TEST_F(TheDay, ChangesAtLocalMidnight) {
  start("2026-03-03T22:59:00");
  time.advance(1h);
  EXPECT_EQ(days, 0);
  time.advance(1min);
  EXPECT_EQ(days, 1);
  time.advance(24h);
  EXPECT_EQ(days, 2);
}

TEST_F(TheDay, ChangesOnceWhenTheClocksGoForward) {
  start("2026-03-28T23:30:00");
  time.advance(23h);  // the day of the change has only that many hours
  EXPECT_EQ(days, 1);
  time.advance(30min);
  EXPECT_EQ(days, 2);
}

TEST_F(TheDay, ChangesWithinTheHourWhenTheMachineSleptUnnoticed) {
  start("2026-03-03T20:00:00");
  time.jump(6h);
  time.advance(1h);
  EXPECT_EQ(days, 1);
}

TEST_F(TheDay, IsNoLongerReportedToWhoWent) {
  start("2026-03-03T23:00:00");
  handle.cancel();
  time.advance(2h);
  EXPECT_EQ(days, 0);
}

}  // namespace
}  // namespace tarnwick
