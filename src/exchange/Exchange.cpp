// SPDX-License-Identifier: MIT
#include "exchange/Exchange.h"

#include "exchange/ExchangeWords.h"
#include "exchange/IcsExchange.h"
#include "exchange/JsonExchange.h"
#include "exchange/MarkdownExchange.h"
#include "model/store/ModelContainer.h"

#include <QStringDecoder>

#include <algorithm>
#include <tuple>

namespace tarnwick {

using namespace Qt::StringLiterals;

std::optional<ExchangeFormat> exchangeFormatFromName(const QString& name) {
  if (name == "json"_L1) return ExchangeFormat::Json;
  if (name == "markdown"_L1) return ExchangeFormat::Markdown;
  if (name == "ics"_L1) return ExchangeFormat::Ics;
  return std::nullopt;
}

QByteArray writeExport(const NoteExport& content, ExchangeFormat format, const Calendar& calendar) {
  switch (format) {
    case ExchangeFormat::Json:
      return JsonExchange::write(content, calendar);
    case ExchangeFormat::Markdown:
      return MarkdownExchange::write(content.tasks, calendar);
    case ExchangeFormat::Ics:
      return IcsExchange::write(content.tasks, calendar);
  }
  return {};
}

Result<NoteExport> readExport(const QByteArray& bytes, const Calendar& calendar, const QDateTime& now) {
  constexpr QByteArrayView kByteOrderMark("\xEF\xBB\xBF");
  const auto body = bytes.startsWith(kByteOrderMark) ? bytes.sliced(kByteOrderMark.size()) : bytes;
  QStringDecoder decoder(QStringDecoder::Utf8);
  const QString text = decoder(body);
  if (decoder.hasError())
    return Error{ErrorKind::Damaged, ExchangeWords::tr("the file is no UTF-8 text")};

  const auto start = text.left(4096).trimmed();
  if (start.startsWith(u'{') || start.startsWith(u'[')) return JsonExchange::read(body, calendar);
  auto tasks = start.startsWith("BEGIN:VCALENDAR"_L1, Qt::CaseInsensitive)
                   ? IcsExchange::read(body, calendar, now)
                   : MarkdownExchange::read(body, calendar, now);
  if (!tasks) return tasks.error();
  return NoteExport{tasks.take(), {}};
}

Result<NoteExport> contentOf(ModelContainer& container) {
  NoteExport content;
  for (const auto& task : container.mainContext().fetchTasks()) content.tasks.push_back(task->record());
  std::sort(content.tasks.begin(), content.tasks.end(), [](const TaskRecord& a, const TaskRecord& b) {
    return std::tie(a.createdAt, a.id) < std::tie(b.createdAt, b.id);
  });
  auto items = container.clipboardItems();
  if (!items) return items.error();
  content.clipboardItems = items.take();
  return content;
}

Result<ImportCount> importInto(ModelContainer& container, const NoteExport& content) {
  // First, since they show nowhere: a failure after them leaves nothing half done that anybody sees.
  if (!content.clipboardItems.empty()) {
    if (const auto items = container.insertClipboardItems(content.clipboardItems); !items) return items.error();
  }
  auto& context = container.mainContext();
  ImportCount count;
  for (const auto& record : content.tasks) {
    if (context.findTask(record.id)) {
      ++count.skipped;
    } else {
      count.added.push_back(context.insert(record));
      ++count.imported;
    }
  }
  if (auto saved = context.save(); !saved) {
    // Only these: others' changes wait in the same set.
    for (const auto& task : count.added) context.remove(task);
    return saved.error();
  }
  return count;
}

}  // namespace tarnwick
