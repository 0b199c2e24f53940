// SPDX-License-Identifier: MIT
#include "SettingsFixture.h"
#include "settings/CrushTargetPicker.h"

#include <QApplication>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

class ThePlaceOfTheTrash : public SettingsFixture {
 protected:
  CrushTargetPicker& pick() {
    click(u"Pick where crushed notes land"_s);
    for (auto* widget : QApplication::topLevelWidgets()) {
      auto* picker = qobject_cast<CrushTargetPicker*>(widget);
      if (picker && picker->isVisible()) return *picker;
    }
    throw std::runtime_error("nothing asks for a place");
  }
  [[nodiscard]] QString target() const { return defaults.text(keys::kCrushTarget).value_or(QString()); }
};

TEST_F(ThePlaceOfTheTrash, isASquareOfTheDocksTilesOnThePointThatIsClicked) {
  for (const bool isComposited : {true, false}) {
    screens.hasCompositor = isComposited;
    open(SettingsView::Pane::General);
    EXPECT_FALSE(named(*view, u"Let Tarnwick find the Trash"_s));
    dock.state.tileSize = 64;
    auto& picker = pick();
    QTest::mouseClick(&picker, Qt::LeftButton, {}, picker.mapFromGlobal(QPoint(1000, 300)));
    EXPECT_EQ(target(), toText({968, 468, 64, 64}));
    EXPECT_FALSE(picker.isVisible());
    click(u"Let Tarnwick find the Trash"_s);
    EXPECT_EQ(target(), u"automatic");
  }
}

TEST_F(ThePlaceOfTheTrash, staysWithEscapeAndWithTheOtherButton) {
  ASSERT_TRUE(defaults.setText(keys::kCrushTarget, u"{{1, 2}, {48, 48}}"_s).isOk());
  open(SettingsView::Pane::General);
  auto& picker = pick();
  QTest::keyClick(&picker, Qt::Key_Escape);
  EXPECT_FALSE(picker.isVisible());
  auto& again = pick();
  QTest::mouseClick(&again, Qt::RightButton, {}, {5, 5});
  EXPECT_FALSE(again.isVisible());
  EXPECT_EQ(target(), u"{{1, 2}, {48, 48}}");
}

}  // namespace
}  // namespace tarnwick::test
