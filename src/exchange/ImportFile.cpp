// SPDX-License-Identifier: MIT
#include "exchange/ImportFile.h"

#include "exchange/Exchange.h"
#include "exchange/ExchangeWords.h"
#include "exchange/ForeignText.h"
#include "exchange/PlumStore.h"
#include "exchange/StickyStore.h"
#include "exchange/TomboyStore.h"
#include "exchange/XpadStore.h"
#include "model/store/ModelContainer.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

const QString kPlumName = u"plum.sqlite"_s;
const QString kStickyName = u"notes.json"_s;

bool isJson(const QByteArray& bytes) {
  const auto start = bytes.left(64).trimmed();
  return start.startsWith('{') || start.startsWith('[');
}

QString formatName(const QByteArray& bytes) {
  if (isJson(bytes)) return ExchangeWords::tr("Tarnwick");
  return bytes.left(4096).toUpper().contains("BEGIN:VCALENDAR") ? ExchangeWords::tr("Calendar") : ExchangeWords::tr("Markdown");
}

Result<ImportContent> readBytes(const QByteArray& bytes, const QString& name, const Calendar& calendar,
                                const QDateTime& now) {
  if (TomboyStore::isOne(bytes)) return TomboyStore::read(bytes, name, now);
  if (isJson(bytes)) {
    const auto root = QJsonDocument::fromJson(bytes).object();
    if (StickyStore::isOne(root)) return StickyStore::read(root, now);
  }
  auto notes = readExport(bytes, calendar, now);
  if (!notes) return notes.error();
  return ImportContent{formatName(bytes), notes.take(), {}};
}

Result<ImportContent> readFolder(const QDir& folder, const Calendar& calendar, const QDateTime& now) {
  if (TomboyStore::isOne(folder)) return TomboyStore::read(folder, now);
  if (XpadStore::isOne(folder)) return XpadStore::read(folder, now);
  for (const auto& name : {kPlumName, kStickyName}) {
    if (folder.exists(name)) return readImport(folder.filePath(name), calendar, now);
  }
  return Error{ErrorKind::NotFound, ExchangeWords::tr("the folder holds no notes of a program that is known here")};
}

}  // namespace

Result<ImportContent> readImport(const QString& path, const Calendar& calendar, const QDateTime& now) {
  const QFileInfo info(path);
  if (info.isDir()) return readFolder(QDir(path), calendar, now);
  const auto bytes = readForeignBytes(path);
  if (!bytes) return bytes.error();
  if (PlumStore::isOne(bytes.value())) return PlumStore::read(path, now);
  // One pad cannot be told from any other text; its folder can.
  const bool isPad = info.fileName().startsWith("info-"_L1) || info.fileName().startsWith("content-"_L1);
  if (isPad && XpadStore::isOne(info.dir())) return XpadStore::read(info.dir(), now);
  return readBytes(bytes.value(), info.completeBaseName(), calendar, now);
}

Result<ImportContent> readImportBytes(const QByteArray& bytes, const Calendar& calendar, const QDateTime& now) {
  if (PlumStore::isOne(bytes)) return Error{ErrorKind::Refused, ExchangeWords::tr("a database can only be read from its file")};
  return readBytes(bytes, QString(), calendar, now);
}

ImportPreview previewOf(ModelContainer& container, const ImportContent& content) {
  ImportPreview preview;
  QSet<QUuid> seen;
  for (const auto& task : content.notes.tasks) {
    ++preview.notes;
    if (seen.contains(task.id) || container.mainContext().findTask(task.id)) ++preview.existing;
    seen.insert(task.id);
    if (task.isCompleted) ++preview.completed;
    if (task.dueDate) ++preview.dated;
  }
  return preview;
}

QString previewText(const ImportContent& content, const ImportPreview& preview) {
  QStringList lines{ExchangeWords::tr("From %1: %2 notes, %3 of them new").arg(content.origin).arg(preview.notes).arg(preview.notes - preview.existing)};
  if (preview.existing > 0) lines.append(ExchangeWords::tr("Here already, and left as they are: %1").arg(preview.existing));
  if (preview.completed > 0) lines.append(ExchangeWords::tr("Done: %1").arg(preview.completed));
  if (preview.dated > 0) lines.append(ExchangeWords::tr("With a date: %1").arg(preview.dated));
  if (!content.leftBehind.isEmpty()) lines.append(ExchangeWords::tr("Stays behind: %1").arg(content.leftBehind.join(u"; "_s)));
  return lines.join(u'\n');
}

std::vector<ImportPlace> importPlaces(const QString& home) {
  const struct {
    const char* program;
    const char* path;
  } known[] = {
      {"xpad", ".config/xpad"},
      {"Gnote", ".local/share/gnote"},
      {"Tomboy", ".local/share/tomboy"},
      {"tomboy-ng", ".local/share/tomboy-ng"},
      {"Sticky", ".config/sticky/notes.json"},
  };
  std::vector<ImportPlace> places;
  for (const auto& each : known) {
    const auto path = QDir(home).filePath(QLatin1StringView(each.path));
    const bool isThere = QFileInfo(path).isDir() ? TomboyStore::isOne(QDir(path)) || XpadStore::isOne(QDir(path))
                                                 : QFileInfo(path).isFile();
    if (isThere) places.push_back({QString::fromLatin1(each.program), path});
  }
  return places;
}

}  // namespace tarnwick
