// SPDX-License-Identifier: MIT
#include "model/SettingsKeys.h"

#include "model/Enumerations.h"
#include "model/UserDefaults.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

QString appNoteOffsetKey(const QUuid& id) {
  return keys::kAppNoteOffsetPrefix + id.toString(QUuid::WithoutBraces).toUpper();
}

QString tornNoteFrameKey(const QUuid& id) {
  return keys::kTornNoteFramePrefix + id.toString(QUuid::WithoutBraces).toUpper();
}

void forgetNote(UserDefaults& defaults, const QUuid& id) {
  // What could not be written goes with the next change of any setting.
  for (const auto& key : {appNoteOffsetKey(id), tornNoteFrameKey(id)}) static_cast<void>(defaults.remove(key));
}

const std::vector<SettingDescriptor>& settingDescriptors() {
  static const std::vector<SettingDescriptor> table{
      {keys::kNoteDisplayMode, SettingType::Text, rawValue(NoteDisplayMode::alwaysOnTop)},
      {keys::kDailyBurn, SettingType::Boolean, u"true"_s},
      {keys::kSoundEffectsEnabled, SettingType::Boolean, u"true"_s},
      {keys::kClipboardCaptureEnabled, SettingType::Boolean, u"false"_s},
      {keys::kCompletionEffect, SettingType::Text, u"crush"_s},
      {keys::kWakeResurface, SettingType::Boolean, u"true"_s},
      {keys::kV1SellableDefaultsApplied, SettingType::Boolean, u"false"_s},
      {keys::kHasSeenWelcome, SettingType::Boolean, u"false"_s},
      {keys::kPlanNudge, SettingType::Boolean, u"true"_s},
      {keys::kLastPlanNudgeDay, SettingType::Text, {}},
      {keys::kBoardMood, SettingType::Text, rawValue(BoardMood::obsidian)},
      {keys::kAppNotesTuck, SettingType::Boolean, u"true"_s},
      {keys::kHideFromScreenShare, SettingType::Boolean, u"false"_s},
      {keys::kDefaultPaperTheme, SettingType::Text, rawValue(PaperTheme::plain)},
      {keys::kAutoCheckUpdates, SettingType::Boolean, u"true"_s},
      {keys::kLastUpdateCheck, SettingType::Date, {}},
      {keys::kDismissedUpdateVersion, SettingType::Text, {}},
      {keys::kDockTrashFrame, SettingType::Text, {}},
      {keys::kRememberTornNotes, SettingType::Boolean, u"true"_s},
      {keys::kCrushTarget, SettingType::Text, u"automatic"_s},
      {keys::kHotKey, SettingType::Text, u"Meta+Shift+T"_s},
  };
  return table;
}

void registerDefaultSettings(UserDefaults& defaults) {
  defaults.registerDefault(keys::kNoteDisplayMode, rawValue(NoteDisplayMode::alwaysOnTop));
  defaults.registerDefault(keys::kDailyBurn, true);
  defaults.registerDefault(keys::kSoundEffectsEnabled, true);
  defaults.registerDefault(keys::kClipboardCaptureEnabled, false);
  defaults.registerDefault(keys::kCompletionEffect, u"crush"_s);
  defaults.registerDefault(keys::kWakeResurface, true);
  defaults.registerDefault(keys::kRememberTornNotes, true);
  defaults.registerDefault(keys::kCrushTarget, u"automatic"_s);
  defaults.registerDefault(keys::kHotKey, u"Meta+Shift+T"_s);
}

void migrateSettingsOnce(UserDefaults& defaults) {
  if (defaults.boolean(keys::kV1SellableDefaultsApplied)) return;
  // Should a write fail, the flag is not on disk either and the next launch does it again.
  static_cast<void>(defaults.setText(keys::kNoteDisplayMode, rawValue(NoteDisplayMode::alwaysOnTop)));
  static_cast<void>(defaults.setBoolean(keys::kClipboardCaptureEnabled, false));
  static_cast<void>(defaults.setBoolean(keys::kV1SellableDefaultsApplied, true));
}

}  // namespace tarnwick
