// SPDX-License-Identifier: MIT
#include "fakes/ManualTime.h"
#include "model/UserDefaults.h"
#include "model/store/ModelContainer.h"
#include "support/Notes.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

bool writeWhole(const char* path, const QByteArray& bytes) {
  const int file = ::open(path, O_WRONLY | O_CLOEXEC);
  const bool isWritten =
      file >= 0 && ::write(file, bytes.constData(), static_cast<size_t>(bytes.size())) == bytes.size();
  if (file >= 0) ::close(file);
  return isWritten;
}

/// Gives this process mounts of its own; the reason when the system refuses.
QString refusalOfOwnMounts() {
  const auto uid = ::getuid();
  const auto gid = ::getgid();
  if (::unshare(CLONE_NEWNS) != 0) {
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
      return u"no mount namespace: %1"_s.arg(QString::fromLocal8Bit(std::strerror(errno)));
    if (!writeWhole("/proc/self/setgroups", "deny") ||
        !writeWhole("/proc/self/uid_map", "0 " + QByteArray::number(uid) + " 1") ||
        !writeWhole("/proc/self/gid_map", "0 " + QByteArray::number(gid) + " 1"))
      return u"no user mapping: %1"_s.arg(QString::fromLocal8Bit(std::strerror(errno)));
  }
  if (::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
    return u"no private mounts: %1"_s.arg(QString::fromLocal8Bit(std::strerror(errno)));
  return {};
}

/// Root ignores permission bits, so folders that refuse are file systems of their own.
class StorePlaces : public testing::Test {
 protected:
  static void SetUpTestSuite() { s_refusal = refusalOfOwnMounts(); }
  void SetUp() override {
    if (!s_refusal.isEmpty()) GTEST_SKIP() << s_refusal.toStdString();
    ASSERT_EQ(::mount("tmpfs", place().constData(), "tmpfs", 0, "size=1m,mode=0700"), 0) << std::strerror(errno);
    m_isMounted = true;
  }
  void TearDown() override {
    if (m_isMounted) ::umount2(place().constData(), MNT_DETACH);
  }

  [[nodiscard]] QByteArray place() const { return QFile::encodeName(m_folder.path()); }
  [[nodiscard]] QString path() const { return m_folder.filePath(u"Tarnwick.store"_s); }
  [[nodiscard]] Result<std::unique_ptr<ModelContainer>> open() const {
    return ModelContainer::open(path(), std::chrono::milliseconds::zero());
  }
  [[nodiscard]] QByteArray bytes() const {
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  [[nodiscard]] QStringList files() const { return QDir(m_folder.path()).entryList(QDir::Files, QDir::Name); }
  void fill() const {
    auto store = open();
    ASSERT_TRUE(store);
    store.value()->mainContext().insert(fullNote());
    ASSERT_TRUE(store.value()->mainContext().save());
  }
  [[nodiscard]] bool makeReadOnly() const {
    return ::mount("none", place().constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
  }
  /// Takes all space but so much.
  void occupy(qint64 left) const {
    QFile ballast(m_folder.filePath(u"ballast"_s));
    ASSERT_TRUE(ballast.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    const QByteArray block(4096, 'x');
    while (ballast.write(block) == block.size()) {
    }
    if (left > 0) ballast.resize(std::max<qint64>(0, ballast.size() - left));
  }
  void release() const { ASSERT_TRUE(QFile::remove(m_folder.filePath(u"ballast"_s))); }

  static QString s_refusal;
  QTemporaryDir m_folder;
  bool m_isMounted = false;
};

QString StorePlaces::s_refusal;

TEST_F(StorePlaces, aReadOnlyFolderIsNotPermittedAndUntouched) {
  fill();
  const auto before = bytes();
  const auto names = files();
  ASSERT_TRUE(makeReadOnly());
  const auto opened = open();
  ASSERT_FALSE(opened);
  EXPECT_EQ(opened.error().kind, ErrorKind::NotPermitted);
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(files(), names);
}

TEST_F(StorePlaces, aReadOnlyFolderTakesNoNewStore) {
  ASSERT_TRUE(makeReadOnly());
  const auto opened = open();
  ASSERT_FALSE(opened);
  EXPECT_EQ(opened.error().kind, ErrorKind::NotPermitted);
}

TEST_F(StorePlaces, aReadOnlyFileIsNotPermittedAndLeavesNothingBeside) {
  fill();
  const auto before = bytes();
  const auto names = files();
  const auto file = QFile::encodeName(path());
  ASSERT_EQ(::mount(file.constData(), file.constData(), nullptr, MS_BIND, nullptr), 0);
  ASSERT_EQ(::mount("none", file.constData(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr), 0);
  const auto opened = open();
  ::umount2(file.constData(), MNT_DETACH);
  ASSERT_FALSE(opened);
  EXPECT_EQ(opened.error().kind, ErrorKind::NotPermitted);
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(files(), names);
}

TEST_F(StorePlaces, aDiskThatFillsUpRefusesTheSaveAndTakesItOnceThereIsSpace) {
  auto opened = open();
  ASSERT_TRUE(opened);
  auto& context = opened.value()->mainContext();
  const auto first = context.insert(note(u"first"_s))->id();
  ASSERT_TRUE(context.save());
  occupy(100'000);
  const auto big = context.insert(note(QString(200'000, u'x')));
  for (int attempt = 0; attempt < 3; ++attempt) {
    const auto saved = context.save();
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().kind, ErrorKind::Full);
  }
  EXPECT_EQ(context.findTask(big->id())->text().size(), 200'000);
  release();
  ASSERT_TRUE(context.save());
  opened.value().reset();
  const auto again = open();
  ASSERT_TRUE(again);
  EXPECT_EQ(again.value()->mainContext().findTask(big->id())->text().size(), 200'000);
  EXPECT_NE(again.value()->mainContext().findTask(first), nullptr);
}

TEST_F(StorePlaces, aFullDiskKeepsTheStoreAsItIs) {
  fill();
  const auto before = bytes();
  occupy(0);
  const auto names = files();
  const auto opened = open();
  ASSERT_FALSE(opened);
  EXPECT_EQ(opened.error().kind, ErrorKind::Full);
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(files(), names);
  release();
  EXPECT_TRUE(open());
}

TEST_F(StorePlaces, aFullDiskTakesNoNewStoreAndKeepsNoHalfOne) {
  occupy(6000);
  const auto opened = open();
  ASSERT_FALSE(opened);
  EXPECT_EQ(opened.error().kind, ErrorKind::Full);
  EXPECT_EQ(files(), (QStringList{u"Tarnwick.store.lock"_s, u"ballast"_s}));
}

TEST_F(StorePlaces, aFullDiskTakesNoHalfBackup) {
  auto opened = open();
  ASSERT_TRUE(opened);
  opened.value()->mainContext().insert(note(QString(100'000, u'x')));
  ASSERT_TRUE(opened.value()->mainContext().save());
  occupy(50'000);
  const auto saved = opened.value()->backUp(QDate(2026, 3, 3));
  ASSERT_FALSE(saved);
  EXPECT_EQ(saved.error().kind, ErrorKind::Full);
  EXPECT_TRUE(QDir(m_folder.filePath(u"backups"_s)).isEmpty());
  release();
  EXPECT_TRUE(opened.value()->backUp(QDate(2026, 3, 3)));
}

TEST_F(StorePlaces, settingsOnAFullOrReadOnlyDiskKeepTheOldFileAndTheNewValue) {
  const ManualTime time;
  const auto file = m_folder.filePath(u"settings.json"_s);
  UserDefaults defaults(file, time);
  ASSERT_TRUE(defaults.setText(u"key"_s, u"old"_s));
  occupy(0);
  const auto full = defaults.setText(u"key"_s, QString(20'000, u'n'));
  ASSERT_FALSE(full);
  EXPECT_EQ(full.error().kind, ErrorKind::Full);
  EXPECT_EQ(defaults.text(u"key"_s)->size(), 20'000);
  EXPECT_EQ(UserDefaults(file, time).text(u"key"_s), u"old"_s);
  release();
  EXPECT_EQ(files(), QStringList{u"settings.json"_s});
  ASSERT_TRUE(makeReadOnly());
  const auto readOnly = defaults.setText(u"key"_s, u"new"_s);
  ASSERT_FALSE(readOnly);
  EXPECT_EQ(readOnly.error().kind, ErrorKind::NotPermitted);
}

}  // namespace
}  // namespace tarnwick::test
