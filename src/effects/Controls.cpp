// SPDX-License-Identifier: MIT
#include "effects/Controls.h"

#include "effects/PixmapCache.h"
#include "effects/SoftShadow.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QLinearGradient>
#include <QMenu>
#include <QPainter>
#include <QPalette>
#include <QToolTip>

namespace tarnwick {

void paintFocusRing(QPainter& painter, const QRectF& rect, double radius) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(tokens::kAccent), 2));
  painter.drawRoundedRect(rect.adjusted(1, 1, -1, -1), radius - 1, radius - 1);
  painter.restore();
}

void paintPaperLabel(QPainter& painter, const QRectF& rect, double radius, double angle) {
  static PixmapCache labels(1024);
  constexpr double kReach = 12;  // of the shadow
  const QString key = QStringLiteral("%1x%2 %3 %4").arg(rect.width()).arg(rect.height()).arg(radius).arg(angle);
  paintCached(painter, labels, key, rect.adjusted(-kReach, -kReach, kReach, kReach), [&](QPainter& inside) {
    inside.translate(rect.width() / 2 + kReach, rect.height() / 2 + kReach);
    inside.rotate(angle);
    const QRectF label(-rect.width() / 2, -rect.height() / 2, rect.width(), rect.height());
    const double top = radius * .6;
    paintBoxShadow(inside, label, top, radius, 1, .6, .35);
    paintBoxShadow(inside, label, top, radius, 3, 3, .28);
    QLinearGradient paper(label.topLeft(), label.bottomLeft());
    paper.setColorAt(0, QColor(tokens::kLabelTop));
    paper.setColorAt(1, QColor(tokens::kLabelBottom));
    inside.fillPath(roundedBox(label, top, radius), paper);
    inside.setPen(QPen(tokens::white(.8), 1));
    inside.drawLine(QPointF(label.left() + top, label.top() + .5), QPointF(label.right() - top, label.top() + .5));
  });
}

void styleToolTips() {
  QPalette palette;
  palette.setColor(QPalette::ToolTipBase, QColor::fromRgb(tokens::kPopup));
  palette.setColor(QPalette::ToolTipText, QColor::fromRgb(tokens::kText));
  palette.setColor(QPalette::Window, QColor::fromRgb(tokens::kPopup));
  palette.setColor(QPalette::WindowText, QColor::fromRgb(tokens::kText));
  QToolTip::setPalette(palette);
  QToolTip::setFont(tokens::font(tokens::Type::Help));
}

void styleMenu(QMenu& menu) {
  Symbols::registerDrawings();
  menu.setWindowFlags(menu.windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
  menu.setAttribute(Qt::WA_TranslucentBackground);
  QFont face = tokens::font(tokens::Type::RowTitle);
  face.setWeight(QFont::Medium);
  menu.setFont(face);
  menu.setStyleSheet(QStringLiteral(
      "QMenu { background: #22232A; color: #F4F1EA; border: 1px solid rgba(255, 255, 255, 33); border-radius: 12px;"
      " padding: 5px; }"
      "QMenu::item { height: 28px; padding: 0 24px 0 10px; border-radius: 7px; background: transparent; }"
      "QMenu::item:selected { background: #FFE169; color: #383217; }"
      "QMenu::item:disabled { color: #8B8780; background: transparent; }"
      "QMenu::icon { padding-left: 8px; }"
      "QMenu::indicator { width: 14px; height: 14px; padding-left: 8px; }"
      "QMenu::indicator:checked { image: url(:/controls/check-light.svg); }"
      "QMenu::indicator:checked:selected { image: url(:/controls/check-dark.svg); }"
      "QMenu::right-arrow { width: 12px; height: 12px; padding-right: 8px; image: url(:/controls/arrow-light.svg); }"
      "QMenu::right-arrow:selected { image: url(:/controls/arrow-dark.svg); }"
      "QMenu::separator { height: 1px; background: rgba(255, 255, 255, 31); margin: 4px 8px; }"));
}

}  // namespace tarnwick
