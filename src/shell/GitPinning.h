// SPDX-License-Identifier: MIT
// Shows a note's window only while its repository is what the user works in.
#pragma once

#include <QMetaObject>
#include <QString>

#include <optional>

namespace tarnwick {

class NotificationCenter;
class PinnedWindow;

/// Whether a note pinned to a repository, and perhaps to an application, belongs to what is in front.
/// The branch is not asked: the note shows on all of them.
[[nodiscard]] bool belongsToContext(const QString& repoPath, const std::optional<QString>& pinnedBundleID,
                                    const std::optional<QString>& gitRoot, const std::optional<QString>& bundleID);

class GitPinning final {
 public:
  GitPinning(NotificationCenter& center, QString repoPath, std::optional<QString> pinnedBundleID, PinnedWindow& window);
  ~GitPinning();

 private:
  QMetaObject::Connection m_contextObserver;
};

}  // namespace tarnwick
