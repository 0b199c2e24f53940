// SPDX-License-Identifier: MIT
#include "app/commands/NoteText.h"

#include "app/commands/JsonText.h"
#include "board/CardRules.h"
#include "model/store/ModelContext.h"
#include "model/store/TaskColumns.h"

#include <QCoreApplication>

#include <cstdlib>

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
  const QTimeZone& zone;

  QString operator()(const QUuid& value) const { return idText(value); }
  QString operator()(const QString& value) const { return withoutControls(value).replace(u'\n', u"\n  "_s); }
  QString operator()(bool value) const { return value ? u"true"_s : u"false"_s; }
  QString operator()(const QDateTime& value) const { return isoText(value, zone); }
  QString operator()(qint64 value) const { return QString::number(value); }
  template <typename T>
  QString operator()(const std::optional<T>& value) const {
    return value ? (*this)(*value) : QString();
  }
};

struct ValueJson {
  JsonText& json;
  const QTimeZone& zone;

  void operator()(const QUuid& value) const { json.text(idText(value)); }
  void operator()(const QString& value) const { json.text(value); }
  void operator()(bool value) const { json.boolean(value); }
  void operator()(const QDateTime& value) const { json.text(isoText(value, zone)); }
  void operator()(qint64 value) const { json.integer(value); }
  template <typename T>
  void operator()(const std::optional<T>& value) const {
    (*this)(*value);
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

QString idText(const QUuid& id) { return id.toString(QUuid::WithoutBraces).toUpper(); }

QString isoText(const QDateTime& moment, const QTimeZone& zone) {
  const QDateTime local = moment.toTimeZone(zone);
  const int minutes = local.offsetFromUtc() / 60;
  const QChar zero(u'0');
  return local.toString(u"yyyy-MM-ddTHH:mm:ss.zzz"_s) +
         u"%1%2:%3"_s.arg(minutes < 0 ? u'-' : u'+').arg(std::abs(minutes) / 60, 2, 10, zero).arg(std::abs(minutes) % 60, 2, 10, zero);
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

QByteArray noteJson(const TaskRecord& record, const QTimeZone& zone) {
  JsonText json;
  json.beginObject();
  for (const TaskColumn& column : kTaskColumns) {
    std::visit(
        [&](const auto field) {
          if (!isPresent(record.*field)) return;
          json.key(column.name.data());
          ValueJson{json, zone}(record.*field);
        },
        column.field);
  }
  json.endObject();
  return json.bytes();
}

QString noteLines(const TaskRecord& record, const QTimeZone& zone) {
  QString lines;
  for (const TaskColumn& column : kTaskColumns) {
    std::visit(
        [&](const auto field) {
          if (isPresent(record.*field)) lines += column.name + u": "_s + ValueText{zone}(record.*field) + u'\n';
        },
        column.field);
  }
  return lines;
}

Result<TaskPtr> findNote(const ModelContext& context, const QString& word) {
  const QString wanted = word.toUpper();
  const Error none{ErrorKind::NotFound, Words::tr("no note with the id %1").arg(word)};
  if (wanted.size() < kLeastID) return none;
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
