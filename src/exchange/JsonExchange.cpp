// SPDX-License-Identifier: MIT
#include "exchange/JsonExchange.h"

#include "exchange/ExchangeWords.h"
#include "exchange/JsonRecord.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int kVersion = 1;

Error damaged(const QString& text) {
  return {ErrorKind::Damaged, text};
}

template <typename Columns, typename Record>
QString array(const Columns& columns, const std::vector<Record>& records, const Calendar& calendar,
              const QString& indentation) {
  if (records.empty()) return u"[]"_s;
  QStringList lines;
  for (const auto& record : records) lines.append(indentation + u"  "_s + json::object(columns, record, calendar));
  return u"[\n"_s + lines.join(u",\n"_s) + u'\n' + indentation + u']';
}

template <typename Columns, typename Record>
Result<void> readArray(const QJsonValue& value, const QString& name, const Columns& columns, const Calendar& calendar,
                       std::vector<Record>& records) {
  if (!value.isArray()) return damaged(ExchangeWords::tr("“%1” is no list").arg(name));
  for (const auto& element : value.toArray()) {
    const auto where = u"%1[%2]"_s.arg(name).arg(records.size());
    if (!element.isObject()) return damaged(ExchangeWords::tr("%1 is no object").arg(where));
    auto& record = records.emplace_back();
    const auto read = json::readObject(element.toObject(), columns, calendar, json::Fields::All, record);
    if (!read) return damaged(where + u": "_s + read.error().text);
  }
  return {};
}

}  // namespace

QByteArray JsonExchange::note(const TaskRecord& task, const Calendar& calendar) {
  return json::object(kTaskColumns, task, calendar).toUtf8() + '\n';
}

QByteArray JsonExchange::list(const std::vector<TaskRecord>& tasks, const Calendar& calendar) {
  return array(kTaskColumns, tasks, calendar, {}).toUtf8() + '\n';
}

QByteArray JsonExchange::write(const NoteExport& content, const Calendar& calendar) {
  const QString text = u"{\n  \"tarnwick\": "_s + QString::number(kVersion) + u",\n  \"tasks\": "_s +
                       array(kTaskColumns, content.tasks, calendar, u"  "_s) + u",\n  \"clipboardItems\": "_s +
                       array(kClipboardColumns, content.clipboardItems, calendar, u"  "_s) + u"\n}\n"_s;
  return text.toUtf8();
}

Result<NoteExport> JsonExchange::read(const QByteArray& bytes, const Calendar& calendar) {
  QJsonParseError error;
  const auto document = QJsonDocument::fromJson(bytes, &error);
  if (error.error != QJsonParseError::NoError)
    return damaged(ExchangeWords::tr("the file is no JSON: %1 at byte %2").arg(error.errorString()).arg(error.offset));

  NoteExport content;
  if (document.isArray()) {
    const auto read = readArray(document.array(), u"tasks"_s, kTaskColumns, calendar, content.tasks);
    if (!read) return read.error();
    return content;
  }
  const auto root = document.object();
  const auto version = root.value("tarnwick"_L1);
  if (!version.isDouble()) return damaged(ExchangeWords::tr("the file is no export of Tarnwick"));
  if (version.toInteger(0) > kVersion)
    return Error{ErrorKind::NewerSchema, ExchangeWords::tr("the file was written by a newer version of Tarnwick")};
  if (version.toInteger(0) != kVersion) return damaged(ExchangeWords::tr("the file is no export of Tarnwick"));
  const auto tasks = readArray(root.value("tasks"_L1), u"tasks"_s, kTaskColumns, calendar, content.tasks);
  if (!tasks) return tasks.error();
  if (!root.contains("clipboardItems"_L1)) return content;
  const auto items = readArray(root.value("clipboardItems"_L1), u"clipboardItems"_s, kClipboardColumns, calendar,
                               content.clipboardItems);
  if (!items) return items.error();
  return content;
}

}  // namespace tarnwick
