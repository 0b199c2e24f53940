// SPDX-License-Identifier: MIT
#include "model/store/Storage.h"

#include "model/PrivateFolder.h"
#include "model/store/StoreError.h"
#include "model/store/StoreFile.h"

#include <QFileInfo>

namespace tarnwick {

namespace {

constexpr qint64 kSchemaVersion = 1;
/// "Tarn", in SQLite's field for the kind of file.
constexpr qint64 kApplicationId = 0x5461726E;

}  // namespace

struct ModelContainer::Storage::Statements {
  explicit Statements(const SqliteConnection& connection)
      : begin(connection.prepare("BEGIN IMMEDIATE")),
        commit(connection.prepare("COMMIT")),
        insert(connection.prepare(sql::insertInto("Task", kTaskColumns))),
        update(connection.prepare(sql::updateOf("Task", kTaskColumns))),
        erase(connection.prepare("DELETE FROM Task WHERE rowid = ?")),
        select(connection.prepare("SELECT " + sql::columnList(kTaskColumns) + " FROM Task WHERE rowid = ?")) {}

  [[nodiscard]] bool areValid() const {
    return begin.isValid() && commit.isValid() && insert.isValid() && update.isValid() && erase.isValid() &&
           select.isValid();
  }

  SqliteStatement begin, commit, insert, update, erase, select;
};

ModelContainer::Storage::Storage(StoreLock storeLock, SqliteConnection storeConnection)
    : lock(std::move(storeLock)), connection(std::move(storeConnection)) {}

ModelContainer::Storage::~Storage() {
  // Notes may outlive the store in somebody's hand.
  for (const auto& entry : entries) entry.task->setChangeObserver({});
  for (const auto& entry : m_removed) entry.task->setChangeObserver({});
}

Result<std::unique_ptr<ModelContainer::Storage>> ModelContainer::Storage::open(const QString& path,
                                                                               std::chrono::milliseconds lockWait) {
  makePrivateFolder(QFileInfo(path).path());
  auto lock = StoreLock::take(path, lockWait);
  if (!lock) return lock.error();
  auto examined = StoreFile::examine(path);
  if (!examined) return examined.error();
  auto& file = examined.value();
  if (file.isNew()) {
    if (const auto created = file.create(); !created) return created.error();
  }

  const auto give = [&](Error error) {
    file.removeTraces();
    return error;
  };
  auto opened = SqliteConnection::open(path, SqliteConnection::Creation::MustExist);
  if (!opened) return give(opened.error());
  auto storage = std::make_unique<Storage>(lock.take(), opened.take());
  const auto giveUp = [&](Error error) {
    if (file.hasLog()) storage->connection.keepLogOnClose();
    auto held = std::move(storage->lock);
    storage.reset();
    return give(std::move(error));
  };
  if (const auto checked = storage->checkSchema(path); !checked) return giveUp(checked.error());
  if (const auto loaded = storage->load(); !loaded) return giveUp(loaded.error());
  if (const auto ready = storage->prepareForWriting(); !ready) return giveUp(ready.error());
  file.tighten();
  return storage;
}

Result<void> ModelContainer::Storage::checkSchema(const QString& path) const {
  if (sqlite3_db_readonly(connection.handle(), "main") == 1) return storeError(ErrorKind::NotPermitted, path);
  if (!connection.execute("PRAGMA trusted_schema = OFF; PRAGMA cell_size_check = ON")) return connection.lastError();
  // Reading the table of contents also recovers the log and parses every definition.
  const auto tables = connection.integer("SELECT count(*) FROM sqlite_schema");
  if (!tables) return connection.lastError();
  const auto version = connection.integer("PRAGMA user_version").value_or(0);
  const auto kind = connection.integer("PRAGMA application_id").value_or(0);
  if (*tables == 0 && version == 0 && kind == 0) return createSchema();
  if (kind != kApplicationId || version < kSchemaVersion) return storeError(ErrorKind::Damaged, path);
  if (version > kSchemaVersion) return storeError(ErrorKind::NewerSchema, path);
  // A view of that name would do its own things on a write.
  const auto ours = connection.integer(
      "SELECT count(*) FROM sqlite_schema WHERE type = 'table' AND name IN ('Task', 'ClipboardItem')");
  if (ours != 2) return storeError(ErrorKind::Damaged, path);
  return {};
}

Result<void> ModelContainer::Storage::createSchema() const {
  const auto sql = "PRAGMA journal_mode = WAL; BEGIN IMMEDIATE; " + sql::createTable("Task", kTaskColumns) + "; " +
                   sql::createTable("ClipboardItem", kClipboardColumns) +
                   "; PRAGMA application_id = " + QByteArray::number(kApplicationId) +
                   "; PRAGMA user_version = " + QByteArray::number(kSchemaVersion) + "; COMMIT";
  if (!connection.execute(sql)) return connection.lastError();
  return {};
}

Result<void> ModelContainer::Storage::load() {
  const auto count = connection.integer("SELECT count(*) FROM Task");
  if (!count) return connection.lastError();
  auto rows = connection.prepare("SELECT rowid, " + sql::columnList(kTaskColumns) + " FROM Task");
  entries.reserve(*count);
  int code = rows.step();
  for (; code == SQLITE_ROW; code = rows.step()) {
    TaskRecord record;
    sql::readRecord(rows, 1, kTaskColumns, record, m_pool);
    // A row that cannot be addressed, or a second one of an identifier, stays in the file unseen.
    if (record.id.isNull() || entries.contains(record.id)) continue;
    auto task = std::make_shared<Task>(std::move(record));
    watch(task);
    entries.insert(task->id(), {task, rows.integer(0)});
  }
  if (code == SQLITE_DONE) return {};
  auto error = connection.lastError();
  // Not the file but the table is other than it must be.
  if (!rows.isValid() && error.kind == ErrorKind::Failed) return storeError(ErrorKind::Damaged, connection.path());
  return error;
}

Result<void> ModelContainer::Storage::prepareForWriting() {
  m_statements = std::make_unique<Statements>(connection);
  if (!m_statements->areValid()) return storeError(ErrorKind::Damaged, connection.path());
  // Taking the write lock once tells whether saves will be possible.
  if (!connection.execute("PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL; "
                          "PRAGMA journal_size_limit = 4194304; BEGIN IMMEDIATE; ROLLBACK"))
    return connection.lastError();
  return {};
}

void ModelContainer::Storage::watch(const TaskPtr& task) {
  task->setChangeObserver([this](Task& changed) {
    if (!m_inserted.contains(changed.id())) m_changed.insert(changed.id());
  });
}

TaskPtr ModelContainer::Storage::insert(TaskRecord record) {
  if (const auto found = entries.constFind(record.id); found != entries.constEnd()) {
    Q_ASSERT_X(false, "insert", "a note of that identifier is in the store");
    return found->task;
  }
  auto task = std::make_shared<Task>(std::move(record));
  watch(task);
  entries.insert(task->id(), {task, 0});
  m_inserted.insert(task->id());
  return task;
}

void ModelContainer::Storage::remove(const QUuid& id) {
  const auto found = entries.constFind(id);
  if (found == entries.constEnd()) return;
  const auto entry = *found;
  entries.erase(found);
  m_changed.remove(id);
  entry.task->setChangeObserver({});
  if (!m_inserted.remove(id)) m_removed.insert(id, entry);
}

Result<bool> ModelContainer::Storage::save() {
  if (m_changed.isEmpty() && m_inserted.isEmpty() && m_removed.isEmpty()) return false;
  QHash<QUuid, qint64> newRows;
  if (!write(newRows)) {
    auto error = connection.lastError();
    // SQLite has ended the transaction itself after some failures.
    if (sqlite3_get_autocommit(connection.handle()) == 0) static_cast<void>(connection.execute("ROLLBACK"));
    return error;
  }
  for (auto it = newRows.constBegin(); it != newRows.constEnd(); ++it) entries[it.key()].row = it.value();
  m_changed.clear();
  m_inserted.clear();
  m_removed.clear();
  return true;
}

bool ModelContainer::Storage::write(QHash<QUuid, qint64>& newRows) {
  auto& statements = *m_statements;
  if (!statements.begin.run()) return false;
  const auto insertRow = [&](const Task& task) {
    sql::bindRecord(statements.insert, kTaskColumns, task.record());
    if (!statements.insert.run()) return false;
    newRows.insert(task.id(), sqlite3_last_insert_rowid(connection.handle()));
    return true;
  };
  for (const auto& entry : std::as_const(m_removed)) {
    statements.erase.bind(1, entry.row);
    if (!statements.erase.run()) return false;
  }
  for (const auto& id : std::as_const(m_changed)) {
    const auto& entry = *entries.constFind(id);
    sql::bindRecord(statements.update, kTaskColumns, entry.task->record());
    statements.update.bind(static_cast<int>(kTaskColumns.size()) + 1, entry.row);
    if (!statements.update.run()) return false;
    // Another program took the row away: what the user sees is what counts.
    if (sqlite3_changes(connection.handle()) == 0 && !insertRow(*entry.task)) return false;
  }
  for (const auto& id : std::as_const(m_inserted)) {
    if (!insertRow(*entries.constFind(id)->task)) return false;
  }
  return statements.commit.run();
}

void ModelContainer::Storage::rollback() {
  const auto inserted = std::exchange(m_inserted, {});
  const auto changed = std::exchange(m_changed, {});
  const auto removed = std::exchange(m_removed, {});
  for (const auto& id : inserted) {
    if (const auto entry = entries.take(id); entry.task) entry.task->setChangeObserver({});
  }
  for (const auto& entry : removed) {
    entries.insert(entry.task->id(), entry);
    restoreFromFile(entry);
    watch(entry.task);
  }
  for (const auto& id : changed) restoreFromFile(*entries.constFind(id));
  m_changed.clear();
}

void ModelContainer::Storage::restoreFromFile(const Entry& entry) {
  auto& select = m_statements->select;
  select.bind(1, entry.row);
  if (select.step() == SQLITE_ROW) {
    TaskRecord record;
    sql::readRecord(select, 0, kTaskColumns, record, m_pool);
    entry.task->restore(record);
  }
  select.reset();
}

Result<int> ModelContainer::Storage::insertClipboardItems(const std::vector<ClipboardItem>& items) {
  auto insert = connection.prepare(sql::insertInto("ClipboardItem", kClipboardColumns) + " ON CONFLICT DO NOTHING");
  if (!connection.execute("BEGIN IMMEDIATE")) return connection.lastError();
  const int before = sqlite3_total_changes(connection.handle());
  bool isWritten = true;
  for (const auto& item : items) {
    sql::bindRecord(insert, kClipboardColumns, item);
    if (isWritten = insert.run(); !isWritten) break;
  }
  if (isWritten && connection.execute("COMMIT")) return sqlite3_total_changes(connection.handle()) - before;
  auto error = connection.lastError();
  if (sqlite3_get_autocommit(connection.handle()) == 0) static_cast<void>(connection.execute("ROLLBACK"));
  return error;
}

}  // namespace tarnwick
