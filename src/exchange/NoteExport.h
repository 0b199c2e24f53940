// SPDX-License-Identifier: MIT
// What an export holds, as plain values.
#pragma once

#include "model/ClipboardItem.h"
#include "model/Task.h"

#include <vector>

namespace tarnwick {

struct NoteExport {
  std::vector<TaskRecord> tasks;
  std::vector<ClipboardItem> clipboardItems;
  bool operator==(const NoteExport&) const = default;
};

}  // namespace tarnwick
