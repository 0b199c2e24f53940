// SPDX-License-Identifier: MIT
// Reserved for a shelf of copied texts. Dormant: nothing makes one, and it captures nothing.
#pragma once

#include "platform/Registration.h"

#include <QObject>

#include <optional>

namespace tarnwick {

class ModelContainer;

class ClipboardEngine final : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool isEnabled MEMBER isEnabled NOTIFY isEnabledChanged)

 public:
  using QObject::QObject;

  bool isEnabled = false;
  std::optional<Registration> timer;
  ModelContainer* container = nullptr;

 Q_SIGNALS:
  void isEnabledChanged();
};

}  // namespace tarnwick
