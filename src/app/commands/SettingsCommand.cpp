// SPDX-License-Identifier: MIT
#include "app/commands/SettingsCommand.h"

#include "app/commands/NoteOptions.h"
#include "app/commands/NoteText.h"
#include "model/NotificationCenter.h"
#include "model/UserDefaults.h"
#include "platform/DesktopGeometry.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QKeySequence>

#include <algorithm>
#include <cmath>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

struct Words {
  Q_DECLARE_TR_FUNCTIONS(tarnwick::SettingsCommand)
};

template <typename Values>
bool isRawValue(const Values& values, const QString& word) {
  return std::ranges::any_of(values, [&](const auto value) { return rawValue(value) == word; });
}

bool isChord(const QString& word) {
  const auto sequence = QKeySequence::fromString(word, QKeySequence::PortableText);
  return sequence.count() == 1 && sequence[0].key() != Qt::Key_unknown && sequence[0].key() != 0;
}

/// Whether a text is one that the key's readers know.
bool isKnownText(const QString& key, const QString& word) {
  if (key == keys::kNoteDisplayMode) return isRawValue(kNoteDisplayModes, word);
  if (key == keys::kBoardMood) return isRawValue(kBoardMoods, word);
  if (key == keys::kDefaultPaperTheme) return isRawValue(kPaperThemes, word);
  if (key == keys::kCompletionEffect) return word == u"crush" || word == u"shred";
  if (key == keys::kCrushTarget) return word == u"automatic" || rectFromText(word);
  if (key == keys::kDockTrashFrame) return rectFromText(word).has_value();
  if (key == keys::kHotKey) return isChord(word);
  return true;
}

QString join(const std::vector<double>& reals) {
  QStringList words;
  for (const double real : reals) words.append(QString::number(real, 'g', 15));
  return words.join(u',');
}

/// As many reals as the key has; nothing when one is none.
std::optional<std::vector<double>> readReals(const QString& key, const QString& word) {
  std::vector<double> reals;
  for (const QString& part : word.split(u',')) {
    bool isNumber = false;
    reals.push_back(part.toDouble(&isNumber));
    if (!isNumber || !std::isfinite(reals.back())) return std::nullopt;
  }
  const size_t expected = key.startsWith(keys::kAppNoteOffsetPrefix) ? 2 : 4;
  if (reals.size() != expected) return std::nullopt;
  return reals;
}

std::optional<QDateTime> readDate(const QString& word, const Clock& clock) {
  if (auto moment = momentFromWords(word, clock.now(), Calendar::of(clock))) return moment;
  const auto moment = QDateTime::fromString(word, Qt::ISODateWithMs);
  if (!moment.isValid() || moment.timeSpec() == Qt::LocalTime) return std::nullopt;
  return moment.toUTC();
}

/// The per-note keys are known by their beginning.
std::optional<SettingDescriptor> noteDescriptor(const QString& key, const QString& prefix, const QString& fallback) {
  if (!key.startsWith(prefix)) return std::nullopt;
  const QUuid id = QUuid::fromString(key.sliced(prefix.size()));
  if (id.isNull()) return std::nullopt;
  return SettingDescriptor{prefix + idText(id), SettingType::Reals, fallback};
}

}  // namespace

std::optional<SettingDescriptor> SettingsCommand::descriptorOf(const QString& key) {
  const auto& table = settingDescriptors();
  if (const auto found = std::ranges::find(table, key, &SettingDescriptor::key); found != table.end()) return *found;
  if (auto offset = noteDescriptor(key, keys::kAppNoteOffsetPrefix, u"-18,-64"_s)) return offset;
  return noteDescriptor(key, keys::kTornNoteFramePrefix, {});
}

QString SettingsCommand::valueOf(const SettingDescriptor& setting) const {
  switch (setting.type) {
    case SettingType::Boolean: {
      const QJsonValue value = m_defaults.object(setting.key);
      if (!value.isBool()) return setting.fallback;
      return value.toBool() ? u"true"_s : u"false"_s;
    }
    case SettingType::Text: return m_defaults.text(setting.key).value_or(setting.fallback);
    case SettingType::Date: {
      const auto date = m_defaults.date(setting.key);
      return date ? momentText(*date, Calendar::of(m_clock)) : setting.fallback;
    }
    case SettingType::Reals: {
      const auto reals = m_defaults.reals(setting.key);
      if (!reals || (!setting.fallback.isEmpty() && reals->size() != 2)) return setting.fallback;
      return join(*reals);
    }
  }
  return {};
}

QString SettingsCommand::all() const {
  QString lines;
  const auto add = [&](const SettingDescriptor& setting) {
    lines += setting.key + u'=' + valueOf(setting) + u'\n';
  };
  std::ranges::for_each(settingDescriptors(), add);
  for (const QString& key : m_defaults.storedKeys()) {
    const bool isOfNote = key.startsWith(keys::kAppNoteOffsetPrefix) || key.startsWith(keys::kTornNoteFramePrefix);
    if (!isOfNote) continue;
    if (const auto setting = descriptorOf(key)) add(*setting);
  }
  return lines;
}

std::optional<QString> SettingsCommand::value(const QString& key) const {
  const auto setting = descriptorOf(key);
  if (!setting) return std::nullopt;
  return valueOf(*setting);
}

Result<void> SettingsCommand::set(const QString& key, const QString& value) {
  const auto setting = descriptorOf(key);
  if (!setting) return Error{ErrorKind::Refused, Words::tr("unknown key %1").arg(key)};
  const QJsonValue before = m_defaults.stored(setting->key);
  const auto written = store(*setting, value);
  if (!written) return Error{ErrorKind::Refused, Words::tr("%1 is no value for %2").arg(value, setting->key)};
  if (!*written) {
    // The file is as it was; memory follows it.
    if (before.isBool()) {
      (void)m_defaults.setBoolean(setting->key, before.toBool());
    } else if (before.isString()) {
      (void)m_defaults.setText(setting->key, before.toString());
    } else if (before.isArray()) {
      std::vector<double> reals;
      for (const QJsonValue& real : before.toArray()) reals.push_back(real.toDouble());
      (void)m_defaults.setReals(setting->key, reals);
    } else {
      (void)m_defaults.remove(setting->key);
    }
    return Error{ErrorKind::Failed, written->error().text};
  }
  if (setting->key == keys::kHideFromScreenShare) Q_EMIT m_center.notePrivacyChanged();
  if (setting->key == keys::kNoteDisplayMode) Q_EMIT m_center.noteDisplayModeChanged();
  return {};
}

std::optional<Result<void>> SettingsCommand::store(const SettingDescriptor& setting, const QString& value) {
  switch (setting.type) {
    case SettingType::Boolean:
      if (value != u"true" && value != u"false") return std::nullopt;
      return m_defaults.setBoolean(setting.key, value == u"true");
    case SettingType::Text:
      if (!isKnownText(setting.key, value)) return std::nullopt;
      return m_defaults.setText(setting.key, value);
    case SettingType::Date:
      if (const auto date = readDate(value, m_clock)) return m_defaults.setDate(setting.key, *date);
      break;
    case SettingType::Reals:
      if (const auto reals = readReals(setting.key, value)) return m_defaults.setReals(setting.key, *reals);
      break;
  }
  return std::nullopt;
}

}  // namespace tarnwick
