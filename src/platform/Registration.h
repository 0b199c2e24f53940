// SPDX-License-Identifier: MIT
// The handle of something that was registered, scheduled or observed: undoes it when it goes.
#pragma once

#include <functional>
#include <utility>

namespace tarnwick {

class [[nodiscard]] Registration final {
 public:
  Registration() = default;
  explicit Registration(std::function<void()> undo) : m_undo(std::move(undo)) {}
  Registration(Registration&& other) noexcept : m_undo(std::exchange(other.m_undo, nullptr)) {}
  Registration& operator=(Registration&& other) noexcept {
    if (this != &other) {
      cancel();
      m_undo = std::exchange(other.m_undo, nullptr);
    }
    return *this;
  }
  Registration(const Registration&) = delete;
  Registration& operator=(const Registration&) = delete;
  ~Registration() { cancel(); }

  /// Undoes it now; harmless when it is undone or has run already.
  void cancel() {
    if (const auto undo = std::exchange(m_undo, nullptr)) undo();
  }
  /// Whether there is something to undo. A one-shot that has run still says true: the owner resets it.
  [[nodiscard]] bool isHeld() const { return static_cast<bool>(m_undo); }

 private:
  std::function<void()> m_undo;
};

}  // namespace tarnwick
