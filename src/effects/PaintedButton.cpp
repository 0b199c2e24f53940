// SPDX-License-Identifier: MIT
#include "effects/PaintedButton.h"

#include <QKeyEvent>

namespace tarnwick {

PaintedButton::PaintedButton(QWidget* parent) : QAbstractButton(parent), m_halo(new ControlHalo(*this)) {
  setAttribute(Qt::WA_Hover);
  // A click leaves the keyboard where it is, so that writing goes on while options change.
  setFocusPolicy(Qt::TabFocus);
  setCursor(Qt::ArrowCursor);
}

PaintedButton::~PaintedButton() { delete m_halo.data(); }

void PaintedButton::setHalo(const ControlHalo::Look& look) {
  if (!m_halo.isNull()) {
    m_halo->setLook(look);
  }
}

void PaintedButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
    return;
  }
  QAbstractButton::keyPressEvent(event);
}

}  // namespace tarnwick
