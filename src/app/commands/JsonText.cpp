// SPDX-License-Identifier: MIT
#include "app/commands/JsonText.h"

#include "exchange/JsonValue.h"

#include <cmath>

namespace tarnwick {

void JsonText::key(const char* name) {
  separate();
  m_bytes += '"';
  m_bytes += name;
  m_bytes += "\":";
  m_isFirst = true;
}

void JsonText::text(const QString& value) { plain(json::quoted(value).toUtf8()); }

void JsonText::text(const std::optional<QString>& value) {
  if (value) {
    text(*value);
  } else {
    null();
  }
}

void JsonText::real(double value) { plain(std::isfinite(value) ? QByteArray::number(value, 'g', 15) : QByteArray("null")); }

void JsonText::plain(const QByteArray& json) {
  separate();
  m_bytes += json;
}

void JsonText::open(char bracket) {
  separate();
  m_bytes += bracket;
  m_isFirst = true;
}

void JsonText::close(char bracket) {
  m_bytes += bracket;
  m_isFirst = false;
}

void JsonText::separate() {
  if (!m_isFirst) m_bytes += ',';
  m_isFirst = false;
}

}  // namespace tarnwick
