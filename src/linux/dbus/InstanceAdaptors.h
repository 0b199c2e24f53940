// SPDX-License-Identifier: MIT
// The two interfaces that the running Tarnwick offers on the bus; they pass calls on to the handlers of the instance.
#pragma once

#include "linux/dbus/DBusInstance.h"

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

namespace tarnwick {

class ApplicationAdaptor final : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
 public:
  ApplicationAdaptor(QObject* parent, const DBusInstance& instance) : QDBusAbstractAdaptor(parent), m_instance(instance) {}

 public Q_SLOTS:
  // NOLINTBEGIN: names and arguments are the interface's
  void Activate(const QVariantMap& platformData);
  void Open(const QStringList& uris, const QVariantMap& platformData);
  void ActivateAction(const QString& name, const QVariantList& parameter, const QVariantMap& platformData);
  // NOLINTEND

 private:
  const DBusInstance& m_instance;
};

class CommandAdaptor final : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "app.tarnwick.Tarnwick1")
  Q_PROPERTY(QString StorePath READ storePath)
 public:
  CommandAdaptor(QObject* parent, const DBusInstance& instance) : QDBusAbstractAdaptor(parent), m_instance(instance) {}

  /// The store that this program holds; callers compare it with their own.
  [[nodiscard]] QString storePath() const { return m_instance.handlers().storePath; }

 public Q_SLOTS:
  // NOLINTBEGIN: names and arguments are the interface's
  int Command(const QStringList& arguments, const QString& standardInput, const QString& workingDirectory, QString& output,
              QString& error);
  // NOLINTEND

 private:
  const DBusInstance& m_instance;
};

}  // namespace tarnwick
