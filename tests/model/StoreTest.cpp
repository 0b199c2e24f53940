// SPDX-License-Identifier: MIT
#include "model/store/ModelContainer.h"
#include "model/store/ModelContext.h"

#include "support/Notes.h"

#include <QFileInfo>
#include <QSignalSpy>

#include <sqlite3.h>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

/// Another program that looks at the file or changes it.
void foreign(const QString& path, const char* sql) {
  sqlite3* connection = nullptr;
  ASSERT_EQ(sqlite3_open(QFile::encodeName(path).constData(), &connection), SQLITE_OK);
  char* error = nullptr;
  EXPECT_EQ(sqlite3_exec(connection, sql, nullptr, nullptr, &error), SQLITE_OK) << (error ? error : "");
  sqlite3_close(connection);
}

QString foreignText(const QString& path, const char* sql) {
  sqlite3* connection = nullptr;
  sqlite3_stmt* statement = nullptr;
  QString text = u"(failed)"_s;
  if (sqlite3_open(QFile::encodeName(path).constData(), &connection) == SQLITE_OK &&
      sqlite3_prepare_v2(connection, sql, -1, &statement, nullptr) == SQLITE_OK &&
      sqlite3_step(statement) == SQLITE_ROW) {
    text = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
  }
  sqlite3_finalize(statement);
  sqlite3_close(connection);
  return text;
}

TEST(Store, givesBackEveryFieldAfterReopening) {
  const StoreFolder folder;
  const auto full = fullNote();
  auto bare = note(QString());
  bare.createdAt = utc("0001-01-01T00:00:00");
  {
    auto store = folder.open();
    store->mainContext().insert(full);
    store->mainContext().insert(bare);
    ASSERT_TRUE(store->mainContext().save());
  }
  const auto store = folder.open();
  ASSERT_EQ(store->mainContext().fetchTasks().size(), 2U);
  EXPECT_EQ(store->mainContext().findTask(full.id)->record(), full);
  EXPECT_EQ(store->mainContext().findTask(bare.id)->record(), bare);
}

TEST(Store, keepsTextsThatNoKeyboardTypes) {
  const StoreFolder folder;
  const struct {
    const char* name;
    QString text;
    QString readBack;
  } rows[] = {
      {"NULs", u"a"_s + QChar(0) + u"b"_s + QChar(0), u"a"_s + QChar(0) + u"b"_s + QChar(0)},
      {"a lone surrogate", u"x"_s + QChar(0xD83D) + u"y"_s, u"x?y"_s},
      {"a million characters", QString(1'000'000, u'ß'), QString(1'000'000, u'ß')},
      {"byte order marks", u"\uFEFF\uFEFFx"_s, u"\uFEFF\uFEFFx"_s},
      {"quotes", u"'); DROP TABLE Task; --\""_s, u"'); DROP TABLE Task; --\""_s},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const auto record = note(row.text);
    {
      const auto store = folder.open();
      store->mainContext().insert(record);
      ASSERT_TRUE(store->mainContext().save());
    }
    EXPECT_EQ(folder.open()->mainContext().findTask(record.id)->text(), row.readBack);
  }
}

TEST(Store, isReadableByItsOwnerOnly) {
  const StoreFolder folder;
  const auto store = folder.open();
  constexpr auto kOthers =
      QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
  EXPECT_FALSE(QFileInfo(QFileInfo(folder.path()).path()).permissions() & kOthers);
  for (const auto& name : {u"Tarnwick.store"_s, u"Tarnwick.store-wal"_s, u"Tarnwick.store.lock"_s}) {
    EXPECT_FALSE(QFile::permissions(folder.filePath(name)) & kOthers) << name.toStdString();
  }
}

TEST(Store, takesOtherPeoplesPermissionsFromAnOlderFile) {
  const StoreFolder folder;
  folder.open().reset();
  QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
  const auto store = folder.open();
  EXPECT_FALSE(QFile::permissions(folder.path()) & (QFile::ReadGroup | QFile::ReadOther));
}

TEST(Store, contextsShareRecordsAndChanges) {
  const StoreFolder folder;
  const auto store = folder.open();
  ModelContext background(*store);
  const auto task = store->mainContext().insert(note());
  EXPECT_EQ(background.findTask(task->id()), task);
  const auto id = task->id();
  ASSERT_TRUE(background.save());
  task->set(&TaskRecord::text, u"changed"_s);
  background.rollback();
  EXPECT_EQ(store->mainContext().findTask(id)->text(), u"Buy milk"_s);
}

TEST(Store, tellsOnceAfterEachSaveThatWroteSomething) {
  const StoreFolder folder;
  const auto store = folder.open();
  QSignalSpy saved(store.get(), &ModelContainer::didSave);
  ASSERT_TRUE(store->mainContext().save());
  EXPECT_EQ(saved.count(), 0);
  const auto task = store->mainContext().insert(note());
  store->mainContext().insert(note());
  ASSERT_TRUE(store->mainContext().save());
  EXPECT_EQ(saved.count(), 1);
  task->set(&TaskRecord::text, task->text());
  ASSERT_TRUE(store->mainContext().save());
  EXPECT_EQ(saved.count(), 1) << "setting the same value is no change";
}

TEST(Store, anObserverMaySaveAgain) {
  const StoreFolder folder;
  const auto store = folder.open();
  const auto task = store->mainContext().insert(note());
  QObject::connect(store.get(), &ModelContainer::didSave, store.get(), [&] {
    task->set(&TaskRecord::isTornOff, true);
    EXPECT_TRUE(store->mainContext().save());
  });
  ASSERT_TRUE(store->mainContext().save());
  EXPECT_EQ(foreignText(folder.path(), "SELECT isTornOff FROM Task"), u"1"_s);
}

TEST(Store, rollbackForgetsInsertsRemovalsAndChanges) {
  const StoreFolder folder;
  const auto store = folder.open();
  auto& context = store->mainContext();
  const auto changed = context.insert(fullNote());
  const auto removed = context.insert(note(u"stays"_s));
  ASSERT_TRUE(context.save());
  const auto before = changed->record();

  changed->set(&TaskRecord::dueDate, std::nullopt);
  removed->set(&TaskRecord::text, u"half typed"_s);
  context.remove(removed);
  const auto inserted = context.insert(note());
  EXPECT_EQ(context.findTask(removed->id()), nullptr);
  context.rollback();

  EXPECT_EQ(changed->record(), before);
  EXPECT_EQ(context.findTask(removed->id()), removed);
  EXPECT_EQ(removed->text(), u"stays"_s);
  EXPECT_EQ(context.findTask(inserted->id()), nullptr);
  ASSERT_TRUE(context.save());
  EXPECT_EQ(foreignText(folder.path(), "SELECT count(*) FROM Task"), u"2"_s);
  // The records live on: what changes from now on is saved again.
  removed->set(&TaskRecord::text, u"typed"_s);
  ASSERT_TRUE(context.save());
  EXPECT_EQ(foreignText(folder.path(), "SELECT count(*) FROM Task WHERE text = 'typed'"), u"1"_s);
}

TEST(Store, aNoteRemovedAndInsertedAgainIsSavedOnce) {
  const StoreFolder folder;
  const auto store = folder.open();
  auto& context = store->mainContext();
  const auto record = context.insert(note())->record();
  ASSERT_TRUE(context.save());
  context.remove(context.findTask(record.id));
  auto revived = record;
  revived.text = u"again"_s;
  context.insert(revived);
  ASSERT_TRUE(context.save());
  EXPECT_EQ(foreignText(folder.path(), "SELECT count(*) || text FROM Task"), u"1again"_s);
}

TEST(Store, aNoteChangedAndThenRemovedIsGone) {
  const StoreFolder folder;
  const auto store = folder.open();
  auto& context = store->mainContext();
  const auto stored = context.insert(note());
  ASSERT_TRUE(context.save());
  stored->set(&TaskRecord::text, u"last words"_s);
  context.remove(stored);
  stored->set(&TaskRecord::text, u"from beyond"_s);
  const auto fresh = context.insert(note());
  fresh->set(&TaskRecord::text, u"never seen"_s);
  context.remove(fresh);
  ASSERT_TRUE(context.save());
  EXPECT_EQ(foreignText(folder.path(), "SELECT count(*) FROM Task"), u"0"_s);
  EXPECT_TRUE(context.fetchTasks().empty());
}

TEST(Store, aFailedSaveKeepsRecordsAndChangesForTheNextOne) {
  const StoreFolder folder;
  const auto store = folder.open();
  auto& context = store->mainContext();
  const auto task = context.insert(note());
  ASSERT_TRUE(context.save());
  foreign(folder.path(), "CREATE TRIGGER refuse BEFORE UPDATE ON Task BEGIN SELECT RAISE(ABORT, 'no'); END");
  QSignalSpy saved(store.get(), &ModelContainer::didSave);
  task->set(&TaskRecord::text, u"kept"_s);
  const auto other = context.insert(note(u"other"_s));
  const auto failed = context.save();
  ASSERT_FALSE(failed);
  EXPECT_EQ(task->text(), u"kept"_s);
  EXPECT_EQ(saved.count(), 0);
  EXPECT_EQ(foreignText(folder.path(), "SELECT count(*) FROM Task"), u"1"_s) << "all or nothing";

  foreign(folder.path(), "DROP TRIGGER refuse");
  ASSERT_TRUE(context.save());
  EXPECT_EQ(foreignText(folder.path(), "SELECT group_concat(text) FROM (SELECT text FROM Task ORDER BY text)"),
            u"kept,other"_s);
  EXPECT_EQ(saved.count(), 1);
}

TEST(Store, waitsForNobodyWhoHoldsTheFileLong) {
  const StoreFolder folder;
  const auto store = folder.open();
  sqlite3* connection = nullptr;
  ASSERT_EQ(sqlite3_open(QFile::encodeName(folder.path()).constData(), &connection), SQLITE_OK);
  sqlite3_exec(connection, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
  store->mainContext().insert(note());
  const auto saved = store->mainContext().save();
  ASSERT_FALSE(saved);
  EXPECT_EQ(saved.error().kind, ErrorKind::InUse);
  sqlite3_close(connection);
  EXPECT_TRUE(store->mainContext().save());
}

TEST(Store, anUntouchedNoteIsNotWrittenAgain) {
  const StoreFolder folder;
  const auto store = folder.open();
  auto& context = store->mainContext();
  for (int i = 0; i < 50; ++i) context.insert(note());
  const auto task = context.insert(note());
  ASSERT_TRUE(context.save());
  foreign(
      folder.path(),
      "CREATE TABLE writes (n); CREATE TRIGGER count AFTER UPDATE ON Task BEGIN INSERT INTO writes VALUES (1); END");
  task->set(&TaskRecord::text, u"one"_s);
  task->set(&TaskRecord::text, u"two"_s);
  ASSERT_TRUE(context.save());
  EXPECT_EQ(foreignText(folder.path(), "SELECT count(*) FROM writes"), u"1"_s);
}

TEST(Store, aNoteOutlivesItsStore) {
  const StoreFolder folder;
  auto store = folder.open();
  const auto task = store->mainContext().insert(note());
  store.reset();
  task->set(&TaskRecord::text, u"no crash"_s);
  EXPECT_EQ(task->text(), u"no crash"_s);
}

TEST(Store, carriesWhatAnotherBuildAdded) {
  const StoreFolder folder;
  const auto record = note();
  {
    const auto store = folder.open();
    store->mainContext().insert(record);
    ASSERT_TRUE(store->mainContext().save());
  }
  foreign(folder.path(),
          "ALTER TABLE Task ADD COLUMN mood TEXT; UPDATE Task SET mood = 'sunny', recurrence = 'fortnightly';"
          "CREATE TABLE Extra (a); INSERT INTO Extra VALUES ('kept');"
          "INSERT INTO ClipboardItem (id, content, copiedAt, contentTypeRaw) VALUES"
          " ('6F9619FF-8B86-D011-B42D-00CF4FC964FF', 'copied', 12345, 'odd')");
  {
    const auto store = folder.open();
    const auto task = store->mainContext().findTask(record.id);
    task->set(&TaskRecord::text, u"edited"_s);
    ASSERT_TRUE(store->mainContext().save());
    EXPECT_EQ(task->recurrence(), Recurrence::none);
    const auto items = store->clipboardItems();
    ASSERT_TRUE(items);
    ASSERT_EQ(items.value().size(), 1U);
    EXPECT_EQ(items.value()[0].contentTypeRaw, u"odd"_s);
    EXPECT_EQ(items.value()[0].copiedAt, QDateTime::fromMSecsSinceEpoch(12345));
    EXPECT_EQ(items.value()[0].isPinned, std::nullopt);
  }
  EXPECT_EQ(foreignText(folder.path(),
                        "SELECT text || mood || recurrence || (SELECT a FROM Extra) || "
                        "(SELECT content FROM ClipboardItem) FROM Task"),
            u"editedsunnyfortnightlykeptcopied"_s);
}

TEST(Store, readsRowsOfAnotherHandAsFarAsTheyGo) {
  const StoreFolder folder;
  folder.open().reset();
  foreign(folder.path(),
          "INSERT INTO Task (id, text, colorHex, recurrence, isCompleted, createdAt, dueDate, isPrivate, focusSeconds)"
          " VALUES ('6f9619ff-8b86-d011-b42d-00cf4fc964ff', x'ff41', 7, 'none', 2, 'yesterday', 'soon', 'yes', 1.5),"
          " ('6F9619FF-8B86-D011-B42D-00CF4FC964FF', 'twin', '', 'none', 0, 0, NULL, NULL, NULL),"
          " ('no id', 'nameless', '', 'none', 0, 0, NULL, NULL, NULL)");
  {
    const auto store = folder.open();
    const auto tasks = store->mainContext().fetchTasks();
    ASSERT_EQ(tasks.size(), 1U);
    EXPECT_EQ(tasks[0]->text(), u"\uFFFDA"_s);
    EXPECT_EQ(tasks[0]->colorHex(), u"7"_s);
    EXPECT_TRUE(tasks[0]->isCompleted());
    EXPECT_EQ(tasks[0]->dueDate(), std::nullopt);
    EXPECT_EQ(tasks[0]->record().isPrivate, std::nullopt);
    EXPECT_EQ(tasks[0]->record().createdAt, QDateTime::fromMSecsSinceEpoch(0));
    // A row whose identifier is in lower case is still one row.
    tasks[0]->set(&TaskRecord::isCompleted, false);
    tasks[0]->set(&TaskRecord::isTornOff, true);
    static_cast<void>(store->mainContext().save());
  }
  EXPECT_EQ(foreignText(folder.path(), "SELECT count(*) FROM Task"), u"3"_s);
}

TEST(Store, takesClipboardRowsOfAnImportOnce) {
  const StoreFolder folder;
  const auto store = folder.open();
  const ClipboardItem item{QUuid::createUuid(), u"text"_s, std::nullopt, utc("2026-01-01T00:00:00"), u"app"_s, true};
  QSignalSpy saved(store.get(), &ModelContainer::didSave);
  EXPECT_EQ(store->insertClipboardItems({item, item}).value(), 1);
  EXPECT_EQ(store->insertClipboardItems({item}).value(), 0);
  EXPECT_EQ(saved.count(), 1);
  EXPECT_EQ(store->clipboardItems().value(), std::vector{item});
}

TEST(StoreBackup, isAWholeStoreOfTheDayAndSevenStay) {
  const StoreFolder folder;
  const auto store = folder.open();
  const auto task = store->mainContext().insert(note(u"first"_s));
  ASSERT_TRUE(store->mainContext().save());
  ASSERT_TRUE(store->backUp(QDate(2026, 2, 28)));
  task->set(&TaskRecord::text, u"second"_s);
  ASSERT_TRUE(store->mainContext().save());
  ASSERT_TRUE(store->backUp(QDate(2026, 2, 28)));
  const auto first = folder.filePath(u"backups/Tarnwick-2026-02-28.store"_s);
  {
    const auto copy = ModelContainer::open(first);
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy.value()->mainContext().findTask(task->id())->text(), u"first"_s) << "the day's first copy stays";
  }
  for (int day = 1; day <= 9; ++day) ASSERT_TRUE(store->backUp(QDate(2026, 3, day)));
  const QDir backups(folder.filePath(u"backups"_s));
  const auto names = backups.entryList({u"*.store"_s}, QDir::Files, QDir::Name);
  EXPECT_EQ(names.size(), 7);
  EXPECT_EQ(names.first(), u"Tarnwick-2026-03-03.store"_s);
  EXPECT_FALSE(QFile::permissions(backups.filePath(names.last())) & (QFile::ReadGroup | QFile::ReadOther));
}

TEST(StoreBackup, replacesWhatACutOffOneLeft) {
  const StoreFolder folder;
  const auto store = folder.open();
  ASSERT_TRUE(store->backUp(QDate(2026, 3, 1)));
  QFile half(folder.filePath(u"backups/Tarnwick-2026-03-02.store.partial"_s));
  ASSERT_TRUE(half.open(QIODevice::WriteOnly));
  half.write("rubbish that is no database at all");
  half.close();
  ASSERT_TRUE(store->backUp(QDate(2026, 3, 2)));
  EXPECT_FALSE(half.exists());
  EXPECT_TRUE(ModelContainer::open(folder.filePath(u"backups/Tarnwick-2026-03-02.store"_s)).isOk());
}

}  // namespace
}  // namespace tarnwick::test
