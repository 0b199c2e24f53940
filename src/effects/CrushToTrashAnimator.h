// SPDX-License-Identifier: MIT
// Starts crush flights and sees each to its end: which screen, which target, the tap and the sound of the landing, and
// the one completion. What moves where is CrushPlan's; painting is CrushOverlayWindow's.
#pragma once

#include "effects/CrushFlight.h"
#include "platform/Clock.h"
#include "platform/Haptics.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/WindowServer.h"

#include <chrono>
#include <functional>
#include <list>
#include <memory>

namespace tarnwick {

class CrushOverlayWindow;
class DockTrashLocator;
class SoundEngine;

class CrushToTrashAnimator final : public CrushFlight {
 public:
  struct Ports {
    const Screens& screens;
    Scheduler& scheduler;
    const Clock& clock;
    WindowServer& windows;
    Haptics& haptics;
    SoundEngine& sound;
    DockTrashLocator& trash;
  };

  explicit CrushToTrashAnimator(Ports ports);
  /// Flights under way are dropped without their completion.
  ~CrushToTrashAnimator() override;

  [[nodiscard]] Registration play(const DesktopRect& from, const QColor& paper, const QImage& picture, Motion motion,
                                  std::function<void()> completion) override;

  [[nodiscard]] int flightsUnderWay() const { return static_cast<int>(m_flights->size()); }

 private:
  struct Flight;
  void open(CrushOverlayWindow& window);
  /// Runs the work at a media time; the handle is the flight's, so it ends with it.
  void runAt(std::chrono::nanoseconds moment, Registration& handle, std::function<void()> work);
  void finish(Flight& flight);

  Ports m_ports;
  quint64 m_lastNumber = 0;
  std::shared_ptr<std::list<std::unique_ptr<Flight>>> m_flights;  // handles look into it, if it is still there
};

}  // namespace tarnwick
