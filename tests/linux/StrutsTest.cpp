// SPDX-License-Identifier: MIT
#include "linux/x11/Struts.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

constexpr QSize kRoot(1600, 800);
const QRect kLeft(0, 0, 800, 800);
const QRect kRight(800, 0, 800, 800);

struct Row {
  const char* what;
  std::vector<uint32_t> strut;
  QRect left;
  QRect right;
};

class StrutsOnTwoMonitors : public testing::TestWithParam<Row> {};

TEST_P(StrutsOnTwoMonitors, CutTheMonitorThatTheyLieOn) {
  const auto& row = GetParam();
  const auto bands = bandsOfStrut(row.strut, kRoot);
  EXPECT_EQ(withoutBands(kLeft, bands), row.left) << row.what;
  EXPECT_EQ(withoutBands(kRight, bands), row.right) << row.what;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, StrutsOnTwoMonitors,
    testing::Values(
        Row{"a panel below the right monitor", {0, 0, 0, 30, 0, 0, 0, 0, 0, 0, 800, 1599}, kLeft, {800, 0, 800, 770}},
        Row{"a panel above the left monitor", {0, 0, 24, 0, 0, 0, 0, 0, 0, 799, 0, 0}, {0, 24, 800, 776}, kRight},
        Row{"a dock at the outer left edge", {60, 0, 0, 0, 100, 699, 0, 0, 0, 0, 0, 0}, {60, 0, 740, 800}, kRight},
        Row{"a dock at the outer right edge", {0, 50, 0, 0, 0, 0, 0, 799, 0, 0, 0, 0}, kLeft, {800, 0, 750, 800}},
        Row{"a dock at the inner edge of the right monitor, counted from the root's",
            {840, 0, 0, 0, 0, 799, 0, 0, 0, 0, 0, 0}, kLeft, {840, 0, 760, 800}},
        Row{"the older form with no ends", {0, 0, 0, 40}, {0, 0, 800, 760}, {800, 0, 800, 760}},
        Row{"too few numbers", {0, 0, 30}, kLeft, kRight},
        Row{"numbers beyond the desktop", {0, 0, 4294967295U, 0, 0, 0, 0, 0, 0, 1599, 0, 0}, kLeft, kRight}));

TEST(StrutsOfTwoPanels, AddUpOnOneMonitor) {
  auto bands = bandsOfStrut({0, 0, 0, 30, 0, 0, 0, 0, 0, 0, 0, 799}, kRoot);
  const auto more = bandsOfStrut({0, 0, 20, 0, 0, 0, 0, 0, 0, 799, 0, 0}, kRoot);
  bands.insert(bands.end(), more.begin(), more.end());
  EXPECT_EQ(withoutBands(kLeft, bands), QRect(0, 20, 800, 750));
}

}  // namespace
}  // namespace tarnwick
