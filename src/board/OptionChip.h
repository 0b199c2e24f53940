// SPDX-License-Identifier: MIT
// An option of the composer: symbol, value, and what a press brings. Off, at rest, or on as a paper label.
#pragma once

#include "effects/PaintedButton.h"

#include <QIcon>

namespace tarnwick {

class OptionChip : public PaintedButton {
  Q_OBJECT

 public:
  enum class Look { Off, Rest, On };
  explicit OptionChip(QWidget* parent = nullptr);

  void setSymbol(const QString& symbol);
  void setAppIcon(const QIcon& icon);
  void setLook(Look look);
  [[nodiscard]] Look look() const { return m_look; }
  /// Symbol at the trailing end; empty = none.
  void setTail(const QString& symbol);
  [[nodiscard]] bool isTailAt(const QPoint& point) const;
  [[nodiscard]] QSize sizeHint() const override { return {178, 36}; }

 Q_SIGNALS:
  void tailClicked();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QString m_symbol;
  QString m_tail;
  QIcon m_icon;
  Look m_look = Look::Rest;
};

}  // namespace tarnwick
