// SPDX-License-Identifier: MIT
#include "StoreScript.h"
#include "model/store/ModelContainer.h"
#include "support/Notes.h"

#include <QCoreApplication>

#include <array>

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

/// Runs the writer from the step on and kills it after some saves, in the midst of what it does then. Gives the last
/// step whose save it reported.
quint32 writeUntilKilled(const QString& store, quint32 firstStep, int saves, unsigned pauseUs) {
  std::array<int, 2> pipe{};
  if (::pipe2(pipe.data(), O_CLOEXEC) != 0) return 0;
  const auto program = QFile::encodeName(QCoreApplication::applicationDirPath() + u"/store_writer"_s);
  const auto path = QFile::encodeName(store);
  const auto step = QByteArray::number(firstStep);
  const pid_t child = ::fork();
  if (child == 0) {
    ::dup2(pipe[1], STDOUT_FILENO);
    ::execl(program.constData(), program.constData(), path.constData(), step.constData(), nullptr);
    ::_exit(127);
  }
  ::close(pipe[1]);
  QByteArray output;
  std::array<char, 4096> buffer{};
  const auto readMore = [&] {
    const auto count = ::read(pipe[0], buffer.data(), buffer.size());
    if (count > 0) output.append(buffer.data(), count);
    return count > 0;
  };
  while (output.count('\n') < saves && readMore()) {
  }
  ::usleep(pauseUs);
  ::kill(child, SIGKILL);
  while (readMore()) {
  }
  ::close(pipe[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status)) << "the writer ended by itself, status " << status;
  output.truncate(output.lastIndexOf('\n') + 1);
  return output.trimmed().split('\n').last().toUInt();
}

std::string integrity(const QString& store) {
  sqlite3* connection = nullptr;
  sqlite3_stmt* statement = nullptr;
  std::string answer = "(failed)";
  if (sqlite3_open(QFile::encodeName(store).constData(), &connection) == SQLITE_OK &&
      sqlite3_prepare_v2(connection, "PRAGMA integrity_check", -1, &statement, nullptr) == SQLITE_OK &&
      sqlite3_step(statement) == SQLITE_ROW)
    answer = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
  sqlite3_finalize(statement);
  sqlite3_close(connection);
  return answer;
}

ScriptState stateOf(const StoreFolder& folder) {
  ScriptState state;
  const auto store = folder.open();
  if (!store) return state;
  for (int place = 0; place < kScriptPlaces; ++place) {
    if (const auto task = store->mainContext().findTask(scriptId(place))) state[place] = task->text();
  }
  EXPECT_EQ(store->mainContext().fetchTasks().size(), state.size());
  return state;
}

TEST(StoreKilledInTheMidst, holdsExactlyTheSavesThatReturnedAndAtMostTheOneUnderWay) {
  const int rounds = qEnvironmentVariableIntValue("TARNWICK_FULL") == 1 ? 500 : 20;
  const StoreFolder folder;
  QRandomGenerator random(20260303);
  ScriptState state;
  quint32 next = 1;
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE(round);
    const auto last =
        writeUntilKilled(folder.path(), next, random.bounded(1, 60), static_cast<unsigned>(random.bounded(3000)));
    ASSERT_GE(last, next);
    for (; next <= last; ++next) state = afterStep(state, next);
    const auto found = stateOf(folder);
    if (found != state) {
      state = afterStep(state, next);
      ++next;
      ASSERT_TRUE(found == state) << "neither the state after step " << last << " nor the one after the next";
    }
    ASSERT_EQ(integrity(folder.path()), "ok");
  }
}

}  // namespace
}  // namespace tarnwick::test
