// SPDX-License-Identifier: MIT
#include "fakes/ManualTime.h"
#include "linux/parts/LateAudio.h"
#include "linux/parts/LateDownloads.h"
#include "linux/parts/LatePart.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QTest>

namespace tarnwick {
namespace {

using namespace Qt::StringLiterals;

TEST(PartsLoadedLate, AreFoundBesideTheProgram) {
  qputenv("PULSE_SERVER", "unix:/nowhere");
  EXPECT_EQ(LateAudio().traits().reason, u"no sound server"_s) << "said by what speaks to it, not by what loads that";
  qunsetenv("PULSE_SERVER");
}

TEST(PartsLoadedLate, AreAbsentWhereTheirFileIsMissingOrNone) {
  EXPECT_EQ(loadPart<Audio>(u"tarnwick-nothing.so"_s), nullptr);
  const QFileInfo program(QCoreApplication::applicationFilePath());
  EXPECT_EQ(loadPart<Audio>(program.fileName()), nullptr) << "a program";
  const auto damaged = QCoreApplication::applicationDirPath() + u"/tarnwick-damaged.so"_s;
  QFile file(damaged);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("\x7f" "ELF, and then no more");
  file.close();
  EXPECT_EQ(loadPart<Audio>(u"tarnwick-damaged.so"_s), nullptr);
  EXPECT_TRUE(file.remove());
}

TEST(PartsLoadedLate, LetTheProgramComeUpFirst) {
  test::ManualTime time;
  LateDownloads downloads(time);
  QList<std::optional<QByteArray>> answers;
  const DownloadRequest nobody{QUrl(u"http://127.0.0.1:1/"_s), "Tarnwick", std::chrono::milliseconds(300), 10};
  const auto hear = [&](const auto& body) { answers.append(body); };
  auto kept = downloads.fetch(nobody, hear);
  auto cancelled = downloads.fetch(nobody, hear);
  cancelled.cancel();
  QCoreApplication::processEvents();
  EXPECT_TRUE(answers.isEmpty()) << "not before its time";
  time.advance(LateDownloads::kLoadingDelay);
  EXPECT_TRUE(QTest::qWaitFor([&] { return answers.size() == 1; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(answers, QList<std::optional<QByteArray>>{std::nullopt}) << "of one of the two, and nothing came";
}

}  // namespace
}  // namespace tarnwick
