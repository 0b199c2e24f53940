// SPDX-License-Identifier: MIT
// The words of an empty board, by the hour of the day.
#pragma once

#include "model/Calendar.h"

#include <QString>

namespace tarnwick {

class UserDefaults;

/// Whether undated notes turn to ash at midnight.
enum class DailyBurn { Off, On };
/// On unless the setting holds a stored false.
[[nodiscard]] DailyBurn dailyBurn(const UserDefaults& defaults);

struct PlanNudge {
  QString kicker;
  QString title;
  QString subtitle;
  bool showSlots = false;
  bool operator==(const PlanNudge&) const = default;
};
[[nodiscard]] PlanNudge planNudge(const QDateTime& at, const Calendar& calendar, DailyBurn dailyBurn);

}  // namespace tarnwick
