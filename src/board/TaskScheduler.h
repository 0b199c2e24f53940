// SPDX-License-Identifier: MIT
// Burns the notes that nobody crushed in their day: one pass when it is made, then one every minute.
#pragma once

#include "platform/Clock.h"
#include "platform/Scheduler.h"

#include <functional>

namespace tarnwick {

class ModelContext;
class NotificationEngine;
class TornNotes;
class UserDefaults;

class TaskScheduler final {
 public:
  struct Ports {
    const Clock& clock;
    Scheduler& scheduler;
    const UserDefaults& defaults;
    NotificationEngine& reminders;
    std::function<void()> beforeBurn = {};  // makes the copy of what a pass is about to change
  };
  /// Forced burns today's notes too, and does not ask the setting.
  enum class Burn { BeforeToday, Forced };

  /// `torn` yields null until the board panel exists.
  TaskScheduler(ModelContext& context, Ports ports, std::function<TornNotes*()> torn);

  void performDailyBurn(Burn burn);
  /// No more passes.
  void invalidate() { m_timer.cancel(); }

 private:
  ModelContext& m_context;
  Ports m_ports;
  std::function<TornNotes*()> m_torn;
  Registration m_timer;
};

}  // namespace tarnwick
