// SPDX-License-Identifier: MIT
// The paper slip of counts: what was crushed, what burned, what hangs on the wall.
#pragma once

#include <QWidget>

namespace tarnwick {

class InkButton;

struct BoardStats {
  int crushed = 0;
  int turnedToAshes = 0;
  int activeOnWall = 0;
  bool operator==(const BoardStats&) const = default;
};

class StatsSlip final : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kHeight = 150;
  explicit StatsSlip(QWidget* parent = nullptr);
  void setStats(const BoardStats& stats);
  [[nodiscard]] InkButton& closeButton() { return *m_close; }

 Q_SIGNALS:
  void closeRequested();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  BoardStats m_stats;
  InkButton* m_close;
};

}  // namespace tarnwick
