// SPDX-License-Identifier: MIT
#include "model/store/StoreLock.h"

#include "model/store/StoreError.h"

#include <QFile>

#include <cerrno>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarnwick {

Result<StoreLock> StoreLock::take(const QString& storePath, std::chrono::milliseconds wait) {
  constexpr std::chrono::milliseconds kPause(20);
  const auto path = QFile::encodeName(storePath + QStringLiteral(".lock"));
  const int descriptor = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (descriptor < 0) return storeErrorOfSystem(errno, storePath);
  StoreLock lock(descriptor);
  for (auto left = wait;; left -= kPause) {
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0) return lock;
    if (errno != EWOULDBLOCK && errno != EINTR) return storeErrorOfSystem(errno, storePath);
    if (left <= std::chrono::milliseconds::zero()) return storeError(ErrorKind::InUse, storePath);
    std::this_thread::sleep_for(kPause);
  }
}

StoreLock::~StoreLock() {
  if (m_descriptor >= 0) ::close(m_descriptor);
}

}  // namespace tarnwick
