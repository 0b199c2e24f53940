// SPDX-License-Identifier: MIT
// The pads of xpad: a folder with a description and a text file for each.
#pragma once

#include "exchange/ImportContent.h"
#include "platform/Result.h"

#include <QDir>

namespace tarnwick {

class XpadStore final {
 public:
  [[nodiscard]] static bool isOne(const QDir& folder);
  [[nodiscard]] static Result<ImportContent> read(const QDir& folder, const QDateTime& now);
};

}  // namespace tarnwick
