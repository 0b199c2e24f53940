// SPDX-License-Identifier: MIT
// When requests fire, on moved time. The stand-in obeys the same rules of adding and removing.
#include "fakes/FakeServices.h"
#include "fakes/ManualTime.h"
#include "linux/dbus/FreedesktopNotifications.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

using namespace std::chrono_literals;

struct Freedesktop {
  test::ManualTime time;
  test::FakePower power;
  FreedesktopNotifications notifications{time, time, power};
};
struct Fake {
  test::ManualTime time;
  test::FakeUserNotifications notifications;
};

NotificationRequest request(const char* identifier, const QDateTime& firesAt) {
  return {QLatin1String(identifier), QStringLiteral("Due now"), QStringLiteral("Call Bob"), firesAt};
}

QStringList identifiers(const UserNotifications& notifications) {
  QStringList all;
  for (const auto& each : notifications.pending()) all << each.identifier;
  all.sort();
  return all;
}

template <typename T>
class PendingNotifications : public testing::Test {
 protected:
  T made;
};
using Kinds = testing::Types<Freedesktop, Fake>;
TYPED_TEST_SUITE(PendingNotifications, Kinds);

TYPED_TEST(PendingNotifications, AreReplacedByIdentifierAndRemovedByIt) {
  auto& notifications = this->made.notifications;
  const auto soon = this->made.time.now().addSecs(60);
  notifications.add(request("a-due", soon));
  notifications.add(request("b-due", soon));
  notifications.add(request("a-due", soon.addSecs(5)));
  EXPECT_EQ(identifiers(notifications), (QStringList{QStringLiteral("a-due"), QStringLiteral("b-due")}));
  notifications.remove({QStringLiteral("a-due"), QStringLiteral("unknown")});
  EXPECT_EQ(identifiers(notifications), QStringList{QStringLiteral("b-due")});
  notifications.removeAll();
  EXPECT_TRUE(notifications.pending().empty());
}

class DueNotifications : public testing::Test {
 protected:
  Freedesktop made;
  [[nodiscard]] QStringList left() const { return identifiers(made.notifications); }
};

TEST_F(DueNotifications, FireAtTheirMomentAndNotBefore) {
  made.notifications.add(request("late", made.time.now().addSecs(7200)));
  made.notifications.add(request("soon", made.time.now().addSecs(60)));
  made.time.advance(59s);
  EXPECT_EQ(left(), (QStringList{QStringLiteral("late"), QStringLiteral("soon")}));
  made.time.advance(1s);
  EXPECT_EQ(left(), QStringList{QStringLiteral("late")});
  made.time.advance(2h);
  EXPECT_TRUE(left().isEmpty());
}

TEST_F(DueNotifications, FireAtOnceWhenTheMachineWakesAfterTheirMoment) {
  made.notifications.add(request("soon", made.time.now().addSecs(600)));
  made.time.jump(1h);
  made.power.events.notify(PowerEvent::DidWake);
  EXPECT_TRUE(left().isEmpty());
}

TEST_F(DueNotifications, WaitLongerWhenTheClockWasSetBack) {
  made.notifications.add(request("soon", made.time.now().addSecs(600)));
  made.time.jump(-1h);
  made.power.events.notify(PowerEvent::ClockChanged);
  made.time.advance(30min);
  EXPECT_FALSE(left().isEmpty());
  made.time.advance(41min);
  EXPECT_TRUE(left().isEmpty());
}

TEST_F(DueNotifications, LeaveNoTimerBehind) {
  made.notifications.add(request("soon", made.time.now().addSecs(60)));
  EXPECT_GT(made.time.pendingCount(), 0);
  made.notifications.removeAll();
  EXPECT_EQ(made.time.pendingCount(), 0);
}

}  // namespace
}  // namespace tarnwick
