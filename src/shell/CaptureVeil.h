// SPDX-License-Identifier: MIT
// Whether windows that must not be captured have to be hidden now: where the desktop cannot leave them out of a screen
// cast, they go while one runs and come back a little after it.
#pragma once

#include "platform/CaptureWatch.h"
#include "platform/Scheduler.h"

#include <QObject>

namespace tarnwick {

class CaptureVeil final : public QObject {
  Q_OBJECT

 public:
  CaptureVeil(CaptureWatch& capture, Scheduler& scheduler);

  [[nodiscard]] bool isDrawn() const { return m_isDrawn; }

 Q_SIGNALS:
  void changed();

 private:
  void captureChanged();
  void set(bool isDrawn);

  CaptureWatch& m_capture;
  Scheduler& m_scheduler;
  bool m_isDrawn = false;
  Registration m_observer;
  Registration m_lifting;
};

}  // namespace tarnwick
