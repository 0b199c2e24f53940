// SPDX-License-Identifier: MIT
// Reading what accessible objects answer. What has another form than expected is nothing.
#pragma once

#include "platform/Accessibility.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariant>

#include <functional>
#include <vector>

class QObject;

namespace tarnwick::atspi {

inline constexpr int kMostChildren = 128;

/// Asks as anybody asks on a bus, with little patience: a program that is silent counts as one that cannot be read.
void call(const QDBusConnection& bus, const QDBusMessage& message, QObject* owner,
          std::function<void(const QDBusMessage&)> answer);

/// Elements of an a(so), or of a single (so).
[[nodiscard]] std::vector<ElementRef> refsFrom(const QDBusMessage& reply);
[[nodiscard]] QVariant propertyFrom(const QDBusMessage& reply);

[[nodiscard]] QDBusMessage getter(const ElementRef& element, const QString& property);
/// The question for the children of the registry's root: the accessible applications.
[[nodiscard]] QDBusMessage applications();
/// The question for the process of an application.
[[nodiscard]] QDBusMessage processOf(const ElementRef& application);
[[nodiscard]] qint64 processFrom(const QDBusMessage& reply);

}  // namespace tarnwick::atspi
