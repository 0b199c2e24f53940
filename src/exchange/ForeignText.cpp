// SPDX-License-Identifier: MIT
#include "exchange/ForeignText.h"

#include "exchange/ExchangeWords.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

namespace tarnwick {

Result<QByteArray> readForeignBytes(const QString& path) {
  const QFileInfo info(path);
  if (!info.exists()) return Error{ErrorKind::NotFound, ExchangeWords::tr("there is no such file")};
  // A pipe or a device could keep its reader waiting for ever.
  if (!info.isFile()) return Error{ErrorKind::Refused, ExchangeWords::tr("it is no regular file")};
  if (info.size() > kLargestImport) return Error{ErrorKind::Refused, ExchangeWords::tr("it is too large to be a file of notes")};
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return Error{ErrorKind::NotPermitted, file.errorString()};
  auto bytes = file.read(info.size());
  if (file.error() != QFileDevice::NoError) return Error{ErrorKind::Failed, file.errorString()};
  return bytes;
}

std::optional<QString> readForeignText(const QString& path) {
  const auto bytes = readForeignBytes(path);
  if (!bytes) return std::nullopt;
  QStringDecoder decoder(QStringDecoder::Utf8);
  QString text = decoder(bytes.value());
  if (decoder.hasError()) return std::nullopt;
  return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

Error noForeignNotes(const QStringList& unreadable) {
  if (unreadable.isEmpty()) return {ErrorKind::NotFound, ExchangeWords::tr("it holds no notes")};
  return {ErrorKind::Damaged, ExchangeWords::tr("none of its notes can be read: %1").arg(unreadable.first(qMin(3, unreadable.size())).join(QStringLiteral(", ")))};
}

void appendUnreadable(const QStringList& unreadable, QStringList& leftBehind) {
  if (unreadable.isEmpty()) return;
  auto names = unreadable.first(qMin(3, unreadable.size()));
  if (names.size() < unreadable.size()) names.append(QStringLiteral("…"));
  leftBehind.append(ExchangeWords::tr("what cannot be read (%1): %2").arg(unreadable.size()).arg(names.join(QStringLiteral(", "))));
}

}  // namespace tarnwick
