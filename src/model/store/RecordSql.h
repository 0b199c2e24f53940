// SPDX-License-Identifier: MIT
// SQL and values between a record and its table, from the column descriptors.
#pragma once

#include "model/store/SqliteStatement.h"
#include "model/store/TaskColumns.h"

#include <QByteArray>
#include <QHash>

#include <type_traits>

namespace tarnwick {

/// Unlike Qt's own conversion it keeps a byte order mark that stands first: here it is part of a text.
[[nodiscard]] inline QString textOfUtf8(QByteArrayView utf8) {
  constexpr QByteArrayView kByteOrderMark("\xEF\xBB\xBF");
  qsizetype marks = 0;
  while (utf8.sliced(marks * kByteOrderMark.size()).startsWith(kByteOrderMark)) ++marks;
  auto text = QString::fromUtf8(utf8.sliced(marks * kByteOrderMark.size()));
  return marks == 0 ? text : QString(marks, QChar::ByteOrderMark) + text;
}

/// Keeps one copy of each text that many rows share.
class TextPool final {
 public:
  [[nodiscard]] QString text(QByteArrayView utf8) {
    if (utf8.size() > kLongest) return textOfUtf8(utf8);
    const auto key = QByteArray::fromRawData(utf8.data(), utf8.size());
    const auto found = m_texts.constFind(key);
    if (found != m_texts.constEnd()) return *found;
    auto text = textOfUtf8(utf8);
    if (m_texts.size() < kMost) m_texts.insert(utf8.toByteArray(), text);
    return text;
  }

 private:
  static constexpr qsizetype kLongest = 256;
  static constexpr qsizetype kMost = 4096;
  QHash<QByteArray, QString> m_texts;
};

namespace sql {

template <typename Columns>
[[nodiscard]] QByteArray columnList(const Columns& columns) {
  QByteArray list;
  for (const auto& column : columns) {
    if (!list.isEmpty()) list += ", ";
    list += '"' + QByteArray(column.name.data(), column.name.size()) + '"';
  }
  return list;
}

template <typename Record>
[[nodiscard]] QByteArray columnType(const Column<Record>& column) {
  const bool isText = std::visit(
      [](auto member) {
        using Value = std::remove_cvref_t<decltype(std::declval<Record>().*member)>;
        return std::is_same_v<Value, QUuid> || std::is_same_v<Value, QString> ||
               std::is_same_v<Value, std::optional<QString>>;
      },
      column.field);
  return isText ? " TEXT" : " INTEGER";
}

template <typename Columns>
[[nodiscard]] QByteArray createTable(const char* table, const Columns& columns) {
  QByteArray list;
  for (const auto& column : columns) {
    list += list.isEmpty() ? "" : ", ";
    list += '"' + QByteArray(column.name.data(), column.name.size()) + '"' + columnType(column);
    if (!column.isOptional()) list += " NOT NULL";
    if (column.name == QLatin1StringView("id")) list += " PRIMARY KEY";
  }
  return QByteArray("CREATE TABLE ") + table + " (" + list + ")";
}

template <typename Columns>
[[nodiscard]] QByteArray insertInto(const char* table, const Columns& columns) {
  QByteArray marks;
  for (std::size_t i = 0; i < columns.size(); ++i) marks += i == 0 ? "?" : ", ?";
  return QByteArray("INSERT INTO ") + table + " (" + columnList(columns) + ") VALUES (" + marks + ")";
}

/// The row's number is the parameter after the columns.
template <typename Columns>
[[nodiscard]] QByteArray updateOf(const char* table, const Columns& columns) {
  QByteArray list;
  for (const auto& column : columns) {
    list += list.isEmpty() ? "" : ", ";
    list += '"' + QByteArray(column.name.data(), column.name.size()) + "\" = ?";
  }
  return QByteArray("UPDATE ") + table + " SET " + list + " WHERE rowid = ?";
}

inline void bindValue(SqliteStatement& statement, int index, const QUuid& value) {
  statement.bind(index, value);
}
inline void bindValue(SqliteStatement& statement, int index, const QString& value) {
  statement.bind(index, value);
}
inline void bindValue(SqliteStatement& statement, int index, qint64 value) {
  statement.bind(index, value);
}
inline void bindValue(SqliteStatement& statement, int index, bool value) {  // NOLINT: the field is a bool
  statement.bind(index, value ? qint64{1} : qint64{0});
}
inline void bindValue(SqliteStatement& statement, int index, const QDateTime& value) {
  statement.bind(index, value.toMSecsSinceEpoch());
}
template <typename T>
void bindValue(SqliteStatement& statement, int index, const std::optional<T>& value) {
  if (value) {
    bindValue(statement, index, *value);
  } else {
    statement.bindNull(index);
  }
}

/// Binds all columns from parameter 1 on.
template <typename Columns, typename Record>
void bindRecord(SqliteStatement& statement, const Columns& columns, const Record& record) {
  int index = 1;
  for (const auto& column : columns) {
    std::visit([&](auto member) { bindValue(statement, index, record.*member); }, column.field);
    ++index;
  }
}

/// Values of a type that the column does not have are as good as absent: another hand wrote them.
inline void readValue(const SqliteStatement& statement, int column, QUuid& value) {
  const auto bytes = statement.bytes(column);
  value = QUuid::fromString(QLatin1StringView(bytes.data(), bytes.size()));
}
inline void readValue(const SqliteStatement& statement, int column, QString& value) {
  value = textOfUtf8(statement.bytes(column));
}
inline void readValue(const SqliteStatement& statement, int column, bool& value) {
  value = statement.integer(column) != 0;
}
inline void readValue(const SqliteStatement& statement, int column, qint64& value) {
  value = statement.integer(column);
}
inline void readValue(const SqliteStatement& statement, int column, QDateTime& value) {
  value = QDateTime::fromMSecsSinceEpoch(statement.integer(column), Qt::UTC);
}
template <typename T>
void readValue(const SqliteStatement& statement, int column, std::optional<T>& value) {
  const int type = statement.type(column);
  const bool isFit = std::is_same_v<T, QString> ? type == SQLITE_TEXT : type == SQLITE_INTEGER;
  if (isFit) readValue(statement, column, value.emplace());
}

/// Reads all columns from the given one on.
template <typename Columns, typename Record>
void readRecord(const SqliteStatement& statement, int first, const Columns& columns, Record& record, TextPool& pool) {
  int index = first;
  for (const auto& column : columns) {
    std::visit(
        [&](auto member) {
          using Value = std::remove_cvref_t<decltype(record.*member)>;
          if constexpr (std::is_same_v<Value, QString>) {
            if (column.values == ColumnValues::Few) {
              record.*member = pool.text(statement.bytes(index));
              return;
            }
          } else if constexpr (std::is_same_v<Value, std::optional<QString>>) {
            if (column.values == ColumnValues::Few) {
              if (statement.type(index) == SQLITE_TEXT) record.*member = pool.text(statement.bytes(index));
              return;
            }
          }
          readValue(statement, index, record.*member);
        },
        column.field);
    ++index;
  }
}

}  // namespace sql
}  // namespace tarnwick
