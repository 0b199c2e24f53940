// SPDX-License-Identifier: MIT
#include "board/CaretRest.h"

#include "platform/Clock.h"
#include "platform/Scheduler.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace tarnwick {
namespace {

constexpr std::chrono::seconds kBlinkTime{10};
constexpr int kUsualFlash = 1060;

}  // namespace

CaretRest::CaretRest(const Clock& clock, Scheduler& scheduler, QWidget* field) : CaretRest(scheduler, field) {
  m_clock = &clock;
}

CaretRest::CaretRest(Scheduler& scheduler, QWidget* field)
    : QObject(field), m_clock(nullptr), m_scheduler(scheduler), m_flashTime(QApplication::cursorFlashTime()) {
  // Another field may be resting right now: what it found is what the desktop asked for.
  static const int kDesktopFlash = m_flashTime > 0 ? m_flashTime : kUsualFlash;
  if (m_flashTime == 0) m_flashTime = kDesktopFlash;
  field->installEventFilter(this);
}

CaretRest::~CaretRest() {
  if (m_untilRest.isHeld()) QApplication::setCursorFlashTime(m_flashTime);
}

bool CaretRest::isBlinking() const {
  return QApplication::cursorFlashTime() > 0;
}

bool CaretRest::isCaretOn() const {
  if (!m_clock || !isBlinking()) return true;
  const auto half =
      std::chrono::nanoseconds(std::chrono::milliseconds(std::max(2, QApplication::cursorFlashTime()))) / 2;
  // The field is repainted at each half period since the last key, give or take some milliseconds.
  return ((m_clock->mediaTime() - m_lastKey + half / 4) / half) % 2 == 0;
}

bool CaretRest::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::FocusIn:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
      blink();
      break;
    case QEvent::FocusOut:
      m_untilRest.cancel();
      QApplication::setCursorFlashTime(m_flashTime);
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

void CaretRest::blink() {
  if (QApplication::cursorFlashTime() == 0) QApplication::setCursorFlashTime(m_flashTime);
  if (m_clock) m_lastKey = m_clock->mediaTime();
  m_untilRest = m_scheduler.after(kBlinkTime, [this] { rest(); });
}

void CaretRest::rest() {
  m_untilRest.cancel();
  QApplication::setCursorFlashTime(0);
}

}  // namespace tarnwick
