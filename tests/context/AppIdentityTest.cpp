// SPDX-License-Identifier: MIT
#include "context/AppIdentity.h"
#include "context/ProcessFacts.h"

#include "fakes/FakeDesktop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

TEST(AppIdentity, namesEveryApplicationSomehow) {
  FakeWorkspace workspace;
  workspace.applications = {{u"org.gnome.gedit"_s, 5, u"Text Editor"_s}, {u"nameless"_s, 6, u" "_s}};
  EXPECT_EQ(AppIdentity::of(workspace, u"org.gnome.gedit"_s).name, u"Text Editor"_s);
  EXPECT_EQ(AppIdentity::of(workspace, u"nameless"_s).name, u"nameless"_s);
  EXPECT_EQ(AppIdentity::of(workspace, u"not.installed"_s).name, u"not.installed"_s);
}

TEST(ProcessFacts, tellFolderAndArgumentsOfAProcess) {
  QTemporaryDir folder;
  QProcess process;
  process.setWorkingDirectory(folder.path());
  process.start(u"/bin/cat"_s, {u"-u"_s, u"-"_s});
  process.write("up");
  // Its arguments are told only once it runs, which is later than its start.
  ASSERT_TRUE(process.waitForReadyRead());
  const auto facts = processFacts(process.processId());
  EXPECT_EQ(facts.workingFolder, QDir(folder.path()).canonicalPath());
  EXPECT_EQ(facts.arguments, (QStringList{u"-u"_s, u"-"_s}));
  process.kill();
  process.waitForFinished();
}

TEST(ProcessFacts, ofNoProcessAreEmpty) {
  for (const qint64 pid : {qint64{0}, qint64{-1}, qint64{999999999}}) {
    EXPECT_TRUE(processFacts(pid).workingFolder.isEmpty());
    EXPECT_TRUE(processFacts(pid).arguments.isEmpty());
  }
}

}  // namespace
}  // namespace tarnwick::test
