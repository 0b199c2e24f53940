// SPDX-License-Identifier: MIT
#include "shell/Placement.h"

#include <gtest/gtest.h>

namespace tarnwick {

void PrintTo(const DesktopPoint& point, std::ostream* out) { *out << point.x << ", " << point.y; }
void PrintTo(const DesktopRect& rect, std::ostream* out) { *out << toText(rect).toStdString(); }

namespace {

constexpr DesktopSize kBoard{390, 390};
constexpr DesktopSize kNote{250, 230};
constexpr DesktopRect kScreen{0, 0, 1280, 770};  // below a panel of 30

ScreenFacts screen(DesktopRect frame, DesktopRect visible) { return {QStringLiteral("s"), frame, visible, 1}; }

struct BoardRow {
  const char* situation;
  DesktopRect anchor;
  DesktopRect visible;
  DesktopPoint origin;
  double pivot;
};

TEST(BoardPlacement, hangsUnderItsAnchorAndStaysOnTheScreen) {
  const BoardRow rows[] = {
      {"in the middle", {640, 774, 22, 22}, kScreen, {456, 374}, 195},
      {"item lower than the panel's edge", {640, 760, 22, 22}, kScreen, {456, 364}, 195},
      {"near the right edge", {1250, 774, 22, 22}, kScreen, {882, 374}, 350},
      {"near the left edge", {4, 774, 22, 22}, kScreen, {8, 374}, 40},
      {"just where the pivot is still the item's middle", {1200, 774, 22, 22}, kScreen, {882, 374}, 329},
      {"panel at the bottom", {640, 4, 22, 22}, {0, 30, 1280, 770}, {456, 38}, 195},
      {"a screen narrower than the board: the right edge wins", {150, 774, 22, 22}, {0, 0, 360, 770}, {-38, 374}, 199},
      {"a screen lower than the board: the bottom wins", {640, 304, 22, 22}, {0, 0, 1280, 300}, {456, 8}, 195},
      {"a second monitor to the left", {-700, 774, 22, 22}, {-1280, 0, 1280, 770}, {-884, 374}, 195},
  };
  for (const auto& row : rows) {
    const auto origin = placement::boardUnderAnchor(row.anchor, row.visible, kBoard);
    EXPECT_EQ(origin, row.origin) << row.situation;
    EXPECT_EQ(placement::pivotX(row.anchor.midX(), origin.x, kBoard.width), row.pivot) << row.situation;
  }
  EXPECT_EQ(placement::boardWithoutAnchor(kScreen, kBoard), (DesktopPoint{862, 352}));
}

TEST(BoardPlacement, aClickedItemWithoutAPlaceStandsInTheMiddleOfItsPanel) {
  const DesktopRect frame{0, 0, 1280, 800};
  struct Row {
    DesktopPoint pointer;
    DesktopRect visible;
    DesktopRect anchor;
  } const rows[] = {
      {{1210, 797}, {0, 0, 1280, 770}, {1199, 774, 22, 22}},
      {{1210, 3}, {0, 40, 1280, 760}, {1199, 9, 22, 22}},
      {{1275, 400}, {0, 0, 1240, 800}, {1249, 389, 22, 22}},
      {{2, 400}, {48, 0, 1232, 800}, {13, 389, 22, 22}},
      {{600, 400}, {0, 0, 1280, 800}, {589, 389, 22, 22}},
  };
  for (const auto& row : rows) EXPECT_EQ(placement::anchorAtPointer(row.pointer, screen(frame, row.visible)), row.anchor);
}

TEST(NotePlacement, cascadesInSixStepsAndStartsOver) {
  EXPECT_EQ(placement::cascade(kScreen, kNote, 0), (DesktopPoint{930, 520}));
  EXPECT_EQ(placement::cascade(kScreen, kNote, 1), (DesktopPoint{902, 492}));
  EXPECT_EQ(placement::cascade(kScreen, kNote, 5), (DesktopPoint{790, 380}));
  EXPECT_EQ(placement::cascade(kScreen, kNote, 6), placement::cascade(kScreen, kNote, 0));
  // On a tiny screen the lower left corner is the end of it.
  EXPECT_EQ(placement::cascade({100, 50, 300, 240}, kNote, 3), (DesktopPoint{100, 50}));
}

TEST(NotePlacement, goesBesideTheCardItWasTornFrom) {
  struct Row {
    const char* situation;
    DesktopRect card;
    DesktopPoint origin;
  } const rows[] = {
      {"left of the card", {900, 400, 175, 112}, {634, 341}},
      {"exactly enough room at the left", {278, 400, 175, 112}, {12, 341}},
      {"one too few: right of it", {277, 400, 175, 112}, {468, 341}},
      {"right of a wide board, held by the edge", {100, 300, 1000, 390}, {1018, 380}},
      {"high up", {900, 740, 175, 112}, {634, 528}},
      {"low down", {900, 0, 175, 40}, {634, 12}},
  };
  for (const auto& row : rows) EXPECT_EQ(placement::besideCard(row.card, kScreen, kNote), row.origin) << row.situation;
}

TEST(NotePlacement, docksToTheTopRightCornerOfItsTarget) {
  const DesktopPoint offset = placement::kDefaultDockOffset;
  const auto tab = placement::kTabSize;
  struct Row {
    const char* situation;
    DesktopRect target;
    DesktopPoint origin;
  } const rows[] = {
      {"inside the target", {100, 100, 800, 600}, {672, 590}},
      {"target partly off the right", {900, 100, 800, 600}, {1070, 590}},
      {"target partly off the left", {-900, 100, 950, 600}, {0, 590}},
      {"target above the top", {100, 400, 800, 600}, {672, 724}},
      {"target below the bottom", {100, -600, 800, 650}, {672, 0}},
  };
  for (const auto& row : rows) EXPECT_EQ(placement::docked(row.target, offset, tab, kScreen), row.origin) << row.situation;
  const DesktopRect target{100, 100, 800, 600};
  const DesktopRect dropped{500, 300, 210, 46};
  const auto kept = placement::dockOffset(dropped, target);
  EXPECT_EQ(kept, (DesktopPoint{-190, -354}));
  EXPECT_EQ(placement::docked(target, kept, tab, kScreen), dropped.origin());
}

TEST(NotePlacement, anOffsetThatIsNotTwoNumbersIsTheDefault) {
  using placement::dockOffsetFromReals;
  EXPECT_EQ(dockOffsetFromReals(std::nullopt), (DesktopPoint{-18, -64}));
  EXPECT_EQ(dockOffsetFromReals({{1}}), (DesktopPoint{-18, -64}));
  EXPECT_EQ(dockOffsetFromReals({{1, 2, 3}}), (DesktopPoint{-18, -64}));
  EXPECT_EQ(dockOffsetFromReals({{0, 7.5}}), (DesktopPoint{0, 7.5}));
}

TEST(NotePlacement, followsOnTheFirstScreenThatTheTargetTouches) {
  const std::vector<ScreenFacts> screens{screen({0, 0, 800, 800}, {0, 0, 800, 770}),
                                         screen({800, 0, 800, 800}, {800, 30, 800, 770})};
  EXPECT_EQ(placement::visibleFrameFor({750, 100, 400, 400}, screens), screens[0].visibleFrame);
  EXPECT_EQ(placement::visibleFrameFor({800, 100, 400, 400}, screens), screens[1].visibleFrame);
  EXPECT_EQ(placement::visibleFrameFor({5000, 0, 10, 10}, screens), screens[0].visibleFrame);
  EXPECT_TRUE(placement::visibleFrameFor({0, 0, 10, 10}, {}).isEmpty());
}

TEST(NotePlacement, keepsEnoughOfANoteWithinReach) {
  const std::vector<ScreenFacts> two{screen({0, 0, 800, 800}, {0, 0, 800, 770}),
                                     screen({800, 0, 800, 800}, {800, 0, 800, 800})};
  const std::vector<ScreenFacts> one{two[0]};
  struct Row {
    const char* situation;
    DesktopRect frame;
    std::vector<ScreenFacts> screens;
    DesktopRect shown;
  } const rows[] = {
      {"inside", {100, 100, 250, 230}, one, {100, 100, 250, 230}},
      {"48 left in both directions", {752, -182, 250, 230}, one, {752, -182, 250, 230}},
      {"47 left across", {753, 100, 250, 230}, one, {550, 100, 250, 230}},
      {"47 left along", {100, 723, 250, 230}, one, {100, 540, 250, 230}},
      {"half under the panel at the top", {100, 700, 250, 230}, one, {100, 700, 250, 230}},
      {"between two monitors", {760, 100, 250, 230}, two, {760, 100, 250, 230}},
      {"on a monitor that went", {1200, 300, 250, 230}, one, {550, 300, 250, 230}},
      {"on a monitor that is there", {1200, 300, 250, 230}, two, {1200, 300, 250, 230}},
      {"far away: the nearest one", {3000, 300, 250, 230}, two, {1350, 300, 250, 230}},
      {"a tab is less than 48 high", {100, 724, 210, 46}, one, {100, 724, 210, 46}},
      {"a tab out of sight", {100, 790, 210, 46}, one, {100, 724, 210, 46}},
      {"higher than the screen: the top stays in view", {900, 0, 250, 900}, one, {550, -130, 250, 900}},
      {"no screen at all", {5000, 0, 250, 230}, {}, {5000, 0, 250, 230}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(placement::broughtIntoView(row.frame, row.screens), row.shown) << row.situation;
  }
}

TEST(NotePlacement, foldsAtTheTopRightCorner) {
  const DesktopRect note{500, 300, 260, 240};
  const auto tab = placement::keepingTopRight(note, placement::kTabSize);
  EXPECT_EQ(tab, (DesktopRect{550, 494, 210, 46}));
  EXPECT_EQ(placement::keepingTopRight(tab, note.size()), note);
}

TEST(NotePlacement, edgesFollowThePointerDownToTheSmallestSize) {
  const DesktopRect note{500, 300, 250, 230};
  const DesktopSize least{200, 200};
  struct Row {
    Qt::Edges edges;
    double dx, dy;
    DesktopRect result;
  } const rows[] = {
      {Qt::RightEdge, 30, 99, {500, 300, 280, 230}},
      {Qt::RightEdge | Qt::BottomEdge, 30, -20, {500, 280, 280, 250}},
      {Qt::LeftEdge | Qt::TopEdge, -10, 15, {490, 300, 260, 245}},
      {Qt::LeftEdge, 200, 0, {550, 300, 200, 230}},
      {Qt::RightEdge, -200, 0, {500, 300, 200, 230}},
      {Qt::BottomEdge, 0, 90, {500, 330, 250, 200}},
      {Qt::TopEdge, 0, -90, {500, 300, 250, 200}},
  };
  for (const auto& row : rows) EXPECT_EQ(placement::resized(note, row.edges, row.dx, row.dy, least), row.result);
}

}  // namespace
}  // namespace tarnwick
