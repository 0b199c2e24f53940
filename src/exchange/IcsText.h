// SPDX-License-Identifier: MIT
// The line format of iCalendar: folding, escaping, and content lines taken apart.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <vector>

namespace tarnwick::ics {

struct Property {
  QString name;                        // upper case
  QHash<QString, QString> parameters;  // names in upper case
  QString value;                       // as it stands, still escaped
};

/// Backslash forms for what separates values.
[[nodiscard]] QString escaped(const QString& text);
[[nodiscard]] QString unescaped(const QString& text);
/// A content line with its end, folded after 75 bytes at most and never inside a character.
[[nodiscard]] QByteArray line(const QString& name, const QString& value);
/// Unfolds and takes apart; lines that are no content lines are left out.
[[nodiscard]] std::vector<Property> properties(const QByteArray& bytes);

}  // namespace tarnwick::ics
