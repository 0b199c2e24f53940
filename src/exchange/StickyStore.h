// SPDX-License-Identifier: MIT
// The notes of Linux Mint's Sticky: one JSON file with a list of notes for each group.
#pragma once

#include "exchange/ImportContent.h"
#include "platform/Result.h"

class QJsonObject;

namespace tarnwick {

class StickyStore final {
 public:
  /// Whether the object has the form: groups by name, each a list of notes with a text.
  [[nodiscard]] static bool isOne(const QJsonObject& root);
  [[nodiscard]] static Result<ImportContent> read(const QJsonObject& root, const QDateTime& now);
};

}  // namespace tarnwick
