// SPDX-License-Identifier: MIT
// What the board's and the desktop's views are given: one bag made by the application, references all the way.
#pragma once

#include "platform/OtherWindows.h"

#include <functional>

namespace tarnwick {

class Clock;
class ContextEngine;
class CrushFlight;
class CrushUndoStore;
class Haptics;
class ModelContainer;
class NotificationCenter;
class NotificationEngine;
class Scheduler;
class Screens;
class SoundEngine;
class TornNotes;
class UpdateChecker;
class UserDefaults;
class Workspace;

struct BoardServices {
  ModelContainer& container;
  UserDefaults& defaults;
  NotificationCenter& center;
  Clock& clock;
  Scheduler& scheduler;
  Screens& screens;
  Workspace& workspace;
  Haptics& haptics;
  SoundEngine& sound;
  CrushFlight& flight;
  NotificationEngine& reminders;
  CrushUndoStore& undo;
  ContextEngine& context;
  UpdateChecker& updates;
  std::function<TornNotes*()> torn;  // null until the board panel exists
  WindowSight sight = WindowSight::All;  // of whom a note can be pinned to
};

}  // namespace tarnwick
