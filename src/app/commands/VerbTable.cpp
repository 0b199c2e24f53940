// SPDX-License-Identifier: MIT
#include "app/commands/CommandLine.h"
#include "model/Enumerations.h"

#include <QCoreApplication>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

using Option = VerbDescriptor::Option;
using Options = std::vector<Option>;

struct Words {
  Q_DECLARE_TR_FUNCTIONS(tarnwick::CommandLine)
};

template <typename Values>
QString rawValues(const Values& values) {
  QStringList words;
  for (const auto value : values) words.append(rawValue(value));
  return words.join(u", "_s);
}

Options noteOptions() {
  return {
      {u"--board"_s, u"NAME"_s, Words::tr("the board it belongs to")},
      {u"--color"_s, u"HEX"_s, Words::tr("paper colour, six hexadecimal digits")},
      {u"--theme"_s, u"THEME"_s, rawValues(kPaperThemes)},
      {u"--stamp"_s, u"STAMP"_s, rawValues(kTaskStamps)},
      {u"--tag"_s, u"TAG"_s, rawValues(kTaskTags)},
      {u"--repeat"_s, u"RULE"_s, rawValues(kRecurrences)},
      {u"--due"_s, u"WHEN"_s, Words::tr("YYYY-MM-DD, YYYY-MM-DDTHH:MM[:SS], today or tomorrow")},
      {u"--pin"_s, u"APPLICATION-ID"_s, Words::tr("show it only while this application is in front")},
      {u"--repo"_s, u"DIR"_s, Words::tr("show it only while this repository is worked on")},
      {u"--private"_s, {}, Words::tr("hide it from screen sharing, screenshots and recordings")},
  };
}

Options with(Options first, const Options& more) {
  first.insert(first.end(), more.begin(), more.end());
  return first;
}

Options addOptions() {
  return with(noteOptions(), {{u"--tear"_s, {}, Words::tr("put it onto the desktop (only while Tarnwick runs)")},
                              {u"--no-tear"_s, {}, Words::tr("leave it on the board")}});
}

Options editOptions() {
  return with(noteOptions(), {{u"--text"_s, u"TEXT"_s, Words::tr("the new text")},
                              {u"--no-due"_s, {}, Words::tr("no due date")},
                              {u"--no-pin"_s, {}, Words::tr("pinned to no application")},
                              {u"--no-repo"_s, {}, Words::tr("pinned to no repository")},
                              {u"--no-private"_s, {}, Words::tr("not private")}});
}

Options listOptions() {
  return {{u"--state"_s, u"STATE"_s, u"active, sleeping, completed, burned, all"_s},
          {u"--board"_s, u"NAME"_s, Words::tr("only this board")},
          {u"--search"_s, u"TEXT"_s, Words::tr("only notes whose text contains this")},
          {u"--tag"_s, u"TAG"_s, Words::tr("only notes with this tag")},
          {u"--json"_s, {}, Words::tr("as JSON")}};
}

}  // namespace

const std::vector<VerbDescriptor>& verbDescriptors() {
  static const Options json{{u"--json"_s, {}, Words::tr("as JSON")}};
  static const std::vector<VerbDescriptor> table{
      {Verb::Toggle, u"toggle"_s, {}, 0, 0, Words::tr("show or hide the board"), {}},
      {Verb::Board, u"board"_s, {}, 0, 0, Words::tr("show the board"), {}},
      {Verb::New, u"new"_s, {}, 0, 0, Words::tr("write a new note on the board"), {}},
      {Verb::Quit, u"quit"_s, {}, 0, 0, Words::tr("end Tarnwick"), {}},
      {Verb::Add, u"add"_s, u"TEXT"_s, 1, 1, Words::tr("make a note; - reads its text from standard input"), addOptions()},
      {Verb::Edit, u"edit"_s, u"ID"_s, 1, 1, Words::tr("change a note"), editOptions()},
      {Verb::List, u"list"_s, {}, 0, 0, Words::tr("list notes"), listOptions()},
      {Verb::Show, u"show"_s, u"ID"_s, 1, 1, Words::tr("show one note, whole"), json},
      {Verb::Crush, u"crush"_s, u"ID"_s, 1, 1, Words::tr("finish a note"), {}},
      {Verb::Undo, u"undo"_s, {}, 0, 0, Words::tr("take the last crush back"), {}},
      {Verb::Check, u"check"_s, u"ID LINE"_s, 2, 2, Words::tr("toggle the checkbox on a line, counted from 0"), {}},
      {Verb::Revive, u"revive"_s, u"ID...|--all"_s, 0, -1, Words::tr("bring burned notes back to the board"),
       {{u"--all"_s, {}, Words::tr("all burned notes")}}},
      {Verb::Sweep, u"sweep"_s, {}, 0, 0, Words::tr("delete all burned notes for good"),
       {{u"--yes"_s, {}, Words::tr("needed: it cannot be undone")}}},
      {Verb::Tear, u"tear"_s, u"ID"_s, 1, 1, Words::tr("put a note onto the desktop"), {}},
      {Verb::Redock, u"redock"_s, u"ID"_s, 1, 1, Words::tr("put a note back on the board"), {}},
      {Verb::Export, u"export"_s, {}, 0, 0, Words::tr("write every note to standard output or a file"),
       {{u"--format"_s, u"FORMAT"_s, u"json, markdown, ics"_s}, {u"--output"_s, u"FILE"_s, Words::tr("the file to write")}}},
      {Verb::Import, u"import"_s, u"FILE"_s, 1, 1, Words::tr("take in an export, or the notes of another program"),
       {{u"--preview"_s, {}, Words::tr("only tell what would be imported")}}},
      {Verb::Settings, u"settings"_s, u"[KEY [VALUE]]"_s, 0, 2, Words::tr("print all settings, print one, or set one"), {}},
      {Verb::Status, u"status"_s, {}, 0, 0, Words::tr("tell what runs now"), json},
  };
  return table;
}

QString helpText(const std::optional<Verb>& verb) {
  QString text;
  constexpr int kColumn = 26;
  const auto line = [&text](const QString& left, const QString& right) {
    text += u"  "_s + left.leftJustified(kColumn) + (left.size() >= kColumn ? u" "_s : QString()) + right + u'\n';
  };
  if (!verb) {
    text += Words::tr("Usage: tarnwick [VERB ...]") + u"\n\n"_s;
    line(u"tarnwick"_s, Words::tr("start; when it runs already, show the board"));
    line(u"tarnwick --background"_s, Words::tr("start without showing anything"));
    line(u"tarnwick --open FILE..."_s, Words::tr("start, and show what would be imported from the files"));
    line(u"tarnwick --version"_s, Words::tr("print the version"));
    line(u"tarnwick --help"_s, Words::tr("print this help"));
    text += u'\n';
    for (const auto& each : verbDescriptors()) {
      line(each.operands.isEmpty() ? each.name : each.name + u' ' + each.operands, each.summary);
    }
    text += u'\n' + Words::tr("\"tarnwick VERB --help\" tells of one verb.") + u'\n';
    return text;
  }
  for (const auto& each : verbDescriptors()) {
    if (each.verb != *verb) continue;
    text += Words::tr("Usage: tarnwick %1").arg(each.name);
    if (!each.operands.isEmpty()) text += u' ' + each.operands;
    if (!each.options.empty()) text += u' ' + Words::tr("[OPTIONS]");
    text += u"\n\n"_s + each.summary + u'\n';
    if (!each.options.empty()) text += u'\n';
    for (const auto& option : each.options) {
      line(option.valueName.isEmpty() ? option.name : option.name + u' ' + option.valueName, option.summary);
    }
  }
  return text;
}

}  // namespace tarnwick
