// SPDX-License-Identifier: MIT
// What an operation on the world outside gives back: a value, or an error whose text is fit to show.
#pragma once

#include <QString>

#include <optional>
#include <utility>
#include <variant>

namespace tarnwick {

enum class ErrorKind { NotFound, InUse, Damaged, NewerSchema, NotPermitted, Full, Unavailable, Refused, Failed };

struct Error {
  ErrorKind kind = ErrorKind::Failed;
  QString text;
};

template <typename T>
class [[nodiscard]] Result {
 public:
  Result(T value) : m_state(std::move(value)) {}      // NOLINT: meant to convert
  Result(Error error) : m_state(std::move(error)) {}  // NOLINT: meant to convert

  [[nodiscard]] bool isOk() const { return std::holds_alternative<T>(m_state); }
  explicit operator bool() const { return isOk(); }
  [[nodiscard]] const T& value() const { return std::get<T>(m_state); }
  [[nodiscard]] T& value() { return std::get<T>(m_state); }
  [[nodiscard]] T take() { return std::move(std::get<T>(m_state)); }
  [[nodiscard]] const Error& error() const { return std::get<Error>(m_state); }

 private:
  std::variant<T, Error> m_state;
};

template <>
class [[nodiscard]] Result<void> {
 public:
  Result() = default;
  Result(Error error) : m_error(std::move(error)) {}  // NOLINT: meant to convert

  [[nodiscard]] bool isOk() const { return !m_error; }
  explicit operator bool() const { return isOk(); }
  [[nodiscard]] const Error& error() const { return *m_error; }

 private:
  std::optional<Error> m_error;
};

}  // namespace tarnwick
