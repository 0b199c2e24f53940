// SPDX-License-Identifier: MIT
// Notes that are hard to carry, and the calendar they are carried in.
#pragma once

#include "model/Calendar.h"
#include "support/Notes.h"

namespace tarnwick::test {

[[nodiscard]] inline Calendar berlin() {
  return {QTimeZone("Europe/Berlin"), QLocale(QLocale::German, QLocale::Germany)};
}

[[nodiscard]] inline QDateTime importTime() {
  return utc("2026-03-05T12:00:00");
}

/// Texts that a line format stumbles over.
[[nodiscard]] inline std::vector<QString> awkwardTexts() {
  using namespace Qt::StringLiterals;
  return {
      u"plain"_s,
      u""_s,
      u"\n"_s,
      u"two\n\n\nlines and the end\n"_s,
      u"- [ ] one\n- [x] two\n* [X] three"_s,
      u"   leading\n\ttab\n  two blanks\ntrailing   "_s,
      u"# Heading\n## Home\n<!-- tarnwick {} -->\n\\<!-- tarnwick {} -->\n--> \\\\"_s,
      u"  *Due tomorrow*\n*Due never*"_s,
      u"END:VTODO\nDUE;VALUE=DATE:20260101, \\n; \\\\ \"q\""_s,
      u"windows\r\nlines\rold mac"_s,
      u"NUL"_s + QChar(0) + u"bell\a del\x7f"_s,
      u"half "_s + QChar(0xD83D) + u" pair"_s,
      u"\uFEFFmark\u2028separator\u0085next"_s,
      QString(3000, u'ß') + u"🙂"_s.repeated(100),
  };
}

[[nodiscard]] inline std::vector<TaskRecord> awkwardNotes() {
  std::vector<TaskRecord> notes{note(), fullNote()};
  for (const auto& text : awkwardTexts()) {
    notes.push_back(note(text));
    auto dated = note(text);
    dated.dueDate = utc("2026-03-28T23:00:00");
    dated.isCompleted = true;
    dated.completedAt = utc("2026-03-29T01:00:00.500");
    notes.push_back(dated);
  }
  return notes;
}

}  // namespace tarnwick::test
