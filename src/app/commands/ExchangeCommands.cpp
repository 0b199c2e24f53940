// SPDX-License-Identifier: MIT
// `export` and `import`.
#include "app/commands/CommandReplies.h"
#include "app/commands/CommandRunner.h"
#include "board/DeskDuties.h"
#include "board/NotificationEngine.h"
#include "board/TornNotes.h"
#include "exchange/Exchange.h"
#include "model/store/ModelContainer.h"
#include "platform/Clock.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace tarnwick {

using namespace Qt::StringLiterals;
using replies::done;
using replies::failed;

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
  QFile file(pathOf(name, call));
  if (!file.open(QIODevice::ReadOnly)) {
    return failed(Words::tr("%1 could not be read: %2").arg(name, file.errorString()));
  }
  const QByteArray bytes = file.readAll();
  if (file.error() != QFileDevice::NoError) {
    return failed(Words::tr("%1 could not be read: %2").arg(name, file.errorString()));
  }
  const auto content = readExport(bytes, calendar(), services.clock.now());
  if (!content) return failed(u"%1: %2"_s.arg(name, content.error().text));

  const auto count = importInto(services.container, content.value());
  if (!count) return failed(count.error().text);
  ModelContext& context = services.container.mainContext();
  for (const TaskRecord& record : content.value().tasks) {
    if (const TaskPtr task = context.findTask(record.id)) services.reminders.schedule(*task);
  }
  if (TornNotes* const torn = services.torn ? services.torn() : nullptr) restickDueNotes(context, *torn, services.clock);
  return done(Words::tr("imported %1, skipped %2").arg(count.value().imported).arg(count.value().skipped).toUtf8() + '\n');
}

}  // namespace tarnwick
