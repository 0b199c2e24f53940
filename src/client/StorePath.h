// SPDX-License-Identifier: MIT
// Where the user's store is, by the same rule as the whole program has.
#pragma once

#include <string>

namespace tarnwick::client {

/// Absolute path of the store file, from XDG_DATA_HOME or else HOME; the temporary folder when neither is set.
std::string storePath();

}  // namespace tarnwick::client
