// SPDX-License-Identifier: MIT
// What a port can do here: which adapter serves it, or why none does.
#pragma once

#include <QString>

namespace tarnwick {

struct PortTraits {
  bool isAvailable = false;
  QString adapter;  // name shown by `status`; empty when unavailable
  QString reason;   // why it is not available; empty otherwise

  [[nodiscard]] static PortTraits served(QString by) { return {true, std::move(by), {}}; }
  [[nodiscard]] static PortTraits unavailable(QString why) { return {false, {}, std::move(why)}; }
};

}  // namespace tarnwick
