// SPDX-License-Identifier: MIT
#include "exchange/TomboyStore.h"

#include "exchange/ForeignNote.h"
#include "exchange/ExchangeWords.h"
#include "exchange/ForeignText.h"

#include <QFileInfo>
#include <QXmlStreamReader>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kNamespace("http://beatniksoftware.com/tomboy");
constexpr QLatin1StringView kNotebook("system:notebook:");
constexpr QLatin1StringView kTemplate("system:template");

QDateTime momentOf(const QString& text) {
  // Seven digits behind the seconds are more than ISO readers take.
  auto iso = text.trimmed();
  if (const auto dot = iso.indexOf(u'.'); dot > 0) {
    auto end = dot + 1;
    while (end < iso.size() && iso[end].isDigit()) ++end;
    iso = iso.left(dot) + iso.mid(dot, qMin<qsizetype>(4, end - dot)) + iso.mid(end);
  }
  return QDateTime::fromString(iso, Qt::ISODateWithMs).toUTC();
}

/// The text of a note with its lists as lines; the reader stands on note-content and is left at its end.
class Content {
 public:
  explicit Content(QXmlStreamReader& xml) : m_xml(xml) {}

  [[nodiscard]] QString read() {
    for (int depth = 1; depth > 0 && !m_xml.atEnd();) {
      switch (m_xml.readNext()) {
        case QXmlStreamReader::StartElement:
          ++depth;
          begin();
          break;
        case QXmlStreamReader::EndElement:
          --depth;
          if (m_xml.name() == "list"_L1) --m_lists;
          if (m_xml.name() == "list"_L1 && m_lists == 0) endLine();
          break;
        case QXmlStreamReader::Characters:
          m_text += m_xml.text();
          break;
        default:
          break;
      }
    }
    return m_text;
  }
  [[nodiscard]] bool hasStyles() const { return m_hasStyles; }

 private:
  void begin() {
    if (m_xml.name() == "list"_L1) {
      ++m_lists;
    } else if (m_xml.name() == "list-item"_L1) {
      endLine();
      m_text += u"  "_s.repeated(qMax(0, m_lists - 1)) + u"- "_s;
    } else {
      m_hasStyles = true;
    }
  }
  void endLine() {
    if (!m_text.isEmpty() && !m_text.endsWith(u'\n')) m_text += u'\n';
  }

  QXmlStreamReader& m_xml;
  QString m_text;
  int m_lists = 0;
  bool m_hasStyles = false;
};

struct Entry {
  TaskRecord record;
  bool isTemplate = false;
  bool hasStyles = false;
};

Result<Entry> entryOf(const QByteArray& bytes, const QString& name, const QDateTime& now) {
  QXmlStreamReader xml(bytes);
  if (!xml.readNextStartElement() || xml.name() != "note"_L1 || xml.namespaceUri() != kNamespace)
    return Error{ErrorKind::Damaged, ExchangeWords::tr("it is no note of Tomboy's form")};
  Entry entry;
  QString title;
  QString text;
  QDateTime made;
  std::optional<QString> board;
  while (xml.readNextStartElement()) {
    if (xml.name() == "title"_L1) {
      title = xml.readElementText(QXmlStreamReader::IncludeChildElements).trimmed();
    } else if (xml.name() == "text"_L1) {
      Content content(xml);
      while (xml.readNextStartElement()) text += content.read();
      entry.hasStyles = content.hasStyles();
    } else if (xml.name() == "create-date"_L1) {
      made = momentOf(xml.readElementText());
    } else if (xml.name() == "tags"_L1) {
      while (xml.readNextStartElement()) {
        const auto tag = xml.readElementText();
        if (tag.startsWith(kNotebook)) board = tag.mid(kNotebook.size());
        if (tag == kTemplate) entry.isTemplate = true;
      }
    } else {
      xml.skipCurrentElement();
    }
  }
  if (xml.hasError())
    return Error{ErrorKind::Damaged, ExchangeWords::tr("line %1: %2").arg(xml.lineNumber()).arg(xml.errorString())};
  const auto words = text.trimmed();
  entry.record = foreignNote(u"tomboy:"_s + (name.isEmpty() ? title : name), words.isEmpty() ? title : words, made.isValid() ? made : now);
  if (board && !board->trimmed().isEmpty()) entry.record.boardRaw = board->trimmed();
  return entry;
}

QString programOf(const QDir& folder) {
  if (folder.dirName().contains("gnote"_L1, Qt::CaseInsensitive)) return u"Gnote"_s;
  return u"Tomboy"_s;
}

void finish(ImportContent& content, bool hasStyles) {
  content.leftBehind.append(hasStyles ? ExchangeWords::tr("text styles and links") : ExchangeWords::tr("links between notes"));
}

}  // namespace

bool TomboyStore::isOne(const QDir& folder) { return !folder.entryList({u"*.note"_s}, QDir::Files).isEmpty(); }

bool TomboyStore::isOne(const QByteArray& bytes) {
  return bytes.trimmed().startsWith('<') && bytes.left(4096).contains(kNamespace.data());
}

Result<ImportContent> TomboyStore::read(const QDir& folder, const QDateTime& now) {
  ImportContent content{programOf(folder), {}, {}};
  QStringList unreadable;
  bool hasStyles = false;
  for (const auto& name : folder.entryList({u"*.note"_s}, QDir::Files, QDir::Name)) {
    const auto bytes = readForeignBytes(folder.filePath(name));
    auto entry = bytes ? entryOf(bytes.value(), QFileInfo(name).completeBaseName(), now) : Result<Entry>(bytes.error());
    if (!entry) {
      unreadable.append(name);
    } else if (!entry.value().isTemplate && !entry.value().record.text.isEmpty()) {
      hasStyles = hasStyles || entry.value().hasStyles;
      content.notes.tasks.push_back(std::move(entry.value().record));
    }
  }
  if (content.notes.tasks.empty()) return noForeignNotes(unreadable);
  finish(content, hasStyles);
  appendUnreadable(unreadable, content.leftBehind);
  return content;
}

Result<ImportContent> TomboyStore::read(const QByteArray& bytes, const QString& name, const QDateTime& now) {
  auto entry = entryOf(bytes, name, now);
  if (!entry) return entry.error();
  if (entry.value().record.text.isEmpty()) return noForeignNotes({});
  ImportContent content{u"Tomboy"_s, {{entry.value().record}, {}}, {}};
  finish(content, entry.value().hasStyles);
  return content;
}

}  // namespace tarnwick
