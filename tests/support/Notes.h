// SPDX-License-Identifier: MIT
// Notes and stores as the tests of the model need them.
#pragma once

#include "model/Task.h"
#include "model/store/ModelContainer.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <ostream>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* stream) {
  *stream << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QDateTime& moment, std::ostream* stream) {
  *stream << moment.toString(Qt::ISODateWithMs).toStdString();
}
QT_END_NAMESPACE

namespace tarnwick {

inline void PrintTo(const TaskRecord& record, std::ostream* stream) {
  PrintTo(record.text.left(60), stream);
  *stream << ' ' << idText(record.id).toStdString() << " made ";
  PrintTo(record.createdAt, stream);
  *stream << " due ";
  PrintTo(record.dueDate.value_or(QDateTime()), stream);
}
inline void PrintTo(ErrorKind kind, std::ostream* stream) {
  *stream << "ErrorKind(" << static_cast<int>(kind) << ")";
}

}  // namespace tarnwick

namespace tarnwick::test {

[[nodiscard]] inline QDateTime utc(const char* iso) {
  return QDateTime::fromString(QString::fromLatin1(iso) + u'Z', Qt::ISODateWithMs);
}

[[nodiscard]] inline TaskRecord note(const QString& text = QStringLiteral("Buy milk")) {
  TaskRecord record;
  record.id = QUuid::createUuid();
  record.text = text;
  record.colorHex = QStringLiteral("#FFE169");
  record.createdAt = utc("2026-03-03T09:00:00.123");
  return record;
}

/// Every field set, none to its neutral value.
[[nodiscard]] inline TaskRecord fullNote() {
  auto record = note(QStringLiteral("Zeile 1\n- [x] „Rückruf“ 🙂\tend"));
  record.dueDate = utc("2026-10-25T01:30:00.001");
  record.recurrenceRaw = QStringLiteral("every3Days");
  record.isCompleted = true;
  record.isBurned = true;
  record.burnedAt = utc("1969-12-31T23:59:59.999");
  record.completedAt = utc("2026-03-04T00:00:00");
  record.tagRaw = QStringLiteral("blue");
  record.pinnedBundleID = QStringLiteral("org.example.Editor");
  record.gitRepoPath = QStringLiteral("/home/me/a \"b\" \\ c");
  record.gitBranch = QStringLiteral("feature/ä--->b");
  record.paperThemeRaw = QStringLiteral("from the future");
  record.stampRaw = QStringLiteral("star");
  record.isTornOff = true;
  record.boardRaw = QStringLiteral("Home");
  record.isDaily3 = true;
  record.isNorthStar = true;
  record.attachmentPathsRaw = QStringLiteral("a|b");
  record.focusSeconds = std::numeric_limits<qint64>::max();
  record.isPrivate = true;
  return record;
}

class StoreFolder {
 public:
  [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("data/Tarnwick.store")); }
  [[nodiscard]] QString filePath(const QString& name) const {
    return m_folder.filePath(QStringLiteral("data/") + name);
  }
  /// Opens the store, which must succeed.
  [[nodiscard]] std::unique_ptr<ModelContainer> open() const {
    auto opened = ModelContainer::open(path(), std::chrono::milliseconds::zero());
    EXPECT_TRUE(opened.isOk()) << (opened.isOk() ? std::string() : opened.error().text.toStdString());
    return opened.isOk() ? opened.take() : nullptr;
  }
  /// Why the store does not open; nothing when it does.
  [[nodiscard]] std::optional<ErrorKind> refusal() const {
    const auto opened = ModelContainer::open(path(), std::chrono::milliseconds::zero());
    return opened.isOk() ? std::nullopt : std::optional(opened.error().kind);
  }
  [[nodiscard]] QByteArray bytes() const {
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  void setBytes(const QByteArray& bytes) const {
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(bytes), bytes.size());
  }

 private:
  QTemporaryDir m_folder;
};

}  // namespace tarnwick::test
