// SPDX-License-Identifier: MIT
// One object per port, as the program was given them: the desktop's adapters, or fakes.
#pragma once

#include "platform/Accessibility.h"
#include "platform/Audio.h"
#include "platform/CaptureWatch.h"
#include "platform/Clock.h"
#include "platform/DockPreferences.h"
#include "platform/Downloads.h"
#include "platform/Haptics.h"
#include "platform/HotKeys.h"
#include "platform/Instance.h"
#include "platform/LoginItem.h"
#include "platform/OtherWindows.h"
#include "platform/Power.h"
#include "platform/ProcessFacts.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/UserNotifications.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

namespace tarnwick {

struct AppPorts {
  Clock& clock;
  Scheduler& scheduler;
  Screens& screens;
  Workspace& workspace;
  WindowServer& windowServer;
  OtherWindows& otherWindows;
  Accessibility& accessibility;
  HotKeys& hotKeys;
  UserNotifications& notifications;
  Audio& audio;
  Haptics& haptics;
  Power& power;
  CaptureWatch& captureWatch;
  LoginItem& loginItem;
  DockPreferences& dockPreferences;
  Downloads& downloads;
  QString session;  // "x11" or "wayland", for the status
  ProcessReader processFacts = noProcessFacts;
};

}  // namespace tarnwick
