// SPDX-License-Identifier: MIT
#include "model/store/SqliteStatement.h"

#include "model/Task.h"

namespace tarnwick {

SqliteStatement::SqliteStatement(sqlite3* connection, const QByteArray& sql) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v3(connection, sql.constData(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT, &statement,
                     nullptr);
  m_statement.reset(statement);
}

void SqliteStatement::bind(int index, const QString& text) {
  const auto utf8 = text.toUtf8();
  sqlite3_bind_text64(m_statement.get(), index, utf8.constData(), static_cast<sqlite3_uint64>(utf8.size()),
                      SQLITE_TRANSIENT, SQLITE_UTF8);
}

void SqliteStatement::bind(int index, const QUuid& id) {
  bind(index, idText(id));
}

bool SqliteStatement::run() {
  int code = step();
  while (code == SQLITE_ROW) code = step();
  reset();
  return code == SQLITE_DONE;
}

void SqliteStatement::reset() {
  sqlite3_reset(m_statement.get());
  sqlite3_clear_bindings(m_statement.get());
}

QByteArrayView SqliteStatement::bytes(int column) const {
  const auto* data = sqlite3_column_text(m_statement.get(), column);
  return {reinterpret_cast<const char*>(data), data ? sqlite3_column_bytes(m_statement.get(), column) : 0};
}

}  // namespace tarnwick
