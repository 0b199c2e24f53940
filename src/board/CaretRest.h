// SPDX-License-Identifier: MIT
// Lets a text field's caret stand still some seconds after the last key, so that an open editor wakes nothing.
#pragma once

#include "platform/Registration.h"

#include <QObject>

#include <chrono>

class QWidget;

namespace tarnwick {

class Clock;
class Scheduler;

class CaretRest final : public QObject {
  Q_OBJECT

 public:
  /// Owned by the field.
  CaretRest(Scheduler& scheduler, QWidget* field);
  /// With a clock it can also tell when a caret that the field paints itself is to be seen.
  CaretRest(const Clock& clock, Scheduler& scheduler, QWidget* field);
  ~CaretRest() override;
  [[nodiscard]] bool isBlinking() const;
  [[nodiscard]] bool isCaretOn() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void blink();
  void rest();

  const Clock* m_clock;
  Scheduler& m_scheduler;
  int m_flashTime;
  std::chrono::nanoseconds m_lastKey{0};
  Registration m_untilRest;
};

}  // namespace tarnwick
