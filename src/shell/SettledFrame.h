// SPDX-License-Identifier: MIT
// Keeps the place that a window wants and the one that the window manager gave it in agreement: insists on its own when
// the window is new, and takes over the other when the window manager moved it later, as it does with the option key.
#pragma once

#include "platform/DesktopGeometry.h"
#include "platform/Registration.h"

#include <QObject>
#include <QPointer>

#include <chrono>
#include <functional>
#include <optional>

class QWindow;

namespace tarnwick {

class Clock;
class Scheduler;

class SettledFrame final : public QObject {
  Q_OBJECT

 public:
  struct Window {
    std::function<DesktopRect()> wanted;
    std::function<std::optional<DesktopRect>()> real;  // waits for the window system's answer
    std::function<bool()> isMoving;                    // in the user's hand or on its way
    std::function<void(const DesktopRect&)> ask;       // for a frame
    std::function<void(const DesktopRect&)> adopt;
  };

  SettledFrame(const Clock& clock, Scheduler& scheduler, Window window);

  /// Before each show.
  void willShow(QWindow& window);
  /// The window asked for a frame itself: what is reported for a while may be older.
  void didAsk();
  /// What the window system says, which may be wrong.
  void reported(const DesktopRect& frame);
  void stop();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void settleAfter(std::chrono::milliseconds delay);
  void settle();

  const Clock& m_clock;
  Scheduler& m_scheduler;
  Window m_window;
  QPointer<QWindow> m_shown;
  bool m_isPlaced = false;  // where it was wanted, once since it was shown
  std::chrono::nanoseconds m_lastAsked{0};
  Registration m_again;
  Registration m_settling;
};

}  // namespace tarnwick
