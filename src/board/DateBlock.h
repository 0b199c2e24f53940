// SPDX-License-Identifier: MIT
// The tear-off calendar that opens above the due chip: a month of days, the time of day, and the way out of a date.
#pragma once

#include "board/ChoiceRow.h"
#include "model/Calendar.h"

#include <QDate>
#include <QWidget>

#include <optional>

class QTimeEdit;

namespace tarnwick {

class InkButton;

/// The days of a month, whole weeks; one stop for the keyboard.
class DayGrid final : public ChoiceRow {
  Q_OBJECT

 public:
  explicit DayGrid(QWidget* parent = nullptr);
  void show(const QLocale& locale, QDate month, QDate chosenDay, QDate today);
  [[nodiscard]] QDate dayAt(int index) const { return m_first.addDays(index); }
  [[nodiscard]] int count() const override { return m_weeks * 7; }
  [[nodiscard]] QString itemName(int index) const override;
  [[nodiscard]] QRectF itemRect(int index) const override;
  [[nodiscard]] QAccessible::Role itemRole() const override { return QAccessible::Cell; }

 Q_SIGNALS:
  void dayChosen(QDate day);
  void accepted();

 protected:
  void paintGround(QPainter& painter) override;
  void paintItem(QPainter& painter, int index, const ItemState& state) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QLocale m_locale;
  QDate m_month;
  QDate m_first;
  QDate m_chosen;
  QDate m_today;
  int m_weeks = 5;
};

class DateBlock final : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kWidth = 250;
  static constexpr int kHeight = 190;
  static constexpr int kMargin = 14;  // around it, for its shadow

  explicit DateBlock(const Clock& clock, QWidget* parent);
  void setDate(const QDateTime& moment);
  [[nodiscard]] QDateTime date() const;
  void takeFocus();

 Q_SIGNALS:
  void dateChanged(const QDateTime& moment);
  void cleared();
  void closed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* /*event*/) override {}  // nothing below is pressed through it
  void wheelEvent(QWheelEvent* event) override;

 private:
  void turnMonth(int months);
  void refresh();

  const Clock& m_clock;
  QDate m_day;
  QDate m_month;
  DayGrid* m_grid;
  InkButton* m_previous;
  InkButton* m_next;
  QTimeEdit* m_time;
  InkButton* m_clear;
};

}  // namespace tarnwick
