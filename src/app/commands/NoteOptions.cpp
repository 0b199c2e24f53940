// SPDX-License-Identifier: MIT
#include "app/commands/NoteOptions.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

struct Words {
  Q_DECLARE_TR_FUNCTIONS(tarnwick::NoteOptions)
};

Error wrong(const QString& text) { return {ErrorKind::Refused, text}; }

/// Reads a raw value into `to`; the error names option and value.
template <typename E>
Result<void> readRaw(const CommandLine& line, const QString& option, std::optional<E>& to) {
  const auto word = line.value(option);
  if (!word) return {};
  to = fromRawValue<E>(*word);
  if (!to) return wrong(Words::tr("%1 is no value for %2").arg(*word, option));
  return {};
}

Result<void> readFilled(const CommandLine& line, const QString& option, std::optional<QString>& to) {
  to = line.value(option);
  if (to && NoteEditing::trimmed(*to).isEmpty()) return wrong(Words::tr("the value of %1 is blank").arg(option));
  return {};
}

}  // namespace

std::optional<QDateTime> momentFromWords(const QString& when, const QDateTime& now, const Calendar& calendar) {
  const QDate today = calendar.day(now);
  if (when == u"today") return calendar.startOfDay(today);
  if (when == u"tomorrow") return calendar.startOfDay(today.addDays(1));
  static const QRegularExpression form(
      u"\\A([0-9]{4})-([0-9]{2})-([0-9]{2})(?:T([0-9]{2}):([0-9]{2})(?::([0-9]{2}))?)?\\z"_s);
  const auto match = form.match(when);
  if (!match.hasMatch()) return std::nullopt;
  const auto number = [&match](int group) { return match.captured(group).toInt(); };
  const QDate day(number(1), number(2), number(3));
  const QTime time(number(4), number(5), number(6));
  if (!day.isValid() || !time.isValid()) return std::nullopt;
  const QDateTime moment = match.hasCaptured(4) ? calendar.at(day, time) : calendar.startOfDay(day);
  if (!moment.isValid()) return std::nullopt;
  return moment;
}

std::optional<QString> colorFromWord(const QString& word) {
  static const QRegularExpression form(u"\\A#?([0-9A-Fa-f]{6})\\z"_s);
  const auto match = form.match(word);
  if (!match.hasMatch()) return std::nullopt;
  return u'#' + match.captured(1).toUpper();
}

Result<NoteOptions> NoteOptions::parse(const CommandLine& line, const QDateTime& now, const Calendar& calendar) {
  NoteOptions options;
  for (auto& read : {readFilled(line, u"--text"_s, options.text), readFilled(line, u"--board"_s, options.board),
                     readFilled(line, u"--pin"_s, options.pin),
                     readFilled(line, u"--repo"_s, options.repositoryFolder),
                     readRaw(line, u"--theme"_s, options.paperTheme), readRaw(line, u"--stamp"_s, options.stamp),
                     readRaw(line, u"--tag"_s, options.tag), readRaw(line, u"--repeat"_s, options.recurrence)}) {
    if (!read) return read.error();
  }
  if (const auto word = line.value(u"--color"_s)) {
    options.colorHex = colorFromWord(*word);
    if (!options.colorHex) return wrong(Words::tr("%1 is no colour of six hexadecimal digits").arg(*word));
  }
  if (const auto word = line.value(u"--due"_s)) {
    options.dueDate = momentFromWords(*word, now, calendar);
    if (!options.dueDate) return wrong(Words::tr("%1 is no date").arg(*word));
  }
  options.hasNoDue = line.has(u"--no-due"_s);
  options.hasNoPin = line.has(u"--no-pin"_s);
  options.hasNoRepository = line.has(u"--no-repo"_s);
  if (line.has(u"--private"_s)) options.isPrivate = true;
  if (line.has(u"--no-private"_s)) options.isPrivate = false;
  return options;
}

void NoteOptions::applyTo(NoteDraft& draft, NoteExtras& extras) const {
  if (text) draft.text = *text;
  if (board) draft.board = *board;
  if (colorHex) draft.colorHex = *colorHex;
  if (paperTheme) draft.paperTheme = *paperTheme;
  if (stamp) draft.stamp = *stamp;
  if (recurrence) draft.recurrenceRaw = rawValue(*recurrence);
  if (dueDate) draft.dueDate = *dueDate;
  if (hasNoDue) draft.dueDate.reset();
  if (isPrivate) draft.isPrivate = *isPrivate;
  if (tag) extras.tagRaw = rawValue(*tag);
  if (pin) {
    draft.isPinnedToApp = true;
    extras.pinnedBundleID = *pin;
  }
  if (hasNoPin) draft.isPinnedToApp = false;
  if (hasNoRepository) {
    extras.gitRepoPath = QString();
    extras.gitBranch = QString();
  }
}

}  // namespace tarnwick
