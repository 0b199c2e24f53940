// SPDX-License-Identifier: MIT
// What the writer that gets killed does, step by step: the same for the writer and for the test that checks on it.
#pragma once

#include <QHash>
#include <QRandomGenerator>
#include <QString>
#include <QUuid>

#include <map>
#include <optional>
#include <vector>

namespace tarnwick::test {

/// Text by place; one note a place.
using ScriptState = std::map<int, QString>;

struct ScriptChange {
  int place = 0;
  std::optional<QString> text;  // none: the note goes
};

inline constexpr int kScriptPlaces = 48;

[[nodiscard]] inline QUuid scriptId(int place) {
  return QUuid::createUuidV5(QUuid(), QStringLiteral("place %1").arg(place));
}

/// The changes that the step's save writes together.
[[nodiscard]] inline std::vector<ScriptChange> scriptStep(const ScriptState& state, quint32 step) {
  QRandomGenerator random(step);
  std::map<int, ScriptChange> changes;
  for (int i = random.bounded(1, 5); i > 0; --i) {
    const int place = random.bounded(kScriptPlaces);
    const bool isGoing = state.contains(place) && random.bounded(4) == 0;
    // Now and then a text of many pages.
    const int length = random.bounded(10) == 0 ? 40'000 : random.bounded(400);
    const auto text = QStringLiteral("%1 ").arg(step) + QString(length, QChar(u'a' + random.bounded(26)));
    changes[place] = {place, isGoing ? std::nullopt : std::optional(text)};
  }
  std::vector<ScriptChange> list;
  for (const auto& [place, change] : changes) list.push_back(change);
  return list;
}

[[nodiscard]] inline ScriptState afterStep(ScriptState state, quint32 step) {
  for (const auto& change : scriptStep(state, step)) {
    if (change.text) {
      state[change.place] = *change.text;
    } else {
      state.erase(change.place);
    }
  }
  return state;
}

}  // namespace tarnwick::test
