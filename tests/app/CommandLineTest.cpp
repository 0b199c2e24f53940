// SPDX-License-Identifier: MIT
#include "app/commands/CommandLine.h"

#include "app/commands/NoteOptions.h"
#include "fakes/ManualTime.h"

#include <gtest/gtest.h>

namespace tarnwick::test {

namespace {

using namespace Qt::StringLiterals;

/// The words as a shell without quotes would cut them; "_" stands for an empty word.
QStringList words(const char* text) {
  QStringList list = QString::fromUtf8(text).split(u' ', Qt::SkipEmptyParts);
  for (QString& word : list) {
    if (word == u"_") word.clear();
  }
  return list;
}

std::string complaint(const QStringList& list) {
  const auto parsed = CommandLine::parse(list);
  return parsed ? "none" : parsed.error().text.toStdString();
}

}  // namespace

TEST(CommandLine, knowsTheStartsAndEveryVerb) {
  const std::vector<std::pair<const char*, Verb>> rows{
      {"", Verb::Start},
      {"--background", Verb::Background},
      {"--version", Verb::Version},
      {"--help", Verb::Help},
      {"toggle", Verb::Toggle},
      {"board", Verb::Board},
      {"new", Verb::New},
      {"quit", Verb::Quit},
      {"add milk", Verb::Add},
      {"edit 1234", Verb::Edit},
      {"list", Verb::List},
      {"show 1234", Verb::Show},
      {"crush 1234", Verb::Crush},
      {"undo", Verb::Undo},
      {"check 1234 0", Verb::Check},
      {"revive 1234", Verb::Revive},
      {"sweep --yes", Verb::Sweep},
      {"tear 1234", Verb::Tear},
      {"redock 1234", Verb::Redock},
      {"export", Verb::Export},
      {"import notes.json", Verb::Import},
      {"settings", Verb::Settings},
      {"status", Verb::Status},
  };
  for (const auto& [text, verb] : rows) {
    const auto parsed = CommandLine::parse(words(text));
    ASSERT_TRUE(parsed) << text;
    EXPECT_EQ(parsed.value().verb, verb) << text;
  }
}

TEST(CommandLine, namesTheWordThatIsWrong) {
  const std::vector<std::pair<const char*, const char*>> rows{
      {"frob", "unknown verb frob"},
      {"--frob", "unknown option --frob"},
      {"-v", "unknown verb -v"},
      {"_", "unknown verb "},
      {"--background now", "now is one word too many"},
      {"toggle twice", "twice is one word too many for toggle"},
      {"add", "add needs TEXT"},
      {"add buy milk", "milk is one word too many for add"},
      {"add milk --frob", "unknown option --frob for add"},
      {"add milk --yes", "unknown option --yes for add"},
      {"add milk --board", "--board needs NAME"},
      {"add milk --board --tear", "--board needs NAME"},
      {"add milk --board -- x", "--board needs NAME"},
      {"add milk --tear=yes", "--tear takes no value"},
      {"add milk --tear --no-tear", "--no-tear contradicts --tear"},
      {"edit 1234 --no-due --due today", "--no-due contradicts --due"},
      {"check 1234", "check needs LINE"},
      {"check", "check needs ID"},
      {"revive", "revive needs ID or --all"},
      {"revive --all 1234", "revive takes ID or --all, not both"},
      {"sweep", "sweep deletes all ashes for good and needs --yes"},
      {"settings a b c", "c is one word too many for settings"},
  };
  for (const auto& [text, expected] : rows) EXPECT_EQ(complaint(words(text)), expected) << text;
}

TEST(CommandLine, takesOnlyTwoHyphensAndALetterForAnOption) {
  struct Row {
    const char* text;
    QStringList operands;
  };
  const Row rows[] = {
      {"add -", {u"-"_s}},          {"add -x", {u"-x"_s}},           {"add --1", {u"--1"_s}},
      {"add ---x", {u"---x"_s}},    {"add -- --tear", {u"--tear"_s}}, {"add -- --", {u"--"_s}},
      {"add --ähm", {u"--ähm"_s}},  {"add -- --help", {u"--help"_s}}, {"settings hotKey -1", {u"hotKey"_s, u"-1"_s}},
  };
  for (const auto& row : rows) {
    const auto parsed = CommandLine::parse(words(row.text));
    ASSERT_TRUE(parsed) << row.text;
    EXPECT_EQ(parsed.value().operands, row.operands) << row.text;
  }
}

TEST(CommandLine, takesOptionsAnywhereAndTheLastOfTwo) {
  const auto parsed = CommandLine::parse(words("add --board Home milk --board=Work --pin -odd-"));
  ASSERT_TRUE(parsed);
  EXPECT_EQ(parsed.value().operands, QStringList{u"milk"_s});
  EXPECT_EQ(parsed.value().value(u"--board"_s), u"Work"_s);
  EXPECT_EQ(parsed.value().value(u"--pin"_s), u"-odd-"_s);
  EXPECT_FALSE(parsed.value().value(u"--due"_s));
}

TEST(CommandLine, refusesANulByteAnywhere) {
  EXPECT_EQ(complaint({u"add"_s, QString(QChar(u'\0'))}), "a word holds a NUL byte");
  EXPECT_EQ(complaint({QString(u"quit"_s) + QChar(u'\0')}), "a word holds a NUL byte");
}

TEST(CommandLine, decodesNothingButText) {
  EXPECT_EQ(CommandLine::decode("gr\xc3\xbc\xc3\x9f"), u"grüß"_s);
  EXPECT_EQ(CommandLine::decode(""), QString());
  for (const QByteArray& bytes : {QByteArray("\xff"), QByteArray("a\xc3"), QByteArray("\xc0\x80"),
                                  QByteArray("\xed\xa0\x80"), QByteArray("a\0b", 3)}) {
    EXPECT_FALSE(CommandLine::decode(bytes)) << bytes.toHex().toStdString();
  }
}

TEST(CommandLine, helpsWithTheVerbWhateverElseIsSaid) {
  for (const char* text : {"add --help", "add --frob --help", "sweep --help", "check 1 2 3 --help"}) {
    const auto parsed = CommandLine::parse(words(text));
    ASSERT_TRUE(parsed) << text;
    EXPECT_EQ(parsed.value().verb, Verb::Help) << text;
    EXPECT_TRUE(parsed.value().helpFor) << text;
  }
}

TEST(CommandLine, namesEveryOptionInTheHelpOfItsVerb) {
  for (const auto& verb : verbDescriptors()) {
    const QString help = helpText(verb.verb);
    EXPECT_TRUE(help.startsWith(u"Usage: tarnwick "_s + verb.name)) << help.toStdString();
    for (const auto& option : verb.options) EXPECT_TRUE(help.contains(option.name)) << help.toStdString();
    EXPECT_TRUE(helpText({}).contains(u"\n  "_s + verb.name)) << verb.name.toStdString();
  }
}

TEST(NoteOptions, readAMomentInLocalTime) {
  struct Row {
    const char* zone;
    QString when;
    QString utc;  // empty: no moment
  };
  const Row rows[] = {
      {"Europe/Berlin", u"2026-03-01"_s, u"2026-02-28T23:00:00.000Z"_s},
      {"Europe/Berlin", u"2026-03-01T09:00"_s, u"2026-03-01T08:00:00.000Z"_s},
      {"Europe/Berlin", u"2026-03-01T09:00:30"_s, u"2026-03-01T08:00:30.000Z"_s},
      {"Europe/Berlin", u"2026-03-29T02:30"_s, u"2026-03-29T01:00:00.000Z"_s},
      {"Europe/Berlin", u"2026-10-25T02:30"_s, u"2026-10-25T00:30:00.000Z"_s},
      {"Europe/Berlin", u"today"_s, u"2026-03-02T23:00:00.000Z"_s},
      {"Europe/Berlin", u"tomorrow"_s, u"2026-03-03T23:00:00.000Z"_s},
      {"America/Santiago", u"2026-09-06"_s, u"2026-09-06T04:00:00.000Z"_s},
      {"Europe/Berlin", u"2028-02-29"_s, u"2028-02-28T23:00:00.000Z"_s},
      {"Europe/Berlin", u"2026-02-29"_s, {}},
      {"Europe/Berlin", u"2026-13-01"_s, {}},
      {"Europe/Berlin", u"2026-03-01T24:00"_s, {}},
      {"Europe/Berlin", u"2026-03-01T09:60"_s, {}},
      {"Europe/Berlin", u"2026-03-01T9:00"_s, {}},
      {"Europe/Berlin", u"2026-03-01 09:00"_s, {}},
      {"Europe/Berlin", u"2026-03-01T09:00Z"_s, {}},
      {"Europe/Berlin", u"2026-3-1"_s, {}},
      {"Europe/Berlin", u"2026-03-01\n"_s, {}},
      {"Europe/Berlin", u"٢٠٢٦-٠٣-٠١"_s, {}},
      {"Europe/Berlin", u"0000-01-01"_s, {}},
      {"Europe/Berlin", u"Today"_s, {}},
      {"Europe/Berlin", u""_s, {}},
  };
  for (const auto& row : rows) {
    ManualTime time;
    time.setZone(QTimeZone(row.zone));
    const auto moment = momentFromWords(row.when, time.now(), Calendar::of(time));
    EXPECT_EQ(moment ? moment->toUTC().toString(Qt::ISODateWithMs) : QString(), row.utc) << row.when.toStdString();
  }
}

TEST(NoteOptions, readAColourInOneForm) {
  const std::vector<std::pair<QString, std::optional<QString>>> rows{
      {u"#ffe169"_s, u"#FFE169"_s}, {u"06d6A0"_s, u"#06D6A0"_s}, {u"#fff"_s, {}}, {u"#FFE16980"_s, {}},
      {u"#GG0000"_s, {}},           {u"##FFE169"_s, {}},         {u"red"_s, {}},  {u""_s, {}},
  };
  for (const auto& [word, colour] : rows) EXPECT_EQ(colorFromWord(word), colour) << word.toStdString();
}

}  // namespace tarnwick::test
