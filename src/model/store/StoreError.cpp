// SPDX-License-Identifier: MIT
#include "model/store/StoreError.h"

#include <QCoreApplication>

#include <cerrno>
#include <cstring>

#include <sqlite3.h>

namespace tarnwick {

namespace {

struct Words {
  Q_DECLARE_TR_FUNCTIONS(Store)
};

ErrorKind kindOfSystem(int number) {
  switch (number) {
    case EACCES:
    case EPERM:
    case EROFS:
      return ErrorKind::NotPermitted;
    case ENOSPC:
    case EDQUOT:
      return ErrorKind::Full;
    default:
      return ErrorKind::Failed;
  }
}

ErrorKind kindOfSqlite(int code, int systemNumber) {
  switch (code & 0xFF) {
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_FORMAT:
      return ErrorKind::Damaged;
    case SQLITE_FULL:
      return ErrorKind::Full;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return ErrorKind::NotPermitted;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return ErrorKind::InUse;
    case SQLITE_CANTOPEN:
    case SQLITE_IOERR:
      return kindOfSystem(systemNumber);
    default:
      return ErrorKind::Failed;
  }
}

}  // namespace

Error storeError(ErrorKind kind, const QString& path, const QString& detail) {
  switch (kind) {
    case ErrorKind::Damaged:
      return {kind, Words::tr("The notes in “%1” cannot be read: the file is damaged, or it is no Tarnwick store. It "
                               "was left as it is; copies of the last days are in “backups” beside it.")
                        .arg(path)};
    case ErrorKind::NewerSchema:
      return {kind, Words::tr("The notes in “%1” were written by a newer version of Tarnwick.").arg(path)};
    case ErrorKind::NotPermitted:
      return {kind, Words::tr("Tarnwick may not write to “%1”.").arg(path)};
    case ErrorKind::Full:
      return {kind, Words::tr("No space is left on the disk that holds “%1”.").arg(path)};
    case ErrorKind::InUse:
      return {kind, Words::tr("The notes in “%1” are in use by another program.").arg(path)};
    default:
      return {ErrorKind::Failed, Words::tr("The notes in “%1” cannot be used: %2").arg(path, detail)};
  }
}

Error storeErrorOfSystem(int number, const QString& path) {
  return storeError(kindOfSystem(number), path, QString::fromLocal8Bit(std::strerror(number)));
}

Error storeErrorOfSqlite(sqlite3* connection, const QString& path) {
  return storeError(kindOfSqlite(sqlite3_extended_errcode(connection), sqlite3_system_errno(connection)), path,
                    QString::fromUtf8(sqlite3_errmsg(connection)));
}

}  // namespace tarnwick
