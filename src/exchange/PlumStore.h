// SPDX-License-Identifier: MIT
// The notes of Windows Sticky Notes: the table Note of a database named plum.sqlite. A copy of it is opened, with the
// log that may lie beside it; the file itself is only read.
#pragma once

#include "exchange/ImportContent.h"
#include "platform/Result.h"

namespace tarnwick {

class PlumStore final {
 public:
  [[nodiscard]] static bool isOne(const QByteArray& bytes);
  [[nodiscard]] static Result<ImportContent> read(const QString& path, const QDateTime& now);
  /// Its text without the marks of paragraphs and styles.
  [[nodiscard]] static QString plainText(const QString& marked);
};

}  // namespace tarnwick
