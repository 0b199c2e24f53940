// SPDX-License-Identifier: MIT
#include "context/ContextEngine.h"

#include "context/GitQueue.h"
#include "fakes/FakeDesktop.h"
#include "fakes/FakeServices.h"
#include "fakes/ManualTime.h"
#include "model/NotificationCenter.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// Answers by the words asked, when told to.
class FakeGit final : public GitRunner {
 public:
  QStringList asked;
  QHash<QString, QString> answers;  // absent: git failed
  bool isHolding = false;

  void run(const QStringList& arguments, Answer answer) override {
    const auto words = arguments.join(u' ');
    asked.append(words);
    const auto text = answers.contains(words) ? std::optional(answers[words]) : std::nullopt;
    if (isHolding) {
      held.push_back([answer, text] { answer(text); });
    } else {
      answer(text);
    }
  }
  void release() {
    const auto pending = std::exchange(held, {});
    for (const auto& work : pending) work();
  }
  std::vector<std::function<void()>> held;
};

class Context : public testing::Test {
 protected:
  Context() {
    QObject::connect(&center, &NotificationCenter::contextChanged, &center,
                     [this](const std::optional<QString>& root, const std::optional<QString>& bundle) {
                       posted.append(root.value_or(u"-"_s) + u' ' + bundle.value_or(u"-"_s));
                     });
  }
  /// Brings an application to the front whose focused window shows a document.
  void show(const RunningApplication& application, std::optional<QString> document, const QString& title = {}) {
    const auto path = u"/window/%1"_s.arg(application.pid);
    accessibility.windows[application.pid] = path;
    accessibility.nodes[path].facts = {title, {}, {}, {}, std::nullopt, std::move(document)};
    workspace.activate(application);
  }
  void repository(const QString& where, const QString& root, const QString& branch) {
    git.answers[u"-C %1 rev-parse --show-toplevel"_s.arg(where)] = root;
    if (!branch.isEmpty()) git.answers[u"-C %1 branch --show-current"_s.arg(root)] = branch;
  }

  const RunningApplication self{kApplicationID, 1, u"Tarnwick"_s};
  const RunningApplication browser{u"org.browser"_s, 10, u"Browser"_s};
  const RunningApplication code{u"com.microsoft.VSCode"_s, 20, u"Code"_s};
  const RunningApplication geany{u"geany"_s, 30, u"Geany"_s, true};

  QTemporaryDir folder;
  ManualTime time;
  UserDefaults defaults{folder.filePath(u"defaults.json"_s), time};
  NotificationCenter center;
  FakeWorkspace workspace;
  FakeAccessibility accessibility;
  FakeGit git;
  /// What is below /u is there; all else is as it is.
  static PathKind probe(const QString& path) { return path.startsWith(u"/u/") ? PathKind::Folder : probePath(path); }
  ContextEngine engine{{workspace, accessibility, time, git, noProcessFacts, {}, probe}, defaults, center};
  QStringList posted;
};

TEST_F(Context, theLastExternalApplicationIsNeverThisProgram) {
  workspace.front = browser;
  engine.start();
  EXPECT_EQ(engine.lastExternalApp(), browser);
  time.advance(1s);
  posted.clear();
  workspace.activate(self);
  EXPECT_EQ(engine.lastExternalApp(), browser);
  time.advance(1s);
  EXPECT_EQ(posted, QStringList{u"- "_s + kApplicationID}) << "its activation updates the context all the same";
  const RunningApplication nameless{{}, 40, u"xterm"_s};
  workspace.activate(nameless);
  EXPECT_EQ(engine.lastExternalApp(), nameless) << "an application without an identifier is another one";
  time.advance(1s);
  EXPECT_EQ(engine.snapshot().frontBundleID, std::nullopt);
}

TEST_F(Context, startedBehindItselfThereIsNoExternalApplication) {
  workspace.front = self;
  engine.start();
  EXPECT_FALSE(engine.lastExternalApp());
}

TEST_F(Context, aDocumentLeadsToFolderRootAndBranch) {
  repository(u"/u/proj/src"_s, u"/u/proj"_s, u"main"_s);
  engine.start();
  show(code, u"file:///u/proj/src/main.c"_s);
  time.advance(300ms);
  EXPECT_EQ(engine.snapshot(), (ContextSnapshot{code.bundleID, u"/u/proj/src"_s, u"/u/proj"_s, u"main"_s}));
  EXPECT_EQ(posted.last(), u"/u/proj com.microsoft.VSCode"_s);
}

TEST_F(Context, aBurstOfActivationsAsksGitOnceForTheLast) {
  repository(u"/u/two"_s, u"/u/two"_s, u"main"_s);
  engine.start();
  show(code, u"/u/one/a.c"_s);
  time.advance(200ms);
  workspace.activate(browser);
  time.advance(200ms);
  show(code, u"/u/two/b.c"_s);
  time.advance(299ms);
  EXPECT_TRUE(git.asked.isEmpty());
  EXPECT_TRUE(posted.isEmpty());
  time.advance(1ms);
  EXPECT_EQ(git.asked.size(), 2) << git.asked.join(u'\n').toStdString();
  EXPECT_EQ(engine.snapshot().gitRoot, u"/u/two"_s);
  EXPECT_EQ(posted.size(), 1);
}

TEST_F(Context, theValuesAreThoseOfTheActivationNotOfTheAnswer) {
  repository(u"/u/one"_s, u"/u/one"_s, {});
  engine.start();
  show(code, u"/u/one/a.c"_s);
  accessibility.nodes[u"/window/20"_s].facts.document = u"/u/two/b.c"_s;
  time.advance(1s);
  EXPECT_EQ(engine.snapshot().folderPath, u"/u/one"_s);
}

TEST_F(Context, aDetachedHeadHasARootAndNoBranch) {
  repository(u"/u/proj"_s, u"/u/proj"_s, {});
  engine.start();
  show(code, u"/u/proj/a.c"_s);
  time.advance(1s);
  EXPECT_EQ(engine.snapshot(), (ContextSnapshot{code.bundleID, u"/u/proj"_s, u"/u/proj"_s, std::nullopt}));
}

TEST_F(Context, outsideAnyRepositoryTheBranchIsNotAsked) {
  engine.start();
  show(code, u"/tmp/a.c"_s);
  time.advance(1s);
  EXPECT_EQ(engine.snapshot(), (ContextSnapshot{code.bundleID, u"/tmp"_s, std::nullopt, std::nullopt}));
  EXPECT_EQ(git.asked, QStringList{u"-C /tmp rev-parse --show-toplevel"_s});
}

TEST_F(Context, onlyCodeEditorsAreLookedInto) {
  engine.start();
  show(browser, u"/u/proj/page.html"_s);
  time.advance(1s);
  EXPECT_EQ(engine.snapshot(), (ContextSnapshot{browser.bundleID, {}, {}, {}}));
  EXPECT_TRUE(git.asked.isEmpty());
  show(geany, u"/u/proj/a.c"_s);
  time.advance(1s);
  EXPECT_EQ(engine.snapshot().folderPath, u"/u/proj"_s) << "editors by their desktop entry count too";
}

TEST_F(Context, aSlowAnswerDoesNotReplaceANewerContext) {
  repository(u"/u/proj"_s, u"/u/proj"_s, u"main"_s);
  git.isHolding = true;
  engine.start();
  show(code, u"/u/proj/a.c"_s);
  time.advance(1s);
  workspace.activate(browser);
  time.advance(1s);
  git.release();
  git.release();
  EXPECT_EQ(engine.snapshot(), (ContextSnapshot{browser.bundleID, {}, {}, {}}));
  EXPECT_EQ(posted, QStringList{u"- org.browser"_s});
}

TEST_F(Context, behindASlowGitOnlyTheNewestFolderWaits) {
  repository(u"/u/three"_s, u"/u/three"_s, u"main"_s);
  git.isHolding = true;
  engine.start();
  for (const auto& name : {u"one"_s, u"two"_s, u"three"_s}) {
    show(code, u"/u/%1/a.c"_s.arg(name));
    time.advance(1s);
  }
  EXPECT_EQ(git.asked, QStringList{u"-C /u/one rev-parse --show-toplevel"_s});
  git.isHolding = false;
  git.release();
  EXPECT_EQ(git.asked.mid(1), (QStringList{u"-C /u/three rev-parse --show-toplevel"_s,
                                           u"-C /u/three branch --show-current"_s}));
  EXPECT_EQ(engine.snapshot(), (ContextSnapshot{code.bundleID, u"/u/three"_s, u"/u/three"_s, u"main"_s}));
  EXPECT_EQ(posted, QStringList{u"/u/three com.microsoft.VSCode"_s});
}

TEST_F(Context, anotherFolderBetweenRootAndBranchIsAskedNext) {
  repository(u"/u/one"_s, u"/u/one"_s, u"main"_s);
  repository(u"/u/two"_s, u"/u/two"_s, u"side"_s);
  git.isHolding = true;
  engine.start();
  show(code, u"/u/one/a.c"_s);
  time.advance(1s);
  git.release();  // the root of the first; its branch is asked now
  show(code, u"/u/two/a.c"_s);
  time.advance(1s);
  for (int i = 0; i < 3; ++i) git.release();
  EXPECT_EQ(engine.snapshot(), (ContextSnapshot{code.bundleID, u"/u/two"_s, u"/u/two"_s, u"side"_s}));
  EXPECT_EQ(posted.size(), 1);
}

TEST_F(Context, aSwitchInsideAnEditorIsFollowed) {
  repository(u"/u/two"_s, u"/u/two"_s, u"side"_s);
  engine.start();
  show(code, u"/u/one/a.c"_s);
  time.advance(1s);
  auto& document = accessibility.nodes[u"/window/20"_s].facts.document;
  document = u"/u/two/b.c"_s;
  accessibility.changed[20].notify();
  time.advance(1s);
  EXPECT_EQ(engine.snapshot(), (ContextSnapshot{code.bundleID, u"/u/two"_s, u"/u/two"_s, u"side"_s}));
  EXPECT_EQ(posted.size(), 2);
  document = u"/u/two/c.c"_s;
  accessibility.changed[20].notify();
  time.advance(1s);
  EXPECT_EQ(posted.size(), 2) << "another file of the same folder is no other context";
  EXPECT_EQ(git.asked.size(), 3) << git.asked.join(u'\n').toStdString();
  workspace.activate(browser);
  EXPECT_EQ(accessibility.changed[20].count(), 0) << "nobody listens behind another application";
}

TEST_F(Context, aTitleThatNeverRestsHoldsNothingUp) {
  engine.start();
  show(code, u"/u/one/a.c"_s);
  time.advance(1s);
  accessibility.nodes[u"/window/20"_s].facts.document = u"/u/two/b.c"_s;
  for (int i = 0; i < 10; ++i) {
    accessibility.changed[20].notify();
    time.advance(50ms);
  }
  EXPECT_EQ(engine.snapshot().folderPath, u"/u/two"_s);
}

TEST_F(Context, withNobodyInFrontThereIsNone) {
  repository(u"/u/one"_s, u"/u/one"_s, u"main"_s);
  engine.start();
  const auto leave = [&](ObserverList<const RunningApplication&>& how) {
    show(code, u"/u/one/a.c"_s);
    time.advance(1s);
    ASSERT_EQ(posted.last(), u"/u/one com.microsoft.VSCode"_s);
    workspace.front.reset();
    how.notify(code);
    time.advance(1s);
    EXPECT_EQ(posted.last(), u"- -"_s);
    EXPECT_EQ(engine.snapshot(), ContextSnapshot());
    EXPECT_EQ(engine.lastExternalApp(), code);
  };
  leave(workspace.deactivated);
  leave(workspace.terminated);
}

TEST_F(Context, afterStopNothingIsAskedOrTold) {
  engine.start();
  show(code, u"/u/proj/a.c"_s);
  engine.stop();
  time.advance(1s);
  workspace.activate(browser);
  time.advance(1s);
  EXPECT_TRUE(git.asked.isEmpty());
  EXPECT_TRUE(posted.isEmpty());
  EXPECT_EQ(engine.lastExternalApp(), code);
}

TEST_F(Context, withoutTrustNoFolderIsLookedUp) {
  accessibility.hasFrames = false;
  accessibility.hasTree = false;
  engine.start();
  show(code, u"/u/proj/a.c"_s);
  time.advance(1s);
  EXPECT_EQ(engine.snapshot(), (ContextSnapshot{code.bundleID, {}, {}, {}}));
}

TEST_F(Context, theTitleStandsInForADocument) {
  ASSERT_TRUE(QDir(folder.path()).mkpath(u"proj/src"_s));
  QFile file(folder.filePath(u"proj/src/main.c"_s));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  engine.start();
  show(geany, std::nullopt, u"main.c - %1/proj/src - Geany"_s.arg(folder.path()));
  time.advance(1s);
  EXPECT_EQ(engine.snapshot().folderPath, folder.filePath(u"proj/src"_s));
}

TEST_F(Context, aDocumentThatIsNotHereLeavesTheTitle) {
  ASSERT_TRUE(QDir(folder.path()).mkpath(u"proj"_s));
  engine.start();
  show(geany, u"sftp://far/away/main.c"_s, u"proj - %1/proj - Geany"_s.arg(folder.path()));
  time.advance(1s);
  EXPECT_EQ(engine.snapshot().folderPath, folder.filePath(u"proj"_s));
  show(geany, u"/gone/main.c"_s, u"Geany"_s);
  time.advance(1s);
  EXPECT_EQ(engine.snapshot().folderPath, std::nullopt);
}

TEST_F(Context, anEditorThatCannotBeReadHasNoFolder) {
  engine.start();
  workspace.activate(code);  // no focused window
  time.advance(1s);
  EXPECT_EQ(engine.snapshot().folderPath, std::nullopt);
  show(code, u"/u/proj/a.c"_s);
  accessibility.nodes[u"/window/20"_s].isReadable = false;
  workspace.activate(code);
  time.advance(1s);
  EXPECT_EQ(engine.snapshot().folderPath, std::nullopt);
}

TEST_F(Context, trustIsAskedForOnceAfterTheWelcome) {
  struct Row {
    bool hasSeenWelcome, isTrusted;
    int requests;
  };
  for (const auto& row : {Row{false, false, 0}, Row{true, true, 0}, Row{true, false, 1}}) {
    accessibility.trustRequests = 0;
    accessibility.hasTree = row.isTrusted;
    [[maybe_unused]] const auto set = defaults.setBoolean(keys::kHasSeenWelcome, row.hasSeenWelcome);
    engine.start();
    workspace.activate(browser);
    EXPECT_EQ(accessibility.trustRequests, row.requests);
    EXPECT_NE(accessibility.lastRequest, TrustRequest::ByUser);
  }
}

TEST(ContextDocument, itsFolderByFormOfThePath) {
  const std::vector<std::pair<QString, QString>> rows{
      {u"file:///Users/a/proj/src/main.c"_s, u"/Users/a/proj/src"_s},
      {u"/Users/a/proj/src/main.c"_s, u"/Users/a/proj/src"_s},
      {u"file:///a%20b/50%25/c.txt"_s, u"/a b/50%"_s},
      {u"/a b/100%/c.txt"_s, u"/a b/100%"_s},
      {u"/a%20b/c.txt"_s, u"/a%20b"_s},
      {u"file://localhost/srv/x"_s, u"/srv"_s},
      {u"/main.c"_s, u"/"_s},
      {u"file:///a/b/"_s, u"/a"_s},
      {u"main.c"_s, {}},
      {u"/"_s, {}},
      {QString(), {}},
  };
  for (const auto& [document, expected] : rows) {
    EXPECT_EQ(ContextEngine::folderOfDocument(document).value_or(QString()), expected) << document.toStdString();
  }
}

/// The engine with the real git and real folders.
class ContextWithGit : public testing::Test {
 protected:
  void SetUp() override {
    qputenv("GIT_CONFIG_GLOBAL", "/dev/null");
    qputenv("GIT_CONFIG_NOSYSTEM", "1");
    if (!QFile::exists(u"/usr/bin/git"_s)) GTEST_SKIP() << "there is no git here";
    git({u"init"_s, u"-q"_s, u"-b"_s, u"main"_s, root});
    ASSERT_TRUE(QDir(root).mkpath(u"src deep/x"_s));
    git({u"-C"_s, root, u"-c"_s, u"user.name=A"_s, u"-c"_s, u"user.email=a@b"_s, u"commit"_s, u"-q"_s,
         u"--allow-empty"_s, u"-m"_s, u"One"_s});
    engine.start();
    workspace.front = RunningApplication{u"geany"_s, 30, u"Geany"_s, true};
    accessibility.windows[30] = u"/w"_s;
  }
  static void git(const QStringList& arguments) {
    QProcess process;
    process.start(u"/usr/bin/git"_s, arguments);
    ASSERT_TRUE(process.waitForFinished());
    ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  }
  const ContextSnapshot& open(const QString& document) {
    accessibility.nodes[u"/w"_s].facts.document = document;
    QSignalSpy changed(&center, &NotificationCenter::contextChanged);
    engine.scheduleUpdate();
    time.advance(300ms);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !changed.isEmpty(); }, 20000));
    return engine.snapshot();
  }

  QTemporaryDir folder;
  QString root = QFileInfo(folder.path()).canonicalFilePath() + u"/my repo"_s;
  ManualTime time;
  UserDefaults defaults{folder.filePath(u"defaults.json"_s), time};
  NotificationCenter center;
  FakeWorkspace workspace;
  FakeAccessibility accessibility;
  GitQueue queue{time};
  ContextEngine engine{{workspace, accessibility, time, queue}, defaults, center};
};

TEST_F(ContextWithGit, aFolderDeepInARepositoryWithSpaces) {
  EXPECT_EQ(open(root + u"/src deep/x/a.c"_s),
            (ContextSnapshot{u"geany"_s, root + u"/src deep/x"_s, root, u"main"_s}));
}

TEST_F(ContextWithGit, aWorktreeIsItsOwnRootOnItsOwnBranch) {
  const QString tree = folder.filePath(u"tree"_s);
  git({u"-C"_s, root, u"worktree"_s, u"add"_s, u"-q"_s, u"-b"_s, u"side"_s, tree});
  const auto& snapshot = open(tree + u"/a.c"_s);
  EXPECT_EQ(snapshot.gitRoot, QFileInfo(tree).canonicalFilePath());
  EXPECT_EQ(snapshot.gitBranch, u"side"_s);
}

TEST_F(ContextWithGit, aSubmoduleIsItsOwnRoot) {
  git({u"-C"_s, root, u"-c"_s, u"protocol.file.allow=always"_s, u"submodule"_s, u"--quiet"_s, u"add"_s, root,
       u"part"_s});
  EXPECT_EQ(open(root + u"/part/a.c"_s).gitRoot, root + u"/part"_s);
  EXPECT_EQ(open(root + u"/a.c"_s).gitRoot, root);
}

TEST_F(ContextWithGit, aDetachedHeadHasNoBranch) {
  git({u"-C"_s, root, u"checkout"_s, u"-q"_s, u"--detach"_s});
  const auto& snapshot = open(root + u"/a.c"_s);
  EXPECT_EQ(snapshot.gitRoot, root);
  EXPECT_EQ(snapshot.gitBranch, std::nullopt);
}

TEST_F(ContextWithGit, aMissingFolderOrOneOutsideHasNoRoot) {
  EXPECT_EQ(open(folder.filePath(u"a.c"_s)).gitRoot, std::nullopt);
  EXPECT_EQ(open(root + u"/gone/a.c"_s).gitRoot, std::nullopt);
}

TEST_F(ContextWithGit, aRepositoryThatGitRefusesCountsAsNone) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can give a folder to another user";
  for (const auto& path : {root, root + u"/.git"_s}) {
    ASSERT_EQ(chown(QFile::encodeName(path).constData(), 65534, 65534), 0);
  }
  EXPECT_EQ(open(root + u"/a.c"_s), (ContextSnapshot{u"geany"_s, root, std::nullopt, std::nullopt}));
}

}  // namespace
}  // namespace tarnwick::test
