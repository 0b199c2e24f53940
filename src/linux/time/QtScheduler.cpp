// SPDX-License-Identifier: MIT
#include "linux/time/QtScheduler.h"

#include "platform/Clock.h"

#include <QPointer>
#include <QTimer>

#include <algorithm>

namespace tarnwick {

namespace {

using namespace std::chrono_literals;

// Qt counts a timer's milliseconds in an int: longer delays are waited for in pieces.
constexpr std::chrono::milliseconds kLongestPiece = 24h;
constexpr std::chrono::milliseconds kFrame = 16ms;

Qt::TimerType typeFor(std::chrono::milliseconds interval) {
  if (interval >= 20s) return Qt::VeryCoarseTimer;
  return interval >= 1s ? Qt::CoarseTimer : Qt::PreciseTimer;
}

/// The timer may be the one whose work runs just now, so it goes when the loop turns.
void retire(QTimer* timer) {
  timer->stop();
  timer->deleteLater();
}

Registration handleOf(QTimer* timer) {
  return Registration([held = QPointer<QTimer>(timer)] {
    if (held) retire(held);
  });
}

}  // namespace

QtScheduler::QtScheduler(const Clock& clock) : m_clock(clock), m_frameTimer(new QTimer(this)) {
  m_frameTimer->setTimerType(Qt::PreciseTimer);
  m_frameTimer->setInterval(kFrame);
  connect(m_frameTimer, &QTimer::timeout, this, [this] {
    m_frameWork.notify(m_clock.mediaTime());
    if (m_frameWork.isEmpty()) m_frameTimer->stop();
  });
}

QtScheduler::~QtScheduler() = default;

QTimer* QtScheduler::addTimer(std::chrono::milliseconds interval) {
  auto* timer = new QTimer(this);
  timer->setTimerType(typeFor(interval));
  timer->setInterval(interval);
  return timer;
}

Registration QtScheduler::after(std::chrono::milliseconds delay, Work work) {
  const auto piece = std::clamp(delay, 0ms, kLongestPiece);
  auto* timer = addTimer(piece);
  timer->setSingleShot(true);
  connect(timer, &QTimer::timeout, this, [timer, left = delay - piece, work = std::move(work)]() mutable {
    if (left > 0ms) {
      const auto next = std::min(left, kLongestPiece);
      left -= next;
      timer->start(next);
      return;
    }
    retire(timer);
    work();
  });
  timer->start();
  return handleOf(timer);
}

Registration QtScheduler::every(std::chrono::milliseconds period, Work work) {
  auto* timer = addTimer(std::clamp(period, 1ms, kLongestPiece));
  connect(timer, &QTimer::timeout, this, std::move(work));
  timer->start();
  return handleOf(timer);
}

Registration QtScheduler::post(Work work) { return after(0ms, std::move(work)); }

Registration QtScheduler::frames(FrameWork work) {
  auto handle = m_frameWork.add(std::move(work));
  if (!m_frameTimer->isActive()) m_frameTimer->start();
  return handle;
}

}  // namespace tarnwick
