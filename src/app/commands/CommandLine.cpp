// SPDX-License-Identifier: MIT
#include "app/commands/CommandLine.h"

#include <QCoreApplication>
#include <QDir>
#include <QStringDecoder>

#include <algorithm>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

struct Words {
  Q_DECLARE_TR_FUNCTIONS(tarnwick::CommandLine)
};

Error wrong(const QString& text) { return {ErrorKind::Refused, text}; }

bool isOption(const QString& word) {
  if (!word.startsWith(u"--") || word.size() < 3) return false;
  const char16_t first = word[2].unicode();
  return (first >= u'a' && first <= u'z') || (first >= u'A' && first <= u'Z');
}

/// Pairs that contradict each other.
const QList<std::pair<QString, QString>>& opposites() {
  static const QList<std::pair<QString, QString>> pairs{
      {u"--tear"_s, u"--no-tear"_s}, {u"--due"_s, u"--no-due"_s},         {u"--pin"_s, u"--no-pin"_s},
      {u"--repo"_s, u"--no-repo"_s}, {u"--private"_s, u"--no-private"_s},
  };
  return pairs;
}

const VerbDescriptor* descriptorOf(const QString& name) {
  const auto& table = verbDescriptors();
  const auto found = std::ranges::find(table, name, &VerbDescriptor::name);
  return found == table.end() ? nullptr : &*found;
}

/// The words before any verb.
std::optional<Result<CommandLine>> withoutVerb(const QStringList& words) {
  CommandLine line;
  if (words.isEmpty()) return Result<CommandLine>(line);
  const QString& first = words.front();
  if (first == u"--background") {
    line.verb = Verb::Background;
  } else if (first == u"--open") {
    line.verb = Verb::Open;
    line.operands = words.mid(1);
    return Result<CommandLine>(line);
  } else if (first == u"--version") {
    line.verb = Verb::Version;
  } else if (first == u"--help") {
    line.verb = Verb::Help;
  } else if (isOption(first)) {
    return Result<CommandLine>(wrong(Words::tr("unknown option %1").arg(first)));
  } else {
    return std::nullopt;
  }
  if (words.size() > 1) return Result<CommandLine>(wrong(Words::tr("%1 is one word too many").arg(words[1])));
  return Result<CommandLine>(line);
}

Result<void> takeOption(CommandLine& line, const VerbDescriptor& verb, const QStringList& words, qsizetype& index) {
  const QString& word = words[index];
  const qsizetype equals = word.indexOf(u'=');
  const QString name = equals < 0 ? word : word.left(equals);
  const auto option = std::ranges::find(verb.options, name, &VerbDescriptor::Option::name);
  if (option == verb.options.end()) return wrong(Words::tr("unknown option %1 for %2").arg(name, verb.name));
  QString value;
  if (option->valueName.isEmpty()) {
    if (equals >= 0) return wrong(Words::tr("%1 takes no value").arg(name));
  } else if (equals >= 0) {
    value = word.mid(equals + 1);
  } else {
    const bool hasValue = index + 1 < words.size() && !isOption(words[index + 1]) && words[index + 1] != u"--";
    if (!hasValue) return wrong(Words::tr("%1 needs %2").arg(name, option->valueName));
    value = words[++index];
  }
  line.options.insert(name, value);
  return {};
}

Result<void> checkCounts(const CommandLine& line, const VerbDescriptor& verb) {
  const qsizetype count = line.operands.size();
  if (count < verb.leastOperands) {
    return wrong(Words::tr("%1 needs %2").arg(verb.name, verb.operands.section(u' ', count, count)));
  }
  if (verb.mostOperands >= 0 && count > verb.mostOperands) {
    return wrong(Words::tr("%1 is one word too many for %2").arg(line.operands[verb.mostOperands], verb.name));
  }
  if (verb.verb == Verb::Revive && (count == 0) != line.has(u"--all"_s)) {
    return wrong(count == 0 ? Words::tr("revive needs ID or --all") : Words::tr("revive takes ID or --all, not both"));
  }
  if (verb.verb == Verb::Sweep && !line.has(u"--yes"_s)) {
    return wrong(Words::tr("sweep deletes all ashes for good and needs --yes"));
  }
  return {};
}

}  // namespace

std::optional<QString> CommandLine::value(const QString& option) const {
  const auto found = options.constFind(option);
  if (found == options.constEnd()) return std::nullopt;
  return *found;
}

Result<CommandLine> CommandLine::parse(const QStringList& words) {
  for (const QString& word : words) {
    if (word.contains(QChar(u'\0'))) return wrong(Words::tr("a word holds a NUL byte"));
  }
  if (auto plain = withoutVerb(words)) return *std::move(plain);

  const VerbDescriptor* const verb = descriptorOf(words.front());
  if (!verb) return wrong(Words::tr("unknown verb %1").arg(words.front()));
  const qsizetype optionsEnd = words.indexOf(u"--"_s);
  if (const qsizetype help = words.indexOf(u"--help"_s); help > 0 && (optionsEnd < 0 || help < optionsEnd)) {
    CommandLine line;
    line.verb = Verb::Help;
    line.helpFor = verb->verb;
    return line;
  }

  CommandLine line;
  line.verb = verb->verb;
  bool hasEnded = false;
  for (qsizetype index = 1; index < words.size(); ++index) {
    const QString& word = words[index];
    if (!hasEnded && word == u"--") {
      hasEnded = true;
    } else if (!hasEnded && isOption(word)) {
      if (auto taken = takeOption(line, *verb, words, index); !taken) return taken.error();
    } else {
      line.operands.append(word);
    }
  }
  for (const auto& [one, other] : opposites()) {
    if (line.has(one) && line.has(other)) return wrong(Words::tr("%1 contradicts %2").arg(other, one));
  }
  if (auto counted = checkCounts(line, *verb); !counted) return counted.error();
  return line;
}

QStringList filesOf(const QStringList& words, const QString& workingDirectory) {
  QStringList files;
  for (const auto& word : words) {
    files.append(word.startsWith(u"file:") ? word : QDir(workingDirectory).absoluteFilePath(word));
  }
  return files;
}

std::optional<QString> CommandLine::decode(const QByteArray& bytes) {
  if (bytes.contains('\0')) return std::nullopt;
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
  QString text = decoder(bytes);
  if (decoder.hasError()) return std::nullopt;
  return text;
}

}  // namespace tarnwick
