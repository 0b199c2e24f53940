// SPDX-License-Identifier: MIT
#include "linux/LinuxPorts.h"
#include "platform/Unavailable.h"
#include "platform/Clock.h"
#include "platform/OtherWindows.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

#include <QWindow>

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(WithoutX11, EveryPortIsServedOrSaysWhyNot) {
  LinuxPorts ports;
  ASSERT_EQ(ports.screens().all().size(), 1U);
  EXPECT_EQ(ports.screens().all().front().frame.origin(), DesktopPoint{});
  EXPECT_TRUE(ports.otherWindows().onScreen().empty());
  EXPECT_EQ(ports.otherWindows().sight(), WindowSight::None);
  EXPECT_FALSE(ports.workspace().frontmost());
  const auto keys = ports.hotKeys().registerChord(QStringLiteral("Meta+Shift+T"), [] {});
  EXPECT_NE(keys.status, 0);
  EXPECT_FALSE(ports.hotKeys().traits().reason.isEmpty());
}

TEST(WithoutX11, WindowsStillTakeTheirFlags) {
  LinuxPorts ports;
  QWindow window;
  ports.windowServer().applyLevel(window, WindowLevel::Floating);
  EXPECT_TRUE(window.flags().testFlag(Qt::WindowStaysOnTopHint));
  ports.windowServer().applyLevel(window, WindowLevel::Desktop);
  EXPECT_TRUE(window.flags().testFlag(Qt::WindowStaysOnBottomHint));
  EXPECT_FALSE(window.flags().testFlag(Qt::WindowStaysOnTopHint));
}

}  // namespace
}  // namespace tarnwick
