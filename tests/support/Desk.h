// SPDX-License-Identifier: MIT
// A desk for tests: a real store and real settings in a temporary folder, every service of the desktop a fake.
#pragma once

#include "board/BoardServices.h"
#include "board/CrushUndoStore.h"
#include "board/NotificationEngine.h"
#include "context/ContextEngine.h"
#include "effects/SoundEngine.h"
#include "fakes/FakeBoard.h"
#include "fakes/FakeDesktop.h"
#include "fakes/FakeServices.h"
#include "fakes/ManualTime.h"
#include "model/NotificationCenter.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "model/store/ModelContainer.h"
#include "platform/Unavailable.h"
#include "settings/UpdateChecker.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <memory>
#include <ostream>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* stream) { *stream << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QDateTime& moment, std::ostream* stream) {
  *stream << moment.toString(Qt::ISODateWithMs).toStdString();
}
QT_END_NAMESPACE


namespace tarnwick::test {

class Desk {
 public:
  Desk() { registerDefaultSettings(defaults); }
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  [[nodiscard]] ModelContext& notes() const { return container->mainContext(); }
  [[nodiscard]] QString storePath() const { return folder.filePath(QStringLiteral("Tarnwick.store")); }
  [[nodiscard]] Calendar calendar() const { return Calendar::of(time); }

  /// Local wall time of the desk's zone, as UTC.
  [[nodiscard]] QDateTime at(const QString& isoLocal) const {
    const auto wall = QDateTime::fromString(isoLocal, Qt::ISODateWithMs);
    return QDateTime(wall.date(), wall.time(), time.timeZone()).toUTC();
  }
  [[nodiscard]] QString local(const std::optional<QDateTime>& moment) const {
    if (!moment) return QStringLiteral("none");
    return moment->toTimeZone(time.timeZone()).toString(QStringLiteral("yyyy-MM-dd HH:mm"));
  }

  [[nodiscard]] static TaskRecord record(const QString& text) {
    TaskRecord record;
    record.id = QUuid::createUuid();
    record.text = text;
    record.colorHex = QStringLiteral("#FFE169");
    return record;
  }
  /// A saved note, made now.
  TaskPtr add(const QString& text, const std::function<void(TaskRecord&)>& change = {}) {
    auto made = record(text);
    made.createdAt = time.now();
    if (change) change(made);
    const auto task = notes().insert(std::move(made));
    EXPECT_TRUE(notes().save().isOk());
    return task;
  }
  /// The note as the store's file has it, whatever is in memory.
  [[nodiscard]] std::optional<TaskRecord> stored(const QUuid& id) {
    const QString copy = folder.filePath(QUuid::createUuid().toString(QUuid::WithoutBraces));
    execute(QByteArrayLiteral("VACUUM INTO '") + copy.toUtf8() + '\'');
    auto opened = ModelContainer::open(copy);
    if (!opened) return std::nullopt;
    const auto task = opened.value()->mainContext().findTask(id);
    return task ? std::optional(task->record()) : std::nullopt;
  }

  /// From now on the store refuses every write, as a full disk does.
  void refuseWrites() {
    for (const char* what : {"INSERT", "UPDATE", "DELETE"}) {
      execute(QByteArrayLiteral("CREATE TRIGGER refuse") + what + " BEFORE " + what +
              " ON Task BEGIN SELECT RAISE(ABORT, 'refused'); END");
    }
  }
  void allowWrites() {
    for (const char* what : {"INSERT", "UPDATE", "DELETE"}) execute(QByteArrayLiteral("DROP TRIGGER refuse") + what);
  }

  ManualTime time;
  FakeScreens screens;
  FakeWorkspace workspace;
  FakeHaptics haptics;
  FakeAudio audio;
  FakeAccessibility accessibility;
  FakeUserNotifications notifications;
  FakeCrushFlight flight;
  FakeTornNotes torn;
  FakeGitRunner git;
  bool hasBoardPanel = true;

  QTemporaryDir folder{folderTemplate()};
  NotificationCenter center;
  UserDefaults defaults{folder.filePath(QStringLiteral("settings.json")), time};
  std::unique_ptr<ModelContainer> container = open();
  SoundEngine sound{audio, defaults};
  NotificationEngine reminders{notifications, time};
  CrushUndoStore undo{[this] { return tornNotes(); }};
  ContextEngine context{{workspace, accessibility, time, git}, defaults, center};
  UnavailableDownloads downloads;
  UpdateChecker updates{defaults, time, workspace, downloads, QUrl()};
  BoardServices services{*container, defaults, center, time,      time, screens, workspace, haptics,
                         sound,      flight,   reminders, undo, context, updates, [this] { return tornNotes(); }};

 private:
  [[nodiscard]] TornNotes* tornNotes() { return hasBoardPanel ? &torn : nullptr; }
  /// In memory where the system has such a place: each save waits for the disk.
  [[nodiscard]] static QString folderTemplate() {
    const QString memory = QStringLiteral("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + QStringLiteral("/tarnwick-XXXXXX");
  }
  [[nodiscard]] std::unique_ptr<ModelContainer> open() const {
    auto opened = ModelContainer::open(storePath());
    EXPECT_TRUE(opened.isOk());
    return opened.take();
  }
  void execute(const QByteArray& statement) const {
    sqlite3* connection = nullptr;
    ASSERT_EQ(sqlite3_open(storePath().toUtf8().constData(), &connection), SQLITE_OK);
    char* message = nullptr;
    EXPECT_EQ(sqlite3_exec(connection, statement.constData(), nullptr, nullptr, &message), SQLITE_OK)
        << (message ? message : "");
    sqlite3_free(message);
    sqlite3_close(connection);
  }
};

}  // namespace tarnwick::test
