// SPDX-License-Identifier: MIT
// A copied text on the shelf. Only carried by the store: nothing creates one.
#pragma once

#include <QDateTime>
#include <QString>
#include <QUuid>

#include <optional>

namespace tarnwick {

struct ClipboardItem {
  QUuid id;
  QString content;
  std::optional<QString> contentTypeRaw;
  QDateTime copiedAt;
  std::optional<QString> sourceBundleID;
  std::optional<bool> isPinned;
  bool operator==(const ClipboardItem&) const = default;
};

}  // namespace tarnwick
