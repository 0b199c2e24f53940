// SPDX-License-Identifier: MIT
// The one Tarnwick of a session: owner of the name on the session bus, with the standard application interface and our
// command. Also hears that the session ends: from the session manager and from signals, with or without a bus.
#pragma once

#include "platform/Instance.h"

#include <QDBusConnection>
#include <QObject>

#include <memory>

class QSocketNotifier;

namespace tarnwick {

class DBusInstance final : public QObject, public Instance {
 public:
  DBusInstance();
  ~DBusInstance() override;

  [[nodiscard]] PortTraits traits() const override;
  [[nodiscard]] InstanceRole acquire(InstanceHandlers handlers) override;
  [[nodiscard]] CommandReply forward(const CommandCall& call) override;

  [[nodiscard]] const InstanceHandlers& handlers() const { return m_handlers; }

 private:
  void listenForSignals();
  /// Empty when the owner of the name does not answer.
  [[nodiscard]] QString storePathOfOwner();

  QDBusConnection m_bus;
  InstanceHandlers m_handlers;
  bool m_isOwner = false;
  std::unique_ptr<QSocketNotifier> m_signals;
};

}  // namespace tarnwick
