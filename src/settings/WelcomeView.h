// SPDX-License-Identifier: MIT
// The three pages that greet a new user, and the window they come in.
#pragma once

#include "platform/Accessibility.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"
#include "platform/WindowServer.h"

#include <QWidget>

#include <functional>
#include <memory>

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
  };

  WelcomeWindowController(Ports ports, UserDefaults& defaults);
  ~WelcomeWindowController();

  /// Shows the flow; finishing it stores that it was seen, hides the window and runs the action.
  void show(std::function<void()> onFinish);
  [[nodiscard]] bool isVisible() const;
  [[nodiscard]] QWidget* window() const;

 private:
  Ports m_ports;
  UserDefaults& m_defaults;
  std::unique_ptr<WelcomeView> m_view;
};

}  // namespace tarnwick
