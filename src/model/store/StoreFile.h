// SPDX-License-Identifier: MIT
// The store as a file: what lies there before it is opened, and leaving it exactly so when it cannot be used.
#pragma once

#include "platform/Result.h"

#include <QString>

namespace tarnwick {

class StoreFile final {
 public:
  /// Looks at the file without SQLite, which would begin to repair. Damaged when it is no database.
  [[nodiscard]] static Result<StoreFile> examine(const QString& path);

  [[nodiscard]] bool isNew() const { return m_isNew; }
  /// Whether a log waits to be taken over, as after a power cut.
  [[nodiscard]] bool hasLog() const { return m_hasLog; }
  /// Makes the empty file of a new store, readable by its owner only.
  [[nodiscard]] Result<void> create();
  /// Takes other people's permissions from the file and its companions.
  void tighten() const;
  /// Removes what an opening that failed has made. SQLite must have closed the file.
  void removeTraces() const;

 private:
  explicit StoreFile(QString path) : m_path(std::move(path)) {}
  [[nodiscard]] QString log() const { return m_path + QStringLiteral("-wal"); }
  [[nodiscard]] QString index() const { return m_path + QStringLiteral("-shm"); }

  QString m_path;
  bool m_isNew = false;
  bool m_isMade = false;  // by create()
  bool m_hasLog = false;
  bool m_hasIndex = false;
};

}  // namespace tarnwick
