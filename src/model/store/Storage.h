// SPDX-License-Identifier: MIT
// What is behind a container: lock, connection, the live records and what changed in them since the last save.
#pragma once

#include "model/store/ModelContainer.h"
#include "model/store/RecordSql.h"
#include "model/store/SqliteConnection.h"
#include "model/store/StoreLock.h"

#include <QHash>
#include <QSet>

namespace tarnwick {

struct ModelContainer::Storage {
  struct Entry {
    TaskPtr task;
    qint64 row = 0;  // 0 until it is stored
  };

  [[nodiscard]] static Result<std::unique_ptr<Storage>> open(const QString& path, std::chrono::milliseconds lockWait);
  Storage(StoreLock storeLock, SqliteConnection storeConnection);
  ~Storage();
  Storage(const Storage&) = delete;
  Storage& operator=(const Storage&) = delete;

  TaskPtr insert(TaskRecord record);
  void remove(const QUuid& id);
  /// True when something was written.
  Result<bool> save();
  void rollback();
  Result<int> insertClipboardItems(const std::vector<ClipboardItem>& items);

  StoreLock lock;
  SqliteConnection connection;
  QHash<QUuid, Entry> entries;

 private:
  struct Statements;

  [[nodiscard]] Result<void> checkSchema(const QString& path) const;
  [[nodiscard]] Result<void> createSchema() const;
  [[nodiscard]] Result<void> load();
  [[nodiscard]] Result<void> prepareForWriting();
  void watch(const TaskPtr& task);
  [[nodiscard]] bool write(QHash<QUuid, qint64>& newRows);
  void restoreFromFile(const Entry& entry);

  std::unique_ptr<Statements> m_statements;
  TextPool m_pool;
  QSet<QUuid> m_changed;   // stored before, and still there
  QSet<QUuid> m_inserted;  // never stored
  QHash<QUuid, Entry> m_removed;
};

}  // namespace tarnwick
