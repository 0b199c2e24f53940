// SPDX-License-Identifier: MIT
// The note that an entry of another program becomes, which knows less of it than a note needs.
#pragma once

#include "model/Task.h"

namespace tarnwick {

/// `source` names the entry in its file: the same source always gives the same identifier, so that a second import
/// of it is recognised.
[[nodiscard]] TaskRecord foreignNote(const QString& source, const QString& text, const QDateTime& now);

}  // namespace tarnwick
