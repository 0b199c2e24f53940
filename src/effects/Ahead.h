// SPDX-License-Identifier: MIT
// A value that another thread may make before it is asked for: whoever comes first makes it.
#pragma once

#include <atomic>
#include <functional>
#include <future>
#include <utility>

namespace tarnwick {

template <class Value>
class Ahead {
 public:
  explicit Ahead(std::function<Value()> make) : m_make(std::move(make)) {}

  /// Makes the value unless somebody has begun to. From any thread.
  void make() {
    if (!m_isBegun.test_and_set()) m_value.set_value(m_make());
  }
  /// To be called once. Made here when nobody has begun to; waited for when it is being made.
  [[nodiscard]] Value take() {
    make();
    return m_value.get_future().get();
  }

 private:
  std::function<Value()> m_make;
  std::atomic_flag m_isBegun;
  std::promise<Value> m_value;
};

}  // namespace tarnwick
