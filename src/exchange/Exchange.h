// SPDX-License-Identifier: MIT
// Export and import as the commands name them: which format, and what an import adds to a store.
#pragma once

#include "exchange/NoteExport.h"
#include "model/Calendar.h"
#include "platform/Result.h"

#include <QByteArray>

#include <optional>

namespace tarnwick {

class ModelContainer;

enum class ExchangeFormat { Json, Markdown, Ics };

/// "json", "markdown", "ics"; nothing for another word.
[[nodiscard]] std::optional<ExchangeFormat> exchangeFormatFromName(const QString& name);
/// Only JSON carries clipboard items.
[[nodiscard]] QByteArray writeExport(const NoteExport& content, ExchangeFormat format, const Calendar& calendar);
/// Tells the format from the content. `now` is the time of creation of notes that name none.
[[nodiscard]] Result<NoteExport> readExport(const QByteArray& bytes, const Calendar& calendar, const QDateTime& now);

struct ImportCount {
  int imported = 0;
  int skipped = 0;  // notes whose identifier was there, in the store or earlier in the file
  TaskList added;
};

/// Every note of the store, oldest first, and its clipboard items.
[[nodiscard]] Result<NoteExport> contentOf(ModelContainer& container);
/// Adds what is not there yet and saves. After an error no note was added.
[[nodiscard]] Result<ImportCount> importInto(ModelContainer& container, const NoteExport& content);

}  // namespace tarnwick
