// SPDX-License-Identifier: MIT
#include "shell/GitPinning.h"

#include "model/NotificationCenter.h"
#include "shell/PinnedWindow.h"

namespace tarnwick {

bool belongsToContext(const QString& repoPath, const std::optional<QString>& pinnedBundleID,
                      const std::optional<QString>& gitRoot, const std::optional<QString>& bundleID) {
  if (!gitRoot || *gitRoot != repoPath) return false;
  return !pinnedBundleID || bundleID == pinnedBundleID;
}

GitPinning::GitPinning(NotificationCenter& center, QString repoPath, std::optional<QString> pinnedBundleID,
                       PinnedWindow& window) {
  m_contextObserver = QObject::connect(
      &center, &NotificationCenter::contextChanged, &center,
      [repoPath = std::move(repoPath), pinnedBundleID = std::move(pinnedBundleID), &window](
          const std::optional<QString>& gitRoot, const std::optional<QString>& bundleID) {
        if (belongsToContext(repoPath, pinnedBundleID, gitRoot, bundleID)) {
          window.orderFront();
        } else {
          window.orderOut();
        }
      });
}

GitPinning::~GitPinning() { QObject::disconnect(m_contextObserver); }

}  // namespace tarnwick
