// SPDX-License-Identifier: MIT
#include "model/store/SqliteConnection.h"

#include "model/store/StoreError.h"

#include <QFile>

namespace tarnwick {

namespace {

/// How long a foreign program that looks into the store may hold us up.
constexpr int kBusyMs = 250;

}  // namespace

Result<SqliteConnection> SqliteConnection::open(const QString& path, Creation creation) {
  sqlite3* raw = nullptr;
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE |
                    (creation == Creation::Allowed ? SQLITE_OPEN_CREATE : 0);
  const int code = sqlite3_open_v2(QFile::encodeName(path).constData(), &raw, flags, nullptr);
  SqliteConnection connection(raw, path);
  if (code != SQLITE_OK) return connection.lastError();
  sqlite3_busy_timeout(raw, kBusyMs);
  return connection;
}

void SqliteConnection::keepLogOnClose() {
  sqlite3_db_config(m_connection.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

bool SqliteConnection::execute(const QByteArray& sql) const {
  return sqlite3_exec(m_connection.get(), sql.constData(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

std::optional<qint64> SqliteConnection::integer(const QByteArray& sql) const {
  auto statement = prepare(sql);
  if (statement.step() != SQLITE_ROW) return std::nullopt;
  return statement.integer(0);
}

Error SqliteConnection::lastError() const {
  return storeErrorOfSqlite(m_connection.get(), m_path);
}

}  // namespace tarnwick
