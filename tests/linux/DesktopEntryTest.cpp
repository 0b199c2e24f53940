// SPDX-License-Identifier: MIT
#include "linux/xdg/DesktopEntries.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

namespace tarnwick {
namespace {

const QLocale kGerman(QLocale::German, QLocale::Germany);
const QLocale kEnglish(QLocale::English, QLocale::UnitedStates);

constexpr auto kEditor =
    "# a comment\n[Desktop Entry]\nType=Application\nName=Writer\nName[de]=Schreiber\nName[de_AT]=Schreiberling\n"
    "Icon=writer\nStartupWMClass=WriterWindow\nCategories=Utility;TextEditor;\n\n[Desktop Action new]\nName=New File\n";

TEST(ADesktopEntry, GivesNameIconClassAndCategories) {
  const auto entry = parseDesktopEntry(kEditor, QStringLiteral("org.example.Writer"), kEnglish);
  ASSERT_TRUE(entry);
  EXPECT_EQ(entry->name, u"Writer");
  EXPECT_EQ(entry->icon, u"writer");
  EXPECT_EQ(entry->windowClass, u"WriterWindow");
  EXPECT_TRUE(isCodeEditor(*entry));
}

TEST(ADesktopEntry, SpeaksTheUsersLanguage) {
  EXPECT_EQ(parseDesktopEntry(kEditor, QStringLiteral("x"), kGerman)->name, u"Schreiber");
}

struct BrokenRow {
  const char* what;
  QByteArray text;
};
class ABrokenDesktopEntry : public testing::TestWithParam<BrokenRow> {};
TEST_P(ABrokenDesktopEntry, IsNoApplication) {
  EXPECT_FALSE(parseDesktopEntry(GetParam().text, QStringLiteral("x"), kEnglish)) << GetParam().what;
}
INSTANTIATE_TEST_SUITE_P(Rows, ABrokenDesktopEntry,
                         testing::Values(BrokenRow{"empty", {}}, BrokenRow{"a link", "[Desktop Entry]\nType=Link\nName=A\n"},
                                         BrokenRow{"without a name", "[Desktop Entry]\nType=Application\nIcon=a\n"},
                                         BrokenRow{"in another group", "[Other]\nType=Application\nName=A\n"},
                                         BrokenRow{"bytes", QByteArray("\0\xff[Desktop\n=\n[\n]=", 18)}));

class InstalledEntries : public testing::Test {
 protected:
  void add(const QString& folder, const QString& file, const QByteArray& text) {
    const QString path = m_root.filePath(folder) + QStringLiteral("/applications/") + file;
    QDir().mkpath(QFileInfo(path).path());
    QFile out(path);
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(text);
  }
  static QByteArray named(const char* name, const char* more = "") {
    return QByteArray("[Desktop Entry]\nType=Application\nName=") + name + "\n" + more;
  }
  [[nodiscard]] QString folder(const char* name) const { return m_root.filePath(QLatin1String(name)); }
  QTemporaryDir m_root;
};

TEST_F(InstalledEntries, OfTheFirstFolderHideThoseOfLaterOnes) {
  add(QStringLiteral("mine"), QStringLiteral("app.desktop"), named("Mine"));
  add(QStringLiteral("system"), QStringLiteral("app.desktop"), named("Theirs"));
  add(QStringLiteral("system"), QStringLiteral("kde/tool.desktop"), named("Tool"));
  const DesktopEntries entries({folder("mine"), folder("system")});
  EXPECT_EQ(entries.byId(QStringLiteral("app"))->name, u"Mine");
  EXPECT_EQ(entries.byId(QStringLiteral("kde-tool"))->name, u"Tool");
  EXPECT_EQ(entries.byId(QStringLiteral("other")), nullptr);
}

TEST_F(InstalledEntries, AreFoundByWhatAWindowSays) {
  add(QStringLiteral("d"), QStringLiteral("debian-term.desktop"), named("Terminal", "StartupWMClass=Term\n"));
  add(QStringLiteral("d"), QStringLiteral("org.example.pad.desktop"), named("Pad"));
  add(QStringLiteral("d"), QStringLiteral("geany.desktop"), named("Geany"));
  add(QStringLiteral("d"), QStringLiteral("gone.desktop"), named("Gone", "Hidden=true\nStartupWMClass=Gone\n"));
  const DesktopEntries entries({folder("d")});
  const auto id = [&](const char* instance, const char* name) {
    const auto* entry = entries.byWindowClass(QLatin1String(instance), QLatin1String(name));
    return entry ? entry->id : QString();
  };
  EXPECT_EQ(id("geany", "Geany"), u"geany");
  EXPECT_EQ(id("term", "Term"), u"debian-term");
  EXPECT_EQ(id("pad", "Pad"), u"org.example.pad");
  EXPECT_EQ(id("gone", "Gone"), u"");
  EXPECT_EQ(id("", ""), u"");
}

TEST_F(InstalledEntries, AppearWhenTheyAreInstalledLater) {
  add(QStringLiteral("d"), QStringLiteral("one.desktop"), named("One"));
  // The file system tells moments apart by a few milliseconds only.
  std::filesystem::last_write_time((folder("d") + QStringLiteral("/applications")).toStdString(),
                                   std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
  const DesktopEntries entries({folder("d")});
  EXPECT_EQ(entries.byId(QStringLiteral("two")), nullptr);
  add(QStringLiteral("d"), QStringLiteral("two.desktop"), named("Two"));
  EXPECT_NE(entries.byId(QStringLiteral("two")), nullptr);
}

TEST(KnownEditors, AreCodeEditorsWithoutACategory) {
  EXPECT_TRUE(isKnownCodeEditor(QStringLiteral("com.microsoft.VSCode")));
  EXPECT_TRUE(isKnownCodeEditor(QStringLiteral("jetbrains-clion")));
  EXPECT_FALSE(isKnownCodeEditor(QStringLiteral("firefox")));
}

}  // namespace
}  // namespace tarnwick
