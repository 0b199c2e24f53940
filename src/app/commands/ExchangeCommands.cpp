// SPDX-License-Identifier: MIT
// `export` and `import`.
#include "app/NoteImport.h"
#include "app/commands/CommandReplies.h"
#include "app/commands/CommandRunner.h"
#include "exchange/Exchange.h"
#include "exchange/ImportFile.h"
#include "model/store/ModelContainer.h"
#include "platform/Clock.h"

#include <QCoreApplication>
#include <QDir>
#include <QSaveFile>

namespace tarnwick {

using namespace Qt::StringLiterals;
using replies::done;
using replies::failed;
using replies::wrong;

namespace {

struct Words {
  Q_DECLARE_TR_FUNCTIONS(tarnwick::CommandRunner)
};

QString pathOf(const QString& word, const CommandCall& call) {
  return QDir(call.workingDirectory).absoluteFilePath(word);
}

}  // namespace

CommandReply CommandRunner::exportNotes(const CommandLine& line, const CommandCall& call,
                                        const BoardServices& services) const {
  const auto content = contentOf(services.container);
  if (!content) return failed(content.error().text);
  const auto format = exchangeFormatFromName(line.value(u"--format"_s).value_or(u"json"_s));
  const QByteArray bytes = writeExport(content.value(), format.value_or(ExchangeFormat::Json), calendar());
  const auto output = line.value(u"--output"_s);
  if (!output) return done(bytes);
  QSaveFile file(pathOf(*output, call));
  const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
  if (!isWritten) return failed(Words::tr("%1 could not be written: %2").arg(*output, file.errorString()));
  return done();
}

CommandReply CommandRunner::importNotes(const CommandLine& line, const CommandCall& call,
                                        const BoardServices& services) const {
  const QString& name = line.operands.front();
  const QDateTime now = services.clock.now();
  if (name == u"-" && !CommandLine::decode(call.standardInput)) return wrong(Words::tr("standard input is not valid UTF-8 text"));
  const auto read = name == u"-" ? readImportBytes(call.standardInput, calendar(), now)
                                 : readImport(pathOf(name, call), calendar(), now);
  if (!read) return failed(u"%1: %2"_s.arg(name, read.error().text));
  const ImportContent& content = read.value();
  if (line.has(u"--preview"_s)) return done(previewText(content, previewOf(services.container, content)).toUtf8() + '\n');

  const auto count = takeIn(content.notes, services);
  if (!count) return failed(count.error().text);
  // Scripts read it: the same in every language.
  return done(u"imported %1, skipped %2"_s.arg(count.value().imported).arg(count.value().skipped).toUtf8() + '\n');
}

}  // namespace tarnwick
