// SPDX-License-Identifier: MIT
// What a control shows outside its own bounds: the shadow under it and the ring around it. A sibling right below the
// control that follows its place, visibility and focus, so that a control's geometry is exactly its paper.
#pragma once

#include <QWidget>

namespace tarnwick {

class ControlHalo final : public QWidget {
  Q_OBJECT
 public:
  struct Look {
    double topRadius = 0;
    double bottomRadius = 0;
    double ringOffset = 0;  // gap between the control and its ring
    double shadowOffset = 0;
    double shadowSigma = 0;
    double shadowAlpha = 0;
  };
  /// Owned by the control's parent while there is one.
  explicit ControlHalo(QWidget& control);

  void setLook(const Look& look);

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void follow();

  QWidget& m_control;
  Look m_look;
};

}  // namespace tarnwick
