// SPDX-License-Identifier: MIT
// Port: the applications of the desktop: which run, which is in front, their names and icons.
#pragma once

#include "platform/PortTraits.h"
#include "platform/Registration.h"

#include <QIcon>
#include <QString>
#include <QUrl>

#include <functional>
#include <optional>
#include <vector>

namespace tarnwick {

struct RunningApplication {
  QString bundleID;  // desktop-file id without suffix, else the window class; empty when it has neither
  qint64 pid = 0;           // 0 for a program of another machine
  QString name;             // as shown to the user
  bool isCodeEditor = false;  // as far as this desktop's own table of editors knows
  bool isRegular = true;      // has windows of its own in the task list
  bool operator==(const RunningApplication&) const = default;
};

class Workspace {
 public:
  using Observer = std::function<void(const RunningApplication&)>;

  virtual ~Workspace() = default;
  /// Windows of ours that are not in the task list, the board and the notes, do not come to the front: what is behind
  /// them stays. Our own activation is told all the same.
  [[nodiscard]] virtual std::optional<RunningApplication> frontmost() const = 0;
  [[nodiscard]] virtual std::vector<RunningApplication> running() const = 0;
  [[nodiscard]] virtual Registration onActivated(Observer observer) = 0;
  [[nodiscard]] virtual Registration onDeactivated(Observer observer) = 0;
  [[nodiscard]] virtual Registration onTerminated(Observer observer) = 0;
  /// Name and icon of an application by its identifier, running or not; the identifier itself and a null icon if unknown.
  [[nodiscard]] virtual std::pair<QString, QIcon> identity(const QString& bundleID) const = 0;
  /// Opens with the default handler; false when it could not be started.
  virtual bool openUrl(const QUrl& url) = 0;
  [[nodiscard]] virtual bool isMotionReduced() const = 0;
};

/// This program's identifier, the same from an installed copy and from the build folder.
inline const QString kApplicationID = QStringLiteral("app.tarnwick.Tarnwick");

}  // namespace tarnwick
