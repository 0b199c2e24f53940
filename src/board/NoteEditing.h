// SPDX-License-Identifier: MIT
// What composer and editor write into a note, and in which order; the command line runs the same code.
#pragma once

#include "board/BoardServices.h"
#include "model/Task.h"
#include "platform/Result.h"

#include <optional>

namespace tarnwick {

/// A repository that a note is pinned to. The branch is kept for the reader; the note shows on all of them.
struct RepositoryPin {
  QString path;
  std::optional<QString> branch;
  bool operator==(const RepositoryPin&) const = default;
};

/// The composer's and the editor's fields.
struct NoteDraft {
  QString text;
  QString colorHex;
  PaperTheme paperTheme = PaperTheme::plain;
  TaskStamp stamp = TaskStamp::none;
  std::optional<QDateTime> dueDate;  // present when "due" is on
  QString recurrenceRaw = QStringLiteral("none");
  bool isPinnedToApp = false;
  std::optional<RepositoryPin> repository;
  bool isPrivate = false;
  QString board = kDefaultBoard;
  bool isDaily3 = false;  // of a new note only: an edit leaves the mark alone

  /// A new note's starting values: palette's first colour and the set paper theme.
  [[nodiscard]] static NoteDraft forNewNote(const class UserDefaults& defaults);
  [[nodiscard]] static NoteDraft of(const Task& task);
  /// Whether nothing would be left after trimming.
  [[nodiscard]] bool isEmpty() const;
};

/// What only the command line can ask for beside the draft. A text that is present but empty clears the field.
struct NoteExtras {
  /// Whether `save` writes the draft whole, or leaves alone, to the letter, what the draft has unchanged.
  enum class Unchanged { Write, Keep };

  std::optional<QString> pinnedBundleID;
  std::optional<QString> gitRepoPath;
  std::optional<QString> gitBranch;
  std::optional<QString> tagRaw;
  Unchanged unchanged = Unchanged::Write;
};

class NoteEditing final {
 public:
  explicit NoteEditing(const BoardServices& services) : m_services(services) {}

  /// The record a draft becomes: pin to the last external application, 09:00 today for a repeat without a date.
  [[nodiscard]] TaskRecord record(const NoteDraft& draft, const NoteExtras& extras = {}) const;
  /// Inserts, saves, schedules, plays, taps; null for blank text. A failed save is in the result and the note is gone.
  Result<TaskPtr> create(const NoteDraft& draft, const NoteExtras& extras = {});
  /// Writes the draft back, saves, plays, tells. False for blank text, and nothing is written. `extras` override.
  Result<bool> save(Task& task, const NoteDraft& draft, const NoteExtras& extras = {});
  /// Where a new note goes: onto the desktop, near the board, which hides. The board panel must exist.
  void stick(const TaskPtr& task);
  /// What the composer and the editor drop from both ends of a text.
  [[nodiscard]] static QString trimmed(const QString& text);

 private:
  const BoardServices& m_services;
};

}  // namespace tarnwick
