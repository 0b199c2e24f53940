// SPDX-License-Identifier: MIT
#include "model/store/ModelContainer.h"

#include "support/Notes.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

#include <sqlite3.h>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

void execute(const QString& path, const char* sql) {
  sqlite3* connection = nullptr;
  ASSERT_EQ(sqlite3_open(QFile::encodeName(path).constData(), &connection), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(connection, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(connection);
  sqlite3_close(connection);
}

/// The folder's files with their sizes, the lock aside.
QStringList inventory(const StoreFolder& folder) {
  QStringList list;
  for (const auto& info : QDir(QFileInfo(folder.path()).path()).entryInfoList(QDir::Files)) {
    if (!info.fileName().endsWith(u".lock"_s)) list.append(info.fileName() + u':' + QString::number(info.size()));
  }
  return list;
}

void fill(const StoreFolder& folder, int notes) {
  const auto store = folder.open();
  for (int i = 0; i < notes; ++i) store->mainContext().insert(i % 3 == 0 ? fullNote() : note());
  ASSERT_TRUE(store->mainContext().save());
}

TEST(DamagedStore, isRefusedAndLeftAsItIs) {
  const struct {
    const char* name;
    QByteArray bytes;
    ErrorKind kind;
  } rows[] = {
      {"text", "Dear diary, this is no database, however long it goes on. " + QByteArray(200, '.'), ErrorKind::Damaged},
      {"one byte", "S", ErrorKind::Damaged},
      {"the magic alone", QByteArray("SQLite format 3\0", 16), ErrorKind::Damaged},
      {"magic and zeros", QByteArray("SQLite format 3\0", 16) + QByteArray(4080, '\0'), ErrorKind::Damaged},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const StoreFolder folder;
    QDir().mkpath(QFileInfo(folder.path()).path());
    folder.setBytes(row.bytes);
    EXPECT_EQ(folder.refusal(), row.kind);
    EXPECT_EQ(folder.bytes(), row.bytes);
    EXPECT_EQ(inventory(folder).size(), 1);
  }
}

TEST(DamagedStore, otherDatabasesAndSchemasAreRefusedAndLeftAsTheyAre) {
  const struct {
    const char* name;
    const char* sql;
    ErrorKind kind;
  } rows[] = {
      {"a newer schema", "PRAGMA user_version = 2", ErrorKind::NewerSchema},
      {"a much newer schema", "PRAGMA user_version = 2147483647; DROP TABLE Task", ErrorKind::NewerSchema},
      {"another program's file", "PRAGMA application_id = 77", ErrorKind::Damaged},
      {"a nameless file with tables", "PRAGMA application_id = 0; PRAGMA user_version = 0", ErrorKind::Damaged},
      {"a negative version", "PRAGMA user_version = -1", ErrorKind::Damaged},
      {"no notes", "DROP TABLE Task", ErrorKind::Damaged},
      {"a view of notes", "ALTER TABLE Task RENAME TO T; CREATE VIEW Task AS SELECT * FROM T", ErrorKind::Damaged},
      {"a missing column", "ALTER TABLE Task DROP COLUMN isPrivate", ErrorKind::Damaged},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const StoreFolder folder;
    fill(folder, 3);
    execute(folder.path(), row.sql);
    const auto bytes = folder.bytes();
    const auto files = inventory(folder);
    EXPECT_EQ(folder.refusal(), row.kind);
    EXPECT_EQ(folder.bytes(), bytes);
    EXPECT_EQ(inventory(folder), files);
  }
}

TEST(DamagedStore, aLogOfANewerBuildIsNotTakenOver) {
  const StoreFolder folder;
  fill(folder, 3);
  // As a newer build leaves it that was killed: the file of old, all news in the log.
  sqlite3* newer = nullptr;
  ASSERT_EQ(sqlite3_open(QFile::encodeName(folder.path()).constData(), &newer), SQLITE_OK);
  sqlite3_exec(newer, "PRAGMA user_version = 9", nullptr, nullptr, nullptr);
  const StoreFolder copy;
  QDir().mkpath(QFileInfo(copy.path()).path());
  for (const auto& suffix : {u""_s, u"-wal"_s}) QFile::copy(folder.path() + suffix, copy.path() + suffix);
  sqlite3_close(newer);

  const auto bytes = copy.bytes();
  const auto files = inventory(copy);
  ASSERT_EQ(files.size(), 2);
  EXPECT_EQ(copy.refusal(), ErrorKind::NewerSchema);
  EXPECT_EQ(copy.bytes(), bytes);
  EXPECT_EQ(inventory(copy), files);
}

TEST(DamagedStore, aLogWithoutItsFileIsNotThrownAway) {
  for (const bool isEmptyFileThere : {false, true}) {
    const StoreFolder folder;
    QDir().mkpath(QFileInfo(folder.path()).path());
    if (isEmptyFileThere) folder.setBytes({});
    QFile log(folder.path() + u"-wal"_s);
    ASSERT_TRUE(log.open(QIODevice::WriteOnly));
    log.write("the only copy of somebody's notes");
    log.close();
    EXPECT_EQ(folder.refusal(), ErrorKind::Damaged);
    EXPECT_EQ(log.size(), 33);
  }
}

TEST(DamagedStore, anEmptyFileBecomesAStore) {
  const StoreFolder folder;
  QDir().mkpath(QFileInfo(folder.path()).path());
  folder.setBytes({});
  fill(folder, 2);
  EXPECT_EQ(folder.open()->mainContext().fetchTasks().size(), 2U);
}

TEST(DamagedStore, aFolderInItsPlaceIsRefused) {
  const StoreFolder folder;
  QDir().mkpath(folder.path());
  EXPECT_EQ(folder.refusal(), ErrorKind::Damaged);
}

TEST(DamagedStore, truncationAnywhereNeitherCrashesNorTouchesIt) {
  const StoreFolder folder;
  fill(folder, 60);
  const auto whole = folder.bytes();
  ASSERT_GT(whole.size(), 20000);
  for (qsizetype size = 1; size < whole.size(); size += 997) {
    SCOPED_TRACE(size);
    folder.setBytes(whole.first(size));
    ASSERT_EQ(folder.refusal(), ErrorKind::Damaged);
    ASSERT_EQ(folder.bytes(), whole.first(size));
    ASSERT_EQ(inventory(folder).size(), 1);
  }
}

TEST(DamagedStore, flippedBitsNeverCrashAndNeverChangeARefusedFile) {
  const StoreFolder folder;
  fill(folder, 60);
  const auto whole = folder.bytes();
  QRandomGenerator random(20260303);
  int refused = 0;
  for (int round = 0; round < 160; ++round) {
    SCOPED_TRACE(round);
    auto bytes = whole;
    // The first pages hold the header and the definitions, where a flip does most.
    const auto reach = round % 2 == 0 ? qsizetype{4096} : whole.size();
    for (int flip = 0; flip <= round % 4; ++flip) {
      const auto at = random.bounded(reach);
      bytes[at] = static_cast<char>(bytes[at] ^ (1 << random.bounded(8)));
    }
    folder.setBytes(bytes);
    auto opened = ModelContainer::open(folder.path(), std::chrono::milliseconds::zero());
    if (!opened) {
      ++refused;
      ASSERT_FALSE(opened.error().text.isEmpty());
      ASSERT_EQ(folder.bytes(), bytes);
      ASSERT_EQ(inventory(folder).size(), 1) << inventory(folder).join(u' ').toStdString();
      continue;
    }
    // What opens is used: neither reading nor writing may fall over.
    auto& context = opened.value()->mainContext();
    for (const auto& task : context.fetchTasks()) task->set(&TaskRecord::text, task->text() + u'!');
    context.insert(note());
    static_cast<void>(context.save());
    static_cast<void>(opened.value()->clipboardItems());
    context.rollback();
    opened.value().reset();
    for (const auto& suffix : {u"-wal"_s, u"-shm"_s, u"-journal"_s}) QFile::remove(folder.path() + suffix);
  }
  EXPECT_GT(refused, 20);
  EXPECT_LT(refused, 150);
}

TEST(DamagedStore, aSecondOpenerIsToldSo) {
  const StoreFolder folder;
  auto first = folder.open();
  EXPECT_EQ(folder.refusal(), ErrorKind::InUse);
  first.reset();
  EXPECT_EQ(folder.refusal(), std::nullopt);
}

}  // namespace
}  // namespace tarnwick::test
