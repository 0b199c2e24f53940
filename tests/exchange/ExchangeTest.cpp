// SPDX-License-Identifier: MIT
#include "exchange/Exchange.h"

#include "Samples.h"

#include <QRandomGenerator>

#include <algorithm>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

constexpr std::array kFormats{ExchangeFormat::Json, ExchangeFormat::Markdown, ExchangeFormat::Ics};

TEST(Exchange, whatOneStoreWroteAnotherTakesOnce) {
  for (const auto format : kFormats) {
    SCOPED_TRACE(static_cast<int>(format));
    const StoreFolder from;
    const StoreFolder to;
    const auto source = from.open();
    const auto target = to.open();
    for (const auto& record : awkwardNotes()) source->mainContext().insert(record);
    ASSERT_TRUE(source->mainContext().save());
    const ClipboardItem item{QUuid::createUuid(), u"c"_s, std::nullopt, importTime(), std::nullopt, std::nullopt};
    ASSERT_TRUE(source->insertClipboardItems({item}));

    const auto bytes = writeExport(contentOf(*source).value(), format, berlin());
    const auto content = readExport(bytes, berlin(), importTime());
    ASSERT_TRUE(content) << content.error().text.toStdString();
    const auto first = importInto(*target, content.value());
    ASSERT_TRUE(first);
    EXPECT_EQ(first.value().imported, 30);
    EXPECT_EQ(first.value().skipped, 0);
    const auto second = importInto(*target, content.value());
    EXPECT_EQ(second.value().imported, 0);
    EXPECT_EQ(second.value().skipped, 30);
    EXPECT_EQ(contentOf(*target).value().tasks, contentOf(*source).value().tasks);
    EXPECT_EQ(target->clipboardItems().value().size(), format == ExchangeFormat::Json ? 1U : 0U);
  }
}

/// Any values that a store may hold, from a seed.
TaskRecord randomNote(QRandomGenerator& random) {
  const auto texts = awkwardTexts();
  auto record = fullNote();
  QByteArray bytes(16, '\0');
  for (auto& byte : bytes) byte = static_cast<char>(random.bounded(256));
  record.id = QUuid::fromRfc4122(bytes);
  record.text = texts[random.bounded(static_cast<int>(texts.size()))] + QString::number(random.bounded(1000));
  record.createdAt = utc("2000-01-01T00:00:00").addMSecs(random.bounded(1'000'000'000) * 1000LL + random.bounded(1000));
  const auto maybe = [&random](auto& field) {
    if (random.bounded(2) == 0) field.reset();
  };
  record.dueDate = random.bounded(3) == 0 ? berlin().startOfDay(record.createdAt.date()) : record.createdAt.addSecs(random.bounded(1 << 20));
  record.recurrenceRaw = random.bounded(8) == 0 ? u"fortnightly"_s : rawValue(kRecurrences.at(random.bounded(6U)));
  record.isCompleted = random.bounded(2) == 0;
  maybe(record.dueDate);
  maybe(record.isBurned);
  maybe(record.burnedAt);
  if (record.isCompleted) maybe(record.completedAt);
  if (!record.isCompleted) record.completedAt.reset();
  maybe(record.tagRaw);
  maybe(record.pinnedBundleID);
  maybe(record.gitRepoPath);
  maybe(record.gitBranch);
  maybe(record.paperThemeRaw);
  maybe(record.stampRaw);
  maybe(record.isTornOff);
  maybe(record.boardRaw);
  maybe(record.isDaily3);
  maybe(record.isNorthStar);
  maybe(record.attachmentPathsRaw);
  maybe(record.focusSeconds);
  maybe(record.isPrivate);
  return record;
}

TEST(Exchange, aThousandRandomNotesComeBackFieldByField) {
  QRandomGenerator random(20261122);
  NoteExport content;
  for (int i = 0; i < 1000; ++i) content.tasks.push_back(randomNote(random));
  for (const auto format : kFormats) {
    SCOPED_TRACE(static_cast<int>(format));
    auto read = readExport(writeExport(content, format, berlin()), berlin(), importTime());
    ASSERT_TRUE(read) << read.error().text.toStdString();
    ASSERT_EQ(read.value().tasks.size(), content.tasks.size());
    auto expected = content.tasks;
    // Markdown is laid out by board.
    const auto byId = [](const TaskRecord& a, const TaskRecord& b) { return a.id < b.id; };
    std::ranges::sort(expected, byId);
    std::ranges::sort(read.value().tasks, byId);
    for (std::size_t i = 0; i < expected.size(); ++i) ASSERT_EQ(read.value().tasks[i], expected[i]);
  }
}

TEST(Exchange, aNoteThatIsThereStaysAsItIs) {
  const StoreFolder folder;
  const auto store = folder.open();
  const auto record = note(u"mine"_s);
  store->mainContext().insert(record);
  auto other = record;
  other.text = u"theirs"_s;
  const auto fresh = note();
  const auto count = importInto(*store, {{other, fresh, fresh}, {}});
  ASSERT_TRUE(count);
  EXPECT_EQ(count.value().imported, 1);
  EXPECT_EQ(count.value().skipped, 2);
  EXPECT_EQ(store->mainContext().findTask(record.id)->text(), u"mine"_s);
}

TEST(Exchange, tellsTheFormatFromTheContent) {
  const auto record = note();
  for (const auto format : kFormats) {
    auto bytes = writeExport({{record}, {}}, format, berlin());
    EXPECT_EQ(readExport("\xEF\xBB\xBF" + bytes, berlin(), importTime()).value().tasks.at(0).id, record.id);
    if (format == ExchangeFormat::Ics) continue;
    EXPECT_EQ(readExport("\n \t" + bytes, berlin(), importTime()).value().tasks.at(0).id, record.id);
  }
  EXPECT_FALSE(readExport("", berlin(), importTime()));
  const auto binary = readExport(QByteArray("\x89PNG\r\n\x1a\n\0\0\xff", 11), berlin(), importTime());
  ASSERT_FALSE(binary);
  EXPECT_TRUE(binary.error().text.contains(u"UTF-8"_s));
}

TEST(Exchange, damagedFilesAreAnErrorOrNotesButNeverACrash) {
  QRandomGenerator random(20260304);
  for (const auto format : kFormats) {
    const auto whole = writeExport({{note(), fullNote(), note(u"last\n"_s)}, {}}, format, berlin());
    for (int round = 0; round < 400; ++round) {
      auto bytes = whole;
      for (int change = 0; change <= round % 5; ++change) {
        if (bytes.isEmpty()) break;
        const auto at = random.bounded(bytes.size());
        switch (random.bounded(4)) {
          case 0:
            bytes[at] = static_cast<char>(random.bounded(128));
            break;
          case 1:
            bytes.remove(at, random.bounded(40));
            break;
          case 2:
            bytes.insert(at, bytes.mid(random.bounded(bytes.size()), 30));
            break;
          default:
            bytes.truncate(at + 1);
        }
      }
      const auto read = readExport(bytes, berlin(), importTime());
      if (!read) {
        EXPECT_FALSE(read.error().text.isEmpty());
        continue;
      }
      // What was taken can be written again.
      for (const auto& task : read.value().tasks) EXPECT_FALSE(task.id.isNull());
      for (const auto again : kFormats) EXPECT_FALSE(writeExport(read.value(), again, berlin()).isEmpty());
    }
  }
}

}  // namespace
}  // namespace tarnwick::test
