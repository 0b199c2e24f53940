// SPDX-License-Identifier: MIT
#include "linux/atspi/AtSpiWords.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

using namespace Qt::StringLiterals;

TEST(TheAccessibilityBus, IsHeardWithoutTheBinInsideOtherWords) {
  for (const auto& kept : {u"Trash is empty"_s, u"Recycle Bin"_s, u"bin"_s, u"Opens the bin, where old notes are"_s,
                           u"Trash for combined binaries"_s, u"Show the desktop"_s, QString()}) {
    EXPECT_EQ(descriptionFromAtSpi(kept), kept);
  }
  for (const auto& dropped : {u"Binary clock"_s, u"Key combination"_s, u"Robin"_s, u"File cabinet"_s}) {
    EXPECT_EQ(descriptionFromAtSpi(dropped), QString()) << dropped.toStdString();
  }
}

TEST(TheAccessibilityBus, NamesWhatIsSearchedFromItsFarEnd) {
  for (const auto& name : {u"list"_s, u"tool bar"_s, u"layered pane"_s}) EXPECT_EQ(roleFromAtSpi(name), u"AXList");
  for (const auto& name : {u"panel"_s, u"filler"_s}) EXPECT_EQ(roleFromAtSpi(name), u"AXGroup");
  EXPECT_EQ(roleFromAtSpi(u"page tab"_s), u"page tab");
}

TEST(APanelsTrashPlugin, IsKnownByItsCommandLine) {
  const QByteArray trash("/usr/lib/panel/wrapper-2.0\0/usr/lib/plugins/libthunar-tpa.so\0" "15\0" "6291464\0thunar-tpa", 82);
  EXPECT_TRUE(isTrashPlugin(trash));
  EXPECT_EQ(socketOfPlugin(trash), 6291464U);
  EXPECT_FALSE(isTrashPlugin("/usr/lib/panel/wrapper-2.0"));
  for (const QByteArray& none : {QByteArray(), QByteArray("/usr/bin/thunar\0a\0b\0" "7", 21),
                                 QByteArray("/wrapper-2.0\0a\0b\0x", 18)}) {
    EXPECT_EQ(socketOfPlugin(none), 0U);
  }
}

}  // namespace
}  // namespace tarnwick
