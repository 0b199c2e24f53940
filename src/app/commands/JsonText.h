// SPDX-License-Identifier: MIT
// Writes JSON whose members keep the order in which they are given, on one line.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace tarnwick {

class JsonText final {
 public:
  void beginObject() { open('{'); }
  void endObject() { close('}'); }
  void beginArray() { open('['); }
  void endArray() { close(']'); }
  void key(const char* name);

  void text(const QString& value);
  void text(const std::optional<QString>& value);
  void integer(qint64 value) { plain(QByteArray::number(value)); }
  void real(double value);
  void boolean(bool value) { plain(value ? "true" : "false"); }  // NOLINT: the value is a bool
  void null() { plain("null"); }
  /// What is JSON already.
  void plain(const QByteArray& json);

  [[nodiscard]] const QByteArray& bytes() const { return m_bytes; }

 private:
  void open(char bracket);
  void close(char bracket);
  void separate();

  QByteArray m_bytes;
  bool m_isFirst = true;  // of the object or array under way
};

}  // namespace tarnwick
