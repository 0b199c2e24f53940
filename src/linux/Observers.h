// SPDX-License-Identifier: MIT
// Observers of an adapter, told in the order in which they came. One may go, its own included, while all are told.
#pragma once

#include "platform/Registration.h"

#include <functional>
#include <map>
#include <memory>

namespace tarnwick {

template <typename... Args>
class Observers final {
 public:
  using Observer = std::function<void(Args...)>;

  [[nodiscard]] Registration add(Observer observer) {
    const int key = m_state->nextKey++;
    m_state->observers.emplace(key, std::move(observer));
    return Registration([weak = std::weak_ptr<State>(m_state), key] {
      if (const auto state = weak.lock()) state->observers.erase(key);
    });
  }
  void notify(Args... args) const {
    const auto state = m_state;  // an observer may end the adapter
    const auto present = state->observers;
    for (const auto& [key, observer] : present) {
      if (state->observers.contains(key)) observer(args...);
    }
  }
  [[nodiscard]] bool isEmpty() const { return m_state->observers.empty(); }

 private:
  struct State {
    int nextKey = 0;
    std::map<int, Observer> observers;
  };
  std::shared_ptr<State> m_state = std::make_shared<State>();
};

}  // namespace tarnwick
