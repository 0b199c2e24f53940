// SPDX-License-Identifier: MIT
// What the notes' rules need beside a store when no Tarnwick runs: everything silent, nothing on screen.
#pragma once

#include "app/commands/CommandRunner.h"

#include <memory>

namespace tarnwick {

class Scheduler;

class OfflineServices final {
 public:
  struct Paths {
    QString store;
    QString settings;
  };

  OfflineServices(Paths paths, Clock& clock, Scheduler& scheduler, GitRunner& git);
  ~OfflineServices();

  /// Registers the defaults and migrates, as a launch does; opens the store only for a verb that needs it.
  [[nodiscard]] CommandReply run(const CommandCall& call);

 private:
  struct Parts;
  [[nodiscard]] Result<const BoardServices*> open();

  std::unique_ptr<Parts> m_parts;
};

}  // namespace tarnwick
