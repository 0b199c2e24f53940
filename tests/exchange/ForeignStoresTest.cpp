// SPDX-License-Identifier: MIT
#include "exchange/Exchange.h"
#include "exchange/ForeignText.h"
#include "exchange/ImportFile.h"
#include "exchange/PlumStore.h"
#include "model/store/SqliteConnection.h"

#include "Samples.h"

#include <QDir>
#include <QRandomGenerator>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

/// A folder that another program might have left.
class ForeignStores : public testing::Test {
 protected:
  [[nodiscard]] QString path(const QString& name = {}) const { return m_folder.filePath(name); }
  void write(const QString& name, const QByteArray& bytes) const {
    QDir(path()).mkpath(QFileInfo(path(name)).path());
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
  }
  [[nodiscard]] QByteArray bytesOf(const QString& name) const {
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  [[nodiscard]] Result<ImportContent> read(const QString& name = {}) const {
    return readImport(path(name), berlin(), importTime());
  }
  [[nodiscard]] ImportContent content(const QString& name = {}) const {
    auto result = read(name);
    EXPECT_TRUE(result) << (result ? "" : result.error().text.toStdString());
    return result ? result.take() : ImportContent();
  }
  [[nodiscard]] QString error(const QString& name = {}) const {
    const auto result = read(name);
    EXPECT_FALSE(result);
    return result ? QString() : result.error().text;
  }
  /// A database in the form of Windows Sticky Notes; its log stays beside it unless it is moved in.
  void writePlum(const QByteArray& rows) const {
    {
      auto made = SqliteConnection::open(path(u"plum.sqlite"_s), SqliteConnection::Creation::Allowed);
      ASSERT_TRUE(made);
      made.value().keepLogOnClose();
      ASSERT_TRUE(made.value().execute(
          "PRAGMA journal_mode=WAL; CREATE TABLE Note (Text TEXT, WindowPosition TEXT, IsOpen INT, Theme TEXT, "
          "Id TEXT PRIMARY KEY, CreatedAt INT, DeletedAt INT, UpdatedAt INT);" + rows));
    }
    ASSERT_TRUE(QFile::exists(path(u"plum.sqlite-wal"_s)));
  }

 private:
  QTemporaryDir m_folder;
};

QStringList textsOf(const ImportContent& content) {
  QStringList texts;
  for (const auto& task : content.notes.tasks) texts.append(task.text);
  return texts;
}

const QByteArray kGnote =
    "<?xml version=\"1.0\"?>\n<note version=\"0.3\" xmlns:link=\"http://beatniksoftware.com/tomboy/link\" "
    "xmlns:size=\"http://beatniksoftware.com/tomboy/size\" xmlns=\"http://beatniksoftware.com/tomboy\">"
    "<title>Shopping</title><text xml:space=\"preserve\"><note-content version=\"0.1\">Shopping\n\n"
    "<list><list-item dir=\"ltr\">salt &lt;fine&gt; <bold>now</bold>\n<list><list-item dir=\"ltr\">sea</list-item></list>"
    "</list-item><list-item dir=\"ltr\">rice</list-item></list>and more</note-content>\n</text>"
    "<last-change-date>2026-11-21T23:30:23.312584Z</last-change-date>"
    "<create-date>2026-11-21T23:30:19.7726450+01:00</create-date><cursor-position>40</cursor-position>"
    "<tags><tag>system:notebook:Home</tag><tag>other</tag></tags><width>0</width></note>\n";

TEST_F(ForeignStores, aPadKeepsItsWordsAndItsColour) {
  write(u"default-style"_s, "height 300\nback rgb(255,238,153)\ntext rgb(0,0,0)\n");
  write(u"info-AAA"_s, "width 377\nx 150\nfollow_color 1\nback rgb(1,2,3)\ncontent content-AAA\n");
  write(u"content-AAA"_s, "\uE000bold\uE000Call\uE000/bold\uE000 <b>Ö</b>\nmother\n");
  write(u"info-BBB"_s, "follow_color 0\nback #ffff00008080\ncontent content-BBB\n");
  write(u"content-BBB"_s, "two");
  write(u"info-CCC"_s, "content content-CCC\n");
  write(u"content-CCC"_s, "  \n");
  const auto pads = content();
  EXPECT_EQ(pads.origin, u"xpad"_s);
  EXPECT_EQ(textsOf(pads), (QStringList{u"Call <b>Ö</b>\nmother\n"_s, u"two"_s}));
  EXPECT_EQ(pads.notes.tasks[0].colorHex, u"#FFEE99"_s);
  EXPECT_EQ(pads.notes.tasks[1].colorHex, u"#FF0080"_s);
  EXPECT_TRUE(pads.leftBehind.contains(u"fonts and text styles"_s));
  // One of the pads stands for them all: alone it is any text.
  EXPECT_EQ(content(u"content-BBB"_s), pads);
}

TEST_F(ForeignStores, aPadThatPointsElsewhereIsNotFollowed) {
  write(u"secret"_s, "- [ ] not a pad");
  write(u"pads/info-AAA"_s, "content ../secret\n");
  write(u"pads/info-BBB"_s, "content content-BBB\n");
  write(u"pads/content-BBB"_s, "mine");
  const auto pads = content(u"pads"_s);
  EXPECT_EQ(textsOf(pads), QStringList{u"mine"_s});
  EXPECT_TRUE(pads.leftBehind.last().contains(u"info-AAA"_s));
}

TEST_F(ForeignStores, aNoteOfGnoteKeepsListsNotebookAndDate) {
  write(u"gnote/0ad4e72a.note"_s, kGnote);
  const auto notes = content(u"gnote"_s);
  EXPECT_EQ(notes.origin, u"Gnote"_s);
  EXPECT_EQ(textsOf(notes), QStringList{u"Shopping\n\n- salt <fine> now\n  - sea\n- rice\nand more"_s});
  EXPECT_EQ(notes.notes.tasks[0].boardRaw, u"Home"_s);
  EXPECT_EQ(notes.notes.tasks[0].createdAt, utc("2026-11-21T22:30:19.772"));
  EXPECT_TRUE(notes.leftBehind.contains(u"text styles and links"_s));
  EXPECT_EQ(content(u"gnote/0ad4e72a.note"_s).notes, notes.notes) << "alone it is the same note";
}

TEST_F(ForeignStores, templatesAndDamagedNotesOfAFolderAreLeftOut) {
  auto model = kGnote;
  write(u"a.note"_s, kGnote);
  write(u"b.note"_s, model.replace("system:notebook:Home", "system:template"));
  write(u"c.note"_s, kGnote.left(400));
  write(u"d.note"_s, "<note><title>x</title></note>");
  write(u"e.note"_s, "");
  const auto notes = content();
  EXPECT_EQ(notes.notes.tasks.size(), 1U);
  EXPECT_TRUE(notes.leftBehind.last().contains(u"(3): c.note, d.note, e.note"_s)) << notes.leftBehind.last().toStdString();
}

TEST_F(ForeignStores, aNoteOfMintKeepsGroupColourAndBoxes) {
  write(u"notes.json"_s,
        "{\"Work\": [{\"x\": 1, \"y\": 2, \"color\": \"blue\", \"title\": \"Plan\", "
        "\"text\": \"#check:0 one\\n#check:1two ##3\\n#bullet: #tag:bold:dot#tag:bold: # end\"}, "
        "{\"text\": \"same\"}, {\"text\": \"same\", \"color\": \"mauve\"}, {\"text\": \" \", \"title\": \"\"}], \"Empty\": []}");
  const auto notes = content();
  EXPECT_EQ(notes.origin, u"Sticky"_s);
  EXPECT_EQ(textsOf(notes), (QStringList{u"Plan\n- [ ] one\n- [x] two #3\n- dot # end"_s, u"same"_s, u"same"_s}));
  EXPECT_EQ(notes.notes.tasks[0].boardRaw, u"Work"_s);
  EXPECT_EQ(notes.notes.tasks[0].colorHex, u"#3A86FF"_s);
  EXPECT_EQ(notes.notes.tasks[2].colorHex, u"#FFE169"_s);
  EXPECT_NE(notes.notes.tasks[1].id, notes.notes.tasks[2].id);
}

TEST_F(ForeignStores, aNoteOfWindowsIsReadFromTheLogTooAndNothingIsWritten) {
  writePlum("INSERT INTO Note VALUES ('\\id=1b2c Buy \\b milk\\b0  now' || char(10) || '\\id=9f C:\\\\dir', '', 1, 'Pink', "
            "'n1', 638396640000000000, NULL, 0), ('\\id=2 gone', '', 0, 'Blue', 'n2', 1, 638396640000000000, 0), "
            "('', '', 0, 'Blue', 'n3', 1, NULL, 0);");
  const auto before = bytesOf(u"plum.sqlite"_s);
  const auto log = bytesOf(u"plum.sqlite-wal"_s);
  const auto files = QDir(path()).entryList(QDir::Files);
  const auto notes = content(u"plum.sqlite"_s);
  EXPECT_EQ(notes.origin, u"Windows Sticky Notes"_s);
  EXPECT_EQ(textsOf(notes), QStringList{u"Buy milk now\nC:\\dir"_s});
  EXPECT_EQ(notes.notes.tasks[0].colorHex, u"#FF7597"_s);
  EXPECT_EQ(notes.notes.tasks[0].createdAt, utc("2024-01-01T00:00:00"));
  EXPECT_EQ(bytesOf(u"plum.sqlite"_s), before);
  EXPECT_EQ(bytesOf(u"plum.sqlite-wal"_s), log);
  EXPECT_EQ(QDir(path()).entryList(QDir::Files), files);
}

TEST_F(ForeignStores, saysWhatIsWrongWithAPlace) {
  write(u"other.sqlite"_s, "");
  {
    auto made = SqliteConnection::open(path(u"other.sqlite"_s), SqliteConnection::Creation::Allowed);
    ASSERT_TRUE(made.value().execute("CREATE TABLE Task (id TEXT)"));
  }
  write(u"cut.sqlite"_s, bytesOf(u"other.sqlite"_s).left(700));
  write(u"bad.note"_s, kGnote.left(300));
  QDir(path()).mkdir(u"empty"_s);
  const struct {
    const char* name;
    const char* says;
  } rows[] = {{"other.sqlite", "no table of sticky notes"}, {"cut.sqlite", "the database"}, {"bad.note", "line "},
              {"empty", "no notes of a program"},           {"missing", "no such file"},    {"/dev/zero", "no regular file"}};
  for (const auto& row : rows) {
    const auto result = QByteArray(row.name).startsWith('/') ? readImport(QString::fromLatin1(row.name), berlin(), importTime())
                                                              : read(QString::fromLatin1(row.name));
    ASSERT_FALSE(result) << row.name;
    EXPECT_TRUE(result.error().text.contains(QString::fromLatin1(row.says))) << result.error().text.toStdString();
  }
}

TEST_F(ForeignStores, damageIsAnErrorOrFewerNotesButNeverACrash) {
  writePlum("INSERT INTO Note VALUES ('\\id=1 one \\b two\\b0', '', 1, 'Pink', 'n1', 638396640000000000, NULL, 0);");
  const auto database = bytesOf(u"plum.sqlite"_s) + bytesOf(u"plum.sqlite-wal"_s);
  QRandomGenerator random(20261121);
  for (const auto& [name, whole] : {std::pair(u"x.note"_s, kGnote), std::pair(u"y.sqlite"_s, database),
                                    std::pair(u"notes.json"_s, QByteArray("{\"A\": [{\"text\": \"#check:1 #tag:b:x##\"}]}"))}) {
    for (int round = 0; round < 60; ++round) {
      auto bytes = whole;
      for (int change = 0; change <= round % 6; ++change) bytes[random.bounded(bytes.size())] = static_cast<char>(random.bounded(256));
      if (round % 4 == 0) bytes.truncate(random.bounded(bytes.size()));
      write(name, bytes);
      const auto result = read(name);
      if (!result) {
        EXPECT_FALSE(result.error().text.isEmpty());
      }
    }
  }
}

TEST_F(ForeignStores, aSecondImportAddsNothingAndThePreviewSaysSo) {
  write(u"a.note"_s, kGnote);
  const StoreFolder folder;
  const auto store = folder.open();
  const auto notes = content();
  EXPECT_EQ(previewOf(*store, notes).existing, 0);
  EXPECT_TRUE(store->mainContext().fetchTasks().empty()) << "a preview writes nothing";
  ASSERT_TRUE(importInto(*store, notes.notes));
  const auto preview = previewOf(*store, content());
  EXPECT_EQ(preview.notes, 1);
  EXPECT_EQ(preview.existing, 1);
  EXPECT_TRUE(previewText(notes, preview).contains(u"From Tomboy: 1 notes, 0 of them new"_s));
  EXPECT_EQ(importInto(*store, content().notes).value().imported, 0);
}

TEST_F(ForeignStores, aHomeOffersThePlacesThatExist) {
  write(u".config/xpad/info-A"_s, "content content-A\n");
  write(u".config/xpad/content-A"_s, "x");
  write(u".local/share/gnote/a.note"_s, kGnote);
  QDir(path()).mkpath(u".local/share/tomboy"_s);
  QStringList programs;
  for (const auto& place : importPlaces(path())) programs.append(place.program);
  EXPECT_EQ(programs, (QStringList{u"xpad"_s, u"Gnote"_s}));
}

TEST(ForeignFiles, takeTheRoomOfWhatTheyHold) {
  const QTemporaryDir folder;
  const auto path = folder.filePath(u"small"_s);
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("- [ ] one") == 9);
  file.close();
  const auto bytes = readForeignBytes(path);
  ASSERT_TRUE(bytes);
  EXPECT_EQ(bytes.value(), "- [ ] one");
  EXPECT_LT(bytes.value().capacity(), 4096) << "a folder may hold thousands of them";
}

}  // namespace
}  // namespace tarnwick::test
