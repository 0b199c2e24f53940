// SPDX-License-Identifier: MIT
// What happened inside the program, told to whoever listens: one typed signal per event.
#pragma once

#include <QObject>
#include <QString>
#include <QUuid>

#include <optional>

namespace tarnwick {

class NotificationCenter final : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

 Q_SIGNALS:
  void crushTaskRequested(const QUuid& id);
  void crushDidComplete();
  void taskDidUpdate(const QUuid& id);
  void showAddTask();
  void notePrivacyChanged();
  void noteDisplayModeChanged();
  /// "normal" or "deepWork". Nothing posts it yet.
  void workspaceModeChanged(const QString& mode);
  void ghostTick();
  void contextChanged(const std::optional<QString>& gitRoot, const std::optional<QString>& bundleID);
};

}  // namespace tarnwick
