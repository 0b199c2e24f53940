// SPDX-License-Identifier: MIT
#include "linux/xdg/AppCatalog.h"
#include "linux/xdg/CodeEditors.h"
#include "linux/xdg/DesktopEntries.h"
#include "linux/xdg/ProcessFiles.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <string>

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

TEST(CodeEditors, AreThoseOfTheTableInAnyLetterCaseAndWithEditions) {
  for (const char* id : {"code", "Code", "org.kde.kate", "geany", "com.microsoft.VSCode", "code_code",
                         "jetbrains-clion-1a2b", "com.jetbrains.PyCharm-Community"}) {
    EXPECT_TRUE(isCodeEditor(QLatin1StringView(id))) << id;
  }
  for (const char* id : {"", "firefox", "pcmanfm", "libreoffice-writer", "debian-xterm", "codeine", "jetbrains"}) {
    EXPECT_FALSE(isCodeEditor(QLatin1StringView(id))) << id;
  }
}

/// A process file system of our own making, and installed entries.
class ProcessesOfApplications : public InstalledEntries {
 protected:
  void process(qint64 pid, qint64 parent, const std::map<QString, QByteArray>& files) {
    const QString path = m_root.filePath(QStringLiteral("proc/%1/").arg(pid));
    write(path + QStringLiteral("stat"),
          QByteArray::number(pid) + " (a (program) S 1) S " + QByteArray::number(parent) + " 1 1 0");
    for (const auto& [name, text] : files) write(path + name, text);
  }
  static QByteArray launched(const char* file, qint64 pid) {
    using namespace std::string_literals;
    const auto text = "A=1\0GIO_LAUNCHED_DESKTOP_FILE="s + file + "\0GIO_LAUNCHED_DESKTOP_FILE_PID="s +
                      std::to_string(pid) + "\0B=2\0"s;
    return QByteArray::fromStdString(text);
  }
  [[nodiscard]] QString idOf(qint64 pid, const char* windowClass, const char* desktopId = "") const {
    const AppCatalog catalog(ProcessEntry(folder("proc")), DesktopEntries({folder("d")}));
    const QString name = QLatin1StringView(windowClass);
    const auto* entry = catalog.entryOf(pid, {QLatin1StringView(desktopId), name.toLower(), name});
    return entry ? entry->id : QString();
  }
  void SetUp() override {
    for (const char* id : {"geany", "terminal", "org.example.Paint", "notes_notes", "wrapped"}) {
      add(QStringLiteral("d"), QLatin1StringView(id) + QStringLiteral(".desktop"), named(id));
    }
  }

 private:
  static void write(const QString& path, const QByteArray& text) {
    QDir().mkpath(QFileInfo(path).path());
    QFile out(path);
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(text);
  }
};

TEST_F(ProcessesOfApplications, AreThoseOfTheEntryThatTheLauncherStarted) {
  process(10, 1, {{QStringLiteral("environ"), launched("/usr/share/applications/wrapped.desktop", 10)}});
  EXPECT_EQ(idOf(10, "Geany"), u"wrapped") << "whatever class the window has";
}

TEST_F(ProcessesOfApplications, StartedFromATerminalAreNotTheTerminal) {
  const auto environment = launched("/usr/share/applications/terminal.desktop", 10);
  process(10, 1, {{QStringLiteral("environ"), environment}});
  process(11, 10, {{QStringLiteral("environ"), environment}});  // the shell
  process(12, 11, {{QStringLiteral("environ"), environment}});
  EXPECT_EQ(idOf(12, "Geany"), u"geany");
  EXPECT_EQ(idOf(12, "Tool"), QString());
}

TEST_F(ProcessesOfApplications, AreKnownByTheDesktopIdOfTheirWindowBeforeItsClass) {
  EXPECT_EQ(idOf(1, "Geany", "org.example.Paint"), u"org.example.Paint");
  EXPECT_EQ(idOf(1, "Geany", "org.example.Gone"), u"geany") << "an id without an entry says nothing";
}

TEST_F(ProcessesOfApplications, BehindAWrapperAreTheWrappersUnlessTheirWindowKnowsBetter) {
  const auto environment = launched("/usr/share/applications/wrapped.desktop", 20);
  process(20, 1, {{QStringLiteral("environ"), environment}});
  process(21, 20, {{QStringLiteral("environ"), environment}});
  EXPECT_EQ(idOf(21, "Unheard"), u"wrapped");
  EXPECT_EQ(idOf(21, "Geany"), u"geany");
}

TEST_F(ProcessesOfApplications, InSandboxesHaveTheSandboxesIds) {
  process(30, 1, {{QStringLiteral("root/.flatpak-info"),
                   "[Runtime]\nname=org.example.Platform\n[Application]\nname=org.example.Paint\nruntime=x\n"}});
  process(31, 1, {{QStringLiteral("attr/current"), "snap.notes.notes (enforce)\n"}});
  process(32, 1, {{QStringLiteral("attr/current"), "unconfined\n"}});
  process(33, 1, {{QStringLiteral("attr/current"), "snap.gone.gone (enforce)"}});
  EXPECT_EQ(idOf(30, "Electron"), u"org.example.Paint");
  EXPECT_EQ(idOf(31, "Electron"), u"notes_notes");
  EXPECT_EQ(idOf(32, "Geany"), u"geany");
  EXPECT_EQ(idOf(33, "Geany"), u"geany") << "an id that no entry has says nothing";
  EXPECT_EQ(idOf(0, "Geany"), u"geany") << "a window of another machine";
}

TEST(AProcess, TellsItsFolderAndArguments) {
  QTemporaryDir folder;
  QProcess process;
  process.setWorkingDirectory(folder.path());
  process.start(QStringLiteral("/bin/cat"), {QStringLiteral("-u"), QStringLiteral("-")});
  process.write("up");
  // Its arguments are told only once it runs, which is later than its start.
  ASSERT_TRUE(process.waitForReadyRead());
  const auto facts = processFacts(process.processId());
  EXPECT_EQ(facts.workingFolder, QDir(folder.path()).canonicalPath());
  EXPECT_EQ(facts.arguments, (QStringList{QStringLiteral("-u"), QStringLiteral("-")}));
  process.kill();
  process.waitForFinished();
}

TEST(AProcess, ThatIsNoneTellsNothing) {
  for (const qint64 pid : {qint64{0}, qint64{-1}, qint64{999999999}}) {
    EXPECT_TRUE(processFacts(pid).workingFolder.isEmpty());
    EXPECT_TRUE(processFacts(pid).arguments.isEmpty());
  }
}

}  // namespace
}  // namespace tarnwick
