// SPDX-License-Identifier: MIT
#include "app/commands/NoteText.h"

#include "board/CardRules.h"
#include "exchange/JsonValue.h"
#include "model/store/ModelContext.h"
#include "model/store/TaskColumns.h"

#include <QCoreApplication>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kShownID = 8;
constexpr qsizetype kLeastID = 4;

struct Words {
  Q_DECLARE_TR_FUNCTIONS(tarnwick::NoteText)
};

/// A note's text must not steer the terminal.
QString withoutControls(QString text) {
  for (QChar& unit : text) {
    const bool isLayout = unit == u'\n' || unit == u'\t';
    if (!isLayout && unit.category() == QChar::Other_Control) unit = QChar(QChar::ReplacementCharacter);
  }
  return text;
}

struct ValueText {
  const Calendar& calendar;

  QString operator()(const QUuid& value) const { return idText(value); }
  QString operator()(const QString& value) const { return withoutControls(value).replace(u'\n', u"\n  "_s); }
  QString operator()(bool value) const { return value ? u"true"_s : u"false"_s; }
  QString operator()(const QDateTime& value) const { return momentText(value, calendar); }
  QString operator()(qint64 value) const { return QString::number(value); }
  template <typename T>
  QString operator()(const std::optional<T>& value) const {
    return value ? (*this)(*value) : QString();
  }
};

template <typename T>
bool isPresent(const T&) {
  return true;
}
template <typename T>
bool isPresent(const std::optional<T>& value) {
  return value.has_value();
}

}  // namespace

QString momentText(const QDateTime& moment, const Calendar& calendar) {
  return json::isoText(moment, calendar).value_or(QString::number(moment.toMSecsSinceEpoch()));
}

QString listLine(const Task& task, const QDateTime& now, const Calendar& calendar) {
  const QString text = task.text().trimmed();
  QString line = idText(task.id()).left(kShownID) + u"  "_s + withoutControls(text.section(u'\n', 0, 0));
  if (text.contains(u'\n')) line += u" …"_s;
  QStringList facts;
  if (task.isCompleted()) facts << Words::tr("finished");
  if (task.isBurned()) facts << Words::tr("burned");
  if (task.board() != kDefaultBoard) facts << withoutControls(task.board());
  if (task.dueDate()) facts << dueLabel(*task.dueDate(), now, calendar);
  if (task.recurrence() != Recurrence::none) facts << label(task.recurrence());
  if (task.tag() != TaskTag::none) facts << rawValue(task.tag());
  if (!facts.isEmpty()) line += u"  ["_s + facts.join(u", "_s) + u']';
  return line;
}

QString noteLines(const TaskRecord& record, const Calendar& calendar) {
  QString lines;
  for (const TaskColumn& column : kTaskColumns) {
    std::visit(
        [&](const auto field) {
          if (isPresent(record.*field)) lines += column.name + u": "_s + ValueText{calendar}(record.*field) + u'\n';
        },
        column.field);
  }
  return lines;
}

Result<TaskPtr> findNote(const ModelContext& context, const QString& word) {
  const QString wanted = word.toUpper();
  const Error none{ErrorKind::NotFound, Words::tr("no note with the id %1").arg(word)};
  if (wanted.size() < kLeastID) return none;
  if (const QUuid whole = QUuid::fromString(wanted); !whole.isNull() && idText(whole) == wanted) {
    const TaskPtr task = context.findTask(whole);
    return task ? Result<TaskPtr>(task) : none;
  }
  TaskPtr found;
  for (const TaskPtr& task : context.fetchTasks()) {
    if (!idText(task->id()).startsWith(wanted)) continue;
    if (found) return Error{ErrorKind::Refused, Words::tr("more than one note has an id that begins with %1").arg(word)};
    found = task;
  }
  if (!found) return none;
  return found;
}

}  // namespace tarnwick
