// SPDX-License-Identifier: MIT
#include "board/PageCover.h"

#include "platform/Clock.h"
#include "platform/Scheduler.h"

#include <QPainter>

namespace tarnwick {

PageCover::PageCover(const Clock& clock, Scheduler& scheduler, QWidget* parent)
    : QWidget(parent), m_clock(clock), m_scheduler(scheduler) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  hide();
}

void PageCover::fade(const QPixmap& page, Glide::Time duration) {
  m_page = page;
  setGeometry(parentWidget()->rect());
  m_presence.jumpTo(1);
  m_presence.start(0, m_clock.mediaTime(), duration, Glide::Curve::EaseInOut);
  show();
  raise();
  m_frames = m_scheduler.frames([this](std::chrono::nanoseconds now) {
    if (m_presence.isRunning(now)) {
      update();
    } else {
      drop();
    }
  });
}

void PageCover::drop() {
  m_frames.cancel();
  m_page = {};
  hide();
}

void PageCover::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setOpacity(m_presence.at(m_clock.mediaTime()));
  painter.drawPixmap(0, 0, m_page);
}

}  // namespace tarnwick
