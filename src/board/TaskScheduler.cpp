// SPDX-License-Identifier: MIT
#include "board/TaskScheduler.h"

#include "board/Ashes.h"
#include "board/NotificationEngine.h"
#include "board/PlanNudge.h"
#include "board/TornNotes.h"
#include "model/store/ModelContext.h"

namespace tarnwick {

namespace {
constexpr std::chrono::seconds kPassPeriod{60};
}

TaskScheduler::TaskScheduler(ModelContext& context, Ports ports, std::function<TornNotes*()> torn)
    : m_context(context), m_ports(ports), m_torn(std::move(torn)) {
  performDailyBurn(Burn::BeforeToday);
  m_timer = m_ports.scheduler.every(kPassPeriod, [this] { performDailyBurn(Burn::BeforeToday); });
}

void TaskScheduler::performDailyBurn(Burn burnWhat) {
  const bool isForced = burnWhat == Burn::Forced;
  if (!isForced && dailyBurn(m_ports.defaults) == DailyBurn::Off) return;

  const QDateTime now = m_ports.clock.now();
  const Calendar calendar = Calendar::of(m_ports.clock);
  const QDateTime todayStart = calendar.startOfDay(now);
  const QDateTime todayEnd = Task::startOfTomorrow(now, calendar);
  std::vector<QUuid> burnedIDs;
  for (const TaskPtr& task : m_context.fetchTasks()) {
    if (!isBurnable(*task)) continue;
    const QDateTime& createdAt = task->record().createdAt;
    if (!isForced && createdAt >= todayStart && createdAt < todayEnd) continue;
    if (burnedIDs.empty() && m_ports.beforeBurn) m_ports.beforeBurn();
    burn(*task, now);
    burnedIDs.push_back(task->id());
    m_ports.reminders.cancel(task->id());
  }
  // Absorbed: what could not be written stays changed in memory and goes with the next save.
  (void)m_context.save();

  TornNotes* const torn = m_torn ? m_torn() : nullptr;
  if (!torn) return;
  for (const QUuid& id : burnedIDs) {
    if (torn->isOpen(id)) torn->closePanel(id);
  }
}

}  // namespace tarnwick
