// SPDX-License-Identifier: MIT
// What the plank dock tells of itself over the bus: its applications and where its trash is. Read in the background.
#pragma once

#include "platform/DockPreferences.h"

#include <QDBusMessage>
#include <QObject>
#include <QRect>
#include <QStringList>

#include <functional>
#include <optional>

namespace tarnwick {

class PlankDock final : public QObject {
  Q_OBJECT
 public:
  PlankDock();

  [[nodiscard]] const DockState& state() const { return m_state; }
  /// Device pixels; nothing without a trash in the dock.
  [[nodiscard]] std::optional<QRect> trash() const { return m_trash; }

 public Q_SLOTS:
  /// Asks anew; without a dock nothing changes.
  void refresh();

 private Q_SLOTS:
  void serviceChanged(const QString& name, const QString& oldOwner, const QString& newOwner);

 private:
  void ask(const QString& method, const QVariantList& arguments, std::function<void(const QVariantList&)> answer);
  void forget();

  DockState m_state;
  std::optional<QRect> m_trash;
};

class PlankDockPreferences final : public DockPreferences {
 public:
  explicit PlankDockPreferences(const PlankDock& dock) : m_dock(dock) {}
  [[nodiscard]] DockState read() const override { return m_dock.state(); }

 private:
  const PlankDock& m_dock;
};

}  // namespace tarnwick
