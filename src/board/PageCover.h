// SPDX-License-Identifier: MIT
// The page that was, fading over the one that is. Goes when it has faded.
#pragma once

#include "board/Glide.h"
#include "platform/Registration.h"

#include <QPixmap>
#include <QWidget>

namespace tarnwick {

class Clock;
class Scheduler;

class PageCover final : public QWidget {
  Q_OBJECT

 public:
  PageCover(const Clock& clock, Scheduler& scheduler, QWidget* parent);
  void fade(const QPixmap& page, Glide::Time duration);
  void drop();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const Clock& m_clock;
  Scheduler& m_scheduler;
  QPixmap m_page;
  Glide m_presence{0};
  Registration m_frames;
};

}  // namespace tarnwick
