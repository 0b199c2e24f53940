// SPDX-License-Identifier: MIT
#include "exchange/StickyStore.h"

#include "exchange/ForeignNote.h"
#include "exchange/ExchangeWords.h"
#include "exchange/ForeignText.h"
#include "model/Color.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

const QHash<QString, QString>& papers() {
  static const QHash<QString, QString> kPapers{
      {u"yellow"_s, u"#FFE169"_s}, {u"red"_s, u"#FF7597"_s},  {u"orange"_s, u"#FFA647"_s}, {u"green"_s, u"#06D6A0"_s},
      {u"teal"_s, u"#4CC9F0"_s},   {u"blue"_s, u"#3A86FF"_s}, {u"purple"_s, u"#C77DFF"_s}, {u"magenta"_s, u"#FF7597"_s},
  };
  return kPapers;
}

struct Words {
  QString text;
  bool hasStyles = false;
};

/// Marks begin with #; a # of the text itself is doubled.
Words wordsOf(const QString& marked) {
  Words words;
  const auto skipBlank = [&](qsizetype& at) {
    if (at < marked.size() && marked[at] == u' ') ++at;
  };
  for (qsizetype at = 0; at < marked.size();) {
    const auto rest = QStringView(marked).sliced(at);
    if (rest.startsWith("##"_L1)) {
      words.text += u'#';
      at += 2;
    } else if (rest.startsWith("#check:0"_L1) || rest.startsWith("#check:1"_L1)) {
      words.text += rest[7] == u'1' ? "- [x] "_L1 : "- [ ] "_L1;
      at += 8;
      skipBlank(at);
    } else if (rest.startsWith("#bullet:"_L1)) {
      words.text += "- "_L1;
      at += 8;
      skipBlank(at);
    } else if (const auto end = rest.startsWith("#tag:"_L1) ? rest.indexOf(u':', 5) : -1; end > 0) {
      words.hasStyles = true;
      at += end + 1;
    } else {
      words.text += marked[at++];
    }
  }
  return words;
}

}  // namespace

bool StickyStore::isOne(const QJsonObject& root) {
  if (root.isEmpty() || root.contains("tarnwick"_L1)) return false;
  for (const auto& group : root) {
    if (!group.isArray()) return false;
    for (const auto& note : group.toArray()) {
      if (!note.toObject().contains("text"_L1)) return false;
    }
  }
  return true;
}

Result<ImportContent> StickyStore::read(const QJsonObject& root, const QDateTime& now) {
  ImportContent content{u"Sticky"_s, {}, {}};
  bool hasStyles = false;
  QHash<QString, int> seen;
  for (auto group = root.begin(); group != root.end(); ++group) {
    for (const auto& value : group.value().toArray()) {
      const auto note = value.toObject();
      auto words = wordsOf(note.value("text"_L1).toString());
      const auto title = note.value("title"_L1).toString().trimmed();
      if (!title.isEmpty()) words.text = words.text.isEmpty() ? title : title + u'\n' + words.text;
      if (words.text.trimmed().isEmpty()) continue;
      hasStyles = hasStyles || words.hasStyles;
      // Notes have no names there: group and words, and which of several alike, make one.
      const auto source = u"sticky:"_s + group.key() + u'\n' + words.text;
      auto record = foreignNote(u"%1\n%2"_s.arg(source).arg(seen[source]++), words.text, now);
      const auto color = note.value("color"_L1).toString();
      record.colorHex = papers().value(color, record.colorHex);
      if (!group.key().trimmed().isEmpty()) record.boardRaw = group.key().trimmed();
      content.notes.tasks.push_back(std::move(record));
    }
  }
  if (content.notes.tasks.empty()) return noForeignNotes({});
  content.leftBehind.append(ExchangeWords::tr("places and sizes of windows"));
  if (hasStyles) content.leftBehind.append(ExchangeWords::tr("text styles"));
  return content;
}

}  // namespace tarnwick
