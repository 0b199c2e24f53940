// SPDX-License-Identifier: MIT
// The words after `tarnwick`, sorted into verb, operands and options by one table. Says which word is wrong; what the
// words mean for the notes is not decided here.
#pragma once

#include "platform/Result.h"

#include <QByteArrayList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace tarnwick {

enum class Verb {
  Start, Background, Open, Version, Help,
  Toggle, Board, New, Quit, Add, Edit, List, Show, Crush, Undo, Check, Revive, Sweep, Tear, Redock, Export, Import,
  Settings, Status
};

/// What a verb takes.
struct VerbDescriptor {
  struct Option {
    QString name;       // with its two hyphens
    QString valueName;  // empty: the option stands alone
    QString summary;
  };
  Verb verb = Verb::Start;
  QString name;
  QString operands;  // as the usage line shows them
  int leastOperands = 0;
  int mostOperands = 0;
  QString summary;
  std::vector<Option> options;
};
[[nodiscard]] const std::vector<VerbDescriptor>& verbDescriptors();

struct CommandLine {
  Verb verb = Verb::Start;
  std::optional<Verb> helpFor;  // with Verb::Help: of one verb; else of all
  QStringList operands;
  QMap<QString, QString> options;  // by name with hyphens; empty value for those that stand alone

  [[nodiscard]] bool has(const QString& option) const { return options.contains(option); }
  [[nodiscard]] std::optional<QString> value(const QString& option) const;

  /// The error's text names the wrong word; its exit status is 2.
  [[nodiscard]] static Result<CommandLine> parse(const QStringList& words);
  /// Nothing for bytes that are no UTF-8 or hold a NUL.
  [[nodiscard]] static std::optional<QString> decode(const QByteArray& bytes);
};

/// What `--open` names, as absolute paths; URIs stay as they are.
[[nodiscard]] QStringList filesOf(const QStringList& words, const QString& workingDirectory);
/// All verbs, or one with its options.
[[nodiscard]] QString helpText(const std::optional<Verb>& verb);

}  // namespace tarnwick
