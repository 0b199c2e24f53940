// SPDX-License-Identifier: MIT
// Lets a text field's caret stand still some seconds after the last key, so that an open editor wakes nothing.
#pragma once

#include "platform/Registration.h"

#include <QObject>

class QWidget;

namespace tarnwick {

class Scheduler;

class CaretRest final : public QObject {
  Q_OBJECT

 public:
  /// Owned by the field.
  CaretRest(Scheduler& scheduler, QWidget* field);
  ~CaretRest() override;
  [[nodiscard]] bool isBlinking() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void blink();
  void rest();

  Scheduler& m_scheduler;
  int m_flashTime;
  Registration m_untilRest;
};

}  // namespace tarnwick
