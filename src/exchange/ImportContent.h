// SPDX-License-Identifier: MIT
// What a file or folder offers for import, before anything is written: its notes, and what they lose on the way.
#pragma once

#include "exchange/NoteExport.h"

#include <QStringList>

namespace tarnwick {

struct ImportContent {
  QString origin;  // the program or format it comes from, as people call it
  NoteExport notes;
  QStringList leftBehind;  // what cannot be carried, a phrase each
  bool operator==(const ImportContent&) const = default;
};

}  // namespace tarnwick
