// SPDX-License-Identifier: MIT
#include "board/BoardKeys.h"

#include <algorithm>

namespace tarnwick {

namespace {

constexpr qsizetype kColumns = 2;

/// Where an arrow leads, before clamping; nothing for other keys. `current` is -1 for no selection.
std::optional<qsizetype> target(Qt::Key key, qsizetype current) {
  const bool isSelected = current >= 0;
  switch (key) {
    case Qt::Key_Left: return isSelected ? current - 1 : -1;
    case Qt::Key_Right: return isSelected ? current + 1 : 0;
    case Qt::Key_Up: return isSelected ? current - kColumns : -kColumns;
    case Qt::Key_Down: return isSelected ? current + kColumns : 0;
    default: return std::nullopt;
  }
}

BoardKeyOutcome crushSelected(const std::vector<QUuid>& ids, qsizetype current) {
  BoardKeyOutcome outcome;
  outcome.isHandled = true;
  outcome.crush = ids[static_cast<size_t>(current)];
  std::vector<QUuid> rest = ids;
  std::erase(rest, *outcome.crush);
  if (!rest.empty()) outcome.selection = rest[std::min(static_cast<size_t>(current), rest.size() - 1)];
  return outcome;
}

}  // namespace

bool hasCommand(Qt::KeyboardModifiers modifiers) {
  return (modifiers & (Qt::MetaModifier | Qt::ControlModifier)) != Qt::NoModifier;
}

bool isUndoKey(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  return key == Qt::Key_Z && hasCommand(modifiers) && !modifiers.testFlag(Qt::ShiftModifier);
}

BoardKeyOutcome handleBoardKey(const std::vector<QUuid>& ids, const std::optional<QUuid>& selected, Qt::Key key,
                               Qt::KeyboardModifiers modifiers) {
  BoardKeyOutcome ignored;
  ignored.selection = selected;
  if (ids.empty()) return ignored;

  qsizetype current = -1;
  if (selected) {
    if (const auto found = std::ranges::find(ids, *selected); found != ids.end()) current = found - ids.begin();
  }
  if (const auto wanted = target(key, current)) {
    const auto last = static_cast<qsizetype>(ids.size()) - 1;
    return {true, ids[static_cast<size_t>(std::clamp<qsizetype>(*wanted, 0, last))], {}, {}};
  }
  switch (key) {
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
      return hasCommand(modifiers) && current >= 0 ? crushSelected(ids, current) : ignored;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return current >= 0 ? BoardKeyOutcome{true, selected, {}, selected} : ignored;
    case Qt::Key_Escape:
      return selected ? BoardKeyOutcome{true, {}, {}, {}} : ignored;
    default:
      return ignored;
  }
}

}  // namespace tarnwick
