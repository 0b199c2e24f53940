// SPDX-License-Identifier: MIT
// A row of which one is chosen: tabs, display modes, tags, swatches. One stop for the keyboard, arrows inside it, and
// a list of named choices for assistive technology. What an item looks like is its heirs' affair.
#pragma once

#include <QAccessible>
#include <QString>
#include <QWidget>

namespace tarnwick {

class ChoiceRow : public QWidget {
  Q_OBJECT

 public:
  explicit ChoiceRow(const QString& accessibleName, QWidget* parent = nullptr);

  [[nodiscard]] int current() const { return m_current; }
  void setCurrent(int index);
  [[nodiscard]] virtual int count() const = 0;
  [[nodiscard]] virtual QString itemName(int index) const = 0;
  [[nodiscard]] virtual QRectF itemRect(int index) const = 0;
  [[nodiscard]] virtual QAccessible::Role itemRole() const { return QAccessible::RadioButton; }
  [[nodiscard]] int indexAt(const QPointF& point) const;
  /// As a press on the item does.
  void choose(int index);

 Q_SIGNALS:
  void chosen(int index);

 protected:
  struct ItemState {
    bool isCurrent = false;
    bool isHovered = false;
    bool isPressed = false;
    bool hasFocus = false;  // of the row, and this is where it is
  };
  virtual void paintItem(QPainter& painter, int index, const ItemState& state) = 0;
  virtual void paintGround(QPainter& /*painter*/) {}
  virtual void paintOver(QPainter& /*painter*/) {}
  virtual void currentMoved() {}

  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool event(QEvent* event) override;
  /// Mirrors a rectangle of a left-to-right layout where the row runs the other way.
  [[nodiscard]] QRectF mirrored(const QRectF& rect) const;

 private:
  int m_current = 0;
  int m_hover = -1;
  int m_pressed = -1;
};

}  // namespace tarnwick
