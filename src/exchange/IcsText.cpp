// SPDX-License-Identifier: MIT
#include "exchange/IcsText.h"

#include <optional>

namespace tarnwick::ics {

using namespace Qt::StringLiterals;

namespace {

/// The first of the characters outside quotation marks; the size when there is none.
qsizetype findUnquoted(QStringView text, qsizetype from, QStringView characters) {
  bool isQuoted = false;
  for (auto at = from; at < text.size(); ++at) {
    if (text[at] == u'"') isQuoted = !isQuoted;
    if (!isQuoted && characters.contains(text[at])) return at;
  }
  return text.size();
}

std::optional<Property> parse(const QString& line) {
  const auto colon = findUnquoted(line, 0, u":");
  if (colon == line.size()) return std::nullopt;
  Property property;
  property.value = line.mid(colon + 1);
  const auto head = QStringView(line).first(colon);
  auto at = findUnquoted(head, 0, u";");
  property.name = head.first(at).toString().trimmed().toUpper();
  while (at < head.size()) {
    const auto end = findUnquoted(head, at + 1, u";");
    const auto parameter = head.sliced(at + 1, end - at - 1);
    const auto equals = parameter.indexOf(u'=');
    if (equals > 0) {
      property.parameters.insert(parameter.first(equals).toString().toUpper(),
                                 parameter.sliced(equals + 1).toString().remove(u'"'));
    }
    at = end;
  }
  return property;
}

}  // namespace

QString escaped(const QString& text) {
  QString result;
  for (const auto character : text) {
    if (character == u'\n') {
      result += u"\\n"_s;
      continue;
    }
    if (character == u'\\' || character == u';' || character == u',') result += u'\\';
    result += character;
  }
  return result;
}

QString unescaped(const QString& text) {
  QString result;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] != u'\\' || i + 1 == text.size()) {
      result += text[i];
      continue;
    }
    const auto next = text[++i];
    result += next == u'n' || next == u'N' ? QChar(u'\n') : next;
  }
  return result;
}

QByteArray line(const QString& name, const QString& value) {
  constexpr qsizetype kLongest = 75;
  const auto bytes = (name + u':' + value).toUtf8();
  QByteArray result;
  qsizetype room = kLongest;
  for (qsizetype at = 0; at < bytes.size();) {
    qsizetype end = at + 1;
    while (end < bytes.size() && (static_cast<unsigned char>(bytes[end]) & 0xC0) == 0x80) ++end;
    if (end - at > room) {
      result += "\r\n ";
      room = kLongest - 1;
    }
    result += bytes.sliced(at, end - at);
    room -= end - at;
    at = end;
  }
  return result + "\r\n";
}

std::vector<Property> properties(const QByteArray& bytes) {
  QList<QByteArray> lines;
  for (auto line : bytes.split('\n')) {
    if (line.endsWith('\r')) line.chop(1);
    // Unfolded as bytes: others fold inside a character.
    if (!lines.isEmpty() && (line.startsWith(' ') || line.startsWith('\t'))) {
      lines.last() += line.sliced(1);
    } else {
      lines.append(line);
    }
  }
  std::vector<Property> result;
  for (const auto& line : lines) {
    if (auto property = parse(QString::fromUtf8(line))) result.push_back(std::move(*property));
  }
  return result;
}

}  // namespace tarnwick::ics
