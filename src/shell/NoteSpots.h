// SPDX-License-Identifier: MIT
// The places of a painted note that the pointer, the keyboard and assistive programs can act on. They paint nothing but
// their focus ring: the note paints what they stand for.
#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QFocusEvent>

#include <functional>

namespace tarnwick {

/// Whether the keyboard came by the keyboard: only then a ring shows where it is.
[[nodiscard]] bool isByKeyboard(const QFocusEvent& event);

class NoteSpot final : public QAbstractButton {
  Q_OBJECT

 public:
  NoteSpot(const QString& accessibleName, double ringRadius, QWidget* parent);
  /// Asks to repaint what the spot stands for.
  std::function<void()> onLookChanged;
  /// The ring is drawn in the note's ink, which every paper carries.
  void setInk(const QColor& ink) { m_ink = ink; }
  [[nodiscard]] bool isRinged() const { return m_isRinged && hasFocus(); }

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  double m_ringRadius;
  QColor m_ink;
  bool m_isRinged = false;
};

/// The note's words: clicks reach its boxes, the wheel scrolls it, Return edits, the arrows and Space walk and tick.
class NoteTextSpot final : public QWidget {
  Q_OBJECT

 public:
  explicit NoteTextSpot(QWidget* parent);
  void setInk(const QColor& ink) { m_ink = ink; }

 Q_SIGNALS:
  void clicked(const QPointF& point);
  void editRequested(const QPointF& point);
  void keyboardEditRequested();
  void scrolled(double distance);
  void stepped(int rows);
  void toggled();
  void focusChanged();

 protected:
  bool event(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor m_ink;
  bool m_isRinged = false;
};

}  // namespace tarnwick
