// SPDX-License-Identifier: MIT
#include "board/OptionChip.h"

#include "effects/Controls.h"
#include "effects/PixmapCache.h"
#include "effects/PlainToolTip.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace tarnwick {
namespace {

constexpr double kLead = 10;
constexpr double kSymbol = 15;
constexpr double kAppIcon = 17;
constexpr double kGap = 8;
constexpr double kTrail = 9;
constexpr double kTail = 12;

}  // namespace

OptionChip::OptionChip(QWidget* parent) : PaintedButton(parent) {
  setFont(tokens::font(tokens::Type::RowTitle));
  setHalo({9, 9, 0, 0, 0, 0});
}

void OptionChip::setSymbol(const QString& symbol) {
  m_symbol = symbol;
  update();
}

void OptionChip::setAppIcon(const QIcon& icon) {
  m_icon = icon;
  update();
}

void OptionChip::setLook(Look look) {
  m_look = look;
  setHalo(look == Look::On ? ControlHalo::Look{9, 9, 0, 1, 1, 0.40} : ControlHalo::Look{9, 9, 0, 0, 0, 0});
  update();
}

void OptionChip::setTail(const QString& symbol) {
  m_tail = symbol;
  update();
}

bool OptionChip::isTailAt(const QPoint& point) const {
  if (m_tail != QStringLiteral("close")) return false;
  const int fromTrail = layoutDirection() == Qt::RightToLeft ? point.x() : width() - point.x();
  return fromTrail < 32;
}

void OptionChip::mouseReleaseEvent(QMouseEvent* event) {
  if (isDown() && isTailAt(event->position().toPoint())) {
    setDown(false);
    Q_EMIT tailClicked();
    return;
  }
  PaintedButton::mouseReleaseEvent(event);
}

bool OptionChip::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && toolTip().isEmpty()) {
    // A value that does not fit is told whole.
    const QFontMetricsF metrics(font());
    if (metrics.horizontalAdvance(text()) > width() - kLead - kSymbol - 2 * kGap - kTrail - kTail) {
      QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainToolTip(text()), this);
    }
    return true;
  }
  return PaintedButton::event(event);
}

void OptionChip::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF all(rect());
  QColor front = QColor::fromRgb(tokens::kText);
  QColor sign = QColor::fromRgb(tokens::kText2);
  painter.setPen(Qt::NoPen);
  if (m_look == Look::On) {
    front = sign = QColor::fromRgb(tokens::kOnLabel);
    painter.setBrush(isDown() ? QColor::fromRgb(tokens::kLabelBottom) : QColor::fromRgb(tokens::kLabelTop));
    painter.drawRoundedRect(all, 9, 9);
    painter.setPen(QPen(tokens::white(0.8), 1));
    painter.drawLine(QPointF(9, 0.5), QPointF(all.width() - 9, 0.5));
  } else {
    if (m_look == Look::Off) front = sign = QColor::fromRgb(tokens::kText3);
    painter.setBrush(isDown() ? tokens::black(0.35) : tokens::white(isHovered() ? 0.13 : 0.075));
    painter.drawRoundedRect(all, 9, 9);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(tokens::white(0.05), 1));
    painter.drawRoundedRect(all.adjusted(0.5, 0.5, -0.5, -0.5), 8.5, 8.5);
    painter.setPen(QPen(tokens::white(0.07), 1));
    painter.drawLine(QPointF(9, 0.5), QPointF(all.width() - 9, 0.5));
  }
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const auto place = [&](double x, double w) { return isMirrored ? all.width() - x - w : x; };
  const double iconSide = m_icon.isNull() ? kSymbol : kAppIcon;
  const QRectF icon(place(kLead, iconSide), all.center().y() - iconSide / 2, iconSide, iconSide);
  if (m_icon.isNull()) {
    Symbols::paint(painter, m_symbol, icon, sign);
  } else {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(m_look == Look::Off ? 0.75 : 1);
    const QPixmap pixmap = m_icon.pixmap(icon.size().toSize(), deviceScale(painter));
    painter.drawPixmap(icon, pixmap, QRectF(pixmap.rect()));
    painter.setOpacity(1);
  }
  const double textX = kLead + iconSide + kGap;
  const double textW = all.width() - textX - kTrail - (m_tail.isEmpty() ? 0 : kTail + kGap);
  painter.setFont(font());
  painter.setPen(front);
  painter.drawText(QRectF(place(textX, textW), 0, textW, all.height()),
                   int(Qt::AlignVCenter) | int(isMirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::TextSingleLine,
                   QFontMetricsF(font()).elidedText(text(), Qt::ElideRight, textW));
  if (!m_tail.isEmpty()) {
    const double x = place(all.width() - kTrail - kTail, kTail);
    Symbols::paint(painter, m_tail, QRectF(x, all.center().y() - kTail / 2, kTail, kTail), sign);
  }
}

}  // namespace tarnwick
