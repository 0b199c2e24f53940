// SPDX-License-Identifier: MIT
#include "linux/atspi/DocumentPath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

QString withoutMarks(QString part) {
  static const QRegularExpression marks(
      QStringLiteral(R"(^[\s*●•\x{25cf}\x{2022}+]+|[\s*●•+]+$|\s*\[(?:\+|modified|read-?only)\]\s*$|\s*\((?:modified|read-?only)\)\s*$)"),
      QRegularExpression::CaseInsensitiveOption);
  return part.remove(marks).trimmed();
}

QString expanded(const QString& path, const DocumentClues& clues) {
  if (path == u"~") return clues.home;
  if (path.startsWith(u"~/")) return clues.home + path.mid(1);
  return path;
}

bool isAbsolute(const QString& path) { return path.startsWith(u'/') || path == u"~" || path.startsWith(u"~/"); }

/// The parts of a title: between dashes or bars, what stands in brackets apart.
QStringList partsOf(const QString& title) {
  static const QRegularExpression separators(QStringLiteral(R"(\s+[-–—|:]\s+)"));
  static const QRegularExpression bracketed(QStringLiteral(R"(^(.*\S)\s*[(\[]([~/][^()\[\]]*)[)\]]\s*$)"));
  QStringList parts;
  for (const auto& raw : title.split(separators, Qt::SkipEmptyParts)) {
    if (const auto match = bracketed.match(raw.trimmed()); match.hasMatch()) {
      parts << withoutMarks(match.captured(1)) << match.captured(2).trimmed();
    } else {
      parts << withoutMarks(raw);
    }
  }
  parts.removeAll(QString());
  return parts;
}

}  // namespace

std::optional<QString> documentFromClues(const DocumentClues& clues, const PathProbe& probe) {
  const auto parts = partsOf(clues.title);
  const auto inFolder = [&](const QString& folder) -> QString {
    for (const auto& part : parts) {
      if (isAbsolute(part)) continue;
      const auto path = QDir::cleanPath(folder + u'/' + part);
      if (probe(path) == PathKind::File) return path;
    }
    return folder + u"/."_s;
  };
  const auto accept = [&](const QString& path) -> std::optional<QString> {
    switch (probe(path)) {
      case PathKind::File: return path;
      case PathKind::Folder: return inFolder(path);
      case PathKind::None: return std::nullopt;
    }
    return std::nullopt;
  };
  for (const auto& part : parts) {
    if (!isAbsolute(part)) continue;
    if (const auto document = accept(QDir::cleanPath(expanded(part, clues)))) return document;
  }
  for (const auto& argument : clues.commandLine) {
    if (argument.isEmpty() || argument.startsWith(u'-')) continue;
    const auto local = argument.startsWith(u"file://") ? QUrl(argument).toLocalFile() : argument;
    const auto path = local.startsWith(u'/') ? local : clues.workingDirectory + u'/' + local;
    if (const auto document = accept(QDir::cleanPath(path))) return document;
  }
  // Where the program was started says something only if it is no place where everything starts.
  const auto& folder = clues.workingDirectory;
  if (folder.isEmpty() || folder == u"/" || folder == clues.home) return std::nullopt;
  return probe(folder) == PathKind::Folder ? accept(folder) : std::nullopt;
}

DocumentClues cluesOfProcess(qint64 pid, const QString& title) {
  DocumentClues clues;
  clues.title = title;
  clues.home = QDir::homePath();
  const auto process = QStringLiteral("/proc/%1/").arg(pid);
  if (QFile file(process + u"cmdline"_s); file.open(QIODevice::ReadOnly)) {
    for (const auto& word : file.read(1 << 16).split('\0').mid(1)) clues.commandLine << QString::fromLocal8Bit(word);
  }
  clues.workingDirectory = QFile::symLinkTarget(process + u"cwd"_s);
  return clues;
}

PathKind pathKindOnDisk(const QString& path) {
  const QFileInfo info(path);
  if (info.isFile()) return PathKind::File;
  return info.isDir() ? PathKind::Folder : PathKind::None;
}

}  // namespace tarnwick
