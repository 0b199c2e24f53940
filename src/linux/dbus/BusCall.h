// SPDX-License-Identifier: MIT
// Questions to other programs on a bus, without waiting for the answers.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <chrono>
#include <functional>

class QObject;

namespace tarnwick {

/// The bus's own patience.
inline constexpr std::chrono::milliseconds kUsualPatience{-1};

/// The answer comes from the event loop, be it an error, and only while the owner lives. Silence becomes an error.
void ask(const QDBusConnection& bus, const QDBusMessage& question, QObject* owner,
         std::function<void(const QDBusMessage&)> answer, std::chrono::milliseconds patience = kUsualPatience);

}  // namespace tarnwick
