// SPDX-License-Identifier: MIT
#include "WholeProgram.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QUrl>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

class Import : public testing::Test {
 protected:
  Import() {
    program.writeSettings(WholeProgram::seasoned());
    program.launch();
  }
  QString write(const QString& name, const QByteArray& bytes) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return file.fileName();
  }
  static QWidget* window() {
    for (auto* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == u"import" && widget->isVisible()) return widget;
    }
    return nullptr;
  }
  static QAbstractButton* button(const QString& text) {
    for (auto* each : window() ? window()->findChildren<QAbstractButton*>() : QList<QAbstractButton*>()) {
      if (each->isVisible() && (each->text() == text || each->accessibleName() == text)) return each;
    }
    return nullptr;
  }
  static QString shown() {
    QStringList texts;
    for (const auto* label : window()->findChildren<QLabel*>()) {
      if (label->isVisible()) texts.append(label->text());
    }
    return texts.join(u'\n');
  }
  [[nodiscard]] std::size_t count() { return program.context().fetchTasks().size(); }

  QTemporaryDir folder;
  WholeProgram program;
};

TEST_F(Import, filesAreShownFirstAndTakenInWhenTheUserSaysSo) {
  const auto list = write(u"my list.md"_s, "- [ ] one\n- [x] two\n");
  const auto bad = write(u"bad.json"_s, "{");
  program.delegate().openFiles({QUrl::fromLocalFile(list).toString(QUrl::FullyEncoded), bad});
  ASSERT_TRUE(window());
  EXPECT_TRUE(shown().contains(u"From Markdown: 2 notes, 2 of them new\nDone: 1"_s)) << shown().toStdString();
  EXPECT_TRUE(shown().contains(u"bad.json: "_s));
  EXPECT_EQ(count(), 0U);
  if (const auto pictures = qEnvironmentVariable("TARNWICK_PICTURES"); !pictures.isEmpty())
    window()->grab().save(pictures + u"/import.png"_s);
  ASSERT_TRUE(button(u"Import 2"_s));
  QTest::mouseClick(button(u"Import 2"_s), Qt::LeftButton);
  EXPECT_EQ(count(), 2U);
  EXPECT_TRUE(shown().contains(u"New on the board: 2. Left as they were: 0."_s));

  program.delegate().openFiles({list});
  EXPECT_TRUE(shown().contains(u"0 of them new"_s)) << "nothing is left to import";
  EXPECT_FALSE(button(u"Import 0"_s));
  QTest::keyClick(window(), Qt::Key_Escape);
  EXPECT_FALSE(window());
}

TEST_F(Import, anImportIsTakenBackButForWhatWasTouchedSince) {
  program.tarnwick({u"add"_s, u"here before"_s, u"--no-tear"_s});
  program.delegate().openFiles({write(u"list.ics"_s,
                                      "BEGIN:VCALENDAR\nBEGIN:VTODO\nUID:1\nSUMMARY:one\nDUE:20260303T060000Z\nEND:VTODO\n"
                                      "BEGIN:VTODO\nUID:2\nSUMMARY:two\nDUE:20990101T060000Z\nEND:VTODO\n"
                                      "BEGIN:VTODO\nUID:3\nSUMMARY:three\nEND:VTODO\nEND:VCALENDAR\n")});
  QTest::mouseClick(button(u"Import 3"_s), Qt::LeftButton);
  EXPECT_EQ(count(), 4U);
  EXPECT_FALSE(program.notifications.pending().empty());
  for (const auto& task : program.context().fetchTasks()) {
    if (task->text() == u"three") program.tarnwick({u"crush"_s, task->id().toString(QUuid::WithoutBraces)});
  }
  ASSERT_TRUE(button(u"Take back"_s));
  QTest::mouseClick(button(u"Take back"_s), Qt::LeftButton);
  EXPECT_TRUE(shown().contains(u"Gone from the board: 2. Changed since, and kept: 1."_s)) << shown().toStdString();
  EXPECT_FALSE(button(u"Take back"_s));
  QStringList left;
  for (const auto& task : program.context().fetchTasks()) left.append(task->text());
  left.sort();
  EXPECT_EQ(left, (QStringList{u"here before"_s, u"three"_s}));
  EXPECT_TRUE(program.notifications.pending().empty()) << "no reminder of a note that is gone";
}

TEST_F(Import, nothingComesWhenTheUserCancels) {
  program.delegate().openFiles({write(u"list.md"_s, "- [ ] one\n")});
  ASSERT_TRUE(button(u"Cancel"_s));
  QTest::mouseClick(button(u"Cancel"_s), Qt::LeftButton);
  EXPECT_FALSE(window());
  EXPECT_EQ(count(), 0U);
}

TEST_F(Import, theSettingsLeadThere) {
  program.delegate().showSettings();
  QAbstractButton* entry = nullptr;
  for (auto* widget : QApplication::topLevelWidgets()) {
    for (auto* each : widget->findChildren<QAbstractButton*>()) {
      if (each->text() == u"Import…") entry = each;
    }
  }
  ASSERT_TRUE(entry);
  entry->click();
  ASSERT_TRUE(window());
  EXPECT_TRUE(button(u"A file…"_s));
  if (const auto pictures = qEnvironmentVariable("TARNWICK_PICTURES"); !pictures.isEmpty())
    window()->grab().save(pictures + u"/import-choose.png"_s);
}

TEST_F(Import, noFileIsAPlainStart) {
  program.delegate().openFiles({});
  EXPECT_FALSE(window());
  EXPECT_TRUE(program.panel().isPresented());
}

}  // namespace
}  // namespace tarnwick::test
