// SPDX-License-Identifier: MIT
#include "effects/CrushToTrashAnimator.h"

#include "context/DockTrashLocator.h"
#include "effects/CrushOverlayWindow.h"
#include "effects/CrushPlan.h"
#include "effects/SoundEngine.h"

#include <QWindow>

#include <algorithm>

namespace tarnwick {

namespace {

using std::chrono::nanoseconds;

double seconds(nanoseconds time) { return std::chrono::duration<double>(time).count(); }
nanoseconds span(double inSeconds) {
  return std::chrono::round<nanoseconds>(std::chrono::duration<double>(inSeconds));
}

/// Each play begins a moment after it was asked for, so that its first frame is a whole one.
constexpr double kLead = 0.01;

DesktopRect onStage(const DesktopRect& rect, const DesktopRect& screen) {
  return {rect.x - screen.x, rect.y - screen.y, rect.width, rect.height};
}

}  // namespace

struct CrushToTrashAnimator::Flight {
  quint64 number = 0;
  std::unique_ptr<CrushOverlayWindow> window;
  std::function<void()> completion;
  Registration frames;
  Registration landing;
  Registration end;
};

CrushToTrashAnimator::CrushToTrashAnimator(Ports ports) : m_ports(ports), m_flights(std::make_shared<std::list<std::unique_ptr<Flight>>>()) {}

CrushToTrashAnimator::~CrushToTrashAnimator() = default;

Registration CrushToTrashAnimator::play(const DesktopRect& from, const QColor& paper, const QImage& picture, Motion motion,
                                        std::function<void()> completion) {
  const bool isVisible = motion == Motion::Full && from.width > 1 && from.height > 1 && m_ports.screens.isComposited() &&
                         !m_ports.screens.all().empty();
  if (!isVisible) {
    if (completion) completion();
    return {};
  }

  const auto screen = m_ports.screens.screenAt(from.center());
  const CrushScene scene{screen.frame.size(), onStage(from, screen.frame),
                         onStage(m_ports.trash.trashFrame(screen), screen.frame), paper};
  const auto now = m_ports.clock.mediaTime();
  auto plan = crushPlan(scene, seconds(now) + kLead);
  const auto landing = now + span(plan.geometry.landing);
  const auto end = now + span(plan.geometry.finish());

  auto& flight = *m_flights->emplace_back(std::make_unique<Flight>());
  flight.number = ++m_lastNumber;
  flight.completion = std::move(completion);
  flight.window = std::make_unique<CrushOverlayWindow>(
      m_ports.screens.space().toQt(screen.frame).toAlignedRect(),
      CrushPainter(std::move(plan), scene.stage, picture, screen.scale));
  open(*flight.window);
  flight.frames = m_ports.scheduler.frames(
      [window = flight.window.get()](nanoseconds mediaTime) { window->advanceTo(seconds(mediaTime)); });
  runAt(landing, flight.landing, [this] {
    m_ports.haptics.perform(HapticPattern::LevelChange);
    m_ports.sound.playLanding();
  });
  runAt(end, flight.end, [this, &flight] { finish(flight); });
  return Registration([weak = std::weak_ptr(m_flights), number = flight.number] {
    const auto flights = weak.lock();
    if (flights) flights->remove_if([number](const auto& each) { return each->number == number; });
  });
}

void CrushToTrashAnimator::open(CrushOverlayWindow& window) {
  window.winId();
  m_ports.windows.applyLevel(*window.windowHandle(), WindowLevel::Overlay);
  window.show();
  window.repaint();  // what flies away is hidden right after this: no frame may be without it
  m_ports.windows.applyLevel(*window.windowHandle(), WindowLevel::Overlay);
  m_ports.windows.raiseWithoutActivating(*window.windowHandle());
}

void CrushToTrashAnimator::runAt(nanoseconds moment, Registration& handle, std::function<void()> work) {
  // Long delays may run late; steps below a second keep the landing together with the picture of it.
  constexpr std::chrono::milliseconds kStep{800};
  const auto delay = std::chrono::ceil<std::chrono::milliseconds>(moment - m_ports.clock.mediaTime());
  if (delay <= kStep) {
    handle = m_ports.scheduler.after(std::max(delay, std::chrono::milliseconds(0)), std::move(work));
    return;
  }
  handle = m_ports.scheduler.after(
      kStep, [this, moment, &handle, work = std::move(work)] { runAt(moment, handle, work); });
}

void CrushToTrashAnimator::finish(Flight& flight) {
  const auto found = std::find_if(m_flights->begin(), m_flights->end(),
                                  [&](const auto& candidate) { return candidate.get() == &flight; });
  const auto ended = std::move(*found);
  m_flights->erase(found);
  // Out of the list first: the completion may start the next flight.
  if (ended->completion) ended->completion();
}

}  // namespace tarnwick
