// SPDX-License-Identifier: MIT
// Downloads through a part that is loaded at the first one, and then only when the program has come up.
#pragma once

#include "platform/Downloads.h"

#include <chrono>
#include <memory>

namespace tarnwick {

class Scheduler;

class LateDownloads final : public Downloads {
 public:
  static constexpr std::chrono::milliseconds kLoadingDelay{500};

  explicit LateDownloads(Scheduler& scheduler) : m_scheduler(scheduler) {}
  [[nodiscard]] Registration fetch(const DownloadRequest& request, Done done) override;

 private:
  [[nodiscard]] Downloads& part();

  Scheduler& m_scheduler;
  std::unique_ptr<Downloads> m_part;
};

}  // namespace tarnwick
