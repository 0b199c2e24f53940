// SPDX-License-Identifier: MIT
// Port: taps that a touchpad or handheld can give.
#pragma once

#include "platform/PortTraits.h"

namespace tarnwick {

enum class HapticPattern { Generic, LevelChange };

class Haptics {
 public:
  virtual ~Haptics() = default;
  [[nodiscard]] virtual PortTraits traits() const = 0;
  virtual void perform(HapticPattern pattern) = 0;
};

}  // namespace tarnwick
