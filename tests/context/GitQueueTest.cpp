// SPDX-License-Identifier: MIT
#include "context/GitQueue.h"

#include "fakes/ManualTime.h"

#include <gtest/gtest.h>

#include <QFile>
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

}  // namespace
}  // namespace tarnwick::test
