// SPDX-License-Identifier: MIT
// The note options of `add` and `edit`, read into values: nothing here touches a note.
#pragma once

#include "app/commands/CommandLine.h"
#include "board/NoteEditing.h"
#include "model/Calendar.h"

namespace tarnwick {

struct NoteOptions {
  std::optional<QString> text;
  std::optional<QString> board;
  std::optional<QString> colorHex;
  std::optional<PaperTheme> paperTheme;
  std::optional<TaskStamp> stamp;
  std::optional<TaskTag> tag;
  std::optional<Recurrence> recurrence;
  std::optional<QDateTime> dueDate;
  bool hasNoDue = false;
  std::optional<QString> pin;
  bool hasNoPin = false;
  std::optional<QString> repositoryFolder;  // as typed
  bool hasNoRepository = false;
  std::optional<bool> isPrivate;

  /// The error's exit status is 2.
  [[nodiscard]] static Result<NoteOptions> parse(const CommandLine& line, const QDateTime& now,
                                                 const Calendar& calendar);
  /// Changes what was named; the repository is the caller's to look up.
  void applyTo(NoteDraft& draft, NoteExtras& extras) const;
};

/// A date, a date and time, `today` or `tomorrow`; inside a gap of the clock the first moment after it.
[[nodiscard]] std::optional<QDateTime> momentFromWords(const QString& when, const QDateTime& now,
                                                       const Calendar& calendar);
/// "#RRGGBB" in upper case; nothing unless there are six hexadecimal digits.
[[nodiscard]] std::optional<QString> colorFromWord(const QString& word);

}  // namespace tarnwick
