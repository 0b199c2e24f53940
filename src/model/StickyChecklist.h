// SPDX-License-Identifier: MIT
// Checkbox lines inside a note's text: "[ ]", "[x]" and "[X]" markers, kept in the text itself.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace tarnwick {

class StickyChecklist {
 public:
  struct Progress {
    int done = 0;
    int total = 0;
    bool operator==(const Progress&) const = default;
  };

  [[nodiscard]] static QStringList lines(const QString& text);
  [[nodiscard]] static bool hasChecklist(const QString& text);
  [[nodiscard]] static bool isChecklistLine(const QString& line);
  /// Whether the line holds a done marker.
  [[nodiscard]] static bool isDoneLine(const QString& line);
  [[nodiscard]] static QString ensureChecklist(const QString& text);
  /// The line without its marker.
  [[nodiscard]] static QString label(const QString& line);
  /// Flips the line at the index, counted over all lines; unchanged when there is none.
  [[nodiscard]] static QString toggle(const QString& text, int index);
  [[nodiscard]] static std::optional<Progress> progress(const QString& text);
};

}  // namespace tarnwick
