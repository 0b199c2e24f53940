// SPDX-License-Identifier: MIT
// The tabs of the boards, in a strip that scrolls when they do not fit; the selected one is a paper label.
#pragma once

#include "board/ChoiceRow.h"

#include <QFont>
#include <QList>
#include <QStringList>

namespace tarnwick {

class BoardTabs final : public ChoiceRow {
  Q_OBJECT

 public:
  explicit BoardTabs(QWidget* parent = nullptr);

  void setTabs(const QStringList& names, const QString& selected);
  [[nodiscard]] const QStringList& tabs() const { return m_names; }
  [[nodiscard]] int contentWidth() const;
  [[nodiscard]] int count() const override { return static_cast<int>(m_names.size()); }
  /// As it is shown: the two reserved tabs in the user's language.
  [[nodiscard]] QString itemName(int index) const override;
  [[nodiscard]] QRectF itemRect(int index) const override;
  [[nodiscard]] QAccessible::Role itemRole() const override { return QAccessible::PageTab; }

 protected:
  void paintItem(QPainter& painter, int index, const ItemState& state) override;
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void currentMoved() override;

 private:
  [[nodiscard]] double widthOf(int index) const;
  void scrollTo(double offset);
  void reveal(int index);

  QStringList m_names;
  // Measured once: every paint asks for each.
  mutable QList<double> m_widths;
  mutable QFont m_measured;
  double m_offset = 0;
};

}  // namespace tarnwick
