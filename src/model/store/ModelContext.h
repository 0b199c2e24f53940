// SPDX-License-Identifier: MIT
// A view of the store for one part of the program. All contexts of a container share its records and its change set.
#pragma once

#include "model/Task.h"
#include "platform/Result.h"

namespace tarnwick {

class ModelContainer;

class ModelContext final {
 public:
  explicit ModelContext(ModelContainer& container) : m_container(container) {}

  /// Every note, in no particular order; deleted ones excluded at once.
  [[nodiscard]] TaskList fetchTasks() const;
  /// Null when there is none.
  [[nodiscard]] TaskPtr findTask(const QUuid& id) const;
  /// Becomes part of the store at the next save.
  TaskPtr insert(TaskRecord record);
  void remove(const TaskPtr& task);
  /// Writes all changes of the container in one transaction. On failure the records stay as they are in memory.
  Result<void> save();
  /// Forgets what was changed, inserted and removed since the last save.
  void rollback();

 private:
  ModelContainer& m_container;
};

}  // namespace tarnwick
