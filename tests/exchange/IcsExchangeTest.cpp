// SPDX-License-Identifier: MIT
#include "exchange/IcsExchange.h"

#include "Samples.h"

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

Result<std::vector<TaskRecord>> read(const QByteArray& bytes, const Calendar& calendar = berlin()) {
  return IcsExchange::read(bytes, calendar, importTime());
}

TaskRecord onlyNote(const QByteArray& todo, const Calendar& calendar = berlin()) {
  const auto result =
      read("BEGIN:VCALENDAR\r\nBEGIN:VTODO\r\n" + todo + "\r\nEND:VTODO\r\nEND:VCALENDAR\r\n", calendar);
  EXPECT_TRUE(result) << (result ? "" : result.error().text.toStdString());
  EXPECT_EQ(result ? result.value().size() : 0, 1U);
  return result && result.value().size() == 1 ? result.value()[0] : TaskRecord();
}

/// The file without its folds.
QByteArray unfolded(QByteArray bytes) {
  return bytes.replace("\r\n ", "");
}

TEST(IcsExchange, carriesEveryFieldOfEveryNote) {
  const auto notes = awkwardNotes();
  const auto result = read(IcsExchange::write(notes, berlin()));
  ASSERT_TRUE(result) << result.error().text.toStdString();
  ASSERT_EQ(result.value().size(), notes.size());
  for (std::size_t i = 0; i < notes.size(); ++i) EXPECT_EQ(result.value()[i], notes[i]) << notes[i].text.toStdString();
}

TEST(IcsExchange, keepsTheRulesOfTheFormat) {
  const auto bytes = IcsExchange::write(awkwardNotes(), berlin());
  EXPECT_TRUE(bytes.startsWith("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:"));
  EXPECT_TRUE(bytes.endsWith("END:VCALENDAR\r\n"));
  for (auto line : bytes.split('\n')) {
    if (line.isEmpty()) continue;
    ASSERT_TRUE(line.endsWith('\r'));
    line.chop(1);
    EXPECT_LE(line.size(), 75);
    EXPECT_EQ(QString::fromUtf8(line).toUtf8(), line) << "a fold inside a character";
  }
}

TEST(IcsExchange, saysWhatOtherProgramsUnderstand) {
  const struct {
    const char* due;
    const char* rule;
    const char* lines;
  } rows[] = {
      {"2026-03-03T23:00:00", "none", "DUE;VALUE=DATE:20260304\r\nSTATUS"},
      {"2026-03-04T08:00:00", "none", "DUE;TZID=Europe/Berlin:20260304T090000\r\nSTATUS"},
      {"2026-03-04T08:00:00", "daily",
       "DTSTART;TZID=Europe/Berlin:20260304T090000\r\nDUE;TZID=Europe/Berlin:20260304T090000\r\nRRULE:FREQ=DAILY\r\n"},
      {"2026-03-03T23:00:00", "weekdays",
       "DTSTART;VALUE=DATE:20260304\r\nDUE;VALUE=DATE:20260304\r\nRRULE:FREQ=WEEKLY;BYDAY=MO,TU,WE,TH,FR\r\n"},
      {"2026-03-04T08:00:00", "every3Days", "RRULE:FREQ=DAILY;INTERVAL=3\r\n"},
      {"2026-03-04T08:00:00", "fortnightly", "DUE;TZID=Europe/Berlin:20260304T090000\r\nSTATUS:NEEDS-ACTION\r\n"},
  };
  for (const auto& row : rows) {
    auto record = note(u"Buy milk; eggs, \\o/\nmore"_s);
    record.dueDate = utc(row.due);
    record.recurrenceRaw = QString::fromLatin1(row.rule);
    const auto bytes = unfolded(IcsExchange::write({record}, berlin()));
    EXPECT_TRUE(bytes.contains(row.lines)) << row.lines << "\n" << bytes.toStdString();
    EXPECT_TRUE(bytes.contains("\r\nSUMMARY:Buy milk\\; eggs\\, \\\\o/\r\n"));
  }
  auto burned = note();
  burned.isBurned = true;
  burned.isPrivate = true;
  const auto bytes = unfolded(IcsExchange::write({burned}, berlin()));
  EXPECT_TRUE(bytes.contains("\r\nSTATUS:CANCELLED\r\n"));
  EXPECT_TRUE(bytes.contains("\r\nCLASS:PRIVATE\r\n"));
}

TEST(IcsExchange, takesWhatAnotherProgramChanged) {
  auto record = fullNote();
  record.isCompleted = false;
  record.completedAt.reset();
  auto bytes = unfolded(IcsExchange::write({record}, berlin()));
  bytes.replace("DUE:20261025T013000Z", "DUE;TZID=Europe/Berlin:20261101T080000");
  bytes.replace("STATUS:CANCELLED", "STATUS:COMPLETED\r\nCOMPLETED:20260305T010203Z");
  const auto result = read(bytes);
  ASSERT_TRUE(result);
  EXPECT_EQ(result.value()[0].dueDate, utc("2026-11-01T07:00:00"));
  EXPECT_TRUE(result.value()[0].isCompleted);
  EXPECT_EQ(result.value()[0].completedAt, utc("2026-03-05T01:02:03"));
  EXPECT_EQ(result.value()[0].stampRaw, record.stampRaw);
}

TEST(IcsExchange, takesAToDoOfAnotherProgram) {
  const auto task = onlyNote(
      "UID:abc@example.org\r\nSUMMARY:Pay\\, now\r\nDESCRIPTION:the re\r\n nt\r\nCREATED:20260101T000000Z\r\n"
      "CATEGORIES:Home\\, inside,Garden\r\nDUE;VALUE=DATE:20260401\r\nCLASS:CONFIDENTIAL\r\nBEGIN:VALARM\r\nDESCRIPTION:Reminder\r\nTRIGGER:-PT15M\r\n"
      "END:VALARM");
  EXPECT_EQ(task.text, u"Pay, now\nthe rent"_s);
  EXPECT_EQ(task.createdAt, utc("2026-01-01T00:00:00"));
  EXPECT_EQ(task.dueDate, utc("2026-03-31T22:00:00"));
  EXPECT_EQ(task.isPrivate, true);
  EXPECT_EQ(task.boardRaw, u"Home, inside"_s);
  EXPECT_EQ(task.isBurned, std::nullopt);
  EXPECT_EQ(onlyNote("SUMMARY:x\r\nSTATUS:CANCELLED").isBurned, true);
  EXPECT_EQ(task.recurrenceRaw, u"none"_s);
  EXPECT_EQ(onlyNote("UID:abc@example.org\r\nSUMMARY:Other words").id, task.id);
}

TEST(IcsExchange, understandsRulesAndTimesOfOthersAsFarAsANoteCan) {
  const Calendar egypt(QTimeZone("Africa/Cairo"), QLocale(QLocale::Arabic, QLocale::Egypt));
  const struct {
    const char* lines;
    const char* rule;
    const char* due;
  } rows[] = {
      {"DUE:20260304T080000Z\r\nRRULE:FREQ=DAILY;INTERVAL=1", "daily", "2026-03-04T08:00:00"},
      {"DUE:20260304T080000Z\r\nRRULE:freq=weekly;byday=mo,tu,we,th,fr;wkst=su", "weekdays", "2026-03-04T08:00:00"},
      {"DUE:20260304T080000Z\r\nRRULE:WKST=MO;BYDAY=FR,TH,WE,TU,MO;FREQ=WEEKLY", "weekdays", "2026-03-04T08:00:00"},
      {"DUE:20260304T080000Z\r\nRRULE:FREQ=WEEKLY;BYDAY=WE", "weekly", "2026-03-04T08:00:00"},
      {"DUE:20260304T080000Z\r\nRRULE:FREQ=WEEKLY;BYDAY=TH", "none", "2026-03-04T08:00:00"},
      {"DUE:20260303T233000Z\r\nRRULE:FREQ=MONTHLY;BYMONTHDAY=4", "monthly", "2026-03-03T23:30:00"},
      {"DUE:20260304T080000Z\r\nRRULE:FREQ=YEARLY", "none", "2026-03-04T08:00:00"},
      {"DUE:20260304T080000Z\r\nRRULE:FREQ=WEEKLY;INTERVAL=2", "none", "2026-03-04T08:00:00"},
      {"DUE;TZID=\"America/New_York\":20260304T080000", "none", "2026-03-04T13:00:00"},
      {"DUE;TZID=Custom/Nowhere:20260304T080000", "none", "2026-03-04T07:00:00"},
      {"DUE;TZID=/maker.example/20260101_1/America/New_York:20260304T080000", "none", "2026-03-04T13:00:00"},
      {"DUE;TZID=Eastern Standard Time:20260304T080000", "none", "2026-03-04T13:00:00"},
      {"DUE:20260329T023000", "none", "2026-03-29T01:00:00"},
      {"DTSTART:20260328T090000\r\nDURATION:P1DT1H30M", "none", "2026-03-29T08:30:00"},
      {"DTSTART:20260304T080000Z\r\nDURATION:P2W\r\nRRULE:FREQ=DAILY", "daily", "2026-03-18T08:00:00"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.lines);
    const auto task = onlyNote(QByteArray("SUMMARY:x\r\n") + row.lines);
    EXPECT_EQ(task.recurrenceRaw, QString::fromLatin1(row.rule));
    EXPECT_EQ(task.dueDate, utc(row.due));
  }
  EXPECT_EQ(
      onlyNote("SUMMARY:x\r\nDUE:20260304T080000Z\r\nRRULE:FREQ=WEEKLY;BYDAY=MO,TU,WE,TH,SU", egypt).recurrenceRaw,
      u"weekdays"_s);
  for (const char* none : {"DUE:2026-03-04", "DTSTART:20260304T080000Z", "DTSTART:20260304T080000Z\r\nDURATION:-P1D",
                           "DTSTART:20260304T080000Z\r\nDURATION:PT",
                           "DTSTART:20260304T080000Z\r\nDURATION:tomorrow", "DURATION:P1D"}) {
    EXPECT_EQ(onlyNote(QByteArray("SUMMARY:x\r\n") + none).dueDate, std::nullopt) << none;
  }
}

TEST(IcsExchange, readsTimesByTheRulesThatAFileBringsAlong) {
  // The clocks of the east of America, under a name that nobody knows.
  const QByteArray rules =
      "BEGIN:STANDARD\r\nDTSTART:20071104T020000\r\nRRULE:FREQ=YEARLY;BYMONTH=11;BYDAY=1SU\r\nTZOFFSETFROM:-0400\r\n"
      "TZOFFSETTO:-0500\r\nEND:STANDARD\r\nBEGIN:DAYLIGHT\r\nDTSTART:20070311T020000\r\n"
      "RRULE:FREQ=YEARLY;BYDAY=SU;BYMONTHDAY=8,9,10,11,12,13,14;BYMONTH=3\r\nTZOFFSETFROM:-0500\r\nTZOFFSETTO:-0400\r\n"
      "END:DAYLIGHT\r\n";
  const QByteArray dates =
      "BEGIN:STANDARD\r\nDTSTART:20070101T000000\r\nTZOFFSETFROM:-0500\r\nTZOFFSETTO:-0500\r\nEND:STANDARD\r\n"
      "BEGIN:DAYLIGHT\r\nDTSTART:20250309T020000\r\nRDATE:20260308T020000,20270314T020000\r\nTZOFFSETFROM:-0500\r\n"
      "TZOFFSETTO:-0400\r\nEND:DAYLIGHT\r\nBEGIN:STANDARD\r\nDTSTART:20251102T020000\r\nRDATE:20261101T020000\r\n"
      "TZOFFSETFROM:-0400\r\nTZOFFSETTO:-0500\r\nEND:STANDARD\r\n";
  const std::pair<const char*, const char*> times[] = {
      {"20260304T080000", "2026-03-04T13:00:00"}, {"20260308T015959", "2026-03-08T06:59:59"},
      {"20260308T023000", "2026-03-08T07:00:00"}, {"20260308T030000", "2026-03-08T07:00:00"},
      {"20260701T080000", "2026-07-01T12:00:00"}, {"20261101T013000", "2026-11-01T05:30:00"},
      {"20261101T020000", "2026-11-01T07:00:00"}, {"20261231T080000", "2026-12-31T13:00:00"},
  };
  for (const auto& zone : {rules, dates, QByteArray("X-LIC-LOCATION:America/New_York\r\n")}) {
    for (const auto& [wall, moment] : times) {
      const auto result = read("BEGIN:VCALENDAR\r\nBEGIN:VTODO\r\nSUMMARY:x\r\nDUE;TZID=Head office:" + QByteArray(wall) +
                               "\r\nEND:VTODO\r\nBEGIN:VTIMEZONE\r\nTZID:Head office\r\n" + zone +
                               "END:VTIMEZONE\r\nEND:VCALENDAR\r\n");
      ASSERT_TRUE(result);
      EXPECT_EQ(result.value()[0].dueDate, utc(moment)) << wall << "\n" << zone.toStdString();
    }
  }
}

TEST(IcsExchange, aZoneItWritesReadsTheSameWithoutItsName) {
  for (const char* name : {"Europe/Berlin", "America/New_York", "Australia/Lord_Howe", "Asia/Kolkata", "Africa/Casablanca"}) {
    SCOPED_TRACE(name);
    const Calendar calendar(QTimeZone(name), QLocale::c());
    std::vector<TaskRecord> notes;
    for (auto due = utc("2026-01-01T11:17:00"); due < utc("2028-01-01T00:00:00"); due = due.addSecs(29 * 1800 + 100)) {
      notes.push_back(note());
      notes.back().id = QUuid::createUuid();
      notes.back().dueDate = due;
    }
    auto bytes = unfolded(IcsExchange::write(notes, calendar));
    // Another program's file: only the wall times and the zone's description are left to go by.
    bytes.replace(name, "Somewhere").replace("X-TARNWICK-NOTE", "X-OTHER");
    const auto result = read(bytes, Calendar(QTimeZone("Asia/Tokyo"), QLocale::c()));
    ASSERT_TRUE(result);
    ASSERT_EQ(result.value().size(), notes.size());
    for (std::size_t i = 0; i < notes.size(); ++i) {
      if (calendar.local(*notes[i].dueDate).time() == QTime(0, 0)) continue;  // a day, wherever it is read
      ASSERT_EQ(result.value()[i].dueDate, notes[i].dueDate) << notes[i].dueDate->toString().toStdString();
    }
  }
}

TEST(IcsExchange, saysWhatIsWrong) {
  const struct {
    const char* text;
    const char* says;
  } rows[] = {
      {"BEGIN:VCALENDAR\r\nBEGIN:VTODO\r\nSUMMARY:x\r\n", "VTODO"},
      {"BEGIN:VCALENDAR\r\nEND:VTODO\r\n", "VTODO"},
      {"END:VCALENDAR\r\n", "VCALENDAR"},
      {"BEGIN:VCALENDAR\r\nBEGIN:VTODO\r\nUID:x\r\nX-TARNWICK-NOTE:{}\r\nEND:VTODO\r\nEND:VCALENDAR", "to-do 1: “UID”"},
      {"BEGIN:VCALENDAR\r\nBEGIN:VTODO\r\nX-TARNWICK-NOTE:{\r\nEND:VTODO\r\nEND:VCALENDAR", "X-TARNWICK-NOTE"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    const auto result = read(row.text);
    ASSERT_FALSE(result);
    EXPECT_TRUE(result.error().text.contains(QString::fromUtf8(row.says))) << result.error().text.toStdString();
  }
  EXPECT_TRUE(read("BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nSUMMARY:x\r\nEND:VEVENT\r\nEND:VCALENDAR").value().empty());
}

}  // namespace
}  // namespace tarnwick::test
