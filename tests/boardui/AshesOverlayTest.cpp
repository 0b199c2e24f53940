// SPDX-License-Identifier: MIT
#include "BoardHarness.h"

#include "board/AshesRow.h"
#include "board/BoardStrips.h"

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class Ashes : public BoardHarness {
 protected:
  TaskPtr burned(const QString& text, Milliseconds ago = 1h) {
    desk.time.jump(1s);
    return desk.add(text, [&](auto& r) {
      r.isBurned = true;
      r.burnedAt = desk.time.now().addMSecs(-ago.count());
      r.createdAt = desk.time.now().addDays(-1);
    });
  }
  QStringList scraps() {
    QStringList texts;
    for (auto* row : open().findChildren<AshesRow*>()) {
      if (row->isVisible() && row->task()) texts << row->task()->text();
    }
    texts.sort();
    return texts;
  }
};

}  // namespace

TEST_F(Ashes, areAnnouncedOnTheFloorUntilTheDayIsOver) {
  burned(u"a"_s);
  burned(u"b"_s);
  burned(u"long ago"_s, 60h);
  open();
  auto& strip = find<AshesStrip>();
  ASSERT_TRUE(strip.isVisible());
  EXPECT_EQ(strip.text(), u"2 burned last night · Revive"_s);
  desk.time.setLocal(u"2026-03-03T23:59:30"_s);
  desk.time.advance(2min);
  EXPECT_FALSE(strip.isVisible());
}

TEST_F(Ashes, openFromTheStripAndCloseByEscape) {
  burned(u"a"_s);
  open();
  QTest::mouseClick(&find<AshesStrip>(), Qt::LeftButton, {}, QPoint(195, 40));
  settle();
  EXPECT_TRUE(find<AshesOverlay>().isVisible());
  EXPECT_EQ(scraps(), QStringList{u"a"_s});
  key(Qt::Key_Escape);
  EXPECT_FALSE(find<AshesOverlay>().isVisible());
  EXPECT_TRUE(wall().isVisible());
}

TEST_F(Ashes, reviveOneAndItHangsOnTheWallAgain) {
  const auto task = burned(u"a"_s);
  burned(u"b"_s);
  open().showAshes();
  settle();
  for (auto* row : open().findChildren<AshesRow*>()) {
    if (row->task() == task) QTest::mouseClick(&row->reviveButton(), Qt::LeftButton);
  }
  settle();
  EXPECT_EQ(scraps(), QStringList{u"b"_s});
  EXPECT_EQ(shownTexts(), QStringList{u"a"_s});
  EXPECT_FALSE(desk.stored(task->id())->isBurned.value_or(false));
}

TEST_F(Ashes, sweepAwayForGood) {
  const auto task = burned(u"a"_s);
  burned(u"b"_s);
  desk.torn.open.insert(task->id());
  desk.add(u"alive"_s);
  open().showAshes();
  settle();
  click(u"Sweep all ashes"_s);
  EXPECT_EQ(desk.notes().fetchTasks().size(), 1u);
  EXPECT_FALSE(desk.torn.isOpen(task->id()));
  EXPECT_EQ(scraps(), QStringList{});
  EXPECT_FALSE(button(u"Sweep all ashes"_s)) << "nothing is left to sweep";
  EXPECT_TRUE(find<AshesOverlay>().isVisible());
}

TEST_F(Ashes, showManyScrapsWithFewWidgets) {
  for (int i = 0; i < 60; ++i) burned(QString::number(i));
  open().showAshes();
  settle();
  EXPECT_LT(open().findChildren<AshesRow*>().size(), 10);
  for (int i = 0; i < 70; ++i) key(Qt::Key_Down);
  bool hasLast = false;
  const auto last = find<AshesOverlay>().burned().back();
  for (auto* row : open().findChildren<AshesRow*>()) hasLast |= row->isVisible() && row->task() == last;
  EXPECT_TRUE(hasLast);
}

}  // namespace tarnwick::test
