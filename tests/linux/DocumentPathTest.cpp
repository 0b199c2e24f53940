// SPDX-License-Identifier: MIT
#include "linux/atspi/DocumentPath.h"

#include <QSet>

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

// A disk with two source files and a project folder.
PathKind disk(const QString& path) {
  static const QSet<QString> files = {QStringLiteral("/home/ann/proj/src/main.c"), QStringLiteral("/srv/notes.txt"),
                                      QStringLiteral("/home/ann/proj/read me.md")};
  static const QSet<QString> folders = {QStringLiteral("/"), QStringLiteral("/home/ann"), QStringLiteral("/home/ann/proj"),
                                        QStringLiteral("/home/ann/proj/src"), QStringLiteral("/srv")};
  if (files.contains(path)) return PathKind::File;
  return folders.contains(path) ? PathKind::Folder : PathKind::None;
}

struct Row {
  const char* what;
  QString title;
  QStringList arguments;
  QString workingDirectory;
  QString document;  // empty: none
};

class TheDocumentOfAWindow : public testing::TestWithParam<Row> {};

TEST_P(TheDocumentOfAWindow, IsWhatTitleAndProcessTell) {
  const auto& row = GetParam();
  const auto document =
      documentFromClues({row.title, row.arguments, row.workingDirectory, QStringLiteral("/home/ann")}, disk);
  EXPECT_EQ(document.value_or(QString()), row.document) << row.what;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TheDocumentOfAWindow,
    testing::Values(
        Row{"a whole path", QStringLiteral("/srv/notes.txt - Mousepad"), {}, {}, QStringLiteral("/srv/notes.txt")},
        Row{"a changed file", QStringLiteral("*/srv/notes.txt - Mousepad"), {}, {}, QStringLiteral("/srv/notes.txt")},
        Row{"file and folder in brackets", QStringLiteral("main.c (~/proj/src) - gedit"), {}, {}, QStringLiteral("/home/ann/proj/src/main.c")},
        Row{"file, folder, program", QStringLiteral("main.c - /home/ann/proj/src - Geany"), {}, {}, QStringLiteral("/home/ann/proj/src/main.c")},
        Row{"a file whose name has blanks", QStringLiteral("read me.md - /home/ann/proj - Geany"), {}, {}, QStringLiteral("/home/ann/proj/read me.md")},
        Row{"only a name, and the folder as argument", QStringLiteral("● main.c - proj - Code"), {QStringLiteral("/home/ann/proj/src")}, QStringLiteral("/"),
            QStringLiteral("/home/ann/proj/src/main.c")},
        Row{"a relative argument", QStringLiteral("Editor"), {QStringLiteral("--new"), QStringLiteral("src/main.c")}, QStringLiteral("/home/ann/proj"),
            QStringLiteral("/home/ann/proj/src/main.c")},
        Row{"a URL as argument", QStringLiteral("Editor"), {QStringLiteral("file:///srv/notes.txt")}, QStringLiteral("/"), QStringLiteral("/srv/notes.txt")},
        Row{"only a working folder", QStringLiteral("Editor"), {}, QStringLiteral("/home/ann/proj"), QStringLiteral("/home/ann/proj/.")},
        Row{"started at home", QStringLiteral("Editor"), {}, QStringLiteral("/home/ann"), {}},
        Row{"a path that is not there", QStringLiteral("/gone/file.c - Editor"), {}, QStringLiteral("/"), {}},
        Row{"an empty title", {}, {}, {}, {}}));

}  // namespace
}  // namespace tarnwick
