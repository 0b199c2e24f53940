// SPDX-License-Identifier: MIT
#include "linux/dbus/FeedbackdHaptics.h"

#include "linux/xdg/DesktopEntries.h"
#include "platform/Workspace.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QFileInfo>
#include <QVariantMap>

#include <algorithm>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

const QString kService = QStringLiteral("org.sigxcpu.Feedback");

}  // namespace

// By its activation file: asking the bus would wait for an answer, or start a service that nobody needs yet.
bool FeedbackdHaptics::isInstalled() {
  if (!QDBusConnection::sessionBus().isConnected()) return false;
  const auto folders = xdgDataFolders();
  return std::any_of(folders.begin(), folders.end(), [](const QString& folder) {
    return QFileInfo::exists(folder + u"/dbus-1/services/"_s + kService + u".service"_s);
  });
}

void FeedbackdHaptics::perform(HapticPattern pattern) {
  auto call = QDBusMessage::createMethodCall(kService, QStringLiteral("/org/sigxcpu/Feedback"), kService,
                                             QStringLiteral("TriggerFeedback"));
  const auto event = pattern == HapticPattern::Generic ? QStringLiteral("button-pressed") : QStringLiteral("button-released");
  call << kApplicationID << event << QVariantMap() << -1;
  QDBusConnection::sessionBus().asyncCall(call);
}

}  // namespace tarnwick
