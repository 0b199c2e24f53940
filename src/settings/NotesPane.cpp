// SPDX-License-Identifier: MIT
#include "settings/NotesPane.h"

#include "effects/Tokens.h"
#include "model/AppNotesPrefs.h"
#include "model/Enumerations.h"
#include "model/NotificationCenter.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "settings/ModeRow.h"
#include "settings/PickerArt.h"
#include "settings/PickerButton.h"
#include "settings/SettingsGroup.h"
#include "settings/SettingsRow.h"
#include "settings/SettingsText.h"

#include <QButtonGroup>
#include <QVBoxLayout>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

const QString kCrush = u"crush"_s;
const QString kShred = u"shred"_s;

QString exclusionText(CaptureExclusion exclusion) {
  switch (exclusion) {
    case CaptureExclusion::Omitted: return NotesPane::tr("Omitted: captures leave your notes out.");
    case CaptureExclusion::HiddenWhileSharing:
      return NotesPane::tr("Hidden while sharing is detected. Screenshots still show them.");
    case CaptureExclusion::NotAvailable: break;
  }
  return NotesPane::tr("Not available here: captures will show your notes.");
}

}  // namespace

NotesPane::NotesPane(const SettingsServices& services, QWidget* parent) : SettingsPane(services, parent) {
  addTornOffNotes();
  addHeading(tr("App Notes"));
  addSwitchOn(*addGroup(), keys::kAppNotesTuck,
              {tr("Tuck into a tab"), tr("Notes pinned to an app dock to its window as a small tab. Hover to open.")});
  addPrivacy();
  addPaper();
  addImport();
  column().addStretch();
}

void NotesPane::addTornOffNotes() {
  addHeading(tr("Torn-off notes"));
  auto* group = addGroup();
  group->setAccessibleName(tr("Torn-off notes"));
  addModes(*group);
  addSwitch(*group, keys::kWakeResurface,
            {tr("Bring back after sleep"), tr("Notes float back above your apps when the Mac wakes.")});
  addSwitchOn(*group, keys::kRememberTornNotes,
              {tr("Remember torn notes"), tr("They come back to their places at the next start.")});
}

void NotesPane::addModes(SettingsGroup& group) {
  struct Mode {
    NoteDisplayMode mode;
    QString symbol;
    QString title;
    QString help;
  };
  const Mode modes[]{
      {NoteDisplayMode::alwaysOnTop, u"pin"_s, tr("Always on Top"), tr("Floats above all apps, including fullscreen")},
      {NoteDisplayMode::mouseThrough, u"ghost"_s, tr("Ghost"),
       tr("See-through for you, invisible in screenshots and screen shares. Clicks pass through; hold ⌥ to grab.")},
      {NoteDisplayMode::desktop, u"desktop"_s, tr("Desktop"), tr("Sits on wallpaper, below other windows")},
  };
  auto* choice = new QButtonGroup(this);
  auto& defaults = services().defaults;
  auto& center = services().center;
  for (const auto& mode : modes) {
    auto* row = new ModeRow(mode.symbol, mode.title, mode.help, &group);
    choice->addButton(row, static_cast<int>(mode.mode));
    group.addRow(row);
  }
  // Arrow keys choose without a click, so the choice itself is followed; `follow` below sets only what is stored.
  connect(choice, &QButtonGroup::idToggled, this, [&defaults, &center](int id, bool isOn) {
    const auto raw = rawValue(static_cast<NoteDisplayMode>(id));
    if (!isOn || defaults.text(keys::kNoteDisplayMode) == raw) return;
    static_cast<void>(defaults.setText(keys::kNoteDisplayMode, raw));
    Q_EMIT center.noteDisplayModeChanged();
  });
  follow(keys::kNoteDisplayMode, [&defaults, choice] {
    const auto stored = fromRawValue<NoteDisplayMode>(defaults.text(keys::kNoteDisplayMode).value_or(QString()));
    const QSignalBlocker quiet(choice);
    choice->button(static_cast<int>(stored.value_or(NoteDisplayMode::alwaysOnTop)))->setChecked(true);
  });
}

void NotesPane::addPrivacy() {
  addHeading(tr("Privacy"));
  auto* group = addGroup();
  auto& defaults = services().defaults;
  auto& center = services().center;
  auto* hide = addSwitch(
      *group,
      {tr("Hide all notes from screen sharing"),
       tr("You still see them; Zoom, Meet, screenshots and recordings don't. Also in the menu bar menu.")},
      keys::kHideFromScreenShare, [&] { return AppNotesPrefs(defaults, center).hideFromCapture(); },
      [&defaults, &center](bool isOn) { AppNotesPrefs(defaults, center).setHideFromCapture(isOn); });
  m_exclusion = hide->addLine({}, tokens::kText2);
  refreshExclusion();

  auto* own = new SettingsRow(tr("Private notes"), tr("Tap the lock in a note's editor to hide just that note."), group);
  own->setSymbol(u"lock"_s, tokens::kPrivate);
  group->addRow(own);
}

void NotesPane::refreshExclusion() {
  const auto exclusion = services().capture.exclusion();
  m_exclusion->setText(exclusionText(exclusion));
  m_exclusion->setColor(exclusion == CaptureExclusion::NotAvailable ? tokens::kAmber : tokens::kText2);
}

void NotesPane::showEvent(QShowEvent* event) {
  SettingsPane::showEvent(event);
  refreshExclusion();
}

void NotesPane::addPaper() {
  addHeading(tr("Paper"));
  auto* group = addGroup();
  auto& defaults = services().defaults;
  const auto addPicker = [&](const QString& title, const QString& key, std::vector<PickerButton::Option> options) {
    auto* row = new SettingsRow(title, {}, group);
    auto* picker = new PickerButton(title, std::move(options), row);
    row->setControl(picker, PlateButton::kRingRoom);
    group->addRow(row);
    connect(picker, &PickerButton::picked, this,
            [&defaults, key](const QString& value) { static_cast<void>(defaults.setText(key, value)); });
    follow(key, [&defaults, key, picker] { picker->setValue(defaults.text(key).value_or(QString())); });
  };

  std::vector<PickerButton::Option> themes;
  for (const auto theme : kPaperThemes) {
    themes.push_back({rawValue(theme), label(theme), [theme](QPainter& painter, const QRectF& box) {
                        paintThemeSwatch(painter, box, theme);
                      }});
  }
  addPicker(tr("New note texture"), keys::kDefaultPaperTheme, std::move(themes));
  addPicker(tr("When you complete a note"), keys::kCompletionEffect,
            {{kCrush, tr("Crush into Trash"), paintCrushPicture}, {kShred, tr("Shred"), paintShredPicture}});
}

void NotesPane::addImport() {
  addHeading(tr("Other notes"));
  auto* group = addGroup();
  auto* row = new SettingsRow(tr("Import notes"), tr("From a file, a calendar, or another notes program."), group);
  auto* button = new PlateButton(tr("Import…"), row);
  connect(button, &QPushButton::clicked, this, &NotesPane::importRequested);
  row->setControl(button, PlateButton::kRingRoom);
  group->addRow(row);
}

}  // namespace tarnwick
