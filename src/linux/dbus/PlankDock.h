// SPDX-License-Identifier: MIT
// What the plank dock tells of itself over the bus: its applications and where its trash is. Read in the background.
#pragma once

#include "platform/DockPreferences.h"
#include "platform/Registration.h"

#include <QDBusMessage>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace tarnwick {

class Scheduler;

class PlankDock final : public QObject {
  Q_OBJECT
 public:
  /// Asks for the first time shortly after the start: nothing is crushed before.
  explicit PlankDock(Scheduler& scheduler);

  [[nodiscard]] const DockState& state() const { return m_state; }
  [[nodiscard]] bool hasTrash() const { return m_trash.has_value(); }
  /// Where the icon of its trash is, in device pixels; `windows`: plank's own, in the same. They tell how large it is.
  [[nodiscard]] std::optional<QRect> trash(const std::vector<QRect>& windows) const;

 public Q_SLOTS:
  /// Asks anew; without a dock nothing changes.
  void refresh();

 private Q_SLOTS:
  void serviceChanged(const QString& name, const QString& oldOwner, const QString& newOwner);

 private:
  void ask(const QString& method, const QVariantList& arguments, std::function<void(const QVariantList&)> answer);
  void forget();
  void listen();

  Registration m_later;
  DockState m_state;
  struct Hover {
    QPoint point;
    int side = 0;
  };
  std::optional<Hover> m_trash;
};

class PlankDockPreferences final : public DockPreferences {
 public:
  explicit PlankDockPreferences(const PlankDock& dock) : m_dock(dock) {}
  [[nodiscard]] DockState read() const override { return m_dock.state(); }

 private:
  const PlankDock& m_dock;
};

}  // namespace tarnwick
