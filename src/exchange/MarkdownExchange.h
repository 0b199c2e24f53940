// SPDX-License-Identifier: MIT
// Notes as a Markdown list of tasks, a heading per board. What Markdown has no form for stands in a comment behind each
// note; lists of tasks from other hands are taken too, as far as they go.
#pragma once

#include "exchange/NoteExport.h"
#include "model/Calendar.h"
#include "platform/Result.h"

#include <QByteArray>

namespace tarnwick {

class MarkdownExchange final {
 public:
  [[nodiscard]] static QByteArray write(const std::vector<TaskRecord>& tasks, const Calendar& calendar);
  /// `now` is the time of creation of notes that name none.
  [[nodiscard]] static Result<std::vector<TaskRecord>> read(const QByteArray& bytes, const Calendar& calendar,
                                                            const QDateTime& now);
};

}  // namespace tarnwick
