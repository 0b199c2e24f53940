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

struct NotificationRequest {
  QString identifier;
  QString title;
  QString body;
  QDateTime firesAt;
  bool operator==(const NotificationRequest&) const = default;
};

class UserNotifications {
 public:
  virtual ~UserNotifications() = default;
  [[nodiscard]] virtual PortTraits traits() const = 0;
  virtual void requestAuthorization() = 0;
  /// Replaces a pending request of the same identifier.
  virtual void add(const NotificationRequest& request) = 0;
  virtual void remove(const QStringList& identifiers) = 0;
  virtual void removeAll() = 0;
  [[nodiscard]] virtual std::vector<NotificationRequest> pending() const = 0;
  /// The user chose a notification; gives its identifier.
  [[nodiscard]] virtual Registration onActedOn(std::function<void(const QString&)> observer) = 0;
};

}  // namespace tarnwick
