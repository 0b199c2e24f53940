// SPDX-License-Identifier: MIT
// The opened store: owns the connection, the lock and the one live record per note.
#pragma once

#include "model/ClipboardItem.h"
#include "model/Task.h"
#include "model/store/ModelContext.h"
#include "platform/Result.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <memory>
#include <vector>

namespace tarnwick {

class ModelContainer final : public QObject {
  Q_OBJECT

 public:
  /// Opens or makes the store file (its folder included). Errors: NewerSchema, Damaged, NotPermitted, Full, InUse,
  /// Failed; the file is left as it is then. Waits as long as given for another process to let go of the store.
  [[nodiscard]] static Result<std::unique_ptr<ModelContainer>> open(
      const QString& storePath, std::chrono::milliseconds lockWait = std::chrono::seconds(2));
  ~ModelContainer() override;

  [[nodiscard]] ModelContext& mainContext() { return m_mainContext; }
  [[nodiscard]] const QString& path() const { return m_path; }
  /// The shelf's records, untouched since another build wrote them.
  [[nodiscard]] Result<std::vector<ClipboardItem>> clipboardItems() const;
  /// For an import of an export: existing identifiers are left alone. Returns how many were written.
  Result<int> insertClipboardItems(const std::vector<ClipboardItem>& items);
  /// A consistent copy in backups/, named by the day; keeps the last seven. Does nothing when today's exists.
  Result<void> backUp(QDate today) const;

 Q_SIGNALS:
  /// After each commit that wrote something, once.
  void didSave();

 private:
  friend class ModelContext;
  struct Storage;
  ModelContainer(QString path, std::unique_ptr<Storage> storage);

  QString m_path;
  std::unique_ptr<Storage> m_storage;
  ModelContext m_mainContext;
};

}  // namespace tarnwick
