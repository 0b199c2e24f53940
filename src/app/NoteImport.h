// SPDX-License-Identifier: MIT
// What the command line and the import window do alike once notes are to be taken in.
#pragma once

#include "exchange/Exchange.h"

namespace tarnwick {

struct BoardServices;

/// Adds what is not there yet, plans its reminders and puts due notes on the desktop. After an error no note was added.
[[nodiscard]] Result<ImportCount> takeIn(const NoteExport& notes, const BoardServices& services);

/// Takes notes of an import out again, except those that are no longer as they came. The number that went.
[[nodiscard]] Result<int> takeBack(const std::vector<TaskRecord>& asTheyCame, const BoardServices& services);

}  // namespace tarnwick
