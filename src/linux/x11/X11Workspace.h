// SPDX-License-Identifier: MIT
// Applications by their windows: the front one from the window manager's active window, the end of one from the kernel.
#pragma once

#include "linux/Observers.h"
#include "linux/dbus/MotionPreference.h"
#include "linux/x11/X11Clients.h"
#include "linux/xdg/AppCatalog.h"
#include "platform/Workspace.h"

#include <QObject>

#include <map>
#include <memory>

class QSocketNotifier;

namespace tarnwick {

class Scheduler;

class X11Workspace final : public QObject, public Workspace {
 public:
  X11Workspace(XcbConnection& connection, Scheduler& scheduler);
  ~X11Workspace() override;

  [[nodiscard]] std::optional<RunningApplication> frontmost() const override { return m_front; }
  [[nodiscard]] std::vector<RunningApplication> running() const override;
  [[nodiscard]] Registration onActivated(Observer observer) override { return m_activated.add(std::move(observer)); }
  [[nodiscard]] Registration onDeactivated(Observer observer) override { return m_deactivated.add(std::move(observer)); }
  [[nodiscard]] Registration onTerminated(Observer observer) override { return m_terminated.add(std::move(observer)); }
  [[nodiscard]] std::pair<QString, QIcon> identity(const QString& bundleID) const override;
  bool openUrl(const QUrl& url) override;
  [[nodiscard]] bool isMotionReduced() const override { return m_motion.isReduced(); }

 private:
  struct Process;
  void handle(const xcb_generic_event_t& event);
  void readFront();
  void setFront(std::optional<RunningApplication> application);
  void readClientsSoon();
  void readClients();
  [[nodiscard]] RunningApplication describe(xcb_window_t window, qint64 pid) const;
  void watch(const RunningApplication& application);
  void ended(qint64 pid);

  XcbConnection& m_x;
  X11Clients m_clients;
  Scheduler& m_scheduler;
  AppCatalog m_catalog;
  MotionPreference m_motion;
  std::optional<RunningApplication> m_front;
  bool m_isOwnPanelInFront = false;  // before m_front, which stays
  std::map<qint64, std::unique_ptr<Process>> m_processes;
  std::vector<xcb_window_t> m_known;  // clients that were looked at
  Registration m_nothingInFront;
  Registration m_reading;
  std::vector<Registration> m_handles;
  Observers<const RunningApplication&> m_activated;
  Observers<const RunningApplication&> m_deactivated;
  Observers<const RunningApplication&> m_terminated;
};

}  // namespace tarnwick
