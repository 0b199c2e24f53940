// SPDX-License-Identifier: MIT
#include "model/store/ModelContainer.h"

#include "model/PrivateFolder.h"
#include "model/store/Storage.h"
#include "model/store/StoreError.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kBackupsKept = 7;

/// Makes sure that a file's content is on the disk, and its name if it is a folder.
bool syncToDisk(const QString& path) {
  const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return false;
  const bool isSynced = ::fsync(descriptor) == 0;
  ::close(descriptor);
  return isSynced;
}

Result<void> copyDatabase(const SqliteConnection& from, const QString& path) {
  auto to = SqliteConnection::open(path, SqliteConnection::Creation::Allowed);
  if (!to) return to.error();
  auto* backup = sqlite3_backup_init(to.value().handle(), "main", from.handle(), "main");
  if (backup == nullptr) return to.value().lastError();
  sqlite3_backup_step(backup, -1);
  if (sqlite3_backup_finish(backup) != SQLITE_OK) return to.value().lastError();
  return {};
}

void removeOldBackups(const QDir& folder) {
  auto names = folder.entryList({u"Tarnwick-*.store"_s}, QDir::Files, QDir::Name);
  while (names.size() > kBackupsKept) QFile::remove(folder.filePath(names.takeFirst()));
}

}  // namespace

Result<std::unique_ptr<ModelContainer>> ModelContainer::open(const QString& storePath,
                                                             std::chrono::milliseconds lockWait) {
  auto storage = Storage::open(storePath, lockWait);
  if (!storage) return storage.error();
  return std::unique_ptr<ModelContainer>(new ModelContainer(storePath, storage.take()));
}

ModelContainer::ModelContainer(QString path, std::unique_ptr<Storage> storage)
    : m_path(std::move(path)), m_storage(std::move(storage)), m_mainContext(*this) {}

ModelContainer::~ModelContainer() = default;

Result<std::vector<ClipboardItem>> ModelContainer::clipboardItems() const {
  TextPool pool;
  std::vector<ClipboardItem> items;
  auto rows = m_storage->connection.prepare("SELECT " + sql::columnList(kClipboardColumns) + " FROM ClipboardItem");
  int code = rows.step();
  for (; code == SQLITE_ROW; code = rows.step()) {
    ClipboardItem item;
    sql::readRecord(rows, 0, kClipboardColumns, item, pool);
    items.push_back(std::move(item));
  }
  if (code != SQLITE_DONE) return m_storage->connection.lastError();
  return items;
}

Result<int> ModelContainer::insertClipboardItems(const std::vector<ClipboardItem>& items) {
  auto written = m_storage->insertClipboardItems(items);
  if (written && written.value() > 0) Q_EMIT didSave();
  return written;
}

Result<void> ModelContainer::backUp(QDate today) const {
  const QDir folder(QFileInfo(m_path).path() + u"/backups"_s);
  const auto target = folder.filePath(u"Tarnwick-%1.store"_s.arg(today.toString(Qt::ISODate)));
  if (QFileInfo::exists(target)) return {};
  makePrivateFolder(folder.path());

  // Under another name until it is whole: a half copy must not pass for a backup.
  const auto partial = target + u".partial"_s;
  const auto clear = [&] {
    for (const auto& suffix : {u""_s, u"-journal"_s, u"-wal"_s, u"-shm"_s}) QFile::remove(partial + suffix);
  };
  clear();
  const int descriptor =
      ::open(QFile::encodeName(partial).constData(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (descriptor < 0) return storeErrorOfSystem(errno, partial);
  ::close(descriptor);
  if (const auto copied = copyDatabase(m_storage->connection, partial); !copied) {
    clear();
    return copied.error();
  }
  if (!syncToDisk(partial) ||
      ::rename(QFile::encodeName(partial).constData(), QFile::encodeName(target).constData()) != 0) {
    const auto number = errno;
    clear();
    return storeErrorOfSystem(number, target);
  }
  syncToDisk(folder.path());
  removeOldBackups(folder);
  return {};
}

}  // namespace tarnwick
