// SPDX-License-Identifier: MIT
#include "settings/UpdateChecker.h"

#include "FeedServer.h"
#include "fakes/FakeDesktop.h"
#include "fakes/ManualTime.h"
#include "linux/parts/LatePart.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTest>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Status = UpdateChecker::Status;

const QByteArray kNewer = R"({"version":"1.5","url":"https://tarnwick.app/get","notes":"Softer paper","size":3})";

class CheckingForUpdates : public testing::Test {
 protected:
  CheckingForUpdates() { QCoreApplication::setApplicationVersion(u"1.4"_s); }
  ~CheckingForUpdates() override { QCoreApplication::setApplicationVersion({}); }

  [[nodiscard]] bool hasSettled() const { return updates.status() != Status::checking && updates.status() != Status::idle; }
  Status checked() {
    updates.check();
    EXPECT_TRUE(QTest::qWaitFor([this] { return hasSettled(); }));
    return updates.status();
  }
  Status checkedAgainst(const QString& version) {
    server.answer(u"200 OK"_s, u"{\"version\":\"%1\",\"url\":\"https://tarnwick.app/get\"}"_s.arg(version).toUtf8());
    return checked();
  }

  ManualTime time;
  QTemporaryDir folder;
  UserDefaults defaults{folder.filePath(u"defaults.json"_s), time};
  FakeWorkspace workspace;
  FeedServer server;
  std::unique_ptr<Downloads> downloads = loadPart<Downloads>(u"tarnwick-downloads.so"_s);
  UpdateChecker updates{defaults, time, workspace, *downloads, server.url(), 300ms};
};

TEST_F(CheckingForUpdates, aNewerReleaseIsOfferedAndItsPageOpened) {
  server.answer(u"200 OK"_s, kNewer);
  QList<Status> seen;
  QObject::connect(&updates, &UpdateChecker::changed, [&] { seen.append(updates.status()); });
  EXPECT_EQ(checked(), Status::available);
  EXPECT_EQ(seen, (QList<Status>{Status::checking, Status::available}));
  EXPECT_EQ(updates.release(), (Release{u"1.5"_s, QUrl(u"https://tarnwick.app/get"_s), u"Softer paper"_s}));
  EXPECT_EQ(defaults.date(keys::kLastUpdateCheck), time.now());
  updates.openDownload();
  EXPECT_EQ(workspace.opened, QList<QUrl>{QUrl(u"https://tarnwick.app/get"_s)});
}

TEST_F(CheckingForUpdates, theRequestTellsTheVersionAndNothingElse) {
  server.answer(u"200 OK"_s, kNewer);
  checked();
  ASSERT_EQ(server.requests.size(), 1);
  const auto lines = QString::fromLatin1(server.requests.first()).trimmed().split(u"\r\n"_s);
  EXPECT_EQ(lines.first(), u"GET /version.json HTTP/1.1"_s);
  EXPECT_TRUE(lines.contains(u"User-Agent: Tarnwick/1.4"_s)) << qPrintable(lines.join(u'|'));
  for (const auto& line : lines) {
    EXPECT_FALSE(line.startsWith(u"Cookie"_s, Qt::CaseInsensitive)) << qPrintable(line);
    EXPECT_TRUE(!line.startsWith(u"Accept-Language"_s) || line == u"Accept-Language: *"_s) << qPrintable(line);
  }
}

TEST_F(CheckingForUpdates, anEqualOrOlderReleaseIsUpToDate) {
  EXPECT_EQ(checkedAgainst(u"1.4"_s), Status::upToDate);
  EXPECT_EQ(checkedAgainst(u"1.3.9"_s), Status::upToDate);
  QCoreApplication::setApplicationVersion(u"10.0"_s);
  EXPECT_EQ(checkedAgainst(u"2.0"_s), Status::upToDate);
  updates.openDownload();
  EXPECT_TRUE(workspace.opened.isEmpty());
}

TEST_F(CheckingForUpdates, aProgramWithoutVersionIsOfferedAnything) {
  QCoreApplication::setApplicationVersion({});
  EXPECT_EQ(UpdateChecker::currentVersion(), u"0"_s);
  EXPECT_EQ(checkedAgainst(u"0.1"_s), Status::available);
}

struct BadAnswer {
  const char* what;
  const char* status;
  QByteArray body;
};

class BadFeed : public CheckingForUpdates, public testing::WithParamInterface<BadAnswer> {};

TEST_P(BadFeed, failsAndIsNotRecordedAsACheck) {
  server.answer(QString::fromLatin1(GetParam().status), GetParam().body);
  EXPECT_EQ(checked(), Status::failed);
  EXPECT_FALSE(defaults.date(keys::kLastUpdateCheck));
  EXPECT_FALSE(updates.release());
}

const QByteArray kFarTooLong = R"({"version":"1.5","url":"https://tarnwick.app/get","notes":")" + QByteArray(300'000, 'x') + "\"}";

INSTANTIATE_TEST_SUITE_P(
    Answers, BadFeed,
    testing::Values(BadAnswer{"notModified", "304 Not Modified", {}}, BadAnswer{"serverError", "500 Oops", kNewer},
                    BadAnswer{"otherSuccess", "206 Partial Content", kNewer}, BadAnswer{"missing", "404 Not Found", kNewer},
                    BadAnswer{"empty", "200 OK", {}}, BadAnswer{"page", "200 OK", "<html>Welcome to the café</html>"},
                    BadAnswer{"list", "200 OK", "[" + kNewer + "]"},
                    BadAnswer{"cutShort", "200 OK", kNewer.left(30)},
                    BadAnswer{"noVersion", "200 OK", R"({"url":"https://tarnwick.app/get"})"},
                    BadAnswer{"numberVersion", "200 OK", R"({"version":1.5,"url":"https://tarnwick.app/get"})"},
                    BadAnswer{"noUrl", "200 OK", R"({"version":"1.5"})"},
                    BadAnswer{"program", "200 OK", R"({"version":"1.5","url":"file:///usr/bin/reboot"})"},
                    BadAnswer{"numberNotes", "200 OK", R"({"version":"1.5","url":"https://a.example","notes":7})"},
                    BadAnswer{"endless", "200 OK", kFarTooLong}),
    [](const auto& row) { return std::string(row.param.what); });

TEST_F(CheckingForUpdates, aBodyWithoutAnEndIsCutOff) {
  // No length is announced, so only the count of what came can tell.
  server.answerRaw("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + kFarTooLong);
  EXPECT_EQ(checked(), Status::failed);
}

TEST_F(CheckingForUpdates, aSilentServerFailsAfterTheTimeout) {
  EXPECT_EQ(checked(), Status::failed);
  EXPECT_EQ(server.requests.size(), 1);
}

TEST_F(CheckingForUpdates, aServerThatIsNotThereFails) {
  UpdateChecker lost(defaults, time, workspace, *downloads, QUrl(u"http://127.0.0.1:1/version.json"_s), 300ms);
  lost.check();
  EXPECT_TRUE(QTest::qWaitFor([&] { return lost.status() == Status::failed; }));
}

TEST_F(CheckingForUpdates, aRedirectToAnOpenLineIsNotFollowed) {
  server.answer(u"302 Found"_s, {}, "Location: " + server.url(u"/elsewhere"_s).toEncoded() + "\r\n");
  server.answer(u"200 OK"_s, kNewer, {}, u"/elsewhere"_s);
  EXPECT_EQ(checked(), Status::failed);
  EXPECT_EQ(server.requests.size(), 1);
}

TEST_F(CheckingForUpdates, aFailedCheckCanBeRepeated) {
  server.answer(u"500 Oops"_s, {});
  EXPECT_EQ(checked(), Status::failed);
  server.answer(u"200 OK"_s, kNewer);
  EXPECT_EQ(checked(), Status::available);
  server.answer(u"500 Oops"_s, {});
  EXPECT_EQ(checked(), Status::failed);
  EXPECT_FALSE(updates.release()) << "a failed check must not keep offering what an earlier one found";
}

TEST_F(CheckingForUpdates, ofTwoChecksTheLaterAnswerStays) {
  server.answer(u"200 OK"_s, kNewer);
  int settled = 0;
  QObject::connect(&updates, &UpdateChecker::changed, [&] { settled += hasSettled() ? 1 : 0; });
  updates.check();
  updates.check();
  EXPECT_TRUE(QTest::qWaitFor([&] { return settled == 2; }));
  EXPECT_EQ(updates.status(), Status::available);
}

TEST_F(CheckingForUpdates, goingAwayDuringACheckIsHarmless) {
  auto brief = std::make_unique<UpdateChecker>(defaults, time, workspace, *downloads, server.url(), 5s);
  brief->check();
  EXPECT_TRUE(QTest::qWaitFor([&] { return server.requests.size() == 1; }));
  EXPECT_EQ(server.connections(), 1);
  brief.reset();
  EXPECT_TRUE(QTest::qWaitFor([&] { return server.connections() == 0; })) << "it goes on waiting";
  EXPECT_FALSE(defaults.date(keys::kLastUpdateCheck));
}

struct LastCheck {
  const char* what;
  std::optional<std::chrono::seconds> ago;
  bool isDue;
};

class DueCheck : public CheckingForUpdates, public testing::WithParamInterface<LastCheck> {};

TEST_P(DueCheck, dependsOnTheTimeSinceTheLastOne) {
  if (const auto ago = GetParam().ago) {
    ASSERT_TRUE(defaults.setDate(keys::kLastUpdateCheck, time.now().addSecs(-ago->count())));
  }
  updates.checkIfDue();
  EXPECT_EQ(updates.status(), GetParam().isDue ? Status::checking : Status::idle);
}

INSTANTIATE_TEST_SUITE_P(Ages, DueCheck,
                         testing::Values(LastCheck{"never", std::nullopt, true}, LastCheck{"hours19", 19h, false},
                                         LastCheck{"exactly20", 20h, false}, LastCheck{"aSecondMore", 20h + 1s, true},
                                         LastCheck{"hours21", 21h, true}, LastCheck{"inTheFuture", -5h, false}),
                         [](const auto& row) { return std::string(row.param.what); });

TEST_F(CheckingForUpdates, switchedOffOnlyTheButtonAsks) {
  ASSERT_TRUE(defaults.setBoolean(keys::kAutoCheckUpdates, false));
  EXPECT_FALSE(updates.autoCheckEnabled());
  updates.checkIfDue();
  EXPECT_EQ(updates.status(), Status::idle);
  EXPECT_EQ(checkedAgainst(u"1.5"_s), Status::available);
}

TEST_F(CheckingForUpdates, withoutAFeedTheStatusStaysIdle) {
  UpdateChecker none(defaults, time, workspace, *downloads, QUrl());
  QObject::connect(&none, &UpdateChecker::changed, [] { FAIL() << "nothing happens"; });
  none.checkIfDue();
  none.check();
  EXPECT_EQ(none.status(), Status::idle);
}

TEST_F(CheckingForUpdates, aSettingThatIsNoBooleanCountsAsOn) {
  ASSERT_TRUE(defaults.setText(keys::kAutoCheckUpdates, u"no"_s));
  EXPECT_TRUE(updates.autoCheckEnabled());
}

TEST_F(CheckingForUpdates, aHiddenBannerComesBackWithTheNextVersion) {
  EXPECT_FALSE(updates.bannerRelease());
  checkedAgainst(u"1.5"_s);
  ASSERT_TRUE(updates.bannerRelease());
  int changes = 0;
  QObject::connect(&updates, &UpdateChecker::changed, [&] { ++changes; });
  updates.dismissBanner();
  EXPECT_EQ(changes, 1);
  EXPECT_FALSE(updates.bannerRelease());
  EXPECT_EQ(updates.status(), Status::available) << "the About pane goes on offering it";
  checkedAgainst(u"1.5"_s);
  EXPECT_FALSE(updates.bannerRelease());
  checkedAgainst(u"1.6"_s);
  ASSERT_TRUE(updates.bannerRelease());
  EXPECT_EQ(updates.bannerRelease()->version, u"1.6"_s);
}

TEST_F(CheckingForUpdates, hidingABannerThatIsNotThereStoresNothing) {
  updates.dismissBanner();
  EXPECT_FALSE(defaults.text(keys::kDismissedUpdateVersion));
}

TEST(TheFeed, livesOnASecureLine) {
  EXPECT_EQ(UpdateChecker::feedURL().scheme(), u"https"_s);
  EXPECT_EQ(UpdateChecker::feedURL().path(), u"/version.json"_s);
}

TEST(TheFeed, mayLeaveOutItsNotes) {
  EXPECT_EQ(UpdateChecker::decode(R"({"version":"2","url":"https://a.example/"})")->notes, std::nullopt);
  EXPECT_EQ(UpdateChecker::decode(R"({"version":"2","url":"https://a.example/","notes":null})")->notes, std::nullopt);
}

TEST(VersionOrder, comparesRunsOfDigitsByValue) {
  const struct {
    QString left;
    QString right;
    int order;
  } rows[]{
      {u"1.4"_s, u"1.4"_s, 0},         {u"1.10"_s, u"1.9"_s, 1},    {u"1.9"_s, u"1.10"_s, -1}, {u"2.0"_s, u"10.0"_s, -1},
      {u"1.2"_s, u"1.2.0"_s, -1},      {u"1.2.0"_s, u"1.2"_s, 1},   {u"1.02"_s, u"1.2"_s, 0},  {u"0"_s, u"0.1"_s, -1},
      {u"1.2b"_s, u"1.2a"_s, 1},       {u"1.2"_s, u"1.2-rc1"_s, -1}, {u"1.2-rc10"_s, u"1.2-rc9"_s, 1},
      {u""_s, u"1"_s, -1},             {u""_s, u""_s, 0},
      {u"99999999999999999999999"_s, u"100000000000000000000000"_s, -1},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(UpdateChecker::compareVersions(row.left, row.right), row.order)
        << qPrintable(row.left) << " against " << qPrintable(row.right);
  }
}

}  // namespace
}  // namespace tarnwick::test
