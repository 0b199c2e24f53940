// SPDX-License-Identifier: MIT
#include "model/store/StoreFile.h"

#include "model/store/StoreError.h"

#include <QFile>
#include <QFileInfo>

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarnwick {

namespace {

constexpr std::size_t kHeaderSize = 100;
constexpr QByteArrayView kMagic("SQLite format 3\0", 16);

using Header = std::array<char, kHeaderSize>;

qint64 bigEndian(const Header& header, std::size_t at, std::size_t count) {
  qint64 value = 0;
  for (std::size_t i = 0; i < count; ++i) value = value << 8 | static_cast<unsigned char>(header.at(at + i));
  return value;
}

/// 0 when it is none: a page has a power of two from 512 to 65536 bytes, the last of which is written as 1.
qint64 pageSize(const Header& header) {
  const auto stored = bigEndian(header, 16, 2);
  if (stored == 1) return 65536;
  return stored >= 512 && (stored & (stored - 1)) == 0 ? stored : 0;
}

bool isDatabase(const Header& header) {
  return QByteArrayView(header.data(), kMagic.size()) == kMagic && pageSize(header) != 0;
}

/// SQLite itself reads a missing end as zeros. The count is to be trusted where both change counters agree.
bool isCutOff(const Header& header, qint64 size) {
  return bigEndian(header, 24, 4) == bigEndian(header, 92, 4) && size < bigEndian(header, 28, 4) * pageSize(header);
}

}  // namespace

Result<StoreFile> StoreFile::examine(const QString& path) {
  StoreFile file(path);
  file.m_hasLog = QFileInfo(file.log()).size() > 0;
  file.m_hasIndex = QFileInfo::exists(file.index());
  const bool hasJournal = QFileInfo(path + QStringLiteral("-journal")).size() > 0;

  const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) {
    if (errno != ENOENT) return storeErrorOfSystem(errno, path);
    // A log without its file: SQLite would throw the log away.
    if (file.m_hasLog) return storeError(ErrorKind::Damaged, path);
    file.m_isNew = true;
    return file;
  }
  Header header{};
  const auto count = ::read(descriptor, header.data(), header.size());
  const int number = errno;
  ::close(descriptor);
  if (count < 0) return number == EISDIR ? storeError(ErrorKind::Damaged, path) : storeErrorOfSystem(number, path);
  if (count == 0 && !file.m_hasLog) {
    file.m_isNew = true;
    return file;
  }
  // With a log or journal pending, the file alone may well be incomplete.
  const bool isWhole = count == static_cast<ssize_t>(header.size()) && isDatabase(header) &&
                       (file.m_hasLog || !isCutOff(header, QFileInfo(path).size()));
  if (!isWhole && !hasJournal) return storeError(ErrorKind::Damaged, path);
  return file;
}

Result<void> StoreFile::create() {
  const auto name = QFile::encodeName(m_path);
  const int descriptor = ::open(name.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (descriptor >= 0) {
    m_isMade = true;
    ::close(descriptor);
    return {};
  }
  if (errno == EEXIST) return {};
  return storeErrorOfSystem(errno, m_path);
}

void StoreFile::tighten() const {
  for (const auto& path : {m_path, log(), index()}) {
    const auto name = QFile::encodeName(path);
    struct stat facts {};
    if (::stat(name.constData(), &facts) == 0 && (facts.st_mode & (S_IRWXG | S_IRWXO)) != 0)
      ::chmod(name.constData(), facts.st_mode & S_IRWXU);
  }
}

void StoreFile::removeTraces() const {
  if (!m_hasLog && QFileInfo(log()).size() == 0) QFile::remove(log());
  if (!m_hasIndex) QFile::remove(index());
  if (!m_isMade) return;
  QFile::remove(log());
  QFile::remove(m_path + QStringLiteral("-journal"));
  QFile::remove(m_path);
}

}  // namespace tarnwick
