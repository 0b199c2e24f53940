// SPDX-License-Identifier: MIT
#include "model/Color.h"
#include "model/Enumerations.h"
#include "model/Task.h"

#include "support/Notes.h"

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

template <typename E, std::size_t N>
QString rawValues(const std::array<E, N>& cases) {
  QStringList list;
  for (const auto value : cases) {
    list.append(rawValue(value));
    EXPECT_EQ(fromRawValue<E>(rawValue(value)), value);
  }
  return list.join(u' ');
}

TEST(Enumerations, storeTheirCaseNamesInOrder) {
  EXPECT_EQ(rawValues(kTaskTags), u"none red orange yellow green blue pink"_s);
  EXPECT_EQ(rawValues(kRecurrences), u"none daily weekdays weekly every3Days monthly"_s);
  EXPECT_EQ(rawValues(kPaperThemes), u"plain graph lined parchment construction"_s);
  EXPECT_EQ(rawValues(kTaskStamps), u"none urgent focus priority star idea approved"_s);
  EXPECT_EQ(rawValues(kNoteDisplayModes), u"alwaysOnTop desktop mouseThrough"_s);
  EXPECT_EQ(rawValues(kBoardMoods), u"obsidian corkboard drafting acrylic"_s);
}

TEST(Enumerations, unknownWordsAreNoCase) {
  for (const auto& word : {u""_s, u"Daily"_s, u"daily "_s, u"fortnightly"_s, u"0"_s}) {
    EXPECT_EQ(fromRawValue<Recurrence>(word), std::nullopt);
    EXPECT_EQ(fromRawValue<PaperTheme>(word), std::nullopt);
  }
  EXPECT_EQ(glassVariantFromRawValue(11), GlassVariant::soft);
  EXPECT_EQ(glassVariantFromRawValue(2), GlassVariant::clear);
  EXPECT_EQ(glassVariantFromRawValue(7), GlassVariant::dense);
  for (const int none : {0, 1, 3, -7}) EXPECT_EQ(glassVariantFromRawValue(none), std::nullopt);
}

TEST(Enumerations, stampsHaveTheirTintAndNoneIsInvisible) {
  EXPECT_EQ(tintColor(TaskStamp::priority).name(), u"#92400e"_s);
  EXPECT_EQ(tintColor(TaskStamp::none).alpha(), 0);
  EXPECT_EQ(label(PaperTheme::construction), u"Dark Craft"_s);
}

TEST(Color, readsHexTextsHoweverTheyAreWritten) {
  const struct {
    QString text;
    const char* color;
  } rows[] = {
      {u"#FFE169"_s, "#ffe169"},
      {u"FFE169"_s, "#ffe169"},
      {u"  #ffe169 "_s, "#ffe169"},
      {u"(FFE169);"_s, "#ffe169"},
      {u"#abc"_s, "#aabbcc"},
      {u"#FFE16980"_s, "#ffffff"},
      {u""_s, "#ffffff"},
      {u"##"_s, "#ffffff"},
      {u"#12345"_s, "#ffffff"},
      {u"#GG0000"_s, "#000000"},
      {u"12GG00"_s, "#000012"},
      {u"FF E16"_s, "#0000ff"},
      {u"0x1234"_s, "#001234"},
      {u"0x1"_s, "#000011"},
      {u"xyz"_s, "#000000"},
      {u"éééééé"_s, "#000000"},
      {u"1234\U0001F600"_s, "#ffffff"},
      {QString(u'\0') + u"abc"_s, "#aabbcc"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(Color::fromHex(row.text).name().toStdString(), row.color) << row.text.toStdString();
}

TEST(Color, inkIsThePaperMostOfTheWayToBlack) {
  EXPECT_EQ(Color::inkOnPaper(u"#FFE169"_s).name(), u"#383217"_s);
  EXPECT_EQ(Color::inkOnPaper(u"#3A86FF"_s).name(), u"#0d1d38"_s);
  EXPECT_EQ(Color::inkOnPaper(u"nonsense"_s).name(), u"#383838"_s);
  EXPECT_EQ(Color::blend(Qt::black, Qt::white, 0.5).red(), 128);
}

TEST(Color, paletteColoursHaveNames) {
  EXPECT_EQ(paperColorName(u"#ffe169"_s), u"Lemon"_s);
  EXPECT_EQ(paperColorName(u"#C77DFF"_s), u"Orchid"_s);
  EXPECT_EQ(paperColorName(u"#123456"_s), u"#123456"_s);
}

TEST(Task, typedViewsFallBackForAbsentAndUnknownTexts) {
  for (const auto& raw : {std::optional<QString>(), std::optional(u""_s), std::optional(u"velvet"_s)}) {
    auto record = note();
    record.paperThemeRaw = raw;
    record.stampRaw = raw;
    record.tagRaw = raw;
    const Task task(record);
    EXPECT_EQ(task.paperTheme(), PaperTheme::plain);
    EXPECT_EQ(task.stamp(), TaskStamp::none);
    EXPECT_EQ(task.tag(), TaskTag::none);
    EXPECT_EQ(task.record().paperThemeRaw, raw) << "reading changes nothing";
  }
}

TEST(Task, aFreshRecordHasEveryOptionalFieldAbsent) {
  const TaskRecord fresh;
  Task task(fresh);
  EXPECT_FALSE(task.isBurned() || task.isTornOff() || task.isDaily3() || task.isPrivate() || task.dueDate());
  EXPECT_EQ(task.board(), u"General"_s);
  task.setPaperTheme(PaperTheme::plain);
  EXPECT_EQ(task.record().paperThemeRaw, u"plain"_s);
}

TEST(Task, tellsItsObserverOfRealChangesOnly) {
  Task task(note());
  int told = 0;
  task.setChangeObserver([&](Task& changed) {
    EXPECT_EQ(&changed, &task);
    ++told;
  });
  task.set(&TaskRecord::text, u"Buy milk"_s);
  EXPECT_EQ(told, 0);
  task.set(&TaskRecord::isPrivate, false);
  EXPECT_EQ(told, 1) << "false is not absent";
  task.restore(task.record());
  EXPECT_EQ(told, 1);
  task.restore(note());
  EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace tarnwick::test
