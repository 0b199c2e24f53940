// SPDX-License-Identifier: MIT
#include "exchange/JsonValue.h"

#include "model/Task.h"

#include <cmath>

namespace tarnwick::json {

using namespace Qt::StringLiterals;

namespace {

QString escape(char16_t unit) {
  return u"\\u%1"_s.arg(static_cast<unsigned>(unit), 4, 16, QLatin1Char('0'));
}

}  // namespace

QString quoted(const QString& text) {
  QString result;
  result.reserve(text.size() + 2);
  result += u'"';
  for (qsizetype i = 0; i < text.size(); ++i) {
    const auto unit = text[i];
    const bool isPair = unit.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
    switch (unit.unicode()) {
      case u'"':
        result += u"\\\""_s;
        break;
      case u'\\':
        result += u"\\\\"_s;
        break;
      case u'\n':
        result += u"\\n"_s;
        break;
      case u'\r':
        result += u"\\r"_s;
        break;
      case u'\t':
        result += u"\\t"_s;
        break;
      default:
        if (isPair) {
          result += unit;
          result += text[++i];
        } else if (unit.isSurrogate() || unit.unicode() < 0x20 || unit.unicode() == 0x7F ||
                   unit == QChar::ByteOrderMark) {
          // Readers drop a byte order mark that stands first.
          result += escape(unit.unicode());
        } else {
          result += unit;
        }
    }
  }
  return result + u'"';
}

std::optional<QString> isoText(const QDateTime& moment, const Calendar& calendar) {
  // Offsets of old times have seconds, which ISO cannot say: those moments are written in UTC.
  auto offset = calendar.timeZone().offsetFromUtc(moment);
  if (offset % 60 != 0) offset = 0;
  const auto wall = moment.toUTC().addSecs(offset);
  const int year = wall.date().year();
  if (!wall.isValid() || year < 1 || year > 9999) return std::nullopt;
  const auto minutes = std::abs(offset) / 60;
  return wall.toString(u"yyyy-MM-dd'T'HH:mm:ss.zzz"_s) + (offset < 0 ? u'-' : u'+') +
         u"%1:%2"_s.arg(minutes / 60, 2, 10, QLatin1Char('0')).arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

QString written(const QDateTime& moment, const Calendar& calendar) {
  const auto text = isoText(moment, calendar);
  return text ? u'"' + *text + u'"' : QString::number(moment.toMSecsSinceEpoch());
}

QString written(const QUuid& id, const Calendar&) {
  return u'"' + idText(id) + u'"';
}
QString written(const QString& text, const Calendar&) {
  return quoted(text);
}
QString written(bool isSet, const Calendar&) {
  return isSet ? u"true"_s : u"false"_s;
}
QString written(qint64 number, const Calendar&) {
  return QString::number(number);
}

bool read(const QJsonValue& value, const Calendar& calendar, QDateTime& target) {
  qint64 number = 0;
  if (read(value, calendar, number)) {
    target = QDateTime::fromMSecsSinceEpoch(number, Qt::UTC);
    return true;
  }
  if (!value.isString()) return false;
  const auto text = value.toString();
  const auto time = text.mid(10);
  const bool hasOffset = time.endsWith(u'Z') || time.contains(u'+') || time.contains(u'-');
  // Without an offset it is read as if it were UTC, for the system's own zone has no say here.
  const auto parsed = QDateTime::fromString(hasOffset ? text : text + u'Z', Qt::ISODateWithMs);
  if (!parsed.isValid()) return false;
  target = hasOffset ? parsed.toUTC() : calendar.at(parsed.date(), parsed.time());
  return target.isValid();
}

bool read(const QJsonValue& value, const Calendar&, QUuid& target) {
  const auto id = QUuid::fromString(value.toString());
  if (id.isNull()) return false;
  target = id;
  return true;
}

bool read(const QJsonValue& value, const Calendar&, QString& target) {
  if (!value.isString()) return false;
  target = value.toString();
  return true;
}

bool read(const QJsonValue& value, const Calendar&, bool& target) {
  if (!value.isBool()) return false;
  target = value.toBool();
  return true;
}

bool read(const QJsonValue& value, const Calendar&, qint64& target) {
  // The type tells 12 and 12.0, which are the same, from 12.5; a number beyond the range has no integer at all.
  if (!value.isDouble()) return false;
  const auto one = value.toInteger(1);
  if (one != value.toInteger(2)) return false;
  target = one;
  return true;
}

}  // namespace tarnwick::json
