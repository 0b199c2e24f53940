// SPDX-License-Identifier: MIT
// Taps through the feedback service of handhelds, where one is installed.
#pragma once

#include "platform/Haptics.h"

namespace tarnwick {

class FeedbackdHaptics final : public Haptics {
 public:
  /// Whether the service runs or could be started on this session's bus.
  [[nodiscard]] static bool isInstalled();

  [[nodiscard]] PortTraits traits() const override { return PortTraits::served(QStringLiteral("feedbackd")); }
  void perform(HapticPattern pattern) override;
};

}  // namespace tarnwick
