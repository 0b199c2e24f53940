// SPDX-License-Identifier: MIT
#include "exchange/PlumStore.h"

#include "exchange/ForeignNote.h"
#include "exchange/ExchangeWords.h"
#include "exchange/ForeignText.h"
#include "model/store/SqliteConnection.h"

#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

const QHash<QString, QString>& papers() {
  static const QHash<QString, QString> kPapers{
      {u"Yellow"_s, u"#FFE169"_s}, {u"Green"_s, u"#06D6A0"_s}, {u"Pink"_s, u"#FF7597"_s},     {u"Purple"_s, u"#C77DFF"_s},
      {u"Blue"_s, u"#4CC9F0"_s},   {u"Gray"_s, u"#D7D7D7"_s},  {u"Charcoal"_s, u"#555555"_s}, {u"White"_s, u"#FFFFFF"_s},
  };
  return kPapers;
}

/// Counted in tenths of microseconds since the year 1.
std::optional<QDateTime> momentOf(qint64 ticks) {
  constexpr qint64 kTicksPerMs = 10'000;
  constexpr qint64 kMsUntil1970 = 62'135'596'800'000;
  const auto moment = QDateTime::fromMSecsSinceEpoch(ticks / kTicksPerMs - kMsUntil1970, Qt::UTC);
  if (ticks <= 0 || moment.date().year() < 1970 || moment.date().year() > 9999) return std::nullopt;
  return moment;
}

Error damaged(const QString& text) { return {ErrorKind::Damaged, text}; }

QString textAt(const SqliteStatement& statement, int column) { return QString::fromUtf8(statement.bytes(column)); }

Result<void> copyTo(const QString& path, const QString& copy) {
  const auto whole = readForeignBytes(path);
  if (!whole) return whole.error();
  for (const auto* suffix : {"", "-wal"}) {
    const auto name = path + QLatin1StringView(suffix);
    // The log only with its database; the index beside it is made anew.
    if (*suffix && !QFile::exists(name)) continue;
    QFile target(copy + QLatin1StringView(suffix));
    const auto bytes = *suffix ? readForeignBytes(name) : whole;
    if (!bytes) return bytes.error();
    if (!target.open(QIODevice::WriteOnly) || target.write(bytes.value()) != bytes.value().size())
      return Error{ErrorKind::Failed, target.errorString()};
  }
  return {};
}

}  // namespace

bool PlumStore::isOne(const QByteArray& bytes) { return bytes.startsWith("SQLite format 3"); }

QString PlumStore::plainText(const QString& marked) {
  static const QRegularExpression kParagraph(u"^\\\\id=[0-9A-Fa-f-]*[ ]?"_s);
  static const QRegularExpression kStyle(u"\\\\(?:(\\\\)|(?:b|i|ul|ulnone|strike)0?(?![A-Za-z0-9])[ ]?)"_s);
  QStringList lines;
  for (auto line : marked.split(u'\n')) {
    if (line.endsWith(u'\r')) line.chop(1);
    line.remove(kParagraph);
    QString plain;
    qsizetype at = 0;
    for (auto matches = kStyle.globalMatch(line); matches.hasNext();) {
      const auto match = matches.next();
      plain += QStringView(line).sliced(at, match.capturedStart() - at);
      plain += match.captured(1);
      at = match.capturedEnd();
    }
    lines.append(plain + line.mid(at));
  }
  return lines.join(u'\n');
}

Result<ImportContent> PlumStore::read(const QString& path, const QDateTime& now) {
  const QTemporaryDir folder;
  const auto copy = folder.filePath(u"plum.sqlite"_s);
  if (const auto copied = copyTo(path, copy); !copied) return copied.error();
  auto opened = SqliteConnection::open(copy, SqliteConnection::Creation::MustExist);
  if (!opened) return damaged(ExchangeWords::tr("the database cannot be opened"));
  const auto& database = opened.value();
  sqlite3_db_config(database.handle(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  const auto tables = database.integer("SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name = 'Note'");
  if (!tables) return damaged(ExchangeWords::tr("the database is damaged"));
  if (*tables == 0) return damaged(ExchangeWords::tr("the database holds no table of sticky notes"));

  ImportContent content{u"Windows Sticky Notes"_s, {}, {}};
  auto rows = database.prepare("SELECT Id, Text, Theme, CreatedAt, DeletedAt FROM Note");
  if (!rows.isValid()) return damaged(ExchangeWords::tr("the database holds no table of sticky notes"));
  bool hasStyles = false;
  int code = rows.step();
  for (; code == SQLITE_ROW; code = rows.step()) {
    if (!rows.isNull(4) && rows.integer(4) > 0) continue;
    const auto marked = textAt(rows, 1);
    const auto text = plainText(marked).trimmed();
    if (text.isEmpty()) continue;
    hasStyles = hasStyles || marked.contains(u"\\b "_s) || marked.contains(u"\\i "_s) || marked.contains(u"\\ul "_s);
    auto record = foreignNote(u"plum:"_s + textAt(rows, 0), text, momentOf(rows.integer(3)).value_or(now));
    record.colorHex = papers().value(textAt(rows, 2), record.colorHex);
    content.notes.tasks.push_back(std::move(record));
  }
  if (code != SQLITE_DONE) return damaged(ExchangeWords::tr("the database is damaged"));
  if (content.notes.tasks.empty()) return noForeignNotes({});
  content.leftBehind.append(ExchangeWords::tr("pictures, and places and sizes of windows"));
  if (hasStyles) content.leftBehind.append(ExchangeWords::tr("text styles"));
  return content;
}

}  // namespace tarnwick
