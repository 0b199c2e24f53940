// SPDX-License-Identifier: MIT
#include "model/StickyChecklist.h"

#include "support/Notes.h"

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

TEST(StickyChecklist, onlyTheThreeExactMarkersMakeALine) {
  for (const auto& line : {u"[ ]"_s, u"  text [x] more"_s, u"- [X]"_s, u"a[ ]b"_s})
    EXPECT_TRUE(StickyChecklist::isChecklistLine(line)) << line.toStdString();
  for (const auto& line : {u""_s, u"[]"_s, u"[ x ]"_s, u"[\t]"_s, u"[y]"_s, u"( )"_s, u"[\u00A0]"_s})
    EXPECT_FALSE(StickyChecklist::isChecklistLine(line)) << line.toStdString();
  EXPECT_TRUE(StickyChecklist::hasChecklist(u"words\nmore [ ]"_s));
  EXPECT_FALSE(StickyChecklist::hasChecklist(u"[\n]"_s));
}

TEST(StickyChecklist, makesAListOfAnyText) {
  const struct {
    QString text;
    QString list;
  } rows[] = {
      {u"milk\n\nbread"_s, u"- [ ] milk\n- [ ] bread"_s},
      {u"  milk\t\n \t \nbread\n"_s, u"- [ ] milk\n- [ ] bread"_s},
      {u""_s, u"- [ ] "_s},
      {u" \t "_s, u"- [ ] "_s},
      {u"\n\n"_s, u""_s},
      {u"- [ ] milk"_s, u"- [ ] milk\n- [ ] "_s},
      {u"- [ ] milk\n"_s, u"- [ ] milk\n- [ ] "_s},
      {u"words\n[x] done"_s, u"words\n[x] done\n- [ ] "_s},
      {u"one\r\ntwo\u2028three"_s, u"- [ ] one\n- [ ] two\n- [ ] three"_s},
  };
  for (const auto& row : rows) EXPECT_EQ(StickyChecklist::ensureChecklist(row.text), row.list);
}

TEST(StickyChecklist, labelsAreLinesWithoutMarkers) {
  const struct {
    QString line;
    QString label;
  } rows[] = {
      {u"- [ ] milk"_s, u"milk"_s},         {u"  - [X]  milk\t"_s, u"milk"_s}, {u"* [x] milk"_s, u"milk"_s},
      {u"[ ] a [x] b"_s, u"a  b"_s},        {u"* [X] milk"_s, u"*  milk"_s},   {u"plain"_s, u"plain"_s},
      {u"- [ ] - [ ] twice"_s, u"twice"_s}, {u"-[ ]milk"_s, u"-milk"_s},
  };
  for (const auto& row : rows) EXPECT_EQ(StickyChecklist::label(row.line), row.label);
}

TEST(StickyChecklist, togglesTheLineAtItsPlaceInTheText) {
  const auto text = u"title\n- [ ] milk\n- [X] bread [x]\n[x] a [ ] b"_s;
  const struct {
    int index;
    QString after;
  } rows[] = {
      {0, text},
      {1, u"title\n- [x] milk\n- [X] bread [x]\n[x] a [ ] b"_s},
      {2, u"title\n- [ ] milk\n- [ ] bread [ ]\n[x] a [ ] b"_s},
      {3, u"title\n- [ ] milk\n- [X] bread [x]\n[ ] a [ ] b"_s},
      {-1, text},
      {4, text},
  };
  for (const auto& row : rows) EXPECT_EQ(StickyChecklist::toggle(text, row.index), row.after) << row.index;
  EXPECT_EQ(StickyChecklist::toggle(u"\u2028[ ] a"_s, 1), u"\n[x] a"_s) << "lines are joined with one line feed";
}

TEST(StickyChecklist, countsWhatIsDone) {
  EXPECT_EQ(StickyChecklist::progress(u"no list"_s), std::nullopt);
  EXPECT_EQ(StickyChecklist::progress(u""_s), std::nullopt);
  EXPECT_EQ(StickyChecklist::progress(u"[x] a\n- [ ] b\nplain"_s), (StickyChecklist::Progress{1, 2}));
  EXPECT_EQ(StickyChecklist::progress(u"[X] and [ ]"_s), (StickyChecklist::Progress{1, 1}));
}

}  // namespace
}  // namespace tarnwick::test
