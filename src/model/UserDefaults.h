// SPDX-License-Identifier: MIT
// The user's settings: flat typed keys with a registration layer, one JSON file replaced atomically at each write.
#pragma once

#include "platform/Clock.h"
#include "platform/Result.h"

#include <QDateTime>
#include <QHash>
#include <QJsonValue>
#include <QObject>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace tarnwick {

class UserDefaults final : public QObject {
  Q_OBJECT

 public:
  /// Reads the file; one that is damaged is set aside with its time in the name, and the settings start anew.
  UserDefaults(QString path, const Clock& clock, QObject* parent = nullptr);
  ~UserDefaults() override;

  /// What a key reads as while the user has not set it.
  void registerDefault(const QString& key, const QJsonValue& value);

  /// The stored or else registered object; undefined when there is neither.
  [[nodiscard]] QJsonValue object(const QString& key) const;
  /// Only what the user stored.
  [[nodiscard]] QJsonValue stored(const QString& key) const;
  /// False when absent or no bool.
  [[nodiscard]] bool boolean(const QString& key) const;
  /// For the keys whose absence, or a value of another type, counts as on.
  [[nodiscard]] bool booleanOrOn(const QString& key) const;
  [[nodiscard]] std::optional<QString> text(const QString& key) const;
  [[nodiscard]] std::optional<QDateTime> date(const QString& key) const;
  [[nodiscard]] std::optional<std::vector<double>> reals(const QString& key) const;
  [[nodiscard]] QStringList storedKeys() const;

  /// Setters keep the value in memory whatever happens to the file; the result tells of the file.
  Result<void> setBoolean(const QString& key, bool value);  // NOLINT: the value is a bool
  Result<void> setText(const QString& key, const QString& value);
  Result<void> setDate(const QString& key, const QDateTime& value);
  Result<void> setReals(const QString& key, const std::vector<double>& value);
  Result<void> remove(const QString& key);

 Q_SIGNALS:
  void changed(const QString& key);

 private:
  Result<void> set(const QString& key, const QJsonValue& value);
  [[nodiscard]] Result<void> write() const;
  void read(const Clock& clock);

  QString m_path;
  QHash<QString, QJsonValue> m_registered;
  QHash<QString, QJsonValue> m_stored;
  bool m_isReplaceable = true;  // false while a file is in the way that could not be read or set aside
};

}  // namespace tarnwick
