// SPDX-License-Identifier: MIT
// The notes of Gnote, Tomboy and their kin: an XML file each.
#pragma once

#include "exchange/ImportContent.h"
#include "platform/Result.h"

#include <QDir>

namespace tarnwick {

class TomboyStore final {
 public:
  [[nodiscard]] static bool isOne(const QDir& folder);
  [[nodiscard]] static bool isOne(const QByteArray& bytes);
  [[nodiscard]] static Result<ImportContent> read(const QDir& folder, const QDateTime& now);
  /// A single note; `name` is the file's, which is the note's identity.
  [[nodiscard]] static Result<ImportContent> read(const QByteArray& bytes, const QString& name, const QDateTime& now);
};

}  // namespace tarnwick
