// SPDX-License-Identifier: MIT
#include "board/NoteCrush.h"

#include "board/CrushUndoStore.h"
#include "board/NotificationEngine.h"
#include "board/TornNotes.h"
#include "effects/CrushFlight.h"
#include "effects/SoundEngine.h"
#include "model/AppNotesPrefs.h"
#include "model/Color.h"
#include "model/NotificationCenter.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "model/store/ModelContainer.h"
#include "platform/Clock.h"
#include "platform/Haptics.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"

#include <QPointer>

namespace tarnwick {

namespace {

constexpr double kPointerSquare = 200;
constexpr std::chrono::milliseconds kShredTime{1000};
constexpr std::chrono::milliseconds kReducedMotionTime{150};
const QString kShred = QStringLiteral("shred");

/// What may be read in flight: the overlay is part of every screen cast, so what casts leave out flies as plain paper.
QImage pictureOf(const BoardServices& services, const Task& task, const std::function<QImage()>& picture) {
  const bool isHidden = task.isPrivate() || AppNotesPrefs(services.defaults, services.center).hideFromCapture();
  return picture && !isHidden ? picture() : QImage();
}

TornNotes& tornNotes(const BoardServices& services) {
  TornNotes* const torn = services.torn ? services.torn() : nullptr;
  Q_ASSERT_X(torn, "crush", "a torn-off note needs the board panel");
  return *torn;
}

bool applyCrushNow(const BoardServices& services, Task& task) {
  return task.applyCrush(services.clock.now(), Calendar::of(services.clock));
}

CrushUndoStore::Snapshot snapshotOf(const Task& task, bool wasTornOff, const std::optional<QDateTime>& previousDueDate,
                                    bool isAdvanced) {
  return {task.id(), wasTornOff, task.record().completedAt, previousDueDate, task.dueDate(), isAdvanced};
}

void updateReminder(const BoardServices& services, const Task& task, bool isAdvanced) {
  if (isAdvanced) {
    services.reminders.schedule(task);
  } else {
    services.reminders.cancel(task.id());
  }
}

}  // namespace

NoteCrush::NoteCrush(const BoardServices& services, TaskPtr task, Card card, QObject* parent)
    : QObject(parent), m_services(services), m_task(std::move(task)), m_view(std::move(card)) {}

NoteCrush::NoteCrush(const BoardServices& services, TaskPtr task, TornNote torn, QObject* parent)
    : QObject(parent), m_services(services), m_task(std::move(task)), m_view(std::move(torn)) {}

void NoteCrush::crush() {
  if (m_isCrushing) {
    abort();
  } else {
    begin();
  }
}

void NoteCrush::begin() {
  if (m_isCrushing) return;
  ++m_generation;
  const auto* const torn = std::get_if<TornNote>(&m_view);
  m_isShredding = torn && m_services.defaults.text(keys::kCompletionEffect) == kShred;
  setCrushing(true);
  m_services.sound.playCrush();
  m_services.haptics.perform(HapticPattern::Generic);
  if (torn) {
    beginTorn(*torn);
  } else {
    beginCard(std::get<Card>(m_view));
  }
}

void NoteCrush::abort() {
  if (!m_isCrushing) return;
  ++m_generation;
  m_crushWorkItem.cancel();
  m_flight.cancel();
  setCrushing(false);
  Q_EMIT aborted();
  if (std::exchange(m_hasClosedWindow, false) && m_task->isTornOff() && !isOver()) {
    tornNotes(m_services).tearOffTask(m_task, std::nullopt);
  }
}

void NoteCrush::beginCard(const Card& card) {
  const auto previousDueDate = m_task->dueDate();
  const bool wasTornOff = m_task->isTornOff();
  const DesktopRect from = card.screenFrame();
  const QImage picture = pictureOf(m_services, *m_task, card.picture);
  m_hasClosedWindow = wasTornOff;
  if (wasTornOff) tornNotes(m_services).closePanel(m_task->id());
  fly(from, picture, [this, wasTornOff, previousDueDate] { finishCard(wasTornOff, previousDueDate); });
}

void NoteCrush::beginTorn(const TornNote& torn) {
  const auto landed = [this, onRedock = torn.onRedock] { finishTorn(onRedock); };
  const bool isMotionReduced = m_services.workspace.isMotionReduced();
  if (m_isShredding || isMotionReduced) {
    m_crushWorkItem =
        m_services.scheduler.after(isMotionReduced ? kReducedMotionTime : kShredTime, ifStillWanted(landed));
    return;
  }
  const QImage picture = pictureOf(m_services, *m_task, torn.picture);
  auto from = torn.windowFrame();
  const bool hasWindow = from.has_value();
  if (!from) {
    const DesktopPoint pointer = torn.pointer();
    from = DesktopRect{pointer.x - kPointerSquare / 2, pointer.y - kPointerSquare / 2, kPointerSquare, kPointerSquare};
  }
  const QPointer self(this);
  fly(*from, picture, landed);
  if (self && m_isCrushing && hasWindow && torn.hideWindow) torn.hideWindow();
}

void NoteCrush::fly(const DesktopRect& from, const QImage& picture, std::function<void()> landed) {
  const Motion motion = m_services.workspace.isMotionReduced() ? Motion::Reduced : Motion::Full;
  const QPointer self(this);
  auto flight = m_services.flight.play(from, Color::fromHex(m_task->colorHex()), picture, motion,
                                       ifStillWanted(std::move(landed)));
  if (self) m_flight = std::move(flight);  // without motion it has landed by now, and this object may be gone
}

std::function<void()> NoteCrush::ifStillWanted(std::function<void()> work) {
  return [self = QPointer(this), generation = m_generation, work = std::move(work)] {
    if (!self || !self->m_isCrushing || self->m_generation != generation) return;
    if (self->isOver()) {
      self->abort();
    } else {
      work();
    }
  };
}

bool NoteCrush::isOver() const {
  return m_task->isCompleted() || m_task->isBurned() ||
         m_services.container.mainContext().findTask(m_task->id()) != m_task;
}

void NoteCrush::finishCard(bool wasTornOff, const std::optional<QDateTime>& previousDueDate) {
  // Saving redraws the board, and with it this object may go.
  const QPointer self(this);
  const BoardServices& services = m_services;
  const TaskPtr task = m_task;
  const auto previous = previousDueDate;

  const bool isAdvanced = applyCrushNow(services, *task);
  if (!isAdvanced) task->set(&TaskRecord::isTornOff, false);
  updateReminder(services, *task, isAdvanced);
  (void)services.container.mainContext().save();
  services.undo.last = snapshotOf(*task, wasTornOff, previous, isAdvanced);
  Q_EMIT services.center.crushDidComplete();
  if (self) self->setCrushing(false);
}

void NoteCrush::finishTorn(const std::function<void()>& onRedock) {
  const QPointer self(this);
  const BoardServices& services = m_services;
  const TaskPtr task = m_task;
  const auto closeWindow = onRedock;

  const bool wasTornOff = task->isTornOff();
  const auto previousDueDate = task->dueDate();
  const bool isAdvanced = applyCrushNow(services, *task);
  services.undo.last = snapshotOf(*task, wasTornOff, previousDueDate, isAdvanced);
  if (isAdvanced) {
    services.reminders.schedule(*task);
    (void)services.container.mainContext().save();
    Q_EMIT services.center.crushDidComplete();
    tornNotes(services).closePanel(task->id());
  } else {
    task->set(&TaskRecord::isTornOff, false);
    (void)services.container.mainContext().save();
    services.reminders.cancel(task->id());
    Q_EMIT services.center.crushDidComplete();
    if (closeWindow) closeWindow();
  }
  if (self) self->setCrushing(false);
}

void NoteCrush::setCrushing(bool isCrushing) {
  if (m_isCrushing == isCrushing) return;
  m_isCrushing = isCrushing;
  Q_EMIT isCrushingChanged();
}

Result<bool> crushAtOnce(const BoardServices& services, Task& task) {
  const TaskRecord before = task.record();
  const bool isAdvanced = applyCrushNow(services, task);
  if (!isAdvanced) task.set(&TaskRecord::isTornOff, false);
  if (auto saved = services.container.mainContext().save(); !saved) {
    task.restore(before);
    return saved.error();
  }
  TornNotes* const torn = services.torn ? services.torn() : nullptr;
  if (torn && torn->isOpen(task.id())) torn->closePanel(task.id());
  updateReminder(services, task, isAdvanced);
  services.undo.last = snapshotOf(task, before.isTornOff.value_or(false), before.dueDate, isAdvanced);
  Q_EMIT services.center.crushDidComplete();
  return isAdvanced;
}

}  // namespace tarnwick

#include "moc_NoteCrush.cpp"
