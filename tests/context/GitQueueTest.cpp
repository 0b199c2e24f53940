// SPDX-License-Identifier: MIT
#include "context/GitQueue.h"

#include "fakes/ManualTime.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// A program in git's place that does what its first argument says.
class GitQueueTest : public testing::Test {
 protected:
  void SetUp() override {
    QFile script(program);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write(R"(#!/bin/sh
here=$(dirname "$0")
case "$1" in
  say) printf "$2" ;;
  shout) printf "$2" >&2; head -c 300000 /dev/zero >&2; printf quiet ;;
  fail) printf text; exit 3 ;;
  die) kill -9 $$ ;;
  turn) echo "in $2" >> "$here/log"; sleep 0.02; echo "out $2" >> "$here/log"; printf "$2" ;;
  hang) echo $$ > "$here/pid"; exec sleep 600 ;;
  helper) sleep 600 & echo $! > "$here/pid"; wait ;;
  flood) echo $$ > "$here/pid"; while :; do head -c 65536 /dev/zero; done ;;
  much) head -c "$2" /dev/zero | tr '\\0' x ;;
  env) printf "${GIT_DIR:-none}" ;;
esac
)");
    script.close();
    ASSERT_TRUE(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
  }
  void ask(const QStringList& arguments) {
    queue.run(arguments, [this](std::optional<QString> text) { answers.append(text.value_or(u"(none)"_s)); });
  }
  [[nodiscard]] bool waitFor(int count) {
    return QTest::qWaitFor([&] { return answers.size() >= count; }, 20000);
  }
  [[nodiscard]] QString contents(const QString& name) const {
    QFile file(folder.filePath(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
  }

  /// Not a zombie either: whoever adopts an orphan may take its time to reap it.
  [[nodiscard]] static bool isAlive(const QString& process) {
    QFile stat(process + u"/stat"_s);
    return stat.open(QIODevice::ReadOnly) && !stat.readAll().contains(") Z ");
  }

  QTemporaryDir folder;
  QString program = folder.filePath(u"git"_s);
  ManualTime time;
  GitQueue queue{time, program};
  QStringList answers;
};

TEST_F(GitQueueTest, answersAreTrimmedOrNothing) {
  ask({u"say"_s, u"  /a b/c\\n\\n"_s});
  ask({u"say"_s, u" \\n\\t"_s});
  ask({u"say"_s, u"caf\\303\\251"_s});
  ask({u"say"_s, u"caf\\303"_s});
  ask({u"fail"_s});
  ask({u"die"_s});
  ask({u"shout"_s, u"noise"_s});
  ASSERT_TRUE(waitFor(7));
  EXPECT_EQ(answers, (QStringList{u"/a b/c"_s, u"(none)"_s, u"café"_s, u"(none)"_s, u"(none)"_s, u"(none)"_s,
                                  u"quiet"_s}));
}

TEST_F(GitQueueTest, oneChildAtATimeInTheOrderAsked) {
  for (int i = 0; i < 4; ++i) ask({u"turn"_s, QString::number(i)});
  EXPECT_TRUE(answers.isEmpty()) << "answers come from the event loop, not from the question";
  ASSERT_TRUE(waitFor(4));
  EXPECT_EQ(answers, (QStringList{u"0"_s, u"1"_s, u"2"_s, u"3"_s}));
  EXPECT_EQ(contents(u"log"_s), u"in 0\nout 0\nin 1\nout 1\nin 2\nout 2\nin 3\nout 3\n"_s);
}

TEST_F(GitQueueTest, aHangingGitIsAbandonedAndTheNextOneRuns) {
  ask({u"hang"_s});
  ask({u"say"_s, u"next"_s});
  ASSERT_TRUE(QTest::qWaitFor([&] { return !contents(u"pid"_s).trimmed().isEmpty(); }, 20000));
  time.advance(GitQueue::kPatience - 1ms);
  EXPECT_TRUE(answers.isEmpty());
  time.advance(1ms);
  ASSERT_TRUE(waitFor(2));
  EXPECT_EQ(answers, (QStringList{u"(none)"_s, u"next"_s}));
  const QString process = u"/proc/"_s + contents(u"pid"_s).trimmed();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !QFile::exists(process); }, 20000)) << "the hanging child is ended";
  EXPECT_EQ(time.pendingCount(), 0);
}

TEST_F(GitQueueTest, whatAHangingGitStartedEndsWithIt) {
  ask({u"helper"_s});
  ASSERT_TRUE(QTest::qWaitFor([&] { return !contents(u"pid"_s).trimmed().isEmpty(); }, 20000));
  time.advance(GitQueue::kPatience);
  ASSERT_TRUE(waitFor(1));
  const QString helper = u"/proc/"_s + contents(u"pid"_s).trimmed();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !isAlive(helper); }, 20000));
}

TEST_F(GitQueueTest, aFloodIsEndedAtOnceAndCountsAsNoAnswer) {
  ask({u"much"_s, u"65536"_s});
  ask({u"much"_s, u"65537"_s});
  ask({u"much"_s, u"1000000"_s});
  ask({u"flood"_s});
  ask({u"say"_s, u"next"_s});
  ASSERT_TRUE(waitFor(5));  // without a second passing on the clock of its patience
  EXPECT_EQ(answers.front().size(), 65536);
  EXPECT_EQ(answers.mid(1), (QStringList{u"(none)"_s, u"(none)"_s, u"(none)"_s, u"next"_s}));
  const QString process = u"/proc/"_s + contents(u"pid"_s).trimmed();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !isAlive(process); }, 20000));
}

TEST_F(GitQueueTest, aQueueThatGoesWhileGitRunsNeitherWaitsNorAnswers) {
  bool isAnswered = false;
  {
    GitQueue brief(time, program);
    brief.run({u"hang"_s}, [&](const std::optional<QString>&) { isAnswered = true; });
  }
  time.advance(60s);
  QTest::qWait(0);
  EXPECT_FALSE(isAnswered);
}

TEST_F(GitQueueTest, aMissingProgramIsNoAnswer) {
  GitQueue broken(time, folder.filePath(u"no-such-git"_s));
  int count = 0;
  for (int i = 0; i < 2; ++i) {
    broken.run({u"x"_s}, [&](const std::optional<QString>& text) { count += text ? 100 : 1; });
  }
  EXPECT_EQ(count, 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return count == 2; }, 20000));
}

TEST_F(GitQueueTest, anAnswerMayAskAgain) {
  queue.run({u"say"_s, u"root"_s}, [this](const std::optional<QString>& text) { ask({u"say"_s, *text + u"+"_s}); });
  ASSERT_TRUE(waitFor(1));
  EXPECT_EQ(answers, QStringList{u"root+"_s});
}

TEST_F(GitQueueTest, whatAHookExportedDoesNotReachGit) {
  qputenv("GIT_DIR", "/somewhere/else");
  ask({u"env"_s});
  ASSERT_TRUE(waitFor(1));
  qunsetenv("GIT_DIR");
  EXPECT_EQ(answers, QStringList{u"none"_s});
}

TEST_F(GitQueueTest, nothingThatARepositoryNamesIsRun) {
  if (!QFile::exists(u"/usr/bin/git"_s)) GTEST_SKIP() << "there is no git here";
  const QString trap = folder.filePath(u"trap"_s);
  const QString mark = folder.filePath(u"sprung"_s);
  QFile script(trap);
  ASSERT_TRUE(script.open(QIODevice::WriteOnly));
  script.write("#!/bin/sh\necho \"$0\" >> '" + QFile::encodeName(mark) + "'\n");
  script.close();
  ASSERT_TRUE(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
  const QString root = folder.filePath(u"hostile"_s);
  const auto plain = [](const QStringList& words) {
    QProcess process;
    process.start(u"/usr/bin/git"_s, words);
    EXPECT_TRUE(process.waitForFinished(20000));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  };
  plain({u"init"_s, u"-q"_s, u"-b"_s, u"main"_s, root});
  plain({u"-C"_s, root, u"-c"_s, u"user.name=A"_s, u"-c"_s, u"user.email=a@b"_s, u"commit"_s, u"-q"_s,
         u"--allow-empty"_s, u"-m"_s, u"One"_s});
  ASSERT_TRUE(QDir(root).mkpath(u".git/hooks"_s));
  ASSERT_TRUE(QFile::copy(trap, root + u"/.git/hooks/post-checkout"_s));
  for (const auto* key : {"core.fsmonitor", "core.pager", "core.askPass", "pager.branch", "credential.helper"}) {
    plain({u"-C"_s, root, u"config"_s, QLatin1StringView(key), trap});
  }
  GitQueue real(time);
  int count = 0;
  QStringList said;
  const auto answer = [&](const std::optional<QString>& text) {
    said.append(text.value_or(u"(none)"_s));
    ++count;
  };
  // The last two are not ours to ask: they are what would spring the traps.
  real.run({u"-C"_s, root, u"rev-parse"_s, u"--show-toplevel"_s}, answer);
  real.run({u"-C"_s, root, u"branch"_s, u"--show-current"_s}, answer);
  real.run({u"-C"_s, root, u"status"_s, u"--porcelain"_s}, answer);
  real.run({u"-C"_s, root, u"checkout"_s, u"-q"_s, u"-b"_s, u"other"_s}, answer);
  ASSERT_TRUE(QTest::qWaitFor([&] { return count == 4; }, 20000));
  EXPECT_EQ(said[0], QFileInfo(root).canonicalFilePath());
  EXPECT_EQ(said[1], u"main"_s);
  EXPECT_EQ(contents(u"sprung"_s), QString());
}

}  // namespace
}  // namespace tarnwick::test
