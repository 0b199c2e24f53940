// SPDX-License-Identifier: MIT
#include "linux/dbus/BusCall.h"

#include <QDBusPendingCallWatcher>

#include <utility>

namespace tarnwick {

void ask(const QDBusConnection& bus, const QDBusMessage& question, QObject* owner,
         std::function<void(const QDBusMessage&)> answer, std::chrono::milliseconds patience) {
  auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(question, static_cast<int>(patience.count())), owner);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, owner,
                   [answer = std::move(answer)](QDBusPendingCallWatcher* done) {
                     done->deleteLater();
                     answer(done->reply());
                   });
}

}  // namespace tarnwick
