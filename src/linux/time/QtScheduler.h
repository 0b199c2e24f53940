// SPDX-License-Identifier: MIT
// Work later, on Qt's event loop. From one second up timers are coarse, so that an idle program wakes rarely; frames
// tick only while somebody listens.
#pragma once

#include "linux/Observers.h"
#include "platform/Scheduler.h"

#include <QObject>

#include <memory>

class QTimer;

namespace tarnwick {

class Clock;

class QtScheduler final : public QObject, public Scheduler {
 public:
  explicit QtScheduler(const Clock& clock);
  ~QtScheduler() override;

  [[nodiscard]] Registration after(std::chrono::milliseconds delay, Work work) override;
  [[nodiscard]] Registration every(std::chrono::milliseconds period, Work work) override;
  [[nodiscard]] Registration post(Work work) override;
  [[nodiscard]] Registration frames(FrameWork work) override;

 private:
  QTimer* addTimer(std::chrono::milliseconds interval);

  const Clock& m_clock;
  Observers<std::chrono::nanoseconds> m_frameWork;
  QTimer* m_frameTimer;
};

}  // namespace tarnwick
