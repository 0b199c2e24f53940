// SPDX-License-Identifier: MIT
#include "linux/xdg/DesktopEntries.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostBytes = 1 << 20;

QString unescaped(const QByteArray& raw) {
  const auto text = QString::fromUtf8(raw);
  QString out;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] != u'\\' || i + 1 == text.size()) {
      out += text[i];
      continue;
    }
    const QChar next = text[++i];
    out += next == u's' ? u' ' : next == u'n' ? u'\n' : next == u't' ? u'\t' : next == u'r' ? u'\r' : next;
  }
  return out;
}

/// 2 for "Name[de_DE]", 1 for "Name[de]", 0 for "Name", -1 for another language's.
int fitOf(const QByteArray& language, const QLocale& locale) {
  if (language.isEmpty()) return 0;
  const auto name = locale.name().toUtf8();
  auto plain = language;
  if (const auto end = plain.indexOf('.'); end >= 0) plain.truncate(end);
  if (plain == name) return 2;
  return plain == name.left(name.indexOf('_')) ? 1 : -1;
}

}  // namespace

std::optional<DesktopEntry> parseDesktopEntry(const QByteArray& text, const QString& id, const QLocale& locale) {
  DesktopEntry entry;
  entry.id = id;
  bool isInMainGroup = false;
  bool isApplication = false;
  int nameFit = -1;
  for (const auto& rawLine : text.split('\n')) {
    const auto line = rawLine.trimmed();
    if (line.isEmpty() || line.startsWith('#')) continue;
    if (line.startsWith('[')) {
      isInMainGroup = line == "[Desktop Entry]";
      continue;
    }
    const auto equals = line.indexOf('=');
    if (!isInMainGroup || equals <= 0) continue;
    auto key = line.left(equals).trimmed();
    const auto value = line.mid(equals + 1).trimmed();
    QByteArray language;
    if (const auto bracket = key.indexOf('['); bracket > 0 && key.endsWith(']')) {
      language = key.mid(bracket + 1, key.size() - bracket - 2);
      key.truncate(bracket);
    }
    if (key == "Name") {
      if (const int fit = fitOf(language, locale); fit > nameFit) {
        nameFit = fit;
        entry.name = unescaped(value);
      }
    } else if (!language.isEmpty()) {
      continue;
    } else if (key == "Type") {
      isApplication = value == "Application";
    } else if (key == "Icon") {
      entry.icon = unescaped(value);
    } else if (key == "StartupWMClass") {
      entry.windowClass = unescaped(value);
    } else if (key == "Categories") {
      entry.categories = unescaped(value).split(u';', Qt::SkipEmptyParts);
    } else if (key == "Hidden") {
      entry.isHidden = value == "true";
    }
  }
  if (!isApplication || entry.name.isEmpty()) return std::nullopt;
  return entry;
}

QStringList xdgDataFolders() {
  const auto home = qEnvironmentVariable("XDG_DATA_HOME");
  QStringList folders{home.isEmpty() ? QDir::homePath() + u"/.local/share"_s : home};
  auto system = qEnvironmentVariable("XDG_DATA_DIRS").split(u':', Qt::SkipEmptyParts);
  if (system.isEmpty()) system = {QStringLiteral("/usr/local/share"), QStringLiteral("/usr/share")};
  return folders + system;
}

DesktopEntries::DesktopEntries(QStringList dataFolders) : m_folders(std::move(dataFolders)) {}

const DesktopEntry* DesktopEntries::byId(const QString& id) const {
  if (id.isEmpty()) return nullptr;
  if (const auto* known = read(id)) return known;
  listAgainIfChanged();
  return read(id);
}

const DesktopEntry* DesktopEntries::byWindowClass(const QString& instance, const QString& windowClass) const {
  QStringList names{windowClass, windowClass.toLower(), instance, instance.toLower()};
  names.removeAll(QString());
  if (names.isEmpty()) return nullptr;
  listAgainIfChanged();
  for (const auto& name : names) {
    if (const auto* entry = read(name)) return entry;
  }
  for (auto file = m_files.keyBegin(); file != m_files.keyEnd(); ++file) {
    const auto* entry = read(*file);
    if (entry && !entry->windowClass.isEmpty() &&
        (entry->windowClass.compare(windowClass, Qt::CaseInsensitive) == 0 || entry->windowClass == instance)) {
      return entry;
    }
  }
  for (auto file = m_files.keyBegin(); file != m_files.keyEnd(); ++file) {
    const auto last = file->section(u'.', -1);
    if (last == *file) continue;
    if (last.compare(windowClass, Qt::CaseInsensitive) == 0 || last.compare(instance, Qt::CaseInsensitive) == 0) {
      if (const auto* entry = read(*file)) return entry;
    }
  }
  return nullptr;
}

void DesktopEntries::listAgainIfChanged() const {
  bool isCurrent = m_isListed;
  for (const auto& folder : m_folders) {
    const auto changed = QFileInfo(folder + u"/applications"_s).lastModified();
    if (m_listedAt.value(folder) != changed) isCurrent = false;
    m_listedAt[folder] = changed;
  }
  if (isCurrent) return;
  m_isListed = true;
  m_files.clear();
  m_entries.clear();
  for (const auto& folder : m_folders) {
    const QString root = folder + u"/applications/"_s;
    QDirIterator files(root, {QStringLiteral("*.desktop")}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
      const auto path = files.next();
      auto id = path.mid(root.size()).chopped(8);
      id.replace(u'/', u'-');
      if (!m_files.contains(id)) m_files.insert(id, path);
    }
  }
}

const DesktopEntry* DesktopEntries::read(const QString& id) const {
  if (const auto found = m_entries.constFind(id); found != m_entries.constEnd()) return *found ? &**found : nullptr;
  const auto file = m_files.constFind(id);
  if (file == m_files.constEnd()) return nullptr;
  std::optional<DesktopEntry> entry;
  if (QFile content(*file); content.open(QIODevice::ReadOnly)) {
    entry = parseDesktopEntry(content.read(kMostBytes), id, QLocale());
  }
  if (entry && entry->isHidden) entry.reset();
  const auto kept = m_entries.insert(id, std::move(entry));
  return *kept ? &**kept : nullptr;
}

}  // namespace tarnwick
