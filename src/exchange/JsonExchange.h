// SPDX-License-Identifier: MIT
// The JSON form of notes: what the command line prints and the one export that loses nothing.
#pragma once

#include "exchange/NoteExport.h"
#include "model/Calendar.h"
#include "platform/Result.h"

#include <QByteArray>

namespace tarnwick {

class JsonExchange final {
 public:
  /// One note as an object on one line.
  [[nodiscard]] static QByteArray note(const TaskRecord& task, const Calendar& calendar);
  /// An array with a note a line.
  [[nodiscard]] static QByteArray list(const std::vector<TaskRecord>& tasks, const Calendar& calendar);
  [[nodiscard]] static QByteArray write(const NoteExport& content, const Calendar& calendar);
  /// Takes an export or a list. The error says where and what.
  [[nodiscard]] static Result<NoteExport> read(const QByteArray& bytes, const Calendar& calendar);
};

}  // namespace tarnwick
