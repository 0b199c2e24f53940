// SPDX-License-Identifier: MIT
#include "context/EditorTitle.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

#include <algorithm>
#include <array>

namespace tarnwick {

namespace {

/// Folders below home in which people keep their projects.
constexpr std::array kProjectFolders{"Projects",  "projects", "src",       "Code", "code", "dev",
                                     "Development", "git",    "workspace", "work", "repos", "Documents"};

// Titles are other programs' words: bounds on how much of one is looked at, and looked up.
constexpr qsizetype kLongestTitle = 4096;
constexpr std::size_t kMostSegments = 12;
constexpr qsizetype kMostPieces = 24;

/// Application names that hold a separator or that a running application is not called itself.
constexpr std::array kEndings{" - Visual Studio Code", " - Code - OSS", " - VSCodium", " - Cursor",  " - Sublime Text",
                              " - GNU Emacs",          " - Qt Creator", " - GVIM",     " - VIM",     " - NVIM",
                              " - IntelliJ IDEA",      " — Kate",       " – Kate",     " — KWrite"};

bool isAbsolute(const QString& text) {
  return text.startsWith(u'/') || text == u"~" || text.startsWith(u"~/") || text.startsWith(u"file:///");
}

QString expanded(const QString& text, const QString& home) {
  if (text.startsWith(u"file:///")) return QUrl(text).toLocalFile();
  if (text == u"~") return home;
  if (text.startsWith(u"~/")) return home + text.mid(1);
  return text;
}

QString parentOf(const QString& path) {
  const auto slash = path.lastIndexOf(u'/');
  return slash <= 0 ? QStringLiteral("/") : path.left(slash);
}

QString joined(const QString& folder, const QString& name) {
  return QDir::cleanPath(folder + QLatin1Char('/') + name);
}

QString nameOf(const QString& path) { return path.mid(path.lastIndexOf(u'/') + 1); }

/// Marks of unsaved changes, of an elided beginning and of a session.
QString withoutMarks(QString text) {
  static const QRegularExpression front(QStringLiteral(R"(^[\s*●•+]+)"));
  static const QRegularExpression back(QStringLiteral(R"([\s*●•+]+$|\s*\[(modified|\+|\*)\]$)"));
  text.remove(front);
  text.remove(back);
  if (text.startsWith(u".../")) text.remove(0, 4);
  if (text.startsWith(u"…/")) text.remove(0, 2);
  return text.trimmed();
}

struct Segment {
  qsizetype start;
  qsizetype end;
};

std::vector<Segment> segmentsOf(const QString& title) {
  static const QRegularExpression separator(QStringLiteral(R"(\s+[-–—•|]\s+)"));
  std::vector<Segment> segments;
  qsizetype start = 0;
  for (auto it = separator.globalMatch(title); it.hasNext() && segments.size() + 1 < kMostSegments;) {
    const auto match = it.next();
    segments.push_back({start, match.capturedStart()});
    start = match.capturedEnd();
  }
  segments.push_back({start, title.size()});
  return segments;
}

/// A segment, then what stands around and inside its brackets: "main.c (~/proj)" gives all, "main.c" and "~/proj".
void appendPieces(QStringList& pieces, const QString& segment) {
  const auto add = [&](const QString& text) {
    const auto piece = withoutMarks(text);
    if (!piece.isEmpty() && !pieces.contains(piece) && pieces.size() < kMostPieces) pieces.append(piece);
  };
  add(segment);
  static const QRegularExpression bracketed(QStringLiteral(R"(^(.*?)\s*[(\[]([^()\[\]]+)[)\]](.*)$)"));
  const auto match = bracketed.match(segment);
  if (!match.hasMatch() || pieces.size() >= kMostPieces) return;
  add(match.captured(1));
  for (const auto& inner : match.captured(2).split(QStringLiteral(" @ "))) add(inner);
  if (!match.captured(3).trimmed().isEmpty()) appendPieces(pieces, match.captured(3));
}

QString withoutApplication(QString title, const QString& applicationName) {
  for (const auto* ending : kEndings) {
    const auto text = QString::fromUtf8(ending);
    if (const auto at = title.lastIndexOf(text); at >= 0) return title.left(at);
  }
  if (applicationName.isEmpty()) return title;
  const QRegularExpression ending(QStringLiteral(R"(\s+[-–—•|]\s+%1[^/]*$)").arg(QRegularExpression::escape(applicationName)),
                                  QRegularExpression::CaseInsensitiveOption);
  title.remove(ending);
  return title;
}

/// The search of one title: which folders its names are looked up in.
class Search final {
 public:
  Search(const QStringList& pieces, const EditorProcess& process, const PathProbe& probe)
      : m_pieces(pieces), m_process(process), m_probe(probe) {
    for (const auto& piece : pieces) (isAbsolute(piece) ? m_absolute : m_names).append(piece);
    for (const auto& argument : process.arguments) addArgument(argument);
    if (isTelling(process.workingFolder)) m_bases.append(process.workingFolder);
  }

  [[nodiscard]] std::optional<QString> run() const {
    // A path that is not there (gone, or on another machine) rules the guesses below out.
    if (!m_absolute.isEmpty()) return fromAbsolute();
    if (const auto found = fromRecentPaths()) return found;
    if (const auto found = fromNamedFolders()) return found;
    if (const auto found = fromNamedFiles()) return found;
    return m_pieces.size() <= 1 ? fromProcess() : std::nullopt;
  }

 private:
  /// Home and root are where menus start programs: they say nothing about the document.
  [[nodiscard]] bool isTelling(const QString& folder) const {
    return !folder.isEmpty() && folder != u"/" && folder != m_process.home;
  }

  void addArgument(const QString& argument) {
    if (argument.startsWith(u'-') || argument.isEmpty()) return;
    const auto text = expanded(argument, m_process.home);
    if (!text.startsWith(u'/') && m_process.workingFolder.isEmpty()) return;
    const auto path = QDir::cleanPath(text.startsWith(u'/') ? text : joined(m_process.workingFolder, text));
    const auto kind = m_probe(path);
    if (kind == PathKind::None) return;
    const auto folder = kind == PathKind::Folder ? path : parentOf(path);
    if (!m_bases.contains(folder)) m_bases.append(folder);
  }

  [[nodiscard]] std::optional<QString> fileBelow(const QString& folder) const {
    for (const auto& name : m_names) {
      const auto path = joined(folder, name);
      if (m_probe(path) == PathKind::File) return parentOf(path);
    }
    return std::nullopt;
  }

  [[nodiscard]] std::optional<QString> fromAbsolute() const {
    std::optional<QString> folder;
    for (const auto& piece : m_absolute) {
      const auto path = QDir::cleanPath(expanded(piece, m_process.home));
      const auto kind = m_probe(path);
      if (kind == PathKind::File) return parentOf(path);
      if (kind == PathKind::Folder && !folder) folder = path;
    }
    if (folder) return fileBelow(*folder).value_or(*folder);
    return std::nullopt;
  }

  /// A name that the editor's own list knows: a folder of that name, or above a file in it. A file by its name alone
  /// only when the list has one of that name, and no other name in the title speaks against it.
  [[nodiscard]] std::optional<QString> fromRecentPaths() const {
    if (m_names.isEmpty() || !m_process.recentPaths) return std::nullopt;
    const auto recent = m_process.recentPaths();
    for (const auto& name : m_names) {
      for (const auto& path : recent) {
        const auto at = (path + u'/').indexOf(u'/' + name + u'/');
        if (at < 0) continue;
        const auto folder = path.left(at + 1 + name.size());
        if (m_probe(folder) == PathKind::Folder) return fileBelow(folder).value_or(folder);
      }
    }
    if (m_names.size() != 1) return std::nullopt;
    QStringList files;
    for (const auto& path : recent) {
      if (nameOf(path) == m_names.front() && m_probe(path) == PathKind::File) files.append(parentOf(path));
    }
    return files.size() == 1 ? std::optional(files.front()) : std::nullopt;
  }

  /// "main.c - proj": a project folder by its name.
  [[nodiscard]] std::optional<QString> fromNamedFolders() const {
    for (const auto& name : m_names) {
      if (name.startsWith(u'.')) continue;
      for (const auto& folder : placesOf(name)) {
        if (m_probe(folder) == PathKind::Folder) return fileBelow(folder).value_or(folder);
      }
    }
    return std::nullopt;
  }

  [[nodiscard]] QStringList placesOf(const QString& name) const {
    QStringList places;
    for (const auto& base : m_bases) {
      if (nameOf(base) == name) places.append(base);
    }
    for (const auto& base : m_bases) {
      places.append(joined(base, name));
      places.append(joined(parentOf(base), name));
    }
    if (m_process.home.isEmpty()) return places;
    places.append(joined(m_process.home, name));
    for (const auto* parent : kProjectFolders) {
      places.append(joined(joined(m_process.home, QString::fromLatin1(parent)), name));
    }
    return places;
  }

  /// "main.c": in a folder that the process knows; a second name in the title must be one of that folder's own.
  [[nodiscard]] std::optional<QString> fromNamedFiles() const {
    for (const auto& base : m_bases) {
      const auto folder = fileBelow(base);
      if (!folder) continue;
      const auto components = folder->split(u'/', Qt::SkipEmptyParts);
      const bool isNamed = std::any_of(m_names.begin(), m_names.end(),
                                       [&](const auto& name) { return components.contains(name); });
      if (m_names.size() == 1 || isNamed) return folder;
    }
    return std::nullopt;
  }

  [[nodiscard]] std::optional<QString> fromProcess() const {
    for (const auto& base : m_bases) {
      if (isTelling(base) && m_probe(base) == PathKind::Folder) return base;
    }
    return std::nullopt;
  }

  const QStringList& m_pieces;
  const EditorProcess& m_process;
  const PathProbe& m_probe;
  QStringList m_absolute;
  QStringList m_names;
  QStringList m_bases;
};

}  // namespace

QStringList titlePieces(const QString& title, const QString& applicationName) {
  const auto text = withoutApplication(title.left(kLongestTitle).simplified(), applicationName);
  const auto segments = segmentsOf(text);
  QStringList pieces;
  // A path may hold " - " itself: the longest reading of it goes first, the file system decides.
  for (std::size_t i = 0; i < segments.size(); ++i) {
    if (!isAbsolute(withoutMarks(text.mid(segments[i].start)))) continue;
    for (std::size_t j = segments.size(); j-- > i + 1;) {
      pieces.append(withoutMarks(text.mid(segments[i].start, segments[j].end - segments[i].start)));
    }
    break;  // one whole path is all that a title has
  }
  for (const auto& segment : segments) appendPieces(pieces, text.mid(segment.start, segment.end - segment.start));
  return pieces;
}

std::optional<QString> folderFromTitle(const QString& title, const EditorProcess& process, const PathProbe& probe) {
  const auto pieces = titlePieces(title, process.applicationName);
  return Search(pieces, process, probe).run();
}

PathKind probePath(const QString& path) {
  const QFileInfo info(path);
  if (info.isDir()) return PathKind::Folder;
  return info.isFile() ? PathKind::File : PathKind::None;
}

}  // namespace tarnwick
