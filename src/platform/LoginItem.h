// SPDX-License-Identifier: MIT
// Port: starting with the session.
#pragma once

#include "platform/PortTraits.h"
#include "platform/Result.h"

namespace tarnwick {

enum class LoginItemStatus { NotRegistered, Enabled, NotFound };

class LoginItem {
 public:
  virtual ~LoginItem() = default;
  [[nodiscard]] virtual LoginItemStatus status() const = 0;
  virtual Result<void> registerItem() = 0;
  virtual Result<void> unregisterItem() = 0;
};

}  // namespace tarnwick
