// SPDX-License-Identifier: MIT
// Owns the welcome window while it is open, and records that the flow was finished.
#pragma once

#include "platform/Accessibility.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

#include <functional>
#include <memory>

class QWidget;

namespace tarnwick {

class UserDefaults;
class WelcomeView;

class WelcomeWindowController final {
 public:
  struct Ports {
    Accessibility& accessibility;
    Scheduler& scheduler;
    Workspace& workspace;
    WindowServer& windowServer;
    Screens& screens;
  };

  WelcomeWindowController(Ports ports, UserDefaults& defaults);
  ~WelcomeWindowController();
  WelcomeWindowController(const WelcomeWindowController&) = delete;
  WelcomeWindowController& operator=(const WelcomeWindowController&) = delete;

  /// Shows the flow; finishing it stores that it was seen, hides the window and runs the action.
  void show(std::function<void()> onFinish);
  [[nodiscard]] bool isVisible() const;
  /// Null before the first show.
  [[nodiscard]] QWidget* window() const;

 private:
  void finish();

  Ports m_ports;
  UserDefaults& m_defaults;
  std::function<void()> m_onFinish;
  std::unique_ptr<WelcomeView> m_view;
};

}  // namespace tarnwick
