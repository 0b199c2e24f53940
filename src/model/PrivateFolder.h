// SPDX-License-Identifier: MIT
// Folders and files that only their owner may read.
#pragma once

#include <QString>

namespace tarnwick {

/// Makes the folder and what lacks above it, mode 0700. One that exists is left as it is; failing shows at first use.
void makePrivateFolder(const QString& path);

}  // namespace tarnwick
