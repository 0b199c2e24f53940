// SPDX-License-Identifier: MIT
#include "fuzz/Targets.h"

#include "exchange/Exchange.h"
#include "exchange/ImportFile.h"
#include "exchange/PlumStore.h"
#include "fakes/ManualTime.h"
#include "model/Color.h"
#include "model/SettingsKeys.h"
#include "model/StickyChecklist.h"
#include "model/UserDefaults.h"
#include "model/store/ModelContainer.h"
#include "settings/UpdateChecker.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace tarnwick::fuzz {

namespace {

using namespace Qt::StringLiterals;

Calendar calendar() { return {QTimeZone("Europe/Berlin"), QLocale(QLocale::German, QLocale::Germany)}; }
QDateTime now() { return QDateTime(QDate(2026, 3, 5), QTime(12, 0), Qt::UTC); }

/// A folder that the run keeps, with the bytes as one file.
QString written(const QTemporaryDir& folder, const QString& name, const QByteArray& bytes) {
  QDir(folder.path()).mkpath(u"data"_s);
  const auto path = folder.filePath(u"data/"_s + name);
  QFile file(path);
  require(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size(), "the file is written");
  return path;
}

void color(const QByteArray& bytes) {
  const auto text = QString::fromUtf8(bytes);
  require(Color::fromHex(text).isValid() && Color::fromHex(text).alpha() == 255, "any text is an opaque colour");
  require(Color::inkOnPaper(text).isValid(), "any paper has an ink");
}

void checklist(const QByteArray& bytes) {
  const auto text = QString::fromUtf8(bytes);
  const auto count = static_cast<int>(StickyChecklist::lines(text).size());
  for (int line = -1; line <= count; ++line) {
    const auto once = StickyChecklist::toggle(text, line);
    require(StickyChecklist::lines(once).size() == count, "a toggle keeps the lines");
  }
  if (const auto progress = StickyChecklist::progress(text)) {
    require(progress->done >= 0 && progress->done <= progress->total && progress->total <= count, "progress has bounds");
  }
  static_cast<void>(StickyChecklist::ensureChecklist(text));
}

void defaults(const QByteArray& bytes) {
  const QTemporaryDir folder;
  const auto path = written(folder, u"settings.json"_s, bytes);
  test::ManualTime time;
  {
    UserDefaults settings(path, time);
    registerDefaultSettings(settings);
    migrateSettingsOnce(settings);
    for (const auto& key : settings.storedKeys()) static_cast<void>(settings.text(key));
    require(settings.setText(u"hotKey"_s, u"Meta+X"_s).isOk(), "a damaged file is set aside");
  }
  const UserDefaults again(path, time);
  require(again.text(u"hotKey"_s) == u"Meta+X"_s, "what is written is read again");
}

void store(const QByteArray& bytes) {
  const QTemporaryDir folder;
  const auto path = written(folder, u"Tarnwick.store"_s, bytes);
  auto opened = ModelContainer::open(path, std::chrono::milliseconds::zero());
  if (!opened) {
    QFile file(path);
    require(file.open(QIODevice::ReadOnly) && file.readAll() == bytes, "a store that is refused stays as it is");
    return;
  }
  for (const auto& task : opened.value()->mainContext().fetchTasks()) static_cast<void>(task->isOneOff());
}

void feed(const QByteArray& bytes) {
  const auto release = UpdateChecker::decode(bytes);
  if (!release) return;
  const auto scheme = release->url.scheme();
  require(scheme == u"http" || scheme == u"https", "only web addresses are offered");
}

void exchange(const QByteArray& bytes) {
  const auto read = readExport(bytes, calendar(), now());
  if (!read) {
    require(!read.error().text.isEmpty(), "an error says what is wrong");
    return;
  }
  for (const auto format : {ExchangeFormat::Json, ExchangeFormat::Markdown, ExchangeFormat::Ics}) {
    require(readExport(writeExport(read.value(), format, calendar()), calendar(), now()).isOk(),
            "what was read can be written and read again");
  }
}

void foreign(const QByteArray& bytes) {
  const QTemporaryDir folder;
  written(folder, u"info-A"_s, "content content-A\n" + bytes.left(200));
  written(folder, u"content-A"_s, bytes);
  static_cast<void>(readImport(folder.filePath(u"data"_s), calendar(), now()));
  static_cast<void>(readImport(written(folder, u"x.note"_s, bytes), calendar(), now()));
  static_cast<void>(readImportBytes(bytes, calendar(), now()));
  static_cast<void>(PlumStore::plainText(QString::fromUtf8(bytes)));
}

}  // namespace

const std::vector<Target>& targets() {
  static const std::vector<Target> kTargets{
      {"color", color, 1000}, {"checklist", checklist, 600}, {"defaults", defaults, 30}, {"store", store, 15},
      {"feed", feed, 800},   {"exchange", exchange, 400},   {"foreign", foreign, 80},
  };
  return kTargets;
}

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

}  // namespace tarnwick::fuzz
