// SPDX-License-Identifier: MIT
#include "ShellWorld.h"

#include <QPushButton>
#include <QSignalSpy>

namespace tarnwick::test {
namespace {

class BoardPanel : public ShellWorld {};

TEST_F(BoardPanel, isHiddenUntilItIsPresented) {
  EXPECT_FALSE(board().isPresented());
  EXPECT_EQ(time.repeatingCount(), 0);
}

TEST_F(BoardPanel, dropsUnderItsAnchorAndComesToRest) {
  QSignalSpy presented(&board(), &FloatingPanel::presented);
  board().present();
  EXPECT_TRUE(board().isPresented());
  EXPECT_EQ(board().boardFrame(), (DesktopRect{456, 374, 390, 390}));
  // The window is larger than the board by the room for its shadow.
  EXPECT_EQ(board().geometry(), QRect(420, 0, 462, 462));
  EXPECT_EQ(window(board()).margins, QMargins(36, 36, 36, 36));
  EXPECT_EQ(window(board()).activations, 1);
  EXPECT_EQ(presented.count(), 1);
  EXPECT_EQ(window(board()).opacity, 0);
  pass(80ms);
  EXPECT_GT(window(board()).opacity, 0.5);
  pass(100ms);
  EXPECT_EQ(window(board()).opacity, 1);
  EXPECT_EQ(time.repeatingCount(), 1);  // the spring still swings
  EXPECT_NE(contentWidget->pos(), QPoint(36, 36));
  pass(500ms);
  EXPECT_EQ(contentWidget->geometry(), QRect(36, 36, 390, 390));
  EXPECT_EQ(time.repeatingCount(), 0);
}

TEST_F(BoardPanel, tucksAndIsGoneAfterTheFade) {
  board().present();
  pass(1s);
  board().dismiss();
  EXPECT_TRUE(board().isDismissing());
  EXPECT_TRUE(board().isPresented());
  pass(120ms);
  EXPECT_LT(window(board()).opacity, 0.6);
  EXPECT_TRUE(board().isPresented());
  pass(60ms);
  EXPECT_FALSE(board().isPresented());
  EXPECT_FALSE(board().isDismissing());
  EXPECT_EQ(window(board()).opacity, 1);
  EXPECT_EQ(contentWidget->pos(), QPoint(36, 36));
  EXPECT_EQ(time.repeatingCount(), 0);
}

TEST_F(BoardPanel, comesBackWhenItIsPresentedWhileItTucks) {
  board().present();
  pass(1s);
  board().dismiss();
  pass(70ms);
  board().toggle();
  EXPECT_FALSE(board().isDismissing());
  EXPECT_EQ(window(board()).opacity, 0);  // it was half gone: it fades in anew
  pass(1s);
  EXPECT_TRUE(board().isPresented());
  EXPECT_EQ(window(board()).opacity, 1);
}

TEST_F(BoardPanel, doesNotFadeAgainWhileItIsStillFullyOpaque) {
  board().present();
  pass(1s);
  board().dismiss();
  board().present();
  EXPECT_EQ(window(board()).opacity, 1);
  pass(1s);
  EXPECT_TRUE(board().isPresented());
  EXPECT_EQ(contentWidget->pos(), QPoint(36, 36));
}

TEST_F(BoardPanel, presentedOnceMoreItOnlyComesForward) {
  board().present();
  pass(1s);
  anchor = DesktopRect{800, 774, 22, 22};
  board().present();
  EXPECT_EQ(time.repeatingCount(), 0);
  EXPECT_EQ(window(board()).activations, 2);
  EXPECT_EQ(board().boardFrame().x, 616);
}

TEST_F(BoardPanel, togglesBetweenTheTwo) {
  board().toggle();
  pass(1s);
  EXPECT_TRUE(board().isPresented());
  board().toggle();
  EXPECT_TRUE(board().isDismissing());
  board().dismiss();  // once is enough
  pass(1s);
  EXPECT_FALSE(board().isPresented());
  board().dismiss();
  EXPECT_FALSE(board().isDismissing());
}

TEST_F(BoardPanel, isHiddenAtOnceWhenANoteIsStuck) {
  board().present();
  pass(30ms);
  board().hideBoard();
  EXPECT_FALSE(board().isPresented());
  EXPECT_EQ(time.repeatingCount(), 0);
  board().present();
  pass(1s);
  EXPECT_EQ(window(board()).opacity, 1);
}

TEST_F(BoardPanel, onlyFadesWithReducedMotion) {
  workspace.hasReducedMotion = true;
  board().present();
  EXPECT_EQ(window(board()).opacity, 0);
  EXPECT_EQ(contentWidget->pos(), QPoint(36, 36));
  pass(200ms);
  EXPECT_EQ(window(board()).opacity, 1);
  EXPECT_EQ(time.repeatingCount(), 0);
  board().dismiss();
  pass(200ms);
  EXPECT_FALSE(board().isPresented());
}

TEST_F(BoardPanel, standsAtOnceAndMaskedWithoutACompositor) {
  screens.hasCompositor = false;
  board().present();
  EXPECT_EQ(window(board()).opacity, 1);
  EXPECT_EQ(time.repeatingCount(), 0);
  EXPECT_EQ(board().geometry(), QRect(455, 35, 392, 392));
  EXPECT_EQ(window(board()).margins, QMargins());
  EXPECT_FALSE(board().mask().isEmpty());
  EXPECT_FALSE(board().mask().contains(QPoint(2, 2)));
  EXPECT_TRUE(board().mask().contains(QPoint(196, 1)));
  board().dismiss();
  EXPECT_FALSE(board().isPresented());
}

TEST_F(BoardPanel, followsACompositorThatComesAndGoes) {
  board().present();
  pass(50ms);
  screens.hasCompositor = false;
  screens.changed.notify();
  EXPECT_EQ(window(board()).opacity, 1);
  EXPECT_EQ(contentWidget->geometry(), QRect(1, 1, 390, 390));
  screens.hasCompositor = true;
  screens.changed.notify();
  EXPECT_EQ(contentWidget->geometry(), QRect(36, 36, 390, 390));
  EXPECT_TRUE(board().mask().isEmpty());
}

TEST_F(BoardPanel, goesToTheTopRightWithoutAnAnchorAndStaysWhereItIsWhileVisible) {
  anchor.reset();
  board().present();
  EXPECT_EQ(board().boardFrame(), (DesktopRect{862, 352, 390, 390}));
  pass(1s);
  anchor = DesktopRect{640, 774, 22, 22};
  board().present();
  const auto there = board().boardFrame();
  anchor.reset();
  board().present();
  EXPECT_EQ(board().boardFrame(), there);
}

TEST_F(BoardPanel, hasItsPlaceBeforeItWasEverSeen) {
  EXPECT_EQ(board().boardFrame(), (DesktopRect{456, 374, 390, 390}));
  anchor.reset();
  EXPECT_EQ(board().boardFrame(), (DesktopRect{862, 352, 390, 390}));
  screens.screens.clear();
  EXPECT_EQ(board().boardFrame().size(), (DesktopSize{390, 390}));
}

TEST_F(BoardPanel, usesTheScreenOfItsAnchor) {
  screens.screens.push_back({QStringLiteral("right"), {1280, -200, 1000, 900}, {1280, -200, 1000, 860}, 1});
  anchor = DesktopRect{2200, 664, 22, 22};
  board().present();
  EXPECT_EQ(board().boardFrame(), (DesktopRect{1882, 264, 390, 390}));
}

TEST_F(BoardPanel, survivesADesktopWithoutScreens) {
  screens.screens.clear();
  board().present();
  EXPECT_TRUE(board().isPresented());
}

TEST_F(BoardPanel, closingItOnlyHidesIt) {
  board().present();
  pass(1s);
  EXPECT_FALSE(board().close());
  EXPECT_FALSE(board().isPresented());
  board().present();
  EXPECT_TRUE(board().isPresented());
}

TEST_F(BoardPanel, aClickDuringTheDropReachesWhatLiesThere) {
  board();
  auto* button = new QPushButton(contentWidget);
  button->setGeometry(100, 50, 80, 30);
  QSignalSpy clicks(button, &QPushButton::clicked);
  board().present();
  pass(100ms);
  const QPoint spot = QPoint(36 + 140, 36 + 65);
  QTest::mouseClick(board().windowHandle(), Qt::LeftButton, {}, spot);
  EXPECT_EQ(clicks.count(), 1);
  EXPECT_EQ(window(board()).opacity, 1);
  EXPECT_EQ(time.repeatingCount(), 0);
}

TEST_F(BoardPanel, isDraggedByItsGround) {
  board().present();
  pass(1s);
  dragBy(board(), {100, 100}, {30, -10});
  EXPECT_EQ(board().boardFrame(), (DesktopRect{486, 384, 390, 390}));
  EXPECT_GE(window(board()).activations, 2);
}

TEST_F(BoardPanel, isWhereTheWindowManagerMovedIt) {
  const auto moveTo = [this](DesktopPoint corner) {
    const double rim = screens.hasCompositor ? 0 : 1;
    windowServer.place(board().windowHandle(), {corner.x - rim, corner.y - rim, 390 + 2 * rim, 390 + 2 * rim});
    const auto place = screens.space().toQt(DesktopRect{corner.x, corner.y, 390, 390}).topLeft().toPoint();
    board().windowHandle()->setPosition(place - contentWidget->pos());
    QCoreApplication::processEvents();
    pass(700ms);
  };
  for (const bool isComposited : {true, false}) {
    screens.hasCompositor = isComposited;
    screens.changed.notify();
    board().present();
    pass(1ms);  // it is exposed
    pass(1s);
    moveTo({300, 200});
    EXPECT_EQ(board().boardFrame(), (DesktopRect{300, 200, 390, 390})) << isComposited;
    pass(1s);
    EXPECT_EQ(time.pendingCount(), 0);
    board().orderOut();
    board().present();
    moveTo({100, 100});  // where a busy window manager puts what is new
    EXPECT_EQ(board().boardFrame(), (DesktopRect{456, 374, 390, 390})) << isComposited;
    board().orderOut();
  }
}

TEST_F(BoardPanel, keepsOutOfCapturesWhenItIsToldTo) {
  ASSERT_TRUE(defaults.setBoolean(keys::kHideFromScreenShare, true));
  EXPECT_EQ(board().sharing(), SharingType::None);
  board().present();
  EXPECT_EQ(window(board()).sharing, SharingType::None);
  ASSERT_TRUE(defaults.setBoolean(keys::kHideFromScreenShare, false));
  Q_EMIT center.notePrivacyChanged();
  EXPECT_EQ(window(board()).sharing, SharingType::ReadOnly);
}

TEST_F(BoardPanel, hidesDuringACastWhereTheDesktopCannotLeaveItOut) {
  ASSERT_TRUE(defaults.setBoolean(keys::kHideFromScreenShare, true));
  board().present();
  pass(1s);
  capture.setCasting(true);
  EXPECT_FALSE(board().isPresented());
  board().present();
  EXPECT_FALSE(board().isPresented());
  capture.setCasting(false);
  pass(4s);
  board().present();
  EXPECT_TRUE(board().isPresented());
}

TEST_F(BoardPanel, staysDuringACastWhenItMayBeSeenOrIsOmittedAnyway) {
  board().present();
  pass(1s);
  capture.setCasting(true);
  EXPECT_TRUE(board().isPresented());
  capture.setCasting(false);
  pass(5s);
  ASSERT_TRUE(defaults.setBoolean(keys::kHideFromScreenShare, true));
  Q_EMIT center.notePrivacyChanged();
  capture.level = CaptureExclusion::Omitted;
  capture.setCasting(true);
  EXPECT_TRUE(board().isPresented());
}

TEST_F(BoardPanel, asksForItsPlaceAgainShortlyAfterItCameUp) {
  board().present();
  board().move(0, 0);  // what some window managers report
  pass(100ms);
  EXPECT_EQ(board().pos(), QPoint(420, 0));
}

}  // namespace
}  // namespace tarnwick::test
