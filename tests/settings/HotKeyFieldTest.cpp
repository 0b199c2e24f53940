// SPDX-License-Identifier: MIT
#include "settings/HotKeyField.h"

#include "SettingsFixture.h"

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using Pane = SettingsView::Pane;

TEST(AChord, needsAModifierBesideShiftAndAPlainKey) {
  const struct {
    int key;
    Qt::KeyboardModifiers modifiers;
    QString chord;
  } rows[]{
      {Qt::Key_T, Qt::MetaModifier | Qt::ShiftModifier, u"Meta+Shift+T"_s},
      {Qt::Key_N, Qt::ControlModifier | Qt::AltModifier, u"Ctrl+Alt+N"_s},
      {Qt::Key_F9, Qt::AltModifier, u"Alt+F9"_s},
      {Qt::Key_5, Qt::MetaModifier | Qt::KeypadModifier, u"Meta+5"_s},
      {Qt::Key_Space, Qt::ControlModifier, u"Ctrl+Space"_s},
      {Qt::Key_Left, Qt::MetaModifier, u"Meta+Left"_s},
      {Qt::Key_T, Qt::ShiftModifier, {}},
      {Qt::Key_T, Qt::NoModifier, {}},
      {Qt::Key_F5, Qt::NoModifier, {}},
      {Qt::Key_Exclam, Qt::MetaModifier | Qt::ShiftModifier, {}},
      {Qt::Key_VolumeUp, Qt::MetaModifier, {}},
      {Qt::Key_Shift, Qt::MetaModifier | Qt::ShiftModifier, {}},
  };
  for (const auto& row : rows) EXPECT_EQ(HotKeyField::chordOf(row.key, row.modifiers), row.chord) << row.key;
}

TEST(AChord, isShownInTheOrderOfTheTexts) {
  EXPECT_EQ(HotKeyField::capsOf(u"Meta+Shift+T"_s), (QStringList{u"⌘"_s, u"⇧"_s, u"T"_s}));
  EXPECT_EQ(HotKeyField::capsOf(u"Shift+Alt+Ctrl+F2"_s), (QStringList{u"Ctrl"_s, u"⌥"_s, u"⇧"_s, u"F2"_s}));
}

class RecordingAChord : public SettingsFixture {
 protected:
  RecordingAChord() { open(Pane::General); }
  [[nodiscard]] HotKeyField& field() const { return *view->findChild<HotKeyField*>(); }
  void start() const { click(u"Change the shortcut, now ⌘ ⇧ T"_s); }
  void press(int key, Qt::KeyboardModifiers modifiers) const {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
  }
};

TEST_F(RecordingAChord, storesWhatWasTyped) {
  EXPECT_FALSE(field().isRecording());
  start();
  EXPECT_TRUE(field().isRecording());
  press(Qt::Key_Meta, Qt::MetaModifier);
  EXPECT_TRUE(field().isRecording()) << "a modifier is the beginning of a chord";
  press(Qt::Key_J, Qt::MetaModifier | Qt::AltModifier);
  EXPECT_FALSE(field().isRecording());
  EXPECT_EQ(defaults.text(keys::kHotKey), u"Meta+Alt+J"_s);
  EXPECT_TRUE(named(*view, u"Change the shortcut, now ⌘ ⌥ J"_s));
}

TEST_F(RecordingAChord, goesOnAfterAKeyThatIsNoChord) {
  start();
  press(Qt::Key_T, Qt::ShiftModifier);
  EXPECT_TRUE(field().isRecording());
  EXPECT_TRUE(defaults.stored(keys::kHotKey).isUndefined());
  EXPECT_TRUE(showsText(*view, u"Hold ⌘, Ctrl or ⌥ with a letter, digit or F key."_s));
  press(Qt::Key_K, Qt::ControlModifier | Qt::AltModifier);
  EXPECT_EQ(defaults.text(keys::kHotKey), u"Ctrl+Alt+K"_s);
}

TEST_F(RecordingAChord, endsUnchangedByEscapeAndByLeaving) {
  start();
  press(Qt::Key_Escape, Qt::NoModifier);
  EXPECT_FALSE(field().isRecording());
  EXPECT_TRUE(view->isVisible()) << "this Escape was the recorder's";
  start();
  button(u"Daily Burn"_s).setFocus();
  EXPECT_FALSE(field().isRecording());
  EXPECT_TRUE(defaults.stored(keys::kHotKey).isUndefined());
}

TEST_F(RecordingAChord, backspaceRestoresTheGivenChord) {
  ASSERT_TRUE(defaults.setText(keys::kHotKey, u"Ctrl+Alt+K"_s));
  click(u"Change the shortcut, now Ctrl ⌥ K"_s);
  press(Qt::Key_Backspace, Qt::NoModifier);
  EXPECT_EQ(defaults.text(keys::kHotKey), u"Meta+Shift+T"_s);
}

TEST_F(RecordingAChord, closesNothingWithCommandW) {
  start();
  press(Qt::Key_W, Qt::ControlModifier);
  EXPECT_TRUE(view->isVisible());
  EXPECT_EQ(defaults.text(keys::kHotKey), u"Ctrl+W"_s);
}

}  // namespace
}  // namespace tarnwick::test
