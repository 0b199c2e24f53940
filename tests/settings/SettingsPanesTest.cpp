// SPDX-License-Identifier: MIT
#include "SettingsFixture.h"

#include "settings/ModeRow.h"
#include "settings/PickerButton.h"

#include <QMenu>
#include <QSignalSpy>
#include <QTabBar>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using Pane = SettingsView::Pane;

struct SwitchRow {
  const char* what;
  Pane pane;
  QString title;
  QString key;
  bool isOnAtFirst;
};

class SettingsSwitch : public SettingsFixture, public testing::WithParamInterface<SwitchRow> {};

TEST_P(SettingsSwitch, showsItsKeyAndWritesIt) {
  const auto& row = GetParam();
  open(row.pane);
  auto& control = button(row.title);
  EXPECT_EQ(control.isChecked(), row.isOnAtFirst);
  click(row.title);
  EXPECT_EQ(defaults.stored(row.key), QJsonValue(!row.isOnAtFirst));
  ASSERT_TRUE(defaults.setBoolean(row.key, row.isOnAtFirst));
  EXPECT_EQ(control.isChecked(), row.isOnAtFirst) << "a change from elsewhere must show at once";
  QTest::keyClick(&control, Qt::Key_Space);
  EXPECT_EQ(defaults.stored(row.key), QJsonValue(!row.isOnAtFirst));
  EXPECT_EQ(control.isChecked(), !row.isOnAtFirst);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SettingsSwitch,
    testing::Values(SwitchRow{"planNudge", Pane::General, u"Morning plan nudge"_s, keys::kPlanNudge, true},
                    SwitchRow{"dailyBurn", Pane::General, u"Daily Burn"_s, keys::kDailyBurn, true},
                    SwitchRow{"wakeResurface", Pane::Notes, u"Bring back after sleep"_s, keys::kWakeResurface, true},
                    SwitchRow{"rememberTornNotes", Pane::Notes, u"Remember torn notes"_s, keys::kRememberTornNotes, true},
                    SwitchRow{"appNotesTuck", Pane::Notes, u"Tuck into a tab"_s, keys::kAppNotesTuck, true},
                    SwitchRow{"hideFromScreenShare", Pane::Notes, u"Hide all notes from screen sharing"_s,
                              keys::kHideFromScreenShare, false},
                    SwitchRow{"soundEffects", Pane::Sound, u"Paper sounds"_s, keys::kSoundEffectsEnabled, true},
                    SwitchRow{"autoCheck", Pane::About, u"Check for updates automatically"_s, keys::kAutoCheckUpdates, true}),
    [](const auto& row) { return std::string(row.param.what); });

class SettingsPanes : public SettingsFixture {};

TEST_F(SettingsPanes, aNudgeSettingThatIsNoBooleanCountsAsOn) {
  ASSERT_TRUE(defaults.setText(keys::kPlanNudge, u"never"_s));
  open(Pane::General);
  EXPECT_TRUE(button(u"Morning plan nudge"_s).isChecked());
}

TEST_F(SettingsPanes, hidingNotesIsAnnouncedAfterItIsStored) {
  open(Pane::Notes);
  bool wasStored = false;
  int posted = 0;
  QObject::connect(&center, &NotificationCenter::notePrivacyChanged, [&] {
    ++posted;
    wasStored = defaults.boolean(keys::kHideFromScreenShare);
  });
  click(u"Hide all notes from screen sharing"_s);
  EXPECT_EQ(posted, 1);
  EXPECT_TRUE(wasStored);
}

TEST_F(SettingsPanes, everyDisplayModeIsChosenByItsRow) {
  open(Pane::Notes);
  QSignalSpy posted(&center, &NotificationCenter::noteDisplayModeChanged);
  EXPECT_TRUE(button(u"Always on Top"_s).isChecked());
  click(u"Ghost"_s);
  EXPECT_EQ(defaults.text(keys::kNoteDisplayMode), u"mouseThrough"_s);
  EXPECT_EQ(posted.count(), 1);
  click(u"Ghost"_s);
  EXPECT_EQ(posted.count(), 1) << "choosing what is chosen is no change";
  click(u"Desktop"_s);
  EXPECT_EQ(defaults.text(keys::kNoteDisplayMode), u"desktop"_s);
  QTest::keyClick(&button(u"Desktop"_s), Qt::Key_Up);
  EXPECT_EQ(defaults.text(keys::kNoteDisplayMode), u"mouseThrough"_s) << "arrow keys choose";
  EXPECT_EQ(posted.count(), 3);
}

TEST_F(SettingsPanes, aModeSetElsewhereShowsWithoutBeingPostedAgain) {
  open(Pane::Notes);
  QSignalSpy posted(&center, &NotificationCenter::noteDisplayModeChanged);
  ASSERT_TRUE(defaults.setText(keys::kNoteDisplayMode, u"desktop"_s));
  EXPECT_TRUE(button(u"Desktop"_s).isChecked());
  ASSERT_TRUE(defaults.setText(keys::kNoteDisplayMode, u"upsideDown"_s));
  EXPECT_TRUE(button(u"Always on Top"_s).isChecked());
  EXPECT_EQ(defaults.text(keys::kNoteDisplayMode), u"upsideDown"_s) << "what is not understood is not overwritten";
  EXPECT_EQ(posted.count(), 0);
}

struct PickerRow {
  const char* what;
  QString title;
  QString key;
  QStringList labels;
  QStringList values;
};

class SettingsPicker : public SettingsFixture, public testing::WithParamInterface<PickerRow> {};

TEST_P(SettingsPicker, offersItsValuesInOrderAndStoresTheChosenOne) {
  const auto& row = GetParam();
  open(Pane::Notes);
  auto& picker = static_cast<PickerButton&>(button(u"%1: %2"_s.arg(row.title, row.labels.first())));
  picker.setFocus();
  QTest::keyClick(&picker, Qt::Key_Space);
  auto* menu = picker.findChild<QMenu*>();
  ASSERT_TRUE(menu && menu->isVisible());
  QStringList labels;
  for (const auto* action : menu->actions()) labels.append(action->text());
  EXPECT_EQ(labels, row.labels);
  // The menu opens on the chosen line; one step down is the next.
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Return);
  EXPECT_EQ(defaults.text(row.key), row.values[1]);
  EXPECT_EQ(picker.accessibleName(), u"%1: %2"_s.arg(row.title, row.labels[1]));

  for (qsizetype i = 0; i < row.values.size(); ++i) {
    ASSERT_TRUE(defaults.setText(row.key, row.values[i]));
    EXPECT_EQ(picker.accessibleName(), u"%1: %2"_s.arg(row.title, row.labels[i]));
  }
  ASSERT_TRUE(defaults.setText(row.key, u"papyrus"_s));
  EXPECT_EQ(picker.value(), row.values.first());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SettingsPicker,
    testing::Values(PickerRow{"texture", u"New note texture"_s, keys::kDefaultPaperTheme,
                              {u"Plain Paper"_s, u"Graph Paper"_s, u"Lined Notebook"_s, u"Parchment"_s, u"Dark Craft"_s},
                              {u"plain"_s, u"graph"_s, u"lined"_s, u"parchment"_s, u"construction"_s}},
                    PickerRow{"effect", u"When you complete a note"_s, keys::kCompletionEffect,
                              {u"Crush into Trash"_s, u"Shred"_s}, {u"crush"_s, u"shred"_s}}),
    [](const auto& row) { return std::string(row.param.what); });

TEST_F(SettingsPanes, aLoginItemThatIsRefusedStaysOffAndSaysWhy) {
  loginItem.refusal = u"The autostart folder is not writable."_s;
  open(Pane::General);
  const int height = view->height();
  click(u"Launch at login"_s);
  EXPECT_FALSE(button(u"Launch at login"_s).isChecked());
  EXPECT_TRUE(showsText(*view, *loginItem.refusal));
  QCoreApplication::processEvents();
  EXPECT_GE(view->height(), height);

  loginItem.refusal.reset();
  click(u"Launch at login"_s);
  EXPECT_TRUE(button(u"Launch at login"_s).isChecked());
  EXPECT_EQ(loginItem.current, LoginItemStatus::Enabled);
  EXPECT_FALSE(showsText(*view, u"The autostart folder is not writable."_s));
}

TEST_F(SettingsPanes, aRefusedRemovalLeavesTheSwitchOn) {
  loginItem.current = LoginItemStatus::Enabled;
  loginItem.refusal = u"Read-only folder"_s;
  open(Pane::General);
  EXPECT_TRUE(button(u"Launch at login"_s).isChecked());
  click(u"Launch at login"_s);
  EXPECT_TRUE(button(u"Launch at login"_s).isChecked());
}

TEST_F(SettingsPanes, theLoginSwitchIsReadAnewWhenThePaneShows) {
  open(Pane::General);
  view->selectPane(Pane::Sound);
  loginItem.current = LoginItemStatus::Enabled;
  view->selectPane(Pane::General);
  EXPECT_TRUE(button(u"Launch at login"_s).isChecked());
}

TEST_F(SettingsPanes, previewsPlayTheirSoundAndAreSilentWhenOff) {
  open(Pane::Sound);
  for (const auto& name : {u"Stick"_s, u"Tear"_s, u"Crush"_s}) {
    audio.log.clear();
    click(u"Play "_s + name);
    EXPECT_EQ(audio.log.filter(u"play "_s), QStringList{u"play "_s + name.toLower()});
  }
  click(u"Paper sounds"_s);
  audio.log.clear();
  for (const auto& name : {u"Stick"_s, u"Tear"_s, u"Crush"_s}) click(u"Play "_s + name);
  EXPECT_TRUE(audio.log.isEmpty()) << qPrintable(audio.log.join(u','));
}

struct Exclusion {
  const char* what;
  CaptureExclusion level;
  QString text;
};

class CaptureLine : public SettingsFixture, public testing::WithParamInterface<Exclusion> {};

TEST_P(CaptureLine, saysWhatThisDesktopCanKeepOut) {
  capture.level = GetParam().level;
  open(Pane::Notes);
  EXPECT_TRUE(showsText(*view, GetParam().text));
  capture.level = GetParam().level == CaptureExclusion::Omitted ? CaptureExclusion::NotAvailable : CaptureExclusion::Omitted;
  view->hide();
  view->show();
  EXPECT_FALSE(showsText(*view, GetParam().text)) << "a window opened again tells of the desktop as it is now";
}

INSTANTIATE_TEST_SUITE_P(
    Levels, CaptureLine,
    testing::Values(
        Exclusion{"omitted", CaptureExclusion::Omitted, u"Omitted: captures leave your notes out."_s},
        Exclusion{"hidden", CaptureExclusion::HiddenWhileSharing, u"Hidden while sharing is detected. Screenshots still show them."_s},
        Exclusion{"none", CaptureExclusion::NotAvailable, u"Not available here: captures will show your notes."_s}),
    [](const auto& row) { return std::string(row.param.what); });

class AboutPaneUpdates : public SettingsFixture {
 protected:
  void answer(const QString& version) {
    server.answer(u"200 OK"_s, u"{\"version\":\"%1\",\"url\":\"https://tarnwick.app/get\"}"_s.arg(version).toUtf8());
  }
  void checkAndWait() {
    click(u"Check Now"_s);
    EXPECT_FALSE(named(*view, u"Check Now"_s)) << "no second check is offered while one runs";
    EXPECT_TRUE(QTest::qWaitFor([this] { return updates.status() != UpdateChecker::Status::checking; }));
  }
};

TEST_F(AboutPaneUpdates, goFromTheButtonToTheReleaseAndItsPage) {
  answer(u"1.5"_s);
  open(Pane::About);
  EXPECT_TRUE(showsText(*view, u"Version 1.4"_s));
  checkAndWait();
  QCoreApplication::processEvents();
  click(u"Get 1.5"_s);
  EXPECT_EQ(workspace.opened, QList<QUrl>{QUrl(u"https://tarnwick.app/get"_s)});
  EXPECT_FALSE(named(*view, u"Check Now"_s));
  updates.dismissBanner();
  EXPECT_TRUE(named(*view, u"Get 1.5"_s)) << "hiding the banner hides the banner only";
}

TEST_F(AboutPaneUpdates, areNotOfferedByABuildWithoutAFeed) {
  UpdateChecker none(defaults, time, workspace, *downloads, QUrl());
  view = std::make_unique<SettingsView>(
      SettingsServices{defaults, center, sound, none, loginItem, capture, workspace, time, screens, dock});
  view->selectPane(Pane::About);
  view->show();
  EXPECT_TRUE(showsText(*view, u"This build looks for no updates."_s));
  EXPECT_FALSE(named(*view, u"Check Now"_s));
  EXPECT_FALSE(named(*view, u"Check for updates automatically"_s));
}

TEST_F(AboutPaneUpdates, sayThatNothingIsNewOrNobodyAnswered) {
  answer(u"1.4"_s);
  open(Pane::About);
  checkAndWait();
  EXPECT_TRUE(showsText(*view, u"Up to date"_s));
  server.answer(u"500 Oops"_s, {});
  checkAndWait();
  EXPECT_TRUE(showsText(*view, u"Couldn't reach server"_s));
  EXPECT_FALSE(showsText(*view, u"Up to date"_s));
}

TEST_F(AboutPaneUpdates, giveTheKeyboardBackAfterTheWait) {
  answer(u"1.5"_s);
  open(Pane::About);
  button(u"Check Now"_s).setFocus();
  QTest::keyClick(&button(u"Check Now"_s), Qt::Key_Space);
  ASSERT_TRUE(QTest::qWaitFor([this] { return updates.status() == UpdateChecker::Status::available; }));
  EXPECT_TRUE(button(u"Get 1.5"_s).hasFocus());
}

TEST_F(AboutPaneUpdates, turnTheSpinnerOnlyWhileChecking) {
  open(Pane::About);
  EXPECT_EQ(time.repeatingCount(), 0);
  click(u"Check Now"_s);
  EXPECT_EQ(time.repeatingCount(), 1);
  view->selectPane(Pane::Sound);
  EXPECT_EQ(time.repeatingCount(), 0) << "what is out of sight must not wake the machine";
}

TEST_F(SettingsPanes, theLinkLeadsToTheWebSite) {
  open(Pane::About);
  EXPECT_TRUE(showsText(*view, u"⌘ is Super or Ctrl, ⌥ is Alt, ⇧ is Shift."_s));
  click(u"Web site"_s);
  ASSERT_EQ(workspace.opened.size(), 1);
  EXPECT_EQ(workspace.opened.first().scheme(), u"https"_s);
}

TEST_F(SettingsPanes, tabsAreChosenByKeysAndEachPaneHasItsOwnHeight) {
  open(Pane::General);
  auto* tabs = view->findChild<QTabBar*>();
  ASSERT_TRUE(tabs);
  QStringList labels;
  QList<int> heights;
  for (int i = 0; i < tabs->count(); ++i) {
    labels.append(tabs->tabText(i));
    heights.append(view->height());
    EXPECT_EQ(static_cast<int>(view->pane()), i);
    QTest::keyClick(tabs, Qt::Key_Right);
  }
  EXPECT_EQ(labels, (QStringList{u"General"_s, u"Notes"_s, u"Sound"_s, u"About"_s}));
  EXPECT_EQ(QSet<int>(heights.begin(), heights.end()).size(), 4);
  EXPECT_EQ(view->pane(), Pane::About);
}

TEST_F(SettingsPanes, everyControlIsReachedByTabAndHasAName) {
  for (const auto pane : {Pane::General, Pane::Notes, Pane::Sound, Pane::About}) {
    open(pane);
    QSet<QWidget*> reached;
    for (int i = 0; i < 40; ++i) {
      QTest::keyClick(view->focusWidget() ? view->focusWidget() : view.get(), Qt::Key_Tab);
      reached.insert(QApplication::focusWidget());
    }
    for (auto* control : view->findChildren<QAbstractButton*>()) {
      if (!control->isVisible() || qobject_cast<QTabBar*>(control->parentWidget())) continue;
      const auto name = control->accessibleName().isEmpty() ? control->text() : control->accessibleName();
      EXPECT_FALSE(name.isEmpty());
      // Of a group of modes only the chosen one is a stop; the arrows lead to the others.
      const bool isOtherMode = qobject_cast<ModeRow*>(control) && !control->isChecked();
      EXPECT_EQ(reached.contains(control), !isOtherMode) << qPrintable(name);
    }
  }
}

TEST_F(SettingsPanes, escapeAndCommandWClose) {
  for (const auto modifiers : {Qt::ControlModifier, Qt::MetaModifier}) {
    open(Pane::Sound);
    QTest::keyClick(view.get(), Qt::Key_W, modifiers);
    EXPECT_FALSE(view->isVisible());
  }
  open(Pane::Sound);
  QTest::keyClick(&button(u"Paper sounds"_s), Qt::Key_Escape);
  EXPECT_FALSE(view->isVisible());
}

}  // namespace
}  // namespace tarnwick::test
