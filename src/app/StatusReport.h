// SPDX-License-Identifier: MIT
// What `status` tells of the running program, as plain values, and their two forms: JSON and lines to read.
// Frames are as the window system reports them: device pixels from the top-left corner, without shadow margins.
#pragma once

#include "context/ContextEngine.h"
#include "model/Calendar.h"
#include "platform/CaptureWatch.h"
#include "platform/PortTraits.h"
#include "platform/UserNotifications.h"
#include "platform/WindowServer.h"

#include <QRect>
#include <QString>
#include <QUuid>

#include <optional>
#include <vector>

namespace tarnwick {

struct StatusReport {
  struct Board {
    bool isVisible = false;
    bool isDismissing = false;
    std::optional<QRect> frame;
  };
  struct Window {
    QUuid id;
    std::optional<QRect> frame;
    bool isVisible = false;
    WindowLevel level = WindowLevel::Floating;
    bool isGhost = false;
    bool isTucked = false;
    bool isDocked = false;
    SharingType sharing = SharingType::ReadOnly;
    double opacity = 1;
  };
  struct Platform {
    QString session;
    PortTraits tray;
    PortTraits hotKey;
    PortTraits accessibility;
    PortTraits notifications;
    PortTraits audio;
    PortTraits captureExclusion;
    CaptureExclusion captureLevel = CaptureExclusion::NotAvailable;
  };

  QString version;
  qint64 pid = 0;
  Board board;
  std::vector<Window> windows;
  ContextSnapshot context;
  std::optional<QString> lastExternalApp;  // identifier
  std::vector<NotificationRequest> reminders;
  Platform platform;
};

/// One line of JSON; moments in the zone of the calendar.
[[nodiscard]] QByteArray statusJson(const StatusReport& report, const Calendar& calendar);
[[nodiscard]] QByteArray statusText(const StatusReport& report, const Calendar& calendar);

}  // namespace tarnwick
