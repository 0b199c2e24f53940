// SPDX-License-Identifier: MIT
// The lock by which one process at a time owns a store. Held while the object lives; the system frees it with a
// process.
#pragma once

#include "platform/Result.h"

#include <QString>

#include <chrono>
#include <utility>

namespace tarnwick {

class StoreLock final {
 public:
  /// Makes the lock file beside the store. InUse when another process keeps it for longer than the wait.
  [[nodiscard]] static Result<StoreLock> take(const QString& storePath, std::chrono::milliseconds wait);

  StoreLock(StoreLock&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
  StoreLock& operator=(StoreLock&& other) noexcept {
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
  }
  StoreLock(const StoreLock&) = delete;
  StoreLock& operator=(const StoreLock&) = delete;
  ~StoreLock();

 private:
  explicit StoreLock(int descriptor) : m_descriptor(descriptor) {}
  int m_descriptor;
};

}  // namespace tarnwick
