// SPDX-License-Identifier: MIT
// Every settings key by name, with its type and default, in the order in which they are listed to the user.
#pragma once

#include <QString>
#include <QUuid>

#include <vector>

namespace tarnwick {

class UserDefaults;

namespace keys {
inline const QString kNoteDisplayMode = QStringLiteral("noteDisplayMode");
inline const QString kDailyBurn = QStringLiteral("dailyBurn");
inline const QString kSoundEffectsEnabled = QStringLiteral("soundEffectsEnabled");
inline const QString kClipboardCaptureEnabled = QStringLiteral("clipboardCaptureEnabled");
inline const QString kCompletionEffect = QStringLiteral("completionEffect");
inline const QString kWakeResurface = QStringLiteral("wakeResurface");
inline const QString kV1SellableDefaultsApplied = QStringLiteral("v1SellableDefaultsApplied");
inline const QString kHasSeenWelcome = QStringLiteral("hasSeenWelcome");
inline const QString kPlanNudge = QStringLiteral("planNudge");
inline const QString kLastPlanNudgeDay = QStringLiteral("lastPlanNudgeDay");
inline const QString kBoardMood = QStringLiteral("boardMood");
inline const QString kAppNotesTuck = QStringLiteral("appNotesTuck");
inline const QString kHideFromScreenShare = QStringLiteral("hideFromScreenShare");
inline const QString kDefaultPaperTheme = QStringLiteral("defaultPaperTheme");
inline const QString kAutoCheckUpdates = QStringLiteral("autoCheckUpdates");
inline const QString kLastUpdateCheck = QStringLiteral("lastUpdateCheck");
inline const QString kDismissedUpdateVersion = QStringLiteral("dismissedUpdateVersion");
inline const QString kDockTrashFrame = QStringLiteral("dockTrashFrame");
inline const QString kRememberTornNotes = QStringLiteral("rememberTornNotes");
inline const QString kCrushTarget = QStringLiteral("crushTarget");
inline const QString kHotKey = QStringLiteral("hotKey");
/// Followed by the note's id in upper case: two reals, x and y.
inline const QString kAppNoteOffsetPrefix = QStringLiteral("appNoteOffset.");
/// Followed by the note's id in upper case: four reals, desktop coordinates.
inline const QString kTornNoteFramePrefix = QStringLiteral("tornNoteFrame.");
}  // namespace keys

enum class SettingType { Boolean, Text, Date, Reals };

struct SettingDescriptor {
  QString key;
  SettingType type = SettingType::Text;
  QString fallback;  // what it prints as when absent and not registered
};

/// The keys of one note, in the order of their prefixes above.
[[nodiscard]] QString appNoteOffsetKey(const QUuid& id);
[[nodiscard]] QString tornNoteFrameKey(const QUuid& id);
/// Removes what is kept for a note; to be called when it is gone for good.
void forgetNote(UserDefaults& defaults, const QUuid& id);

/// The table; per-note keys are not in it.
[[nodiscard]] const std::vector<SettingDescriptor>& settingDescriptors();
/// The registration layer; to be called at each launch before anything reads settings.
void registerDefaultSettings(UserDefaults& defaults);
/// Replaces two early choices once per user.
void migrateSettingsOnce(UserDefaults& defaults);

}  // namespace tarnwick
