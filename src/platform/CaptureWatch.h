// SPDX-License-Identifier: MIT
// Port: whether the screen is being captured, and how well windows can be kept out of it.
#pragma once

#include "platform/PortTraits.h"
#include "platform/Registration.h"

#include <functional>

namespace tarnwick {

enum class CaptureExclusion { Omitted, HiddenWhileSharing, NotAvailable };

class CaptureWatch {
 public:
  virtual ~CaptureWatch() = default;
  [[nodiscard]] virtual PortTraits traits() const = 0;
  [[nodiscard]] virtual CaptureExclusion exclusion() const = 0;
  [[nodiscard]] virtual bool isCasting() const = 0;
  [[nodiscard]] virtual Registration onChanged(std::function<void()> observer) = 0;
};

}  // namespace tarnwick
