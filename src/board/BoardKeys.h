// SPDX-License-Identifier: MIT
// What a key does on the board, decided from the notes on the wall, the selection and the key alone.
#pragma once

#include <QUuid>
#include <Qt>

#include <optional>
#include <vector>

namespace tarnwick {

struct BoardKeyOutcome {
  bool isHandled = false;
  std::optional<QUuid> selection;  // from now on; as it was when the key was ignored
  std::optional<QUuid> crush;      // post crushTaskRequested for it
  std::optional<QUuid> open;       // switch to its editor
  bool operator==(const BoardKeyOutcome&) const = default;
};

/// `ids` in the order of the wall, two to a row.
[[nodiscard]] BoardKeyOutcome handleBoardKey(const std::vector<QUuid>& ids, const std::optional<QUuid>& selected,
                                             Qt::Key key, Qt::KeyboardModifiers modifiers);
/// Super or Ctrl, whatever else is held.
[[nodiscard]] bool hasCommand(Qt::KeyboardModifiers modifiers);
/// Command and Z without Shift.
[[nodiscard]] bool isUndoKey(Qt::Key key, Qt::KeyboardModifiers modifiers);

}  // namespace tarnwick
