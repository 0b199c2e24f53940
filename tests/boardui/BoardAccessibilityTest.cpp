// SPDX-License-Identifier: MIT
#include "BoardHarness.h"

#include "board/BoardFilters.h"

#include <QAccessible>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class BoardAccessibility : public BoardHarness {
 protected:
  QAccessibleInterface* list() { return QAccessible::queryAccessibleInterface(&wall()); }
};

}  // namespace

TEST_F(BoardAccessibility, namesACardByWhatApplies) {
  desk.time.setLocal(u"2026-03-03T20:00:00"_s);
  struct Row {
    std::function<void(TaskRecord&)> change;
    QString name;
  };
  const Row rows[] = {
      {[](auto& r) { r.text = u"Ring Ola"_s; }, u"Ring Ola, Lemon, burns tonight"_s},
      {[&](auto& r) {
         r.text = u"Bill"_s;
         r.colorHex = u"#4CC9F0"_s;
         r.dueDate = desk.at(u"2026-03-01T10:00:00"_s);
       },
       u"Bill, Sky, due Mar 1, overdue"_s},
      {[&](auto& r) {
         r.text = u"- [x] Jars\n- [ ] Lids\n- [ ] Salt"_s;
         r.dueDate = desk.at(u"2026-03-04T10:00:00"_s);
         r.isPrivate = true;
         r.isDaily3 = true;
       },
       u"Jars; Lids; Salt, Lemon, due Tomorrow, 1 of 3 done, private, daily three"_s},
  };
  for (const auto& row : rows) {
    desk.time.jump(1s);
    desk.add(QString(), row.change);
  }
  open();
  ASSERT_EQ(list()->role(), QAccessible::List);
  ASSERT_EQ(list()->childCount(), 3);
  for (int i = 0; i < 3; ++i) {
    auto* item = list()->child(2 - i);
    EXPECT_EQ(item->role(), QAccessible::ListItem);
    EXPECT_EQ(item->text(QAccessible::Name), rows[i].name);
  }
}

TEST_F(BoardAccessibility, tellsWhichCardIsSelectedAndHasTheKeyboard) {
  desk.add(u"a"_s);
  desk.add(u"b"_s);
  open();
  EXPECT_FALSE(list()->focusChild());
  key(Qt::Key_Right);
  auto* selected = list()->child(0);
  EXPECT_TRUE(selected->state().selected);
  EXPECT_TRUE(selected->state().focused);
  EXPECT_FALSE(list()->child(1)->state().selected);
  EXPECT_EQ(list()->focusChild(), selected);
}

TEST_F(BoardAccessibility, offersACardsControlsByName) {
  const auto task = desk.add(u"a"_s);
  open();
  auto* item = list()->child(0);
  QStringList names;
  for (int i = 0; i < item->childCount(); ++i) names << item->child(i)->text(QAccessible::Name);
  EXPECT_EQ(names,
            (QStringList{u"Crush note"_s, u"Edit"_s, u"Change colour"_s, u"Add to daily three"_s, u"Tear off"_s}));
  item->child(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(task->colorHex(), u"#FF7597"_s);
  item->child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(desk.flight.plays.size(), 1u);
}

TEST_F(BoardAccessibility, showsNothingWhileTheBoardIsHidden) {
  desk.add(u"a"_s);
  open();
  auto* item = list()->child(0);
  auto* tab = QAccessible::queryAccessibleInterface(&find<BoardTabs>())->child(0);
  for (auto* piece : {item, item->child(0), tab}) EXPECT_FALSE(piece->state().invisible);
  host().hide();
  for (auto* piece : {item, item->child(0), tab}) EXPECT_TRUE(piece->state().invisible);
}

TEST_F(BoardAccessibility, findsACardUnderAPoint) {
  desk.add(u"a"_s);
  open();
  auto* item = list()->child(0);
  const QPoint middle = item->rect().center();
  EXPECT_EQ(list()->childAt(middle.x(), middle.y()), item);
  EXPECT_EQ(item->rect().size(), QSize(175, 112));
}

TEST_F(BoardAccessibility, forgetsACardThatWent) {
  const auto task = desk.add(u"a"_s);
  open();
  QAccessible::setActive(true);
  const auto id = QAccessible::uniqueId(list()->child(0));
  desk.notes().remove(task);
  ASSERT_TRUE(desk.notes().save().isOk());
  EXPECT_FALSE(QAccessible::accessibleInterface(id));
  EXPECT_EQ(list()->childCount(), 0);
}

TEST_F(BoardAccessibility, listsTheChoicesOfARow) {
  open();
  click(u"Tags"_s);
  struct Row {
    ChoiceRow& row;
    QAccessible::Role role;
    QStringList names;
  };
  const Row rows[] = {
      {find<BoardTabs>(), QAccessible::PageTab, {u"All"_s, u"Focus"_s, u"General"_s}},
      {find<DisplayModeSegment>(), QAccessible::RadioButton, {u"Always on Top"_s, u"Desktop"_s, u"Ghost"_s}},
      {find<TagRow>(),
       QAccessible::RadioButton,
       {u"No tag"_s, u"Red"_s, u"Orange"_s, u"Yellow"_s, u"Green"_s, u"Blue"_s, u"Pink"_s}},
  };
  for (const auto& [row, role, names] : rows) {
    auto* group = QAccessible::queryAccessibleInterface(&row);
    QStringList found;
    for (int i = 0; i < group->childCount(); ++i) {
      EXPECT_EQ(group->child(i)->role(), role);
      found << group->child(i)->text(QAccessible::Name);
    }
    EXPECT_EQ(found, names);
    EXPECT_TRUE(group->child(row.current())->state().selected);
  }
}

TEST_F(BoardAccessibility, explainsTheCountdown) {
  desk.add(u"a"_s);
  open();
  auto* label = QAccessible::queryAccessibleInterface(&find<BurnCountdownLabel>());
  EXPECT_EQ(label->text(QAccessible::Name), u"1 burns in 14h 0m"_s);
  EXPECT_EQ(label->text(QAccessible::Description), u"Uncrushed notes without a due date turn to ash at midnight."_s);
}

}  // namespace tarnwick::test
