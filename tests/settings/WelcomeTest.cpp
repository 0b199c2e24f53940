// SPDX-License-Identifier: MIT
#include "settings/WelcomeView.h"

#include "SettingsFixture.h"
#include "settings/WelcomeWindowController.h"

#include <QWindow>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class Welcome : public testing::Test {
 protected:
  void show() {
    controller.show([this] { ++finished; });
    EXPECT_TRUE(QTest::qWaitForWindowExposed(controller.window()));
  }
  [[nodiscard]] WelcomeView& view() const { return static_cast<WelcomeView&>(*controller.window()); }
  [[nodiscard]] bool offers(const QString& name) const { return named(view(), name) != nullptr; }
  void click(const QString& name) const {
    auto* button = named(view(), name);
    ASSERT_TRUE(button) << "no visible button is named " << qPrintable(name);
    QTest::mouseClick(button, Qt::LeftButton);
  }
  void goToLastPage() {
    click(u"Next"_s);
    click(u"Next"_s);
    time.advance(2s);
  }

  ManualTime time;
  QTemporaryDir folder;
  UserDefaults defaults{folder.filePath(u"defaults.json"_s), time};
  FakeAccessibility accessibility;
  FakeWorkspace workspace;
  FakeWindowServer windowServer;
  FakeScreens screens;
  WelcomeWindowController controller{{accessibility, time, workspace, windowServer, screens}, defaults};
  int finished = 0;
};

TEST_F(Welcome, leadsThroughThreePagesAndRecordsThatItWasSeen) {
  show();
  EXPECT_EQ(view().size(), QSize(440, 400));
  EXPECT_EQ(view().accessibleName(), u"Stick a thought, anywhere"_s);
  EXPECT_FALSE(offers(u"Back"_s));
  click(u"Next"_s);
  EXPECT_EQ(view().accessibleName(), u"Done? Crush it."_s);
  click(u"Next"_s);
  EXPECT_EQ(view().accessibleName(), u"Let notes find the Trash"_s);
  EXPECT_FALSE(offers(u"Next"_s));
  EXPECT_FALSE(defaults.boolean(keys::kHasSeenWelcome));
  click(u"Start sticking"_s);
  EXPECT_TRUE(defaults.boolean(keys::kHasSeenWelcome));
  EXPECT_FALSE(controller.isVisible());
  EXPECT_EQ(finished, 1);
}

TEST_F(Welcome, goesBackAndOnAgain) {
  show();
  click(u"Next"_s);
  click(u"Back"_s);
  EXPECT_EQ(view().page(), 0);
  EXPECT_FALSE(offers(u"Back"_s));
  click(u"Next"_s);
  click(u"Next"_s);
  click(u"Back"_s);
  EXPECT_EQ(view().page(), 1);
  EXPECT_TRUE(offers(u"Next"_s));
}

TEST_F(Welcome, isWalkedWithTheKeyboardAlone) {
  show();
  for (int i = 0; i < 2; ++i) QTest::keyClick(view().focusWidget(), Qt::Key_Return);
  EXPECT_EQ(view().page(), 2);
  QTest::keyClick(view().focusWidget(), Qt::Key_Space);
  EXPECT_TRUE(defaults.boolean(keys::kHasSeenWelcome));
}

TEST_F(Welcome, keepsTheKeyboardOnAButtonWhenItsButtonGoes) {
  show();
  click(u"Next"_s);
  auto* back = named(view(), u"Back"_s);
  back->setFocus();
  QTest::keyClick(back, Qt::Key_Return);
  ASSERT_TRUE(view().focusWidget());
  EXPECT_EQ(view().focusWidget(), named(view(), u"Next"_s));
}

TEST_F(Welcome, closedUnfinishedIsNotSeen) {
  show();
  view().close();
  EXPECT_FALSE(controller.isVisible());
  EXPECT_FALSE(defaults.boolean(keys::kHasSeenWelcome));
  EXPECT_EQ(finished, 0);
  show();
  EXPECT_TRUE(controller.isVisible());
}

TEST_F(Welcome, isCentredOnWhatPanelsLeaveAndTakesTheKeyboard) {
  screens.screens[0].visibleFrame = {0, 0, 1280, 700};
  show();
  EXPECT_EQ(view().pos(), QPoint(420, 250));
  EXPECT_EQ(windowServer.of(view().windowHandle()).activations, 1);
  controller.show([] {});
  EXPECT_EQ(windowServer.of(view().windowHandle()).activations, 2) << "a second call brings the open window forward";
}

TEST_F(Welcome, isCutToItsOutlineWhereNothingIsBlended) {
  screens.hasCompositor = false;
  show();
  EXPECT_FALSE(view().testAttribute(Qt::WA_TranslucentBackground));
  EXPECT_FALSE(view().mask().contains(QPoint(2, 2)));
  EXPECT_TRUE(view().mask().contains(QPoint(220, 2)));
  const auto seen = view().grab().toImage();
  int light = 0;
  for (int y = 0; y < seen.height(); ++y) {
    for (int x = view().width() - 22; x < view().width(); ++x) {
      light += view().mask().contains(QPoint(x, y)) && seen.pixelColor(x, y).lightness() > 110 ? 1 : 0;
    }
  }
  EXPECT_EQ(light, 0) << "pixels that the outline cuts are dark";
}

TEST_F(Welcome, aPageArrivesWithASpringAndThenRests) {
  show();
  click(u"Next"_s);
  EXPECT_EQ(time.repeatingCount(), 2) << "the poll and the turn";
  time.advance(80ms);
  const auto early = view().grab().toImage();
  time.advance(920ms);
  EXPECT_EQ(time.repeatingCount(), 1);
  const auto late = view().grab().toImage();
  EXPECT_NE(early, late);
  time.advance(1s);
  EXPECT_EQ(view().grab().toImage(), late);
}

TEST_F(Welcome, turnsAtOnceWithReducedMotion) {
  workspace.hasReducedMotion = true;
  show();
  click(u"Next"_s);
  EXPECT_EQ(time.repeatingCount(), 1);
  const auto at = view().grab().toImage();
  time.advance(2s);
  EXPECT_EQ(view().grab().toImage(), at);
}

TEST_F(Welcome, polledTrustTurnsTheButtonIntoTheLineWithinASecond) {
  accessibility.hasTree = false;
  show();
  goToLastPage();
  EXPECT_TRUE(offers(u"Open Accessibility Settings"_s));
  accessibility.hasTree = true;
  time.advance(1s);
  EXPECT_TRUE(view().isTrusted());
  EXPECT_FALSE(offers(u"Open Accessibility Settings"_s));
  EXPECT_TRUE(view().accessibleDescription().endsWith(u"Accessibility is on"_s));
  accessibility.hasTree = false;
  time.advance(1s);
  EXPECT_TRUE(offers(u"Open Accessibility Settings"_s));
}

TEST_F(Welcome, withTrustFromTheStartNothingIsAskedFor) {
  show();
  goToLastPage();
  EXPECT_TRUE(view().isTrusted());
  EXPECT_FALSE(offers(u"Open Accessibility Settings"_s));
  EXPECT_EQ(accessibility.trustRequests, 0);
}

TEST_F(Welcome, askingForTrustPromptsAndThenOpensTheSettings) {
  accessibility.hasTree = false;
  workspace.canOpen = false;
  show();
  goToLastPage();
  click(u"Open Accessibility Settings"_s);
  EXPECT_EQ(accessibility.trustRequests, 1);
  EXPECT_EQ(accessibility.lastRequest, TrustRequest::ByUser);
  EXPECT_EQ(workspace.opened, QList<QUrl>{QUrl(
                u"x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"_s)});
  EXPECT_TRUE(offers(u"Start sticking"_s)) << "the permission is optional";
}

TEST_F(Welcome, asksTheSystemOnlyWhileItIsOnScreen) {
  EXPECT_EQ(time.repeatingCount(), 0);
  show();
  EXPECT_EQ(time.repeatingCount(), 1);
  goToLastPage();
  click(u"Start sticking"_s);
  EXPECT_EQ(time.repeatingCount(), 0);
}

TEST_F(Welcome, isDraggedByItsBackground) {
  show();
  const auto start = view().pos();
  QTest::mousePress(&view(), Qt::LeftButton, {}, QPoint(20, 200));
  QTest::mouseMove(&view(), QPoint(50, 210));
  QTest::mouseRelease(&view(), Qt::LeftButton, {}, QPoint(20, 200));
  EXPECT_EQ(view().pos() - start, QPoint(30, 10));
}

}  // namespace
}  // namespace tarnwick::test
