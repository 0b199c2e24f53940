// SPDX-License-Identifier: MIT
#include "context/EditorRecents.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QUrl>

#include <array>

namespace tarnwick {

namespace {

constexpr qint64 kMostBytes = 1 << 20;
constexpr qsizetype kMostPaths = 300;

enum class Below { Home, Config, Data };

/// Where editors keep their lists; a star stands for one folder of any name.
struct List {
  const char* editor;  // beginning of its identifier
  Below below;
  const char* file;
};
constexpr std::array kLists{
    List{"com.microsoft.VSCode", Below::Config, "Code/User/globalStorage/storage.json"},
    List{"com.visualstudio.code", Below::Home, ".var/app/com.visualstudio.code/config/Code/User/globalStorage/storage.json"},
    List{"com.vscodium", Below::Home, ".var/app/com.vscodium.codium/config/VSCodium/User/globalStorage/storage.json"},
    List{"code-oss", Below::Config, "Code - OSS/User/globalStorage/storage.json"},
    List{"code", Below::Config, "Code/User/globalStorage/storage.json"},
    List{"codium", Below::Config, "VSCodium/User/globalStorage/storage.json"},
    List{"cursor", Below::Config, "Cursor/User/globalStorage/storage.json"},
    List{"sublime_text", Below::Config, "sublime-text/Local/Session.sublime_session"},
    List{"com.sublimetext", Below::Config, "sublime-text/Local/Session.sublime_session"},
    List{"jetbrains-", Below::Config, "JetBrains/*/options/recentProjects.xml"},
    List{"com.jetbrains.", Below::Config, "JetBrains/*/options/recentProjects.xml"},
    List{"intellij-idea-", Below::Config, "JetBrains/*/options/recentProjects.xml"},
    List{"pycharm-", Below::Config, "JetBrains/*/options/recentProjects.xml"},
    List{"geany", Below::Config, "geany/geany.conf"},
    List{"org.kde.kate", Below::Config, "katerc"},
    List{"org.gnome.gedit", Below::Data, "recently-used.xbel"},
    List{"org.gnome.TextEditor", Below::Data, "recently-used.xbel"},
    List{"org.xfce.mousepad", Below::Data, "recently-used.xbel"},
    List{"pluma", Below::Data, "recently-used.xbel"},
    List{"xed", Below::Data, "recently-used.xbel"},
};

QStringList filesOf(const List& list, const UserFolders& folders) {
  const QString& base = list.below == Below::Home     ? folders.home
                        : list.below == Below::Config ? folders.config
                                                      : folders.data;
  const auto parts = QString::fromLatin1(list.file).split(u'*');
  const QString before = base + u'/' + parts.front();
  if (parts.size() == 1) return {before};
  QStringList files;
  // The newest version of a product is the one in use.
  for (const auto& folder : QDir(before).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Time)) {
    files.append(before + folder + parts.back());
  }
  return files;
}

}  // namespace

UserFolders UserFolders::current() {
  return {QDir::homePath(), QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
          QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)};
}

QStringList recentPaths(const QString& bundleID, const UserFolders& folders) {
  for (const auto& list : kLists) {
    if (!bundleID.startsWith(QLatin1StringView(list.editor), Qt::CaseInsensitive)) continue;
    for (const auto& name : filesOf(list, folders)) {
      QFile file(name);
      if (file.open(QIODevice::ReadOnly)) return pathsIn(file.read(kMostBytes), folders.home);
    }
    return {};
  }
  return {};
}

QStringList pathsIn(const QByteArray& text, const QString& home) {
  static const QRegularExpression path(
      QStringLiteral(R"re((?<=["'=;>\s]|^)(file://|\$USER_HOME\$|\$HOME|~)?(/[^"'<>;\r\n|]+))re"),
      QRegularExpression::MultilineOption);
  QStringList paths;
  const auto words = QString::fromUtf8(text);
  for (auto it = path.globalMatch(words); it.hasNext() && paths.size() < kMostPaths;) {
    const auto match = it.next();
    const auto prefix = match.captured(1);
    QString found = match.captured(2).trimmed();
    if (prefix == u"file://") {
      found = QUrl::fromPercentEncoding(found.toUtf8());
    } else if (!prefix.isEmpty()) {
      found.prepend(home);
    }
    found = QDir::cleanPath(found);
    if (found.size() > 1 && !paths.contains(found)) paths.append(found);
  }
  return paths;
}

}  // namespace tarnwick
