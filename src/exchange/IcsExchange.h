// SPDX-License-Identifier: MIT
// Notes as the to-dos of an iCalendar file. What the format has no form for stands in a property of ours; to-dos of
// other programs are taken too, as far as they go.
#pragma once

#include "exchange/NoteExport.h"
#include "model/Calendar.h"
#include "platform/Result.h"

#include <QByteArray>

namespace tarnwick {

class IcsExchange final {
 public:
  [[nodiscard]] static QByteArray write(const std::vector<TaskRecord>& tasks, const Calendar& calendar);
  /// `now` is the time of creation of notes that name none.
  [[nodiscard]] static Result<std::vector<TaskRecord>> read(const QByteArray& bytes, const Calendar& calendar,
                                                            const QDateTime& now);
};

}  // namespace tarnwick
