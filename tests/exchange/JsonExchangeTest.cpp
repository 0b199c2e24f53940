// SPDX-License-Identifier: MIT
#include "exchange/JsonExchange.h"

#include "Samples.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

TEST(JsonExchange, writesANoteInTheFieldsOrderWithoutAbsentOnes) {
  auto record = note(u"a \"quote\"\n"_s);
  record.id = QUuid::fromString("6f9619ff-8b86-d011-b42d-00cf4fc964ff"_L1);
  record.dueDate = utc("2026-07-01T07:00:00");
  record.recurrenceRaw = u"fortnightly"_s;
  record.isPrivate = false;
  EXPECT_EQ(
      QString::fromUtf8(JsonExchange::note(record, berlin())),
      u"{\"id\": \"6F9619FF-8B86-D011-B42D-00CF4FC964FF\", \"text\": \"a \\\"quote\\\"\\n\", "
      "\"colorHex\": \"#FFE169\", \"dueDate\": \"2026-07-01T09:00:00.000+02:00\", \"recurrence\": \"fortnightly\", "
      "\"isCompleted\": false, \"createdAt\": \"2026-03-03T10:00:00.123+01:00\", \"isPrivate\": false}\n"_s);
}

TEST(JsonExchange, namesAllFieldsOfAFullNote) {
  const auto object = QJsonDocument::fromJson(JsonExchange::note(fullNote(), berlin())).object();
  EXPECT_EQ(object.keys().size(), 23);
  EXPECT_EQ(object.value("tag"_L1).toString(), u"blue"_s);
  EXPECT_EQ(object.value("paperThemeRaw"_L1).toString(), u"from the future"_s);
  EXPECT_EQ(object.value("focusSeconds"_L1).toInteger(), std::numeric_limits<qint64>::max());
}

TEST(JsonExchange, writesMomentsWithTheOffsetOfTheirDay) {
  const struct {
    const char* zone;
    const char* moment;
    const char* written;
  } rows[] = {
      {"Europe/Berlin", "2026-10-25T00:30:00", "\"2026-10-25T02:30:00.000+02:00\""},
      {"Europe/Berlin", "2026-10-25T01:30:00", "\"2026-10-25T02:30:00.000+01:00\""},
      {"UTC", "2026-03-01T09:00:00", "\"2026-03-01T09:00:00.000+00:00\""},
      {"America/St_Johns", "2026-01-01T00:00:00.007", "\"2025-12-31T20:30:00.007-03:30\""},
      {"Asia/Kathmandu", "2026-01-01T00:00:00", "\"2026-01-01T05:45:00.000+05:45\""},
      // Local mean time has seconds, which ISO cannot say.
      {"Europe/Berlin", "1880-01-01T00:00:00", "\"1880-01-01T00:00:00.000+00:00\""},
      {"UTC", "0001-01-01T00:00:00", "\"0001-01-01T00:00:00.000+00:00\""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.written);
    const Calendar calendar(QTimeZone(row.zone), QLocale::c());
    auto record = note();
    record.createdAt = utc(row.moment);
    const auto text = JsonExchange::note(record, calendar);
    EXPECT_TRUE(text.contains(QByteArray("\"createdAt\": ") + row.written)) << text.toStdString();
    const auto read = JsonExchange::read('[' + text + ']', berlin());
    ASSERT_TRUE(read);
    EXPECT_EQ(read.value().tasks[0].createdAt, record.createdAt);
  }
}

TEST(JsonExchange, losesNothing) {
  NoteExport content{awkwardNotes(),
                     {{QUuid::createUuid(), u"copied\n"_s, std::nullopt, utc("2026-01-01T00:00:00"), u"app"_s, true}}};
  content.tasks[0].createdAt = QDateTime::fromMSecsSinceEpoch(-99'999'999'999'999, Qt::UTC);
  const auto read = JsonExchange::read(JsonExchange::write(content, berlin()), berlin());
  ASSERT_TRUE(read) << read.error().text.toStdString();
  ASSERT_EQ(read.value().tasks.size(), content.tasks.size());
  for (std::size_t i = 0; i < content.tasks.size(); ++i) EXPECT_EQ(read.value().tasks[i], content.tasks[i]) << i;
  EXPECT_EQ(read.value().clipboardItems, content.clipboardItems);
}

TEST(JsonExchange, anEmptyExportIsOne) {
  const auto bytes = JsonExchange::write({}, berlin());
  const auto object = QJsonDocument::fromJson(bytes).object();
  EXPECT_EQ(object.value("tarnwick"_L1).toInt(), 1);
  EXPECT_TRUE(object.value("tasks"_L1).isArray());
  EXPECT_TRUE(object.value("clipboardItems"_L1).isArray());
  EXPECT_EQ(JsonExchange::read(bytes, berlin()).value(), NoteExport());
  EXPECT_EQ(JsonExchange::list({}, berlin()), "[]\n");
}

TEST(JsonExchange, readsAListAndAnExportOfAnOtherBuild) {
  const auto record = note();
  const auto list = JsonExchange::list({record, fullNote()}, berlin());
  EXPECT_EQ(JsonExchange::read(list, berlin()).value().tasks[0], record);

  const auto read = JsonExchange::read(
      "{\"tarnwick\":1,\"future\":[1],\"tasks\":[{\"id\":\"{6f9619ff-8b86-d011-b42d-00cf4fc964ff}\",\"mood\":3,"
      "\"text\":\"x\",\"colorHex\":\"red\",\"recurrence\":\"none\",\"isCompleted\":false,\"tag\":null,"
      "\"createdAt\":\"2026-03-29T02:30:00\"}]}",
      berlin());
  ASSERT_TRUE(read) << read.error().text.toStdString();
  EXPECT_EQ(read.value().tasks[0].tagRaw, std::nullopt);
  EXPECT_EQ(read.value().tasks[0].createdAt, utc("2026-03-29T01:00:00")) << "a local time inside the gap";
}

TEST(JsonExchange, saysWhatIsWrong) {
  const struct {
    const char* json;
    const char* says;
  } rows[] = {
      {"", "no JSON"},
      {"{\"tarnwick\": 1, \"tasks\": [", "no JSON"},
      {"{}", "no export of Tarnwick"},
      {"{\"tarnwick\": \"1\", \"tasks\": []}", "no export of Tarnwick"},
      {"{\"tarnwick\": 0, \"tasks\": []}", "no export of Tarnwick"},
      {"{\"tarnwick\": 2, \"tasks\": []}", "newer version"},
      {"{\"tarnwick\": 1}", "“tasks”"},
      {"{\"tarnwick\": 1, \"tasks\": {}}", "“tasks”"},
      {"[{}, 3]", "tasks[0]: “id” is missing"},
      {"[3]", "tasks[0]"},
      {"[{\"id\": \"zebra\"}]", "tasks[0]: “id”"},
      {"[{\"id\": \"6F9619FF-8B86-D011-B42D-00CF4FC964FF\", \"text\": 5}]", "tasks[0]: “text”"},
      {"[{\"id\": \"6F9619FF-8B86-D011-B42D-00CF4FC964FF\", \"text\": \"\", \"colorHex\": \"\", \"dueDate\": "
       "\"soon\"}]",
       "tasks[0]: “dueDate”"},
      {"[{\"id\": \"6F9619FF-8B86-D011-B42D-00CF4FC964FF\", \"text\": \"\", \"colorHex\": \"\", \"recurrence\": "
       "\"none\","
       "\"isCompleted\": 1}]",
       "tasks[0]: “isCompleted”"},
      {"{\"tarnwick\": 1, \"tasks\": [], \"clipboardItems\": [[]]}", "clipboardItems[0]"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.json);
    const auto read = JsonExchange::read(row.json, berlin());
    ASSERT_FALSE(read);
    EXPECT_TRUE(read.error().text.contains(QString::fromUtf8(row.says))) << read.error().text.toStdString();
  }
}

TEST(JsonExchange, takesWholeNumbersOnly) {
  const struct {
    const char* number;
    std::optional<qint64> read;
  } rows[] = {{"12", 12},  {"12.0", 12},  {"-1", -1},     {"9223372036854775807", std::numeric_limits<qint64>::max()},
              {"1.5", {}}, {"1e300", {}}, {"\"12\"", {}}, {"true", {}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.number);
    auto json = JsonExchange::list({note()}, berlin());
    json.insert(json.lastIndexOf('}'), QByteArray(", \"focusSeconds\": ") + row.number);
    const auto read = JsonExchange::read(json, berlin());
    ASSERT_EQ(read.isOk(), row.read.has_value());
    if (read) {
      EXPECT_EQ(read.value().tasks[0].focusSeconds, row.read);
    }
  }
}

}  // namespace
}  // namespace tarnwick::test
