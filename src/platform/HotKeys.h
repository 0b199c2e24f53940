// SPDX-License-Identifier: MIT
// Port: chords that reach Tarnwick from any program.
#pragma once

#include "platform/PortTraits.h"
#include "platform/Registration.h"

#include <QString>

#include <functional>

namespace tarnwick {

struct HotKeyRegistration {
  int status = 0;  // 0 = registered; else the system's own number
  Registration handle;
};

class HotKeys {
 public:
  virtual ~HotKeys() = default;
  [[nodiscard]] virtual PortTraits traits() const = 0;
  /// `chord` in portable text, "Meta+Shift+T"; the work runs on each press.
  [[nodiscard]] virtual HotKeyRegistration registerChord(const QString& chord, std::function<void()> work) = 0;
};

}  // namespace tarnwick
