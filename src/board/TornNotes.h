// SPDX-License-Identifier: MIT
// The notes on the desktop, as the board sees them. The board panel is what stands behind it.
#pragma once

#include "model/Task.h"
#include "platform/DesktopGeometry.h"

#include <optional>

namespace tarnwick {

class TornNotes {
 public:
  virtual ~TornNotes() = default;
  /// Opens the note's window, or brings it forward; `near` is the card it was torn from.
  virtual void tearOffTask(const TaskPtr& task, const std::optional<DesktopRect>& near) = 0;
  /// Closes the window without touching the note.
  virtual void closePanel(const QUuid& id) = 0;
  /// Closes the window and puts the note back on the board.
  virtual void redockTask(const TaskPtr& task) = 0;
  [[nodiscard]] virtual bool isOpen(const QUuid& id) const = 0;
  /// Frame of the board panel.
  [[nodiscard]] virtual DesktopRect boardFrame() const = 0;
  /// Hides the board at once.
  virtual void hideBoard() = 0;
};

}  // namespace tarnwick
