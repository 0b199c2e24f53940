// SPDX-License-Identifier: MIT
// Keeps the last crush and takes it back on request. One step, for as long as the program runs.
#pragma once

#include "model/Task.h"

#include <functional>
#include <optional>

namespace tarnwick {

class ModelContext;
class TornNotes;

class CrushUndoStore final {
 public:
  struct Snapshot {
    QUuid id;
    bool wasTornOff = false;
    std::optional<QDateTime> completedAt;        // after the crush
    std::optional<QDateTime> previousDueDate;    // before the crush
    std::optional<QDateTime> dueDateAfterCrush;  // after the crush
    bool recurrenceAdvanced = false;
    bool operator==(const Snapshot&) const = default;
  };

  /// `torn` yields null while there is no board panel.
  explicit CrushUndoStore(std::function<TornNotes*()> torn) : m_torn(std::move(torn)) {}

  std::optional<Snapshot> last;
  /// Restores the note of the last crush; true when something was restored. A failed save still counts.
  bool undo(ModelContext& context);

 private:
  std::function<TornNotes*()> m_torn;
};

}  // namespace tarnwick
