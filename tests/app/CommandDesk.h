// SPDX-License-Identifier: MIT
// A desk whose notes and settings are driven by the command line's words.
#pragma once

#include "app/commands/CommandRunner.h"
#include "support/Desk.h"

#include <gtest/gtest.h>

namespace tarnwick::test {

class CommandDesk : public testing::Test {
 protected:
  enum class Program { Running, Absent };

  /// Runs the words; standard input and the folder as given.
  CommandReply run(const QStringList& words, const QByteArray& input = {}) {
    CommandEnvironment environment{desk.defaults, desk.center, desk.time, desk.git,
                                   [this]() -> Result<const BoardServices*> {
                                     ++storeOpenings;
                                     if (storeError) return *storeError;
                                     return &std::as_const(desk.services);
                                   },
                                   std::nullopt};
    if (program == Program::Running) {
      environment.running = RunningProgram{[this] { calls << QStringLiteral("toggle"); },
                                           [this] { calls << QStringLiteral("board"); },
                                           [this] { calls << QStringLiteral("new"); },
                                           [this](const QStringList& paths) { calls << paths; },
                                           [this] { calls << QStringLiteral("quit"); }, [this] { return status; }};
    }
    return CommandRunner(std::move(environment)).run({words, input, folder});
  }
  /// The output of a command that must succeed.
  QString done(const QStringList& words, const QByteArray& input = {}) {
    const auto reply = run(words, input);
    EXPECT_EQ(reply.exitStatus, 0) << words.join(u' ').toStdString() << ": " << reply.error.toStdString();
    EXPECT_EQ(reply.error, QByteArray());
    return QString::fromUtf8(reply.output);
  }
  /// The error line of a command that must fail with the status, and change nothing.
  QString fails(int exitStatus, const QStringList& words, const QByteArray& input = {}) {
    const auto before = everything();
    const auto reply = run(words, input);
    const std::string what = words.join(u' ').toStdString();
    EXPECT_EQ(reply.exitStatus, exitStatus) << what;
    EXPECT_EQ(reply.output, QByteArray()) << what;
    EXPECT_TRUE(reply.error.startsWith("tarnwick: ")) << what;
    EXPECT_EQ(reply.error.count('\n'), 1) << what;
    EXPECT_TRUE(reply.error.endsWith('\n')) << what;
    EXPECT_EQ(everything(), before) << what;
    return QString::fromUtf8(reply.error).mid(10).chopped(1);
  }

  [[nodiscard]] static QString idOf(const TaskPtr& task) { return task->id().toString(QUuid::WithoutBraces).toUpper(); }
  /// The one note of the store.
  [[nodiscard]] TaskPtr only() const {
    const auto notes = desk.notes().fetchTasks();
    EXPECT_EQ(notes.size(), 1u);
    return notes.empty() ? nullptr : notes.front();
  }

  Desk desk;
  Program program = Program::Running;
  StatusReport status;
  QStringList calls;
  QString folder = QStringLiteral("/");
  std::optional<Error> storeError;
  int storeOpenings = 0;

 private:
  using Everything = std::tuple<std::map<QUuid, TaskRecord>, QMap<QString, QJsonValue>, std::set<QUuid>, int>;
  [[nodiscard]] Everything everything() const {
    std::map<QUuid, TaskRecord> records;
    for (const auto& task : desk.notes().fetchTasks()) records.emplace(task->id(), task->record());
    QMap<QString, QJsonValue> settings;
    for (const auto& key : desk.defaults.storedKeys()) settings.insert(key, desk.defaults.stored(key));
    return {records, settings, desk.torn.open, static_cast<int>(calls.size())};
  }
};

}  // namespace tarnwick::test
