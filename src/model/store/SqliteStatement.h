// SPDX-License-Identifier: MIT
// A prepared SQLite statement that finalizes itself. One that could not be prepared fails at each step.
#pragma once

#include <QString>
#include <QUuid>

#include <memory>
#include <optional>

#include <sqlite3.h>

namespace tarnwick {

class SqliteStatement final {
 public:
  SqliteStatement() = default;
  SqliteStatement(sqlite3* connection, const QByteArray& sql);

  [[nodiscard]] bool isValid() const { return m_statement != nullptr; }

  /// Parameters count from 1. Text is stored as UTF-8; lone surrogates become replacement characters.
  void bind(int index, const QString& text);
  void bind(int index, const QUuid& id);
  void bind(int index, qint64 number) { sqlite3_bind_int64(m_statement.get(), index, number); }
  void bindNull(int index) { sqlite3_bind_null(m_statement.get(), index); }

  /// Runs to the next row: SQLITE_ROW, SQLITE_DONE or an error.
  int step() { return sqlite3_step(m_statement.get()); }
  /// Runs to the end and makes it ready to run again; true when all went well.
  bool run();
  /// Makes it ready to run again and lets go of what was bound.
  void reset();

  /// Columns count from 0.
  [[nodiscard]] bool isNull(int column) const { return type(column) == SQLITE_NULL; }
  [[nodiscard]] int type(int column) const { return sqlite3_column_type(m_statement.get(), column); }
  [[nodiscard]] qint64 integer(int column) const { return sqlite3_column_int64(m_statement.get(), column); }
  /// Valid until the next step.
  [[nodiscard]] QByteArrayView bytes(int column) const;

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

}  // namespace tarnwick
