// SPDX-License-Identifier: MIT
#include "exchange/Exchange.h"

#include "Samples.h"

#include <QRandomGenerator>

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
