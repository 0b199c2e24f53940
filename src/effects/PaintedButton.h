// SPDX-License-Identifier: MIT
// What all painted buttons share: hover, keyboard focus with its ring, Return as well as Space.
#pragma once

#include "effects/ControlHalo.h"

#include <QAbstractButton>
#include <QPointer>

namespace tarnwick {

class PaintedButton : public QAbstractButton {
  Q_OBJECT
 public:
  explicit PaintedButton(QWidget* parent);
  ~PaintedButton() override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void setHalo(const ControlHalo::Look& look);
  [[nodiscard]] bool isHovered() const { return isEnabled() && underMouse(); }
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QPointer<ControlHalo> m_halo;
};

}  // namespace tarnwick
