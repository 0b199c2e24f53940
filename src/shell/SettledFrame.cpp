// SPDX-License-Identifier: MIT
#include "shell/SettledFrame.h"

#include "platform/Clock.h"
#include "platform/Scheduler.h"

#include <QEvent>
#include <QWindow>

#include <cmath>

namespace tarnwick {

using namespace std::chrono_literals;

namespace {

// Some window managers report a wrong place right after the first show; asking again sets that right.
constexpr auto kAskAgain = 100ms;
// Reports of our own moves arrive late, and while a window is being framed they name places where it never stays: what
// the window manager really did is asked when this long nothing has moved.
constexpr auto kSettled = 400ms;

bool isNearly(const DesktopRect& one, const DesktopRect& other) {
  constexpr double kRounding = 1.5;  // between scales
  return std::abs(one.x - other.x) < kRounding && std::abs(one.y - other.y) < kRounding &&
         std::abs(one.width - other.width) < kRounding && std::abs(one.height - other.height) < kRounding;
}

bool isBetweenPoints(const DesktopRect& frame) {
  return frame.x != std::round(frame.x) || frame.y != std::round(frame.y);
}

}  // namespace

SettledFrame::SettledFrame(const Clock& clock, Scheduler& scheduler, Window window)
    : m_clock(clock), m_scheduler(scheduler), m_window(std::move(window)) {}

void SettledFrame::willShow(QWindow& window) {
  window.installEventFilter(this);
  m_shown = &window;
  m_isPlaced = false;
  m_again = m_scheduler.after(kAskAgain, [this] { m_window.ask(m_window.wanted()); });
}

void SettledFrame::didAsk() { m_lastAsked = m_clock.mediaTime(); }

void SettledFrame::reported(const DesktopRect& frame) {
  if (!isNearly(frame, m_window.wanted())) settleAfter(kSettled);
}

void SettledFrame::stop() {
  m_again.cancel();
  m_settling.cancel();
}

bool SettledFrame::eventFilter(QObject* watched, QEvent* event) {
  // By its first exposure the window manager has framed it.
  if (event->type() == QEvent::Expose && watched == m_shown && !m_isPlaced) settleAfter(kSettled);
  return QObject::eventFilter(watched, event);
}

void SettledFrame::settleAfter(std::chrono::milliseconds delay) {
  m_settling = m_scheduler.after(delay, [this] { settle(); });
}

void SettledFrame::settle() {
  if (!m_shown || !m_shown->isVisible()) return;
  const auto rest = m_window.isMoving() ? kSettled : kSettled - (m_clock.mediaTime() - m_lastAsked);
  if (rest > 0ns) {
    settleAfter(std::chrono::ceil<std::chrono::milliseconds>(rest));
    return;
  }
  if (!m_isPlaced && !m_shown->isExposed()) return;
  const auto frame = m_window.real();
  const bool isPlacing = !std::exchange(m_isPlaced, true);
  if (!frame) return;
  if (!isNearly(*frame, m_window.wanted())) {
    if (isPlacing) {
      // A busy window manager finds a place of its own for a new window. Qt, which need not have heard, would not ask for
      // what it believes to have; and what is refused now is not to be had.
      m_window.ask(*frame);
      settleAfter(kSettled);
    } else {
      m_window.adopt(*frame);
      // Our windows lie on whole points. Qt rounds what it hears, and would not ask for that either.
      if (isBetweenPoints(*frame)) m_window.ask({frame->x + 1, frame->y, frame->width, frame->height});
    }
  }
  // Qt may believe a report that was wrong.
  m_window.ask(m_window.wanted());
}

}  // namespace tarnwick
