// SPDX-License-Identifier: MIT
#include "model/UserDefaults.h"

#include "model/PrivateFolder.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QStringList>

#include <algorithm>
#include <cerrno>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLargestFile = 16LL * 1024 * 1024;

std::optional<QJsonObject> parse(const QByteArray& bytes) {
  QJsonParseError error;
  const auto document = QJsonDocument::fromJson(bytes, &error);
  if (error.error != QJsonParseError::NoError || !document.isObject()) return std::nullopt;
  return document.object();
}

/// A name beside the file that is not taken yet.
QString nameForDamaged(const QString& path, const Clock& clock) {
  const auto stamp = clock.now().toTimeZone(clock.timeZone()).toString(u"yyyyMMdd-HHmmss"_s);
  const auto first = u"%1.damaged-%2"_s.arg(path, stamp);
  auto name = first;
  for (int i = 2; QFileInfo::exists(name); ++i) name = u"%1-%2"_s.arg(first).arg(i);
  return name;
}

}  // namespace

UserDefaults::UserDefaults(QString path, const Clock& clock, QObject* parent)
    : QObject(parent), m_path(std::move(path)) {
  read(clock);
}

UserDefaults::~UserDefaults() = default;

void UserDefaults::read(const Clock& clock) {
  QFile file(m_path);
  if (!file.exists()) return;
  // What cannot be read might be whole: then it must not be replaced either.
  if (!file.open(QIODevice::ReadOnly)) {
    m_isReplaceable = false;
    return;
  }
  const auto bytes = file.read(std::min(file.size(), kLargestFile) + 1);
  const auto hasReadError = file.error() != QFileDevice::NoError;
  file.close();
  if (hasReadError) {
    m_isReplaceable = false;
    return;
  }
  if (const auto object = bytes.size() > kLargestFile ? std::nullopt : parse(bytes)) {
    for (auto it = object->begin(); it != object->end(); ++it) m_stored.insert(it.key(), it.value());
    return;
  }
  m_isReplaceable = QFile::rename(m_path, nameForDamaged(m_path, clock));
}

void UserDefaults::registerDefault(const QString& key, const QJsonValue& value) {
  m_registered.insert(key, value);
}

QJsonValue UserDefaults::object(const QString& key) const {
  const auto found = m_stored.constFind(key);
  if (found != m_stored.constEnd()) return *found;
  return m_registered.value(key, QJsonValue(QJsonValue::Undefined));
}

QJsonValue UserDefaults::stored(const QString& key) const {
  return m_stored.value(key, QJsonValue(QJsonValue::Undefined));
}

bool UserDefaults::boolean(const QString& key) const {
  return object(key).toBool(false);
}

bool UserDefaults::booleanOrOn(const QString& key) const {
  return object(key).toBool(true);
}

std::optional<QString> UserDefaults::text(const QString& key) const {
  const auto value = object(key);
  if (!value.isString()) return std::nullopt;
  return value.toString();
}

std::optional<QDateTime> UserDefaults::date(const QString& key) const {
  const auto value = object(key);
  if (!value.isString()) return std::nullopt;
  const auto date = QDateTime::fromString(value.toString(), Qt::ISODateWithMs);
  if (!date.isValid()) return std::nullopt;
  return date.toUTC();
}

std::optional<std::vector<double>> UserDefaults::reals(const QString& key) const {
  const auto value = object(key);
  if (!value.isArray()) return std::nullopt;
  std::vector<double> numbers;
  for (const auto& element : value.toArray()) {
    if (!element.isDouble()) return std::nullopt;
    numbers.push_back(element.toDouble());
  }
  return numbers;
}

QStringList UserDefaults::storedKeys() const {
  auto list = m_stored.keys();
  list.sort();
  return list;
}

Result<void> UserDefaults::setBoolean(const QString& key, bool value) {
  return set(key, value);
}

Result<void> UserDefaults::setText(const QString& key, const QString& value) {
  return set(key, value);
}

Result<void> UserDefaults::setDate(const QString& key, const QDateTime& value) {
  return set(key, value.toUTC().toString(Qt::ISODateWithMs));
}

Result<void> UserDefaults::setReals(const QString& key, const std::vector<double>& value) {
  QJsonArray array;
  for (const auto number : value) array.append(number);
  return set(key, array);
}

Result<void> UserDefaults::remove(const QString& key) {
  if (m_stored.remove(key) == 0) return {};
  auto result = write();
  Q_EMIT changed(key);
  return result;
}

Result<void> UserDefaults::set(const QString& key, const QJsonValue& value) {
  const bool isOther = stored(key) != value;
  m_stored.insert(key, value);
  auto result = write();
  if (isOther) Q_EMIT changed(key);
  return result;
}

Result<void> UserDefaults::write() const {
  const auto failed = [this](ErrorKind kind, const QString& reason) {
    return Error{kind, QCoreApplication::translate("UserDefaults", "The settings could not be written to “%1”: %2")
                           .arg(m_path, reason)};
  };
  if (!m_isReplaceable) {
    return failed(ErrorKind::Damaged,
                  QCoreApplication::translate("UserDefaults", "a file that cannot be read is in the way"));
  }
  makePrivateFolder(QFileInfo(m_path).path());
  QJsonObject object;
  for (auto it = m_stored.begin(); it != m_stored.end(); ++it) object.insert(it.key(), it.value());
  const auto bytes = QJsonDocument(object).toJson();
  QSaveFile file(m_path);
  errno = 0;
  const bool isWritten = file.open(QIODevice::WriteOnly) &&
                         file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner) &&
                         file.write(bytes) == bytes.size() && file.commit();
  if (isWritten) return {};
  const auto kind = errno == ENOSPC || errno == EDQUOT                    ? ErrorKind::Full
                    : errno == EACCES || errno == EPERM || errno == EROFS ? ErrorKind::NotPermitted
                                                                          : ErrorKind::Failed;
  return failed(kind, file.errorString());
}

}  // namespace tarnwick
