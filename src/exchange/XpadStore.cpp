// SPDX-License-Identifier: MIT
#include "exchange/XpadStore.h"

#include "exchange/ForeignNote.h"
#include "exchange/ExchangeWords.h"
#include "exchange/ForeignText.h"

#include <QColor>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr QChar kTagMark(0xE000);  // stands before and after the name of a style

QHash<QString, QString> valuesOf(const QString& text) {
  QHash<QString, QString> values;
  for (const auto& line : text.split(u'\n')) {
    const auto blank = line.indexOf(u' ');
    if (blank > 0) values.insert(line.left(blank), line.mid(blank + 1).trimmed());
  }
  return values;
}

/// Nothing for a colour in words that are none of ours.
std::optional<QString> hexOf(const QString& color) {
  static const QRegularExpression kRgb(u"^rgba?\\((\\d{1,3}),\\s*(\\d{1,3}),\\s*(\\d{1,3})"_s);
  QColor paper;
  if (const auto match = kRgb.match(color); match.hasMatch()) {
    paper = QColor(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
  } else if (color.startsWith(u'#')) {
    paper.setNamedColor(color);
  }
  if (!paper.isValid()) return std::nullopt;
  return paper.name().toUpper();
}

QString withoutStyles(const QString& text) {
  QString plain;
  for (qsizetype at = 0; at < text.size(); ++at) {
    const auto end = text[at] == kTagMark ? text.indexOf(kTagMark, at + 1) : -1;
    if (end < 0) {
      plain += text[at];
    } else {
      at = end;
    }
  }
  return plain;
}

}  // namespace

bool XpadStore::isOne(const QDir& folder) {
  return !folder.entryList({u"info-*"_s}, QDir::Files).isEmpty() &&
         !folder.entryList({u"content-*"_s}, QDir::Files).isEmpty();
}

Result<ImportContent> XpadStore::read(const QDir& folder, const QDateTime& now) {
  ImportContent content{u"xpad"_s, {}, {}};
  QStringList unreadable;
  bool hasStyles = false;
  const auto style = valuesOf(readForeignText(folder.filePath(u"default-style"_s)).value_or(QString()));
  for (const auto& name : folder.entryList({u"info-*"_s}, QDir::Files, QDir::Name)) {
    const auto info = valuesOf(readForeignText(folder.filePath(name)).value_or(QString()));
    // Only the last part: the text of a pad lies beside its description, nowhere else.
    const auto textName = QFileInfo(info.value(u"content"_s)).fileName();
    const auto text = textName.isEmpty() ? std::nullopt : readForeignText(folder.filePath(textName));
    if (!text) {
      unreadable.append(name);
      continue;
    }
    const auto words = withoutStyles(*text);
    hasStyles = hasStyles || words != *text;
    if (words.trimmed().isEmpty()) continue;
    const auto made = QFileInfo(folder.filePath(textName)).lastModified().toUTC();
    auto record = foreignNote(u"xpad:"_s + textName, words, made.isValid() ? made : now);
    const auto color = info.value(u"follow_color"_s) == u"0" ? info.value(u"back"_s) : style.value(u"back"_s);
    record.colorHex = hexOf(color).value_or(record.colorHex);
    content.notes.tasks.push_back(std::move(record));
  }
  if (content.notes.tasks.empty()) return noForeignNotes(unreadable);
  content.leftBehind.append(ExchangeWords::tr("places and sizes of windows"));
  content.leftBehind.append(hasStyles ? ExchangeWords::tr("fonts and text styles") : ExchangeWords::tr("fonts"));
  appendUnreadable(unreadable, content.leftBehind);
  return content;
}

}  // namespace tarnwick
