// SPDX-License-Identifier: MIT
// An open SQLite database that closes itself. Used by one thread.
#pragma once

#include "model/store/SqliteStatement.h"
#include "platform/Result.h"

#include <QByteArray>
#include <QString>

#include <memory>

#include <sqlite3.h>

namespace tarnwick {

class SqliteConnection final {
 public:
  enum class Creation { MustExist, Allowed };
  [[nodiscard]] static Result<SqliteConnection> open(const QString& path, Creation creation);

  /// Leaves a write-ahead log as it is when the connection closes, instead of moving it into the file.
  void keepLogOnClose();

  [[nodiscard]] SqliteStatement prepare(const QByteArray& sql) const { return {m_connection.get(), sql}; }
  [[nodiscard]] bool execute(const QByteArray& sql) const;
  /// The first column of the first row; nothing when there is none or the query fails.
  [[nodiscard]] std::optional<qint64> integer(const QByteArray& sql) const;
  [[nodiscard]] Error lastError() const;
  [[nodiscard]] const QString& path() const { return m_path; }
  [[nodiscard]] sqlite3* handle() const { return m_connection.get(); }

 private:
  struct Close {
    void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
  };
  SqliteConnection(sqlite3* connection, QString path) : m_path(std::move(path)), m_connection(connection) {}

  QString m_path;
  std::unique_ptr<sqlite3, Close> m_connection;
};

}  // namespace tarnwick
