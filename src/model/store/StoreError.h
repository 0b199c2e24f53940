// SPDX-License-Identifier: MIT
// What goes wrong with the store, in words for the user.
#pragma once

#include "platform/Result.h"

#include <QString>

struct sqlite3;

namespace tarnwick {

/// `detail` is the system's own text; it is shown where the kind alone does not say enough.
[[nodiscard]] Error storeError(ErrorKind kind, const QString& path, const QString& detail = {});
/// From the `errno` of a failed call.
[[nodiscard]] Error storeErrorOfSystem(int number, const QString& path);
/// From the last failed call on a connection.
[[nodiscard]] Error storeErrorOfSqlite(sqlite3* connection, const QString& path);

}  // namespace tarnwick
