// SPDX-License-Identifier: MIT
#include "board/DeskDuties.h"

#include "board/BoardServices.h"
#include "board/CrushUndoStore.h"
#include "board/NotificationEngine.h"
#include "board/TornNotes.h"
#include "model/NotificationCenter.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "model/store/ModelContainer.h"

namespace tarnwick {

namespace {
constexpr int kFirstHour = 5;
}

void restickDueNotes(const ModelContext& context, TornNotes& torn, const Clock& clock) {
  const QDateTime now = clock.now();
  const Calendar calendar = Calendar::of(clock);
  for (const TaskPtr& task : context.fetchTasks()) {
    if (task->isCompleted() || task->isBurned() || !task->isTornOff() || task->isSleeping(now, calendar)) continue;
    if (!torn.isOpen(task->id())) torn.tearOffTask(task, std::nullopt);
  }
}

bool planNudgeIfDue(UserDefaults& defaults, const Clock& clock, const BoardPresence& board) {
  if (!defaults.booleanOrOn(keys::kPlanNudge) || !defaults.boolean(keys::kHasSeenWelcome)) return false;
  const QDateTime now = clock.now();
  const Calendar calendar = Calendar::of(clock);
  if (calendar.hour(now) < kFirstHour || board.isVisible()) return false;
  const QString today = calendar.day(now).toString(Qt::ISODate);
  if (defaults.text(keys::kLastPlanNudgeDay) == today) return false;
  (void)defaults.setText(keys::kLastPlanNudgeDay, today);
  board.present();
  return true;
}

void followEdits(NotificationCenter& center, ModelContext& context, NotificationEngine& reminders, QObject* owner) {
  QObject::connect(&center, &NotificationCenter::taskDidUpdate, owner, [&context, &reminders](const QUuid& id) {
    if (const TaskPtr task = context.findTask(id)) reminders.schedule(*task);
  });
}

bool undoLastCrush(const BoardServices& services) {
  const QUuid id = services.undo.last ? services.undo.last->id : QUuid();
  ModelContext& context = services.container.mainContext();
  if (!services.undo.undo(context)) return false;
  if (const TaskPtr task = context.findTask(id)) services.reminders.schedule(*task);
  return true;
}

}  // namespace tarnwick
