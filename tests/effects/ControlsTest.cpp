// SPDX-License-Identifier: MIT
#include "PaperPictures.h"

#include "effects/ControlHalo.h"
#include "effects/Controls.h"
#include "effects/Tokens.h"

#include <QAccessible>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace tarnwick {
namespace {

enum class Kind { Primary, Tool, Chip, Switch };

std::unique_ptr<QAbstractButton> made(Kind kind) {
  switch (kind) {
    case Kind::Primary: return std::make_unique<PrimaryButton>(QStringLiteral("Stick Note"), QStringLiteral("pin"));
    case Kind::Tool: return std::make_unique<ToolButton>(QStringLiteral("search"), QStringLiteral("Search"));
    case Kind::Chip: {
      auto chip = std::make_unique<ToolButton>(QStringLiteral("calendar"), QStringLiteral("Due date"),
                                               ToolButton::Plate::Chip);
      chip->setText(QStringLiteral("Due Date"));
      return chip;
    }
    case Kind::Switch: return std::make_unique<SwitchButton>(QStringLiteral("Paper sounds"));
  }
  return nullptr;
}

// A dark ground with one control at 30, 30.
class Buttons : public testing::TestWithParam<Kind> {
 protected:
  void SetUp() override {
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(tokens::kWindow));
    m_ground.setPalette(dark);
    m_ground.setFocusPolicy(Qt::StrongFocus);
    m_ground.resize(260, 100);
    m_button = made(GetParam());
    m_button->setParent(&m_ground);
    m_button->setGeometry(QRect(QPoint(30, 30), m_button->sizeHint()));
    m_ground.show();
    m_ground.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_ground));
    m_ground.setFocus();
  }
  void TearDown() override {
    if (m_button) {
      m_button->setParent(nullptr);
    }
  }
  QImage picture() { return m_ground.grab().toImage(); }
  ControlHalo* halo() { return m_ground.findChild<ControlHalo*>(); }

  QWidget m_ground;
  std::unique_ptr<QAbstractButton> m_button;
};

TEST_P(Buttons, AreClickedByMouseSpaceAndReturn) {
  QSignalSpy clicked(m_button.get(), &QAbstractButton::clicked);
  QTest::mouseClick(m_button.get(), Qt::LeftButton);
  QTest::keyClick(m_button.get(), Qt::Key_Space);
  QTest::keyClick(m_button.get(), Qt::Key_Return);
  QTest::keyClick(m_button.get(), Qt::Key_Enter);
  EXPECT_EQ(clicked.count(), 4);
}

TEST_P(Buttons, DoNothingWhileDisabled) {
  const QImage enabled = picture();
  m_button->setEnabled(false);
  QSignalSpy clicked(m_button.get(), &QAbstractButton::clicked);
  QTest::mouseClick(m_button.get(), Qt::LeftButton);
  EXPECT_EQ(clicked.count(), 0);
  EXPECT_NE(picture(), enabled);
}

TEST_P(Buttons, TakeTheKeyboardByTabOnly) {
  QTest::mouseClick(m_button.get(), Qt::LeftButton);
  EXPECT_FALSE(m_button->hasFocus());
  QTest::keyClick(&m_ground, Qt::Key_Tab);
  EXPECT_TRUE(m_button->hasFocus());
}

TEST_P(Buttons, ShowARingAroundThemWhileTheyHaveTheKeyboard) {
  const auto ringed = [&] {
    const QImage image = picture();
    const int middle = 30 + m_button->height() / 2;
    for (int x = 22; x < 30; ++x) {
      if (image.pixelColor(x, middle) == QColor(tokens::kAccent)) {
        return true;
      }
    }
    return false;
  };
  EXPECT_FALSE(ringed());
  m_button->setFocus();
  EXPECT_TRUE(ringed());
  m_ground.setFocus();
  EXPECT_FALSE(ringed());
}

TEST_P(Buttons, LookDifferentInEachState) {
  std::vector<QImage> seen{picture()};
  m_button->setDown(true);
  seen.push_back(picture());
  m_button->setDown(false);
  m_button->setFocus();
  seen.push_back(picture());
  m_ground.setFocus();
  if (GetParam() != Kind::Primary) {
    m_button->setCheckable(true);
    m_button->setChecked(true);
    seen.push_back(picture());
    m_button->setChecked(false);
  }
  m_button->setEnabled(false);
  seen.push_back(picture());
  for (size_t i = 0; i < seen.size(); ++i) {
    for (size_t k = 0; k < i; ++k) {
      EXPECT_NE(seen[i], seen[k]) << i << ' ' << k;
    }
  }
}

TEST_P(Buttons, TellAssistiveToolsTheirNameAndRole) {
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(m_button.get());
  ASSERT_NE(accessible, nullptr);
  EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty());
  EXPECT_EQ(accessible->role(), GetParam() == Kind::Switch ? QAccessible::CheckBox : QAccessible::Button);
}

TEST_P(Buttons, TakeTheirHaloAlong) {
  ASSERT_NE(halo(), nullptr);
  EXPECT_TRUE(halo()->isVisible());
  m_button->move(80, 50);
  EXPECT_EQ(halo()->geometry().center(), m_button->geometry().center());
  m_button->hide();
  EXPECT_FALSE(halo()->isVisible());
  m_button->show();
  EXPECT_TRUE(halo()->isVisible());
  m_button.reset();
  EXPECT_EQ(halo(), nullptr);
}

TEST_P(Buttons, LeaveNoHaloBehindWhenTheyMoveToAnotherParent) {
  QWidget other;
  m_button->setParent(&other);
  m_button->show();
  EXPECT_EQ(halo(), nullptr);
  EXPECT_NE(other.findChild<ControlHalo*>(), nullptr);
  m_button->setParent(nullptr);
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, Buttons, testing::Values(Kind::Primary, Kind::Tool, Kind::Chip, Kind::Switch));

TEST(ButtonsWithoutAParent, CanBeShownAndGo) {
  auto button = made(Kind::Primary);
  button->show();
  EXPECT_FALSE(button->grab().isNull());
}

TEST(PrimaryButtons, GrowWithTheirWords) {
  const PrimaryButton brief(QStringLiteral("OK"));
  const PrimaryButton lengthy(QStringLiteral("Turn lines into checkboxes"));
  EXPECT_GT(lengthy.sizeHint().width(), brief.sizeHint().width() + 60);
  EXPECT_EQ(lengthy.sizeHint().height(), 30);
}

TEST(ToolButtons, ElideWordsThatDoNotFit) {
  ToolButton chip(QStringLiteral("calendar"), QStringLiteral("Board"), ToolButton::Plate::Chip);
  chip.setText(QStringLiteral("A board with a name that is far too long for its chip"));
  chip.resize(120, 36);
  const QImage image = chip.grab().toImage();
  for (int y = 8; y < 28; ++y) {
    EXPECT_EQ(image.pixel(114, y), image.pixel(114, 18));
  }
}

TEST(MirroredControls, TurnTheirOrderRound) {
  for (const Kind kind : {Kind::Chip, Kind::Switch, Kind::Primary}) {
    auto button = made(kind);
    button->resize(button->sizeHint());
    const QImage leftToRight = button->grab().toImage();
    button->setLayoutDirection(Qt::RightToLeft);
    EXPECT_NE(button->grab().toImage(), leftToRight);
  }
}

TEST(KeyCapRows, NameTheirKeysAndGrowWithThem) {
  KeyCaps caps({QStringLiteral("⌘"), QStringLiteral("Z")});
  const QSize two = caps.sizeHint();
  EXPECT_EQ(caps.accessibleName(), QStringLiteral("⌘ Z"));
  caps.setKeys({QStringLiteral("⌘"), QStringLiteral("⇧"), QStringLiteral("T")});
  EXPECT_EQ(caps.sizeHint().width(), two.width() + 31);
  EXPECT_EQ(caps.sizeHint().height(), two.height());
}

TEST(StyledMenus, StillOfferAllTheirActions) {
  QMenu menu;
  styleMenu(menu);
  menu.addAction(QStringLiteral("One"));
  menu.addAction(QStringLiteral("Two"));
  EXPECT_GE(menu.actionGeometry(menu.actions().at(1)).height(), 28);
  EXPECT_GT(menu.actionGeometry(menu.actions().at(1)).top(), menu.actionGeometry(menu.actions().at(0)).bottom() - 1);
}

TEST(TypeRoles, HaveRoomForTheirGlyphs) {
  using tokens::Type;
  for (const Type role : {Type::WelcomeTitle, Type::NudgeTitle, Type::PanelTitle, Type::StatsNumber, Type::RowTitle,
                          Type::Primary, Type::Body, Type::Help, Type::CardText, Type::NoteText, Type::Placeholder,
                          Type::DueLabel, Type::Countdown, Type::Stamp, Type::Kicker}) {
    const QFont face = tokens::font(role);
    EXPECT_GT(face.pixelSize(), 8);
    EXPECT_GE(tokens::lineHeight(role), QFontMetricsF(face).tightBoundingRect(QStringLiteral("Hgj")).height());
  }
}

}  // namespace
}  // namespace tarnwick
