// SPDX-License-Identifier: MIT
#include "app/commands/JsonText.h"

#include <cmath>

namespace tarnwick {

void JsonText::key(const char* name) {
  separate();
  m_bytes += '"';
  m_bytes += name;
  m_bytes += "\":";
  m_isFirst = true;
}

void JsonText::text(const QString& value) {
  QByteArray quoted = "\"";
  for (const char byte : value.toUtf8()) {
    switch (byte) {
      case '"': quoted += "\\\""; break;
      case '\\': quoted += "\\\\"; break;
      case '\n': quoted += "\\n"; break;
      case '\r': quoted += "\\r"; break;
      case '\t': quoted += "\\t"; break;
      default:
        if (const auto code = static_cast<unsigned char>(byte); code < 0x20 || code == 0x7f) {
          quoted += "\\u00" + QByteArray::number(code, 16).rightJustified(2, '0');
        } else {
          quoted += byte;
        }
    }
  }
  plain(quoted + '"');
}

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
