// SPDX-License-Identifier: MIT
#include "exchange/ForeignNote.h"

#include "model/Color.h"

namespace tarnwick {

TaskRecord foreignNote(const QString& source, const QString& text, const QDateTime& now) {
  static const QUuid kFamily = QUuid::createUuidV5(QUuid(), QStringLiteral("app.tarnwick.Tarnwick"));
  TaskRecord record;
  record.id = QUuid::createUuidV5(kFamily, source);
  record.text = text;
  record.colorHex = kPaperPalette.front();
  record.createdAt = now;
  return record;
}

}  // namespace tarnwick
