// SPDX-License-Identifier: MIT
// The machine's clock, zone and locale.
#pragma once

#include "platform/Clock.h"

namespace tarnwick {

class SystemClock final : public Clock {
 public:
  [[nodiscard]] QDateTime now() const override;
  [[nodiscard]] std::chrono::nanoseconds mediaTime() const override;
  [[nodiscard]] QTimeZone timeZone() const override;
  [[nodiscard]] QLocale locale() const override;
};

}  // namespace tarnwick
