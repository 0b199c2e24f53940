// SPDX-License-Identifier: MIT
// Which desktop entry a process was started from, as far as the process file system and sandboxes tell.
#pragma once

#include <QString>

namespace tarnwick {

class ProcessEntry final {
 public:
  ProcessEntry();
  explicit ProcessEntry(QString processFolder) : m_folder(std::move(processFolder)) {}

  /// Certain: the launcher's word about this very process, or the sandbox it runs in. Empty when neither says anything.
  [[nodiscard]] QString certain(qint64 pid) const;
  /// The entry whose program started this process: that of a wrapper. A program of its own may have been started from
  /// a terminal just so, hence only for windows that nothing else identifies.
  [[nodiscard]] QString ofWrapper(qint64 pid) const;

 private:
  struct Launch {
    QString id;
    qint64 pid = 0;
  };
  [[nodiscard]] QByteArray read(qint64 pid, const char* name) const;
  [[nodiscard]] Launch launchOf(qint64 pid) const;
  [[nodiscard]] qint64 parentOf(qint64 pid) const;
  [[nodiscard]] QString flatpak(qint64 pid) const;
  [[nodiscard]] QString snap(qint64 pid) const;

  QString m_folder;
};

}  // namespace tarnwick
