// SPDX-License-Identifier: MIT
// "Crushed — ⌘Z to undo" and "Restored": one line that comes, stays a while and goes by itself.
#pragma once

#include "board/Glide.h"
#include "platform/Registration.h"

#include <QString>
#include <QWidget>

namespace tarnwick {

class Clock;
class Scheduler;
class Workspace;

class UndoToast final : public QWidget {
  Q_OBJECT

 public:
  enum class Kind { Crushed, Restored };

  UndoToast(const Clock& clock, Scheduler& scheduler, const Workspace& workspace, QWidget* parent);
  void show(Kind kind);
  [[nodiscard]] QString text() const { return m_text; }
  [[nodiscard]] bool isShown() const { return !m_text.isEmpty(); }
  /// Ends it at once.
  void drop();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void leave();
  void place();
  void run();

  const Clock& m_clock;
  Scheduler& m_scheduler;
  const Workspace& m_workspace;
  QString m_text;
  Kind m_kind = Kind::Crushed;
  Glide m_presence{0};
  Registration m_stay;
  Registration m_frames;
};

}  // namespace tarnwick
