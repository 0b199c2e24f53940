// SPDX-License-Identifier: MIT
// What the store costs: saving one note beside a bare upsert of SQLite, opening 100,000 notes up to the board's list
// beside reading their rows into records, searching them beside one pass over their texts, and whether a save grows
// with the notes that did not change.
#include "board/BoardQueries.h"
#include "figures.h"
#include "model/store/ModelContainer.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include <sqlite3.h>
#include <time.h>

namespace tarnwick {
namespace {

using namespace Qt::StringLiterals;
using figures::median;
using figures::report;

constexpr int kFewNotes = 1'000;
constexpr int kManyNotes = 100'000;
constexpr int kSaves = 400;
constexpr int kOpenings = 5;

double seconds() {
  timespec time{};
  ::clock_gettime(CLOCK_MONOTONIC, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

template <typename Work>
double timed(Work work) {
  const auto begin = seconds();
  work();
  return seconds() - begin;
}

QString words(QRandomGenerator& random) {
  static const std::array kWords{"buy",     "milk",   "call",  "the", "dentist", "about", "Tuesday",
                                 "Rückruf", "report", "draft", "€40", "and",     "ask",   "for"};
  QStringList list;
  for (int i = random.bounded(10, 100); i > 0; --i)
    list.append(
        QString::fromUtf8(kWords.at(static_cast<std::size_t>(random.bounded(static_cast<int>(kWords.size()))))));
  return list.join(u' ');
}

TaskRecord sample(QRandomGenerator& random, int number) {
  TaskRecord record;
  record.id = QUuid::createUuidV5(QUuid(), QString::number(number));
  record.text = words(random);
  record.colorHex = u"#FFE169"_s;
  record.createdAt = QDateTime::fromMSecsSinceEpoch(1'700'000'000'000 + number * 1000LL, Qt::UTC);
  if (number % 3 == 0) record.dueDate = record.createdAt.addDays(number % 40);
  record.tagRaw = u"none"_s;
  record.paperThemeRaw = u"plain"_s;
  record.stampRaw = u"none"_s;
  record.isBurned = false;
  record.isTornOff = number % 10 == 0;
  record.boardRaw = number % 2 == 0 ? u"General"_s : u"Work"_s;
  record.isDaily3 = false;
  record.isNorthStar = false;
  record.focusSeconds = 0;
  return record;
}

std::unique_ptr<ModelContainer> opened(const QString& path) {
  auto result = ModelContainer::open(path);
  return result ? result.take() : nullptr;
}

bool fill(const QString& path, int notes) {
  const auto store = opened(path);
  if (!store) return false;
  QRandomGenerator random(7);
  for (int i = 0; i < notes; ++i) store->mainContext().insert(sample(random, i));
  return store->mainContext().save().isOk();
}

/// SQLite with nothing around it.
class BareDatabase {
 public:
  explicit BareDatabase(const QString& path) {
    sqlite3_open(QFile::encodeName(path).constData(), &m_connection);
    sqlite3_exec(m_connection, "PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL", nullptr, nullptr, nullptr);
  }
  ~BareDatabase() {
    sqlite3_finalize(m_upsert);
    sqlite3_close(m_connection);
  }
  BareDatabase(const BareDatabase&) = delete;
  BareDatabase& operator=(const BareDatabase&) = delete;

  void prepareUpsert() {
    QByteArray names;
    QByteArray marks;
    QByteArray updates;
    for (const auto* name : kNames) {
      names += names.isEmpty() ? "" : ", ";
      names += name;
      marks += marks.isEmpty() ? "?" : ", ?";
      if (updates.isEmpty() && qstrcmp(name, "id") == 0) continue;
      updates += (updates.isEmpty() ? "" : ", ") + QByteArray(name) + " = excluded." + name;
    }
    const auto sql =
        "INSERT INTO Task (" + names + ") VALUES (" + marks + ") ON CONFLICT (id) DO UPDATE SET " + updates;
    sqlite3_prepare_v2(m_connection, sql.constData(), -1, &m_upsert, nullptr);
  }

  bool upsert(const TaskRecord& record) {
    int index = 0;
    const auto text = [&](const QByteArray& utf8) {
      sqlite3_bind_text(m_upsert, ++index, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
    };
    const auto number = [&](qint64 value) { sqlite3_bind_int64(m_upsert, ++index, value); };
    const auto absent = [&] { sqlite3_bind_null(m_upsert, ++index); };
    text(record.id.toByteArray(QUuid::WithoutBraces).toUpper());
    text(record.text.toUtf8());
    text("#FFE169");
    number(record.createdAt.toMSecsSinceEpoch());
    text("none");
    number(0);
    number(0);
    absent();
    number(record.createdAt.toMSecsSinceEpoch());
    absent();
    text("none");
    absent();
    absent();
    absent();
    text("plain");
    text("none");
    number(0);
    text("General");
    number(0);
    number(0);
    absent();
    number(0);
    absent();
    const bool isWritten = sqlite3_step(m_upsert) == SQLITE_DONE;
    sqlite3_reset(m_upsert);
    return isWritten;
  }

  std::vector<TaskRecord> rows() {
    std::vector<TaskRecord> records;
    sqlite3_stmt* select = nullptr;
    sqlite3_prepare_v2(m_connection, "SELECT * FROM Task", -1, &select, nullptr);
    const auto text = [&](int column) {
      return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(select, column)),
                               sqlite3_column_bytes(select, column));
    };
    const auto date = [&](int column) {
      return QDateTime::fromMSecsSinceEpoch(sqlite3_column_int64(select, column), Qt::UTC);
    };
    const auto isThere = [&](int column) { return sqlite3_column_type(select, column) != SQLITE_NULL; };
    const auto flag = [&](int column, std::optional<bool>& value) {
      if (isThere(column)) value = sqlite3_column_int(select, column) != 0;
    };
    const auto words = [&](int column, std::optional<QString>& value) {
      if (isThere(column)) value = text(column);
    };
    while (sqlite3_step(select) == SQLITE_ROW) {
      auto& record = records.emplace_back();
      record.id = QUuid::fromString(text(0));
      record.text = text(1);
      record.colorHex = text(2);
      if (isThere(3)) record.dueDate = date(3);
      record.recurrenceRaw = text(4);
      record.isCompleted = sqlite3_column_int(select, 5) != 0;
      flag(6, record.isBurned);
      if (isThere(7)) record.burnedAt = date(7);
      record.createdAt = date(8);
      if (isThere(9)) record.completedAt = date(9);
      words(10, record.tagRaw);
      words(11, record.pinnedBundleID);
      words(12, record.gitRepoPath);
      words(13, record.gitBranch);
      words(14, record.paperThemeRaw);
      words(15, record.stampRaw);
      flag(16, record.isTornOff);
      words(17, record.boardRaw);
      flag(18, record.isDaily3);
      flag(19, record.isNorthStar);
      words(20, record.attachmentPathsRaw);
      if (isThere(21)) record.focusSeconds = sqlite3_column_int64(select, 21);
      flag(22, record.isPrivate);
    }
    sqlite3_finalize(select);
    return records;
  }

 private:
  static constexpr std::array kNames{
      "id",          "text",        "colorHex",           "dueDate",      "recurrence", "isCompleted",
      "isBurned",    "burnedAt",    "createdAt",          "completedAt",  "tag",        "pinnedBundleID",
      "gitRepoPath", "gitBranch",   "paperThemeRaw",      "stampRaw",     "isTornOff",  "boardRaw",
      "isDaily3",    "isNorthStar", "attachmentPathsRaw", "focusSeconds", "isPrivate"};
  sqlite3* m_connection = nullptr;
  sqlite3_stmt* m_upsert = nullptr;
};

struct SaveCosts {
  double few = 0;
  double many = 0;
  double bare = 0;
};

/// The three take turns, so that what the machine does meanwhile hits them alike.
SaveCosts measureSaves(const QString& few, const QString& many, const QString& bareFile) {
  const auto fewStore = opened(few);
  const auto manyStore = opened(many);
  BareDatabase bare(bareFile);
  bare.prepareUpsert();
  if (!fewStore || !manyStore) return {};
  QRandomGenerator random(11);
  std::array<std::vector<double>, 3> costs;
  const auto saveOne = [&](ModelContainer& store, int notes) {
    const auto task =
        store.mainContext().findTask(QUuid::createUuidV5(QUuid(), QString::number(random.bounded(notes))));
    const auto text = words(random);
    return timed([&] {
      task->set(&TaskRecord::text, text);
      static_cast<void>(store.mainContext().save());
    });
  };
  for (int i = 0; i < kSaves; ++i) {
    costs[0].push_back(saveOne(*fewStore, kFewNotes));
    costs[1].push_back(saveOne(*manyStore, kManyNotes));
    const auto record = sample(random, random.bounded(kFewNotes));
    bool isWritten = false;
    costs[2].push_back(timed([&] { isWritten = bare.upsert(record); }));
    if (!isWritten) return {};
  }
  return {median(costs[0]), median(costs[1]), median(costs[2])};
}

struct OpenCosts {
  double store = 0;
  double rows = 0;
};

Calendar berlin() {
  return {QTimeZone("Europe/Berlin"), QLocale(QLocale::German, QLocale::Germany)};
}

OpenCosts measureOpening(const QString& path) {
  const auto now = QDateTime::fromMSecsSinceEpoch(1'800'000'000'000, Qt::UTC);
  std::vector<double> stores;
  std::vector<double> rows;
  for (int i = 0; i < kOpenings; ++i) {
    std::size_t read = 0;
    rows.push_back(timed([&] { read = BareDatabase(path).rows().size(); }));
    std::unique_ptr<ModelContainer> store;
    TaskList tasks;
    TaskList shown;
    stores.push_back(timed([&] {
      store = opened(path);
      if (!store) return;
      tasks = newestFirst(store->mainContext().fetchTasks());
      shown = activeTasks(tasks, {}, now, berlin());
    }));
    if (read != tasks.size() || shown.empty()) return {};
  }
  return {median(stores), median(rows)};
}

struct SearchCosts {
  double board = 0;
  double pass = 0;
};

SearchCosts measureSearch(const QString& path) {
  const auto store = opened(path);
  if (!store) return {};
  const auto tasks = newestFirst(store->mainContext().fetchTasks());
  const auto calendar = berlin();
  std::vector<double> board;
  std::vector<double> pass;
  for (int i = 0; i < kOpenings; ++i) {
    BoardFilter filter;
    filter.search = u"DENTIST about tuesday"_s;
    std::size_t found = 0;
    std::size_t contained = 0;
    board.push_back(timed([&] { found = matchingTasks(tasks, filter, calendar).size(); }));
    pass.push_back(timed([&] {
      for (const auto& task : tasks) contained += task->text().contains(filter.search, Qt::CaseInsensitive) ? 1 : 0;
    }));
    if (found != contained || found == 0) return {};
  }
  return {median(board), median(pass)};
}

int run() {
  const QTemporaryDir folder;
  const auto few = folder.filePath(u"few/Tarnwick.store"_s);
  const auto many = folder.filePath(u"many/Tarnwick.store"_s);
  const auto bare = folder.filePath(u"bare.store"_s);
  if (!fill(few, kFewNotes) || !fill(many, kManyNotes) || !QFile::copy(few, bare)) {
    std::fprintf(stderr, "the stores could not be made in %s\n", qPrintable(folder.path()));
    return 1;
  }
  const auto opening = measureOpening(many);
  const auto search = measureSearch(many);
  const auto saves = measureSaves(few, many, bare);
  report("store.save", saves.few * 1e6, "us", saves.bare * 1e6, "bare-sqlite-upsert", 1.5);
  report("store.save-of-100000", saves.many * 1e6, "us", saves.few * 1e6, "save-of-1000", 1.5);
  report("store.open", opening.store * 1e3, "ms", opening.rows * 1e3, "reading-the-rows", 3);
  report("store.search", search.board * 1e3, "ms", search.pass * 1e3, "one-pass-of-contains", 3);
  return 0;
}

}  // namespace
}  // namespace tarnwick

int main() {
  return tarnwick::run();
}
