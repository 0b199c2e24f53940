// SPDX-License-Identifier: MIT
// The accessibility trees of panels and desktops, read in the background and kept: what is asked is answered from the
// last reading. A program that does not answer within its time is left out.
#pragma once

#include "platform/Accessibility.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <optional>

class QDBusMessage;

namespace tarnwick {

struct AccessibleNode {
  ElementFacts facts;
  std::vector<ElementRef> children;
};

/// One reading; whole or not at all.
struct AccessibleReading {
  std::vector<ElementRef> docks;
  QHash<QString, AccessibleNode> nodes;
};

class AtSpiTree final : public QObject {
  Q_OBJECT
 public:
  struct Windows {
    std::function<QSet<qint64>()> pidsOfDocks;  // the processes that own a panel or desktop window now
    std::function<std::optional<DesktopRect>(quint32 window)> frameOf;
  };
  explicit AtSpiTree(Windows windows);
  ~AtSpiTree() override;

  /// The bus is reachable and accessibility is switched on.
  [[nodiscard]] bool isOn() const { return m_isEnabled && m_bus.isConnected(); }
  [[nodiscard]] const QDBusConnection& bus() const { return m_bus; }
  void switchOn();
  /// Starts a reading unless one runs.
  void refresh();
  [[nodiscard]] const AccessibleReading& reading() const { return m_reading; }
  [[nodiscard]] const AccessibleNode* node(const ElementRef& element) const;
  [[nodiscard]] bool isReading() const { return m_job != nullptr; }

 private Q_SLOTS:
  void statusChanged(const QString& interface, const QVariantMap& values, const QStringList& invalidated);
  void busServiceChanged(const QString& name, const QString& oldOwner, const QString& newOwner);

 private:
  struct Job;
  using Answer = std::function<void(const QDBusMessage&)>;
  void readStatus();
  void connectToBus();
  void call(const QDBusConnection& bus, const QDBusMessage& message, Answer answer);
  void readApplication(const ElementRef& application);
  void readNode(const ElementRef& element, int depth);
  void finishIfDone();
  void addTrashPlugins();

  Windows m_windows;
  QDBusConnection m_bus;
  bool m_isEnabled = false;
  AccessibleReading m_reading;
  std::shared_ptr<Job> m_job;
};

}  // namespace tarnwick
