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
