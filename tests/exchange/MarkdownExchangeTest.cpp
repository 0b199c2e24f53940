// SPDX-License-Identifier: MIT
#include "exchange/MarkdownExchange.h"

#include "Samples.h"

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

std::vector<TaskRecord> readBack(const QByteArray& bytes) {
  auto read = MarkdownExchange::read(bytes, berlin(), importTime());
  EXPECT_TRUE(read) << (read ? "" : read.error().text.toStdString());
  return read ? read.take() : std::vector<TaskRecord>();
}

TEST(MarkdownExchange, isAListThatReadsWellWithoutUs) {
  auto milk = note(u"Buy milk\n- [x] oat"_s);
  milk.dueDate = utc("2026-03-05T23:00:00");
  auto call = note(u"Call Ada"_s);
  call.boardRaw = u"Work"_s;
  call.isCompleted = true;
  call.dueDate = utc("2026-03-06T08:00:00");
  const auto text = QString::fromUtf8(MarkdownExchange::write({milk, call}, berlin()));
  QStringList seen;
  for (const auto& line : text.split(u'\n')) {
    if (!line.contains(u"<!--"_s)) seen.append(line);
  }
  EXPECT_EQ(seen.join(u'\n'),
            u"# Tarnwick\n\n## General\n\n- [ ] Buy milk\n  - [x] oat\n  *Due 2026-03-06*\n\n"
            "## Work\n\n- [x] Call Ada\n  *Due 2026-03-06 09:00*\n"_s);
}

TEST(MarkdownExchange, carriesEveryFieldOfEveryNote) {
  const auto notes = awkwardNotes();
  const auto read = readBack(MarkdownExchange::write(notes, berlin()));
  ASSERT_EQ(read.size(), notes.size());
  for (const auto& expected : notes) {
    const auto found = std::find_if(read.begin(), read.end(), [&](const auto& r) { return r.id == expected.id; });
    ASSERT_NE(found, read.end());
    EXPECT_EQ(*found, expected) << expected.text.toStdString();
  }
}

TEST(MarkdownExchange, noFieldEndsItsCommentEarly) {
  const auto bytes = MarkdownExchange::write({fullNote()}, berlin());
  EXPECT_EQ(bytes.count("-->"), 1);
  EXPECT_EQ(readBack(bytes).at(0).gitBranch, fullNote().gitBranch);
}

TEST(MarkdownExchange, aFileThatWentThroughAnotherSystemsEditorIsTheSame) {
  auto notes = std::vector{note(u"one\n\ntwo"_s), fullNote()};
  auto bytes = MarkdownExchange::write(notes, berlin());
  bytes.replace("\n", "\r\n");
  EXPECT_EQ(readBack(bytes).size(), 2U);
  EXPECT_EQ(readBack(bytes)[0].text, u"one\n\ntwo"_s);
}

TEST(MarkdownExchange, takesWhatWasChangedByHand) {
  auto record = note(u"Buy milk"_s);
  auto bytes = MarkdownExchange::write({record}, berlin());
  bytes.replace("- [ ] Buy milk\n", "- [x] Buy oat milk\n  and bread\n");
  const auto read = readBack(bytes);
  ASSERT_EQ(read.size(), 1U);
  EXPECT_EQ(read[0].id, record.id);
  EXPECT_EQ(read[0].text, u"Buy oat milk\nand bread"_s);
  EXPECT_TRUE(read[0].isCompleted);
}

TEST(MarkdownExchange, takesAListOfAnotherHand) {
  const auto read = readBack(
      "# My day\n\nSome words.\n\n* [ ] First\n  more of it\n\n  and more\n\nNot a note.\n## Home\n- [X] Second\n"
      "- [ ] Same\n- [ ] Same\n- not a box\n- [ ]\n- [y] no\n");
  ASSERT_EQ(read.size(), 4U);
  EXPECT_EQ(read[0].text, u"First\nmore of it\n\nand more"_s);
  EXPECT_EQ(read[0].boardRaw, std::nullopt);
  EXPECT_EQ(read[0].createdAt, importTime());
  EXPECT_EQ(read[1].text, u"Second"_s);
  EXPECT_EQ(read[1].boardRaw, u"Home"_s);
  EXPECT_EQ(read[1].completedAt, importTime());
  EXPECT_NE(read[2].id, read[3].id);
  const auto again = readBack("## Home\n- [ ] Same\n- [ ] Same\n");
  EXPECT_EQ(again[0].id, read[2].id) << "the same entry is the same note at a second import";
  EXPECT_EQ(again[1].id, read[3].id);
}

TEST(MarkdownExchange, saysWhatIsWrong) {
  const struct {
    const char* text;
    const char* says;
  } rows[] = {
      {"", "no notes"},
      {"Just a letter.\n", "no notes"},
      {"- [ ] a\n  <!-- tarnwick {\"id\": -->\n", "line 2"},
      {"\n- [ ] a\n  <!-- tarnwick {} -->\n", "line 3: “id” is missing"},
      {"- [ ] a\n  <!-- tarnwick {\"id\": \"6F9619FF-8B86-D011-B42D-00CF4FC964FF\", \"dueDate\": true} -->",
       "“dueDate”"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    const auto read = MarkdownExchange::read(row.text, berlin(), importTime());
    ASSERT_FALSE(read);
    EXPECT_TRUE(read.error().text.contains(QString::fromUtf8(row.says))) << read.error().text.toStdString();
  }
  EXPECT_TRUE(readBack(MarkdownExchange::write({}, berlin())).empty());
}

}  // namespace
}  // namespace tarnwick::test
