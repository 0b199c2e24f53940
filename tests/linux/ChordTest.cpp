// SPDX-License-Identifier: MIT
#include "linux/dbus/PortalHotKeys.h"
#include "linux/x11/Chord.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(ChordText, BecomesKeysymAndModifiers) {
  const auto chord = x11ChordFromText(QStringLiteral("Meta+Shift+T"));
  ASSERT_TRUE(chord);
  EXPECT_EQ(chord->keysym, 't');
  EXPECT_EQ(chord->modifiers, 64 | 1);  // Mod4 and Shift
  EXPECT_EQ(chord->physicalKey, 28);
}

TEST(ChordText, KnowsKeysWithoutLetters) {
  EXPECT_EQ(x11ChordFromText(QStringLiteral("Ctrl+F12"))->keysym, 0xffc9U);
  EXPECT_EQ(x11ChordFromText(QStringLiteral("Alt+Space"))->keysym, 0x20U);
  EXPECT_EQ(x11ChordFromText(QStringLiteral("Ctrl+Alt+1"))->modifiers, 4 | 8);
}

TEST(ChordText, BecomesATriggerOfThePortal) {
  EXPECT_EQ(portalTrigger(QStringLiteral("Meta+Shift+T")), u"LOGO+SHIFT+t");
  EXPECT_EQ(portalTrigger(QStringLiteral("Ctrl+Alt+F5")), u"CTRL+ALT+F5");
  EXPECT_EQ(portalTrigger(QStringLiteral("Ctrl+K, Ctrl+T")), u"");
  EXPECT_EQ(portalTrigger(QString()), u"");
}

class NoChordText : public testing::TestWithParam<QString> {};

TEST_P(NoChordText, IsRefused) { EXPECT_FALSE(x11ChordFromText(GetParam())) << GetParam().toStdString(); }

INSTANTIATE_TEST_SUITE_P(Rows, NoChordText,
                         testing::Values(QString(), QStringLiteral("Meta+"), QStringLiteral("Ctrl+K, Ctrl+T"),
                                         QStringLiteral("Media Play"), QStringLiteral("nonsense")));

}  // namespace
}  // namespace tarnwick
