// SPDX-License-Identifier: MIT
#include "context/EditorTitle.h"

#include "context/EditorRecents.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <random>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

/// A small home: some projects, and files with awkward names.
PathKind probe(const QString& path) {
  static const QStringList files{
      u"/home/ada/proj/src/main.c"_s,         u"/home/ada/proj/README.md"_s, u"/home/ada/code/engine/main.rs"_s,
      u"/home/ada/odd - name/part (2)/a.c"_s, u"/srv/other/README.md"_s,     u"/srv/other/src/util.c"_s,
      u"/home/ada/list.txt"_s,                u"/main.c"_s,
  };
  for (const auto& file : files) {
    if (file == path) return PathKind::File;
    if (file.startsWith(path + u'/') || path == u"/") return PathKind::Folder;
  }
  return PathKind::None;
}

struct Row {
  const char* name;
  QString title;
  QString application;
  QString workingFolder;
  QStringList arguments;
  QString folder;  // empty = none
};

std::string nameOf(const testing::TestParamInfo<Row>& row) { return row.param.name; }

class EditorTitle : public testing::TestWithParam<Row> {};

TEST_P(EditorTitle, namesTheFolderOrNothing) {
  const auto& row = GetParam();
  const EditorProcess process{row.application, row.workingFolder, row.arguments, u"/home/ada"_s};
  EXPECT_EQ(folderFromTitle(row.title, process, probe).value_or(QString()).toStdString(), row.folder.toStdString())
      << titlePieces(row.title, row.application).join(u" | "_s).toStdString();
}

const QString kHome = u"/home/ada"_s;
const QString kSource = u"/home/ada/proj/src"_s;

INSTANTIATE_TEST_SUITE_P(
    forms, EditorTitle,
    testing::Values(
        Row{"mousepadFullPath", u"/home/ada/proj/src/main.c - Mousepad"_s, u"Mousepad"_s, kHome, {}, kSource},
        Row{"mousepadUnsavedTilde", u"*~/proj/src/main.c - Mousepad"_s, u"Mousepad"_s, kHome, {}, kSource},
        Row{"geditBrackets", u"*main.c (~/proj/src) - gedit"_s, u"gedit"_s, kHome, {}, kSource},
        Row{"geanyTwoParts", u"main.c - /home/ada/proj/src - Geany"_s, u"Geany"_s, kHome, {}, kSource},
        Row{"rootFile", u"/main.c - Mousepad"_s, u"Mousepad"_s, kHome, {}, u"/"_s},
        Row{"kate", u"~/proj/src/main.c  — Kate"_s, u"Kate"_s, kHome, {}, kSource},
        Row{"jetbrains", u"proj [~/proj] – src/main.c"_s, u"IntelliJ IDEA"_s, kHome, {}, kSource},
        Row{"jetbrainsElided", u"proj – .../src/main.c"_s, u"IntelliJ IDEA"_s, kHome, {}, kSource},
        Row{"sublimeProject", u"~/proj/src/main.c (proj) - Sublime Text"_s, u"Sublime Text"_s, kHome, {}, kSource},
        Row{"vimBrackets", u"main.c + (~/proj/src) - GVIM"_s, u"GVim"_s, kHome, {}, kSource},
        Row{"dashAndBracketsInPath", u"/home/ada/odd - name/part (2)/a.c - Mousepad"_s, u"Mousepad"_s, kHome, {},
            u"/home/ada/odd - name/part (2)"_s},
        Row{"fileUrl", u"file:///home/ada/proj/src/main.c - Editor"_s, u"Editor"_s, kHome, {}, kSource}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    projects, EditorTitle,
    testing::Values(
        Row{"folderBelowHome", u"● README.md - proj - Visual Studio Code"_s, u"Visual Studio Code"_s, kHome, {},
            u"/home/ada/proj"_s},
        Row{"folderAmongProjects", u"main.rs - engine - Code - OSS"_s, u"Code"_s, kHome, {}, u"/home/ada/code/engine"_s},
        Row{"folderFromArgument", u"util.c - other - Visual Studio Code"_s, u"Visual Studio Code"_s, kHome,
            {u"--new-window"_s, u"/srv/other"_s}, u"/srv/other"_s},
        Row{"folderFromWorkingFolder", u"README.md — other"_s, u"Zed"_s, u"/srv/other"_s, {}, u"/srv/other"_s},
        Row{"fileInWorkingFolder", u"README.md - KWrite"_s, u"KWrite"_s, u"/srv/other"_s, {}, u"/srv/other"_s},
        Row{"relativeArgument", u"util.c - Editor"_s, u"Editor"_s, u"/srv/other"_s, {u"src/util.c"_s},
            u"/srv/other/src"_s},
        Row{"onlyTheApplication", u"Emacs"_s, u"Emacs"_s, u"/srv/other"_s, {}, u"/srv/other"_s}),
    nameOf);

// A wrong folder would show the notes of another repository: then rather none.
INSTANTIATE_TEST_SUITE_P(
    contradictions, EditorTitle,
    testing::Values(
        Row{"fileOfAnotherProject", u"README.md - elsewhere - Visual Studio Code"_s, u"Visual Studio Code"_s,
            u"/srv/other"_s, {}, {}},
        Row{"untitled", u"Untitled 1 - notes - Editor"_s, u"Editor"_s, u"/srv/other"_s, {}, {}},
        Row{"homeSaysNothing", u"Emacs"_s, u"Emacs"_s, kHome, {}, {}},
        Row{"goneFile", u"/home/ada/gone/main.c - Mousepad"_s, u"Mousepad"_s, u"/srv/other"_s, {}, {}},
        Row{"emptyTitle", u""_s, u"Editor"_s, {}, {}, {}},
        Row{"marksOnly", u" * - • - Editor"_s, u"Editor"_s, kHome, {}, {}}),
    nameOf);

TEST(EditorRecents, tellWhereAProjectOfThatNameIs) {
  const auto folder = [](const QString& title, const QStringList& recent) {
    const EditorProcess process{u"Visual Studio Code"_s, kHome, {}, kHome, [&] { return recent; }};
    return folderFromTitle(title, process, probe).value_or(QString());
  };
  const auto title = u"util.c - other - Visual Studio Code"_s;
  EXPECT_EQ(folder(title, {}), QString());
  EXPECT_EQ(folder(title, {u"/gone/other"_s, u"/srv/other"_s}), u"/srv/other"_s) << "one that is there";
  EXPECT_EQ(folder(title, {u"/srv/other/src/util.c"_s}), u"/srv/other"_s) << "a file below it will do";
  EXPECT_EQ(folder(u"util.c - Visual Studio Code"_s, {u"/home/ada/list.txt"_s, u"/srv/other/src/util.c"_s}),
            u"/srv/other/src"_s);
  EXPECT_EQ(folder(u"README.md - Visual Studio Code"_s, {u"/home/ada/proj/README.md"_s, u"/srv/other/README.md"_s}),
            QString()) << "two of that name: rather none";
  EXPECT_EQ(folder(u"README.md - elsewhere - Visual Studio Code"_s, {u"/srv/other/README.md"_s}), QString());
}

TEST(EditorRecents, areReadInTheFormOfEachEditor) {
  const std::vector<std::pair<QByteArray, QStringList>> rows{
      {R"({"menu": [{"uri": {"path": "/srv/other"}}, {"folderUri": "file:///home/ada/a%20b"}]})",
       {u"/srv/other"_s, u"/home/ada/a b"_s}},
      {R"(<entry key="$USER_HOME$/proj"><value/></entry><option value="/srv/other" />)",
       {u"/home/ada/proj"_s, u"/srv/other"_s}},
      {"[files]\nrecent_files=/srv/other/a.c;/home/ada/list.txt;\nrecent_projects=\n",
       {u"/srv/other/a.c"_s, u"/home/ada/list.txt"_s}},
      {"[Recent Files]\nFile1[$e]=$HOME/proj/README.md\n", {u"/home/ada/proj/README.md"_s}},
      {"<bookmark href=\"file:///srv/B%C3%BCro/x.c\" added=\"2026\">", {u"/srv/Büro/x.c"_s}},
      {"", {}},
      {QByteArray("\0\xff/\"/", 5), {}},
  };
  for (const auto& [text, paths] : rows) EXPECT_EQ(pathsIn(text, kHome), paths) << text.toStdString();
  EXPECT_LE(pathsIn(QByteArray("\"/a\"\"/b").repeated(100000), kHome).size(), 300);
}

TEST(EditorRecents, areTheEditorsOwn) {
  const QTemporaryDir config;
  const auto write = [&](const QString& name, const QByteArray& text) {
    const QString path = config.filePath(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  };
  write(u"geany/geany.conf"_s, "recent_files=/one/a.c;");
  write(u"Code/User/globalStorage/storage.json"_s, R"({"x": "file:///two"})");
  write(u"JetBrains/IdeaIC2024.1/options/recentProjects.xml"_s, R"(<entry key="/three">)");
  const UserFolders folders{kHome, config.path(), config.path()};
  EXPECT_EQ(recentPaths(u"geany"_s, folders), QStringList{u"/one/a.c"_s});
  EXPECT_EQ(recentPaths(u"Code"_s, folders), QStringList{u"/two"_s});
  EXPECT_EQ(recentPaths(u"jetbrains-idea-ce"_s, folders), QStringList{u"/three"_s});
  EXPECT_EQ(recentPaths(u"codium"_s, folders), QStringList());
  EXPECT_EQ(recentPaths(u"org.browser"_s, folders), QStringList());
}

// Whatever a program writes into its title, the answer is a folder that is there, found without a long search.
TEST(EditorTitles, ofAnyKindGiveAnExistingFolderOrNothing) {
  const QStringList words{u" - "_s,       u" – "_s, u" • "_s, u"("_s,     u")"_s,    u"["_s,   u"]"_s,   u"/"_s,
                          u"~"_s,         u".."_s,  u"*"_s,   u"main.c"_s, u"proj"_s, u"src"_s, u"●"_s,   u" @ "_s,
                          u"/home/ada"_s, u"\n"_s,  u"file:///"_s, u"README.md"_s, u"Geany"_s, u"%20"_s, u"\u202E"_s};
  std::mt19937 random(7);
  for (int round = 0; round < 3000; ++round) {
    QString title;
    const auto length = random() % (round % 100 == 0 ? 3000 : 12);
    for (unsigned i = 0; i < length; ++i) title += words[static_cast<qsizetype>(random() % words.size())];
    int probes = 0;
    const auto counted = [&](const QString& path) {
      ++probes;
      EXPECT_TRUE(path.startsWith(u'/')) << path.toStdString();
      return probe(path);
    };
    const EditorProcess process{u"Geany"_s, u"/srv/other"_s, {u"src/util.c"_s, u"--flag"_s}, u"/home/ada"_s};
    const auto folder = folderFromTitle(title, process, counted);
    EXPECT_TRUE(!folder || probe(*folder) == PathKind::Folder) << title.toStdString();
    EXPECT_LT(probes, 1500);
  }
}

}  // namespace
}  // namespace tarnwick::test
