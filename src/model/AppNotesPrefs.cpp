// SPDX-License-Identifier: MIT
#include "model/AppNotesPrefs.h"

#include "model/SettingsKeys.h"

namespace tarnwick {

bool AppNotesPrefs::tuck() const {
  return m_defaults.booleanOrOn(keys::kAppNotesTuck);
}

bool AppNotesPrefs::hideFromCapture() const {
  return m_defaults.boolean(keys::kHideFromScreenShare);
}

void AppNotesPrefs::setHideFromCapture(bool isHidden) {
  // A file that cannot be written leaves the choice in force for this run.
  static_cast<void>(m_defaults.setBoolean(keys::kHideFromScreenShare, isHidden));
  Q_EMIT m_center.notePrivacyChanged();
}

}  // namespace tarnwick
