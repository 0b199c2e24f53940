// SPDX-License-Identifier: MIT
// What an empty wall shows: the hour's picture and words, and by day three places for today's notes.
#pragma once

#include "board/PlanNudge.h"
#include "model/Enumerations.h"

#include <QWidget>

#include <array>

namespace tarnwick {

class PlanSlot;

class PlanNudgeView final : public QWidget {
  Q_OBJECT

 public:
  enum class Sky { Morning, Afternoon, Evening, Night };

  explicit PlanNudgeView(QWidget* parent = nullptr);
  void setNudge(const PlanNudge& nudge, Sky sky);
  void setMood(BoardMood mood);
  /// Moves all down when something lies under the rail, and up to what remains.
  void setShift(int shift);
  [[nodiscard]] const PlanNudge& nudge() const { return m_nudge; }
  [[nodiscard]] QList<QWidget*> stops() const;
  [[nodiscard]] static Sky skyAt(int hour);

 Q_SIGNALS:
  /// With the slot's paper colour.
  void slotChosen(const QString& colorHex);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override { QWidget::mousePressEvent(event); }
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void layOut();
  void paintNight(QPainter& painter) const;

  PlanNudge m_nudge;
  Sky m_sky = Sky::Morning;
  BoardMood m_mood = BoardMood::obsidian;
  int m_shift = 0;
  QStringList m_subtitleLines;
  std::array<PlanSlot*, 3> m_slots{};
};

}  // namespace tarnwick
