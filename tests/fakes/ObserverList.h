// SPDX-License-Identifier: MIT
// Observers of a fake port, called in the order in which they came.
#pragma once

#include "platform/Registration.h"

#include <functional>
#include <map>
#include <memory>

namespace tarnwick::test {

template <typename... Args>
class ObserverList final {
 public:
  [[nodiscard]] Registration add(std::function<void(Args...)> observer) {
    const int key = m_state->next++;
    m_state->observers.emplace(key, std::move(observer));
    return Registration([weak = std::weak_ptr<State>(m_state), key] {
      if (const auto state = weak.lock()) state->observers.erase(key);
    });
  }
  void notify(Args... args) const {
    const auto copy = m_state->observers;
    for (const auto& [key, observer] : copy) {
      if (m_state->observers.contains(key)) observer(args...);
    }
  }
  [[nodiscard]] int count() const { return static_cast<int>(m_state->observers.size()); }

 private:
  struct State {
    int next = 0;
    std::map<int, std::function<void(Args...)>> observers;
  };
  std::shared_ptr<State> m_state = std::make_shared<State>();
};

}  // namespace tarnwick::test
