// SPDX-License-Identifier: MIT
#include "exchange/MarkdownExchange.h"

#include "exchange/ExchangeWords.h"
#include "exchange/ForeignNote.h"
#include "exchange/JsonRecord.h"

#include <QJsonDocument>

#include <map>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kTitle("# Tarnwick");
constexpr QLatin1StringView kBoard("## ");
constexpr QLatin1StringView kIndentation("  ");
constexpr QLatin1StringView kCommentBegin("  <!-- tarnwick ");
constexpr QLatin1StringView kCommentEnd(" -->");
constexpr QLatin1StringView kDue("  *Due ");

/// What a text line could be taken for once it is indented: a comment of ours. A backslash keeps them apart.
bool looksLikeComment(QStringView line) {
  qsizetype at = 0;
  while (at < line.size() && line[at] == u'\\') ++at;
  return line.mid(at).startsWith("<!-- tarnwick "_L1);
}

QString escaped(const QString& line) {
  return looksLikeComment(line) ? u'\\' + line : line;
}

QString unescaped(const QString& line) {
  return line.startsWith(u'\\') && looksLikeComment(line) ? line.mid(1) : line;
}

QStringList written(const QString& text) {
  QStringList lines;
  for (const auto& line : text.split(u'\n')) {
    if (lines.isEmpty()) {
      lines.append(escaped(line));
    } else {
      lines.append(line.isEmpty() ? QString() : kIndentation + escaped(line));
    }
  }
  return lines;
}

QString textOf(const QStringList& lines) {
  QStringList text;
  for (const auto& line : lines) {
    if (text.isEmpty()) {
      text.append(unescaped(line));
    } else if (line.startsWith(u'\t')) {
      text.append(unescaped(line.mid(1)));
    } else {
      text.append(unescaped(line.startsWith(kIndentation) ? line.mid(kIndentation.size()) : line));
    }
  }
  return text.join(u'\n');
}

/// Lines as a reader of the file finds them.
QStringList linesOf(const QByteArray& bytes) {
  auto lines = QString::fromUtf8(bytes).split(u'\n');
  for (auto& line : lines) {
    if (line.endsWith(u'\r')) line.chop(1);
  }
  return lines;
}

bool survives(const QString& text) {
  const auto lines = written(text);
  return textOf(linesOf(lines.join(u'\n').toUtf8())) == text;
}

QString item(const TaskRecord& task, const Calendar& calendar) {
  QString text = (task.isCompleted ? u"- [x] "_s : u"- [ ] "_s) + written(task.text).join(u'\n') + u'\n';
  if (task.dueDate) {
    const auto wall = calendar.local(*task.dueDate);
    text += kDue + wall.toString(wall.time() == QTime(0, 0) ? u"yyyy-MM-dd"_s : u"yyyy-MM-dd HH:mm"_s) + u"*\n"_s;
  }
  auto facts = survives(task.text) ? json::object(kTaskColumns, task, calendar, {"text"_L1, "isCompleted"_L1})
                                   : json::object(kTaskColumns, task, calendar, {"isCompleted"_L1});
  // Inside strings only, and there they would end the comment.
  facts.replace("--"_L1, "-\\u002d"_L1);
  return text + kCommentBegin + facts + kCommentEnd + u'\n';
}

bool isBox(const QString& line) {
  if (line.size() < 5 || (line[0] != u'-' && line[0] != u'*') || line[1] != u' ' || line[2] != u'[' || line[4] != u']')
    return false;
  return (line[3] == u' ' || line[3] == u'x' || line[3] == u'X') && (line.size() == 5 || line[5] == u' ');
}

class Reader {
 public:
  Reader(const Calendar& calendar, const QDateTime& now) : m_calendar(calendar), m_now(now) {}

  Result<std::vector<TaskRecord>> read(const QStringList& lines) {
    bool isOurs = false;
    int number = 0;
    for (const auto& line : lines) {
      ++number;
      if (line.startsWith(kTitle)) isOurs = true;
      if (const auto taken = take(line); !taken) {
        return Error{ErrorKind::Damaged, ExchangeWords::tr("line %1: %2").arg(number).arg(taken.error().text)};
      }
    }
    finishForeign();
    if (m_tasks.empty() && !isOurs) return Error{ErrorKind::NotFound, ExchangeWords::tr("the file holds no notes")};
    return std::move(m_tasks);
  }

 private:
  Result<void> take(const QString& line) {
    if (isBox(line)) {
      finishForeign();
      m_item = {line.mid(6)};
      m_isDone = line[3] != u' ';
    } else if (m_item.isEmpty()) {
      takeOutside(line);
    } else if (line.startsWith(kCommentBegin) && line.endsWith(kCommentEnd)) {
      return finishOurs(line.sliced(kCommentBegin.size()).chopped(kCommentEnd.size()));
    } else if (line.isEmpty() || line.startsWith(kIndentation) || line.startsWith(u'\t')) {
      m_item.append(line);
    } else {
      finishForeign();
      takeOutside(line);
    }
    return {};
  }

  void takeOutside(const QString& line) {
    if (line.startsWith(kBoard)) m_board = line.mid(kBoard.size()).trimmed();
  }

  Result<void> finishOurs(const QString& facts) {
    auto lines = std::exchange(m_item, {});
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(facts.toUtf8(), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
      return Error{ErrorKind::Damaged, ExchangeWords::tr("the comment behind the note cannot be read")};
    TaskRecord record;
    record.createdAt = m_now;
    if (auto read = json::readObject(document.object(), kTaskColumns, m_calendar, json::Fields::Some, record); !read)
      return read;
    if (record.id.isNull()) return Error{ErrorKind::Damaged, ExchangeWords::tr("“%1” is missing").arg(u"id"_s)};
    if (record.dueDate && lines.size() > 1 && lines.last().startsWith(kDue)) lines.removeLast();
    if (!document.object().contains("text"_L1)) record.text = textOf(lines);
    record.isCompleted = m_isDone;
    if (!m_isDone) record.completedAt.reset();
    m_tasks.push_back(std::move(record));
    return {};
  }

  /// An item of another hand: it has no comment.
  void finishForeign() {
    auto lines = std::exchange(m_item, {});
    while (!lines.isEmpty() && lines.last().trimmed().isEmpty()) lines.removeLast();
    const auto text = textOf(lines).trimmed();
    if (text.isEmpty()) return;
    const auto source = m_board.value_or(QString()) + u'\n' + text;
    // The same words twice in a list are two notes.
    auto record = foreignNote(u"%1\n%2"_s.arg(source).arg(m_seen[source]++), text, m_now);
    record.boardRaw = m_board;
    record.isCompleted = m_isDone;
    if (m_isDone) record.completedAt = m_now;
    m_tasks.push_back(std::move(record));
  }

  const Calendar& m_calendar;
  QDateTime m_now;
  std::vector<TaskRecord> m_tasks;
  std::optional<QString> m_board;
  QStringList m_item;
  bool m_isDone = false;
  std::map<QString, int> m_seen;
};

}  // namespace

QByteArray MarkdownExchange::write(const std::vector<TaskRecord>& tasks, const Calendar& calendar) {
  std::vector<QString> boards;
  std::map<QString, QString> lists;
  for (const auto& task : tasks) {
    const auto board = task.boardRaw.value_or(kDefaultBoard);
    auto& list = lists[board];
    if (list.isEmpty()) boards.push_back(board);
    list += item(task, calendar);
  }
  QString text = kTitle + u'\n';
  for (const auto& board : boards) text += u'\n' + kBoard + board.simplified() + u"\n\n"_s + lists[board];
  return text.toUtf8();
}

Result<std::vector<TaskRecord>> MarkdownExchange::read(const QByteArray& bytes, const Calendar& calendar,
                                                       const QDateTime& now) {
  return Reader(calendar, now).read(linesOf(bytes));
}

}  // namespace tarnwick
