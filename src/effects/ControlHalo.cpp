// SPDX-License-Identifier: MIT
#include "effects/ControlHalo.h"

#include "effects/Controls.h"
#include "effects/PixmapCache.h"
#include "effects/SoftShadow.h"

#include <QEvent>
#include <QPainter>

namespace tarnwick {

namespace {

constexpr int kReach = 18;

}  // namespace

ControlHalo::ControlHalo(QWidget& control) : QWidget(control.parentWidget()), m_control(control) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  hide();
  control.installEventFilter(this);
}

void ControlHalo::setLook(const Look& look) {
  m_look = look;
  update();
}

bool ControlHalo::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &m_control) {
    switch (event->type()) {
      case QEvent::ParentChange:
      case QEvent::Move:
      case QEvent::Resize:
      case QEvent::ShowToParent:
      case QEvent::HideToParent:
      case QEvent::ZOrderChange:
      case QEvent::FocusIn:
      case QEvent::FocusOut:
      case QEvent::EnabledChange: follow(); break;
      default: break;
    }
  }
  return QWidget::eventFilter(watched, event);
}

void ControlHalo::follow() {
  if (parentWidget() != m_control.parentWidget()) {
    setParent(m_control.parentWidget());
  }
  const bool isShown = parentWidget() != nullptr && !m_control.isHidden();
  if (isShown) {
    setGeometry(m_control.geometry().adjusted(-kReach, -kReach, kReach, kReach));
    stackUnder(&m_control);
  }
  setVisible(isShown);
  update();
}

void ControlHalo::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF control = QRectF(rect()).adjusted(kReach, kReach, -kReach, -kReach);
  if (m_look.shadowAlpha > 0 && m_control.isEnabled()) {
    static PixmapCache shadows(2048);
    const Look& look = m_look;
    QString key;
    for (const double value : {double(width()), double(height()), look.topRadius, look.bottomRadius, look.shadowOffset,
                               look.shadowSigma, look.shadowAlpha}) {
      key += QString::number(value) + QLatin1Char(' ');
    }
    paintCached(painter, shadows, key, rect(), [&](QPainter& inside) {
      paintBoxShadow(inside, control, look.topRadius, look.bottomRadius, 1, .8, .35);
      paintBoxShadow(inside, control, look.topRadius, look.bottomRadius, look.shadowOffset, look.shadowSigma,
                     look.shadowAlpha);
    });
  }
  if (m_control.hasFocus()) {
    const double out = m_look.ringOffset + 2;
    paintFocusRing(painter, control.adjusted(-out, -out, out, out), m_look.bottomRadius + out);
  }
}

}  // namespace tarnwick
