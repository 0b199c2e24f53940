// SPDX-License-Identifier: MIT
// What the readers of other programs' stores share: their files as text, and the words for what goes wrong.
#pragma once

#include "platform/Result.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace tarnwick {

/// No file of notes is larger; what is, is something else.
inline constexpr qint64 kLargestImport = 256LL * 1024 * 1024;

/// The whole file. The error names what is wrong, not the file.
[[nodiscard]] Result<QByteArray> readForeignBytes(const QString& path);
/// The file as text; nothing when it cannot be read or is no UTF-8. Carriage returns before line ends are gone.
[[nodiscard]] std::optional<QString> readForeignText(const QString& path);
[[nodiscard]] Error noForeignNotes(const QStringList& unreadable);
/// A phrase for the entries that could not be read, when there are some.
void appendUnreadable(const QStringList& unreadable, QStringList& leftBehind);

}  // namespace tarnwick
