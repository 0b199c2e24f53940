// SPDX-License-Identifier: MIT
// Port: notifications that the desktop shows at a given moment.
#pragma once

#include "platform/PortTraits.h"
#include "platform/Registration.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace tarnwick {

/// A button beside the click on the notification itself.
struct NotificationAction {
  QString key;
  QString label;
  bool operator==(const NotificationAction&) const = default;
};

struct NotificationRequest {
  QString identifier;
  QString title;
  QString body;
  QDateTime firesAt;
  std::vector<NotificationAction> actions = {};
  bool operator==(const NotificationRequest&) const = default;
};

class UserNotifications {
 public:
  virtual ~UserNotifications() = default;
  [[nodiscard]] virtual PortTraits traits() const = 0;
  virtual void requestAuthorization() = 0;
  /// Replaces a pending request of the same identifier.
  virtual void add(const NotificationRequest& request) = 0;
  /// Those that are shown are withdrawn from the screen.
  virtual void remove(const QStringList& identifiers) = 0;
  /// Pending ones only.
  virtual void removeAll() = 0;
  [[nodiscard]] virtual std::vector<NotificationRequest> pending() const = 0;
  /// The user chose a notification; gives its identifier, and the key of the action or nothing for the notification.
  using ActedOn = std::function<void(const QString& identifier, const QString& action)>;
  [[nodiscard]] virtual Registration onActedOn(ActedOn observer) = 0;
};

}  // namespace tarnwick
