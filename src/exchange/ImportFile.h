// SPDX-License-Identifier: MIT
// Import from whatever a person points at: an export of ours, lists of other programs, or the place where another
// notes program keeps its notes. Foreign files are read and never written.
#pragma once

#include "exchange/ImportContent.h"
#include "model/Calendar.h"
#include "platform/Result.h"

namespace tarnwick {

class ModelContainer;

/// A file or a folder. Which program it belongs to is told from its content.
[[nodiscard]] Result<ImportContent> readImport(const QString& path, const Calendar& calendar, const QDateTime& now);
/// The same for bytes without a name, as from a pipe.
[[nodiscard]] Result<ImportContent> readImportBytes(const QByteArray& bytes, const Calendar& calendar,
                                                    const QDateTime& now);

/// What an import would do, counted.
struct ImportPreview {
  int notes = 0;
  int existing = 0;  // left as they are: in the store already, or earlier in the file
  int completed = 0;
  int dated = 0;
};
[[nodiscard]] ImportPreview previewOf(ModelContainer& container, const ImportContent& content);
/// For people: where the notes come from, how many, and what stays behind.
[[nodiscard]] QString previewText(const ImportContent& content, const ImportPreview& preview);

/// A place where a notes program of this user keeps notes that can be imported.
struct ImportPlace {
  QString program;
  QString path;
};
/// Those that exist below the user's home.
[[nodiscard]] std::vector<ImportPlace> importPlaces(const QString& home);

}  // namespace tarnwick
