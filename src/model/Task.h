// SPDX-License-Identifier: MIT
// A sticky note: its stored fields in the order of the schema, the typed views over raw texts, and the date rules.
#pragma once

#include "model/Calendar.h"
#include "model/Enumerations.h"

#include <QDateTime>
#include <QString>
#include <QUuid>

#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

namespace tarnwick {

/// The stored values. Dates are UTC. An unknown raw value is kept as it was read.
struct TaskRecord {
  QUuid id;
  QString text;
  QString colorHex;
  std::optional<QDateTime> dueDate;
  QString recurrenceRaw = QStringLiteral("none");
  bool isCompleted = false;
  std::optional<bool> isBurned;
  std::optional<QDateTime> burnedAt;
  QDateTime createdAt;
  std::optional<QDateTime> completedAt;
  std::optional<QString> tagRaw;
  std::optional<QString> pinnedBundleID;
  std::optional<QString> gitRepoPath;
  std::optional<QString> gitBranch;
  std::optional<QString> paperThemeRaw;
  std::optional<QString> stampRaw;
  std::optional<bool> isTornOff;
  std::optional<QString> boardRaw;
  std::optional<bool> isDaily3;
  std::optional<bool> isNorthStar;
  std::optional<QString> attachmentPathsRaw;
  std::optional<qint64> focusSeconds;
  std::optional<bool> isPrivate;
  bool operator==(const TaskRecord&) const = default;
};

/// The form of an identifier wherever one is written: upper case, no braces.
[[nodiscard]] QString idText(const QUuid& id);

/// The board of a note that names none.
inline const QString kDefaultBoard = QStringLiteral("General");

class Task final {
 public:
  explicit Task(TaskRecord record) : m_record(std::move(record)) {}
  Task(const Task&) = delete;
  Task& operator=(const Task&) = delete;

  [[nodiscard]] const TaskRecord& record() const { return m_record; }
  [[nodiscard]] const QUuid& id() const { return m_record.id; }
  [[nodiscard]] const QString& text() const { return m_record.text; }
  [[nodiscard]] const QString& colorHex() const { return m_record.colorHex; }
  [[nodiscard]] const std::optional<QDateTime>& dueDate() const { return m_record.dueDate; }
  [[nodiscard]] bool isCompleted() const { return m_record.isCompleted; }
  [[nodiscard]] bool isBurned() const { return m_record.isBurned.value_or(false); }
  [[nodiscard]] bool isTornOff() const { return m_record.isTornOff.value_or(false); }
  [[nodiscard]] bool isDaily3() const { return m_record.isDaily3.value_or(false); }
  [[nodiscard]] bool isPrivate() const { return m_record.isPrivate.value_or(false); }
  [[nodiscard]] QString board() const { return m_record.boardRaw.value_or(kDefaultBoard); }
  /// Not repeating when the stored value is unknown.
  [[nodiscard]] Recurrence recurrence() const;
  /// Whether the stored rule is the no-repeat case itself; an unknown rule is not.
  [[nodiscard]] bool isOneOff() const { return m_record.recurrenceRaw == QStringLiteral("none"); }
  /// Absent and unknown count as none.
  [[nodiscard]] TaskTag tag() const;
  [[nodiscard]] PaperTheme paperTheme() const;
  void setPaperTheme(PaperTheme theme) { set(&TaskRecord::paperThemeRaw, rawValue(theme)); }
  [[nodiscard]] TaskStamp stamp() const;
  void setStamp(TaskStamp stamp) { set(&TaskRecord::stampRaw, rawValue(stamp)); }

  /// Changes one field; tells the observer when the value is another.
  template <typename T>
  void set(T TaskRecord::*field, std::type_identity_t<T> value) {
    if (m_record.*field == value) return;
    m_record.*field = std::move(value);
    if (m_changed) m_changed(*this);
  }
  /// Puts all fields back, as after a save that failed.
  void restore(const TaskRecord& record);
  /// The container that the record lives in listens here.
  void setChangeObserver(std::function<void(Task&)> observer) { m_changed = std::move(observer); }

  /// Next occurrence; nothing for no repeat or where the calendar cannot add.
  [[nodiscard]] static std::optional<QDateTime> nextDate(const QDateTime& from, Recurrence recurrence,
                                                         const Calendar& calendar);
  [[nodiscard]] static QDateTime startOfTomorrow(const QDateTime& now, const Calendar& calendar);
  /// A repeating note whose date is tomorrow or later.
  [[nodiscard]] bool isSleeping(const QDateTime& now, const Calendar& calendar) const;
  /// The same for many notes at once, with startOfTomorrow worked out before.
  [[nodiscard]] bool isSleeping(const QDateTime& startOfTomorrow) const;
  /// Completes the note, or moves a repeating one to its first date from tomorrow on; true when it was moved.
  bool applyCrush(const QDateTime& now, const Calendar& calendar);

 private:
  TaskRecord m_record;
  std::function<void(Task&)> m_changed;
};

using TaskPtr = std::shared_ptr<Task>;
using TaskList = std::vector<TaskPtr>;

}  // namespace tarnwick
