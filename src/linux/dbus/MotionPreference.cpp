// SPDX-License-Identifier: MIT
#include "linux/dbus/MotionPreference.h"

#include "linux/dbus/BusCall.h"

#include <QDBusReply>
#include <QDir>
#include <QSettings>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kAppearance = QStringLiteral("org.freedesktop.appearance");
const QString kDesktop = QStringLiteral("org.gnome.desktop.interface");

QString configFolder() {
  const auto folder = qEnvironmentVariable("XDG_CONFIG_HOME");
  return folder.isEmpty() ? QDir::homePath() + u"/.config"_s : folder;
}

}  // namespace

MotionPreference::MotionPreference() {
  const QSettings plasma(configFolder() + u"/kdeglobals"_s, QSettings::IniFormat);
  const auto factor = plasma.value(QStringLiteral("KDE/AnimationDurationFactor"), 1.0).toDouble();
  const QSettings toolkit(configFolder() + u"/gtk-3.0/settings.ini"_s, QSettings::IniFormat);
  const auto animations = toolkit.value(QStringLiteral("Settings/gtk-enable-animations"), QStringLiteral("1")).toString();
  m_hasAnimations = factor > 0 && animations != u"0" && animations.compare(u"false", Qt::CaseInsensitive) != 0;
  auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  bus.connect(kService, kPath, kInterface, QStringLiteral("SettingChanged"), this,
              SLOT(changed(QString, QString, QDBusVariant)));
  ask(kAppearance, QStringLiteral("reduced-motion"));
  ask(kDesktop, QStringLiteral("enable-animations"));
}

void MotionPreference::ask(const QString& space, const QString& key) {
  auto call = QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
  call << space << key;
  tarnwick::ask(QDBusConnection::sessionBus(), call, this, [this, space, key](const QDBusMessage& answer) {
    const QDBusReply<QDBusVariant> value = answer;
    if (value.isValid()) changed(space, key, value.value());
  });
}

void MotionPreference::changed(const QString& space, const QString& key, const QDBusVariant& value) {
  QVariant plain = value.variant();
  while (plain.canConvert<QDBusVariant>()) plain = plain.value<QDBusVariant>().variant();  // Read wraps it once more
  if (space == kAppearance && key == u"reduced-motion") m_isReduced = plain.toUInt() == 1;
  if (space == kDesktop && key == u"enable-animations") m_hasAnimations = plain.toBool();
}

}  // namespace tarnwick
