// SPDX-License-Identifier: MIT
#include "board/NoteEditing.h"

#include "board/CardRules.h"
#include "board/NotificationEngine.h"
#include "board/TornNotes.h"
#include "context/ContextEngine.h"
#include "effects/SoundEngine.h"
#include "model/Color.h"
#include "model/NotificationCenter.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "model/store/ModelContainer.h"
#include "platform/Clock.h"
#include "platform/Haptics.h"

#include <QCoreApplication>

namespace tarnwick {

namespace {

const QTime kRepeatTime(9, 0);

struct Words {
  Q_DECLARE_TR_FUNCTIONS(tarnwick::NoteEditing)
};

std::optional<QDateTime> utc(const std::optional<QDateTime>& moment) {
  if (!moment) return std::nullopt;
  return moment->toUTC();
}

/// The last application in front, by identifier, if it has one.
std::optional<QString> lastExternalBundleID(const ContextEngine& context) {
  const auto& application = context.lastExternalApp();
  if (!application || application->bundleID.isEmpty()) return std::nullopt;
  return application->bundleID;
}

std::optional<QString> emptyClears(const QString& text) {
  if (text.isEmpty()) return std::nullopt;
  return text;
}

/// What the command line named beside the draft; the pin is not among them.
void apply(const NoteExtras& extras, Task& task) {
  if (extras.gitRepoPath) task.set(&TaskRecord::gitRepoPath, emptyClears(*extras.gitRepoPath));
  if (extras.gitBranch) task.set(&TaskRecord::gitBranch, emptyClears(*extras.gitBranch));
  if (extras.tagRaw) task.set(&TaskRecord::tagRaw, emptyClears(*extras.tagRaw));
}

}  // namespace

NoteDraft NoteDraft::forNewNote(const UserDefaults& defaults) {
  NoteDraft draft;
  draft.colorHex = kPaperPalette.front();
  const QString theme = defaults.text(keys::kDefaultPaperTheme).value_or(QString());
  draft.paperTheme = fromRawValue<PaperTheme>(theme).value_or(PaperTheme::plain);
  return draft;
}

NoteDraft NoteDraft::of(const Task& task) {
  const TaskRecord& record = task.record();
  NoteDraft draft;
  draft.text = record.text;
  draft.colorHex = record.colorHex;
  draft.paperTheme = task.paperTheme();
  draft.stamp = task.stamp();
  draft.dueDate = record.dueDate;
  draft.recurrenceRaw = record.recurrenceRaw;
  draft.isPinnedToApp = record.pinnedBundleID.has_value();
  if (record.gitRepoPath) draft.repository = RepositoryPin{*record.gitRepoPath, record.gitBranch};
  draft.isPrivate = task.isPrivate();
  draft.board = task.board();
  return draft;
}

bool NoteDraft::isEmpty() const { return NoteEditing::trimmed(text).isEmpty(); }

QString NoteEditing::trimmed(const QString& text) { return text.trimmed(); }

TaskRecord NoteEditing::record(const NoteDraft& draft, const NoteExtras& extras) const {
  const QDateTime now = m_services.clock.now();
  TaskRecord record;
  record.id = QUuid::createUuid();
  record.text = trimmed(draft.text);
  record.colorHex = draft.colorHex;
  record.recurrenceRaw = draft.recurrenceRaw;
  record.dueDate = utc(draft.dueDate);
  if (!record.dueDate && draft.recurrenceRaw != rawValue(Recurrence::none)) {
    const Calendar calendar = Calendar::of(m_services.clock);
    record.dueDate = calendar.at(calendar.day(now), kRepeatTime);
  }
  record.isBurned = false;
  record.createdAt = now;
  record.tagRaw = rawValue(TaskTag::none);
  if (draft.isPinnedToApp) record.pinnedBundleID = lastExternalBundleID(m_services.context);
  if (draft.repository) {
    record.gitRepoPath = draft.repository->path;
    record.gitBranch = draft.repository->branch;
  }
  record.paperThemeRaw = rawValue(draft.paperTheme);
  record.stampRaw = rawValue(draft.stamp);
  record.isTornOff = false;
  record.boardRaw = draft.board;
  record.isDaily3 = false;
  record.isNorthStar = false;
  record.focusSeconds = 0;
  if (draft.isPrivate) record.isPrivate = true;

  Task task(std::move(record));
  if (draft.isDaily3) toggleDaily3(task);
  apply(extras, task);
  if (extras.pinnedBundleID) task.set(&TaskRecord::pinnedBundleID, emptyClears(*extras.pinnedBundleID));
  return task.record();
}

Result<TaskPtr> NoteEditing::create(const NoteDraft& draft, const NoteExtras& extras) {
  if (draft.isEmpty()) return TaskPtr();
  ModelContext& context = m_services.container.mainContext();
  const TaskPtr task = context.insert(record(draft, extras));
  if (auto saved = context.save(); !saved) {
    context.remove(task);
    return saved.error();
  }
  m_services.reminders.schedule(*task);
  m_services.sound.playStick();
  m_services.haptics.perform(HapticPattern::Generic);
  return task;
}

Result<bool> NoteEditing::save(Task& task, const NoteDraft& draft, const NoteExtras& extras) {
  if (draft.isEmpty()) return false;
  if (m_services.container.mainContext().findTask(task.id()).get() != &task) {
    return Error{ErrorKind::NotFound, Words::tr("the note is gone")};
  }
  const TaskRecord before = task.record();
  const NoteDraft was = NoteDraft::of(task);
  const auto isToWrite = [&](const auto& now, const auto& then) {
    return extras.unchanged == NoteExtras::Unchanged::Write || now != then;
  };

  if (isToWrite(draft.text, was.text)) task.set(&TaskRecord::text, trimmed(draft.text));
  task.set(&TaskRecord::colorHex, draft.colorHex);
  if (isToWrite(draft.paperTheme, was.paperTheme)) task.setPaperTheme(draft.paperTheme);
  if (isToWrite(draft.stamp, was.stamp)) task.setStamp(draft.stamp);
  if (isToWrite(draft.board, was.board)) task.set(&TaskRecord::boardRaw, draft.board);
  task.set(&TaskRecord::dueDate, utc(draft.dueDate));
  task.set(&TaskRecord::recurrenceRaw, draft.recurrenceRaw);
  if (extras.pinnedBundleID) {
    task.set(&TaskRecord::pinnedBundleID, emptyClears(*extras.pinnedBundleID));
  } else if (!draft.isPinnedToApp) {
    task.set(&TaskRecord::pinnedBundleID, std::nullopt);
  } else if (!before.pinnedBundleID) {
    task.set(&TaskRecord::pinnedBundleID, lastExternalBundleID(m_services.context));
  }
  if (isToWrite(draft.isPrivate, was.isPrivate)) {
    task.set(&TaskRecord::isPrivate, draft.isPrivate ? std::optional(true) : std::nullopt);
  }
  if (draft.repository != was.repository) {
    task.set(&TaskRecord::gitRepoPath, draft.repository ? std::optional(draft.repository->path) : std::nullopt);
    task.set(&TaskRecord::gitBranch, draft.repository ? draft.repository->branch : std::nullopt);
  }
  apply(extras, task);

  if (auto saved = m_services.container.mainContext().save(); !saved) {
    task.restore(before);
    return saved.error();
  }
  m_services.sound.playStick();
  Q_EMIT m_services.center.taskDidUpdate(task.id());
  return true;
}

void NoteEditing::stick(const TaskPtr& task) {
  TornNotes* const torn = m_services.torn ? m_services.torn() : nullptr;
  Q_ASSERT(torn);
  torn->tearOffTask(task, torn->boardFrame());
  torn->hideBoard();
}

}  // namespace tarnwick
