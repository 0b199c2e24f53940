// SPDX-License-Identifier: MIT
// One charred scrap with its "Revive".
#pragma once

#include "model/Task.h"

#include <QPixmap>
#include <QWidget>

class QAbstractButton;

namespace tarnwick {

class AshesRow final : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kHeight = 50;
  static constexpr int kPitch = 56;
  static constexpr int kMargin = 6;  // above and below, for the turned edge

  explicit AshesRow(QWidget* parent);
  void setTask(const TaskPtr& task);
  [[nodiscard]] const TaskPtr& task() const { return m_task; }
  [[nodiscard]] QAbstractButton& reviveButton() { return *m_revive; }

 Q_SIGNALS:
  void reviveRequested(const TaskPtr& task);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] QPixmap scrap(double scale) const;

  TaskPtr m_task;
  QAbstractButton* m_revive;
  QPixmap m_scrap;
};

}  // namespace tarnwick
