// SPDX-License-Identifier: MIT
#include "model/store/ModelContext.h"

#include "model/store/Storage.h"

namespace tarnwick {

TaskList ModelContext::fetchTasks() const {
  const auto& entries = m_container.m_storage->entries;
  TaskList list;
  list.reserve(static_cast<std::size_t>(entries.size()));
  for (const auto& entry : entries) list.push_back(entry.task);
  return list;
}

TaskPtr ModelContext::findTask(const QUuid& id) const {
  return m_container.m_storage->entries.value(id).task;
}

TaskPtr ModelContext::insert(TaskRecord record) {
  return m_container.m_storage->insert(std::move(record));
}

void ModelContext::remove(const TaskPtr& task) {
  m_container.m_storage->remove(task->id());
}

Result<void> ModelContext::save() {
  const auto saved = m_container.m_storage->save();
  if (!saved) return saved.error();
  if (saved.value()) Q_EMIT m_container.didSave();
  return {};
}

void ModelContext::rollback() {
  m_container.m_storage->rollback();
}

}  // namespace tarnwick
