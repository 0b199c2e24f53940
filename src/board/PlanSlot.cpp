// SPDX-License-Identifier: MIT
#include "board/PlanSlot.h"

#include "effects/Controls.h"
#include "effects/PaperSheet.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "model/Color.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace tarnwick {

PlanSlot::PlanSlot(int index, QWidget* parent) : PaintedButton(parent), m_index(index) {
  setAccessibleName(tr("Plan slot %1 of %2").arg(index + 1).arg(kCount));
  setMouseTracking(true);
  resize(sizeHint());
}

void PlanSlot::setPaperHeight(int height) {
  m_height = height;
  resize(sizeHint());
  update();
}

QString PlanSlot::colorHex() const {
  static const std::array<int, kCount> kPalette{0, 4, 1};  // Lemon, Sky, Coral
  return kPaperPalette[static_cast<std::size_t>(kPalette[static_cast<std::size_t>(m_index)])];
}

bool PlanSlot::hitButton(const QPoint& point) const {
  return rect().adjusted(kMargin, kMargin, -kMargin, -kMargin).contains(point);
}

void PlanSlot::mouseMoveEvent(QMouseEvent* event) {
  PaintedButton::mouseMoveEvent(event);
  update();
}

void PlanSlot::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool isLifted = isHovered() && hitButton(mapFromGlobal(QCursor::pos()));
  const QColor color = Color::fromHex(colorHex());
  const QColor ink = Color::inkOnPaper(colorHex());
  const QRectF paper(0, 0, kWidth, m_height);
  const QColor front = isLifted ? ink : color;
  painter.save();
  painter.translate(kMargin, kMargin + (isDown() ? 1 : 0));
  if (isLifted) {
    painter.translate(paper.center() - QPointF(0, 2));
    painter.rotate(-1.2);
    painter.translate(-paper.center());
  }
  PaperSheet sheet;
  sheet.rect = paper;
  sheet.colorHex = colorHex();
  sheet.lift = PaperLift::Raised;
  sheet.seed = 40u + static_cast<quint32>(m_index);
  sheet.direction = layoutDirection();
  if (isLifted) {
    sheet.paint(painter);
  } else {
    const QPainterPath outline = sheet.outline();
    painter.fillPath(outline, tokens::black(0.22));
    painter.save();
    painter.setClipPath(outline);
    QLinearGradient pressed(0, 0, 0, 4);
    pressed.setColorAt(0, tokens::black(0.45));
    pressed.setColorAt(1, tokens::black(0));
    painter.fillRect(QRectF(0, 0, paper.width(), 4), pressed);
    painter.restore();
    QPen dashes(tokens::faded(color, 0.75), 1.5);
    dashes.setDashPattern({5 / 1.5, 4 / 1.5});
    painter.strokePath(outline, dashes);
  }
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  painter.setPen(QPen(front, 1.8, Qt::SolidLine, Qt::RoundCap));
  static const std::array<QList<double>, kCount> kStrokes{QList<double>{6}, QList<double>{3.5, 8.5},
                                                          QList<double>{1, 6, 11}};
  for (const double x : kStrokes[static_cast<std::size_t>(m_index)]) {
    const double at = isMirrored ? paper.width() - 10 - x : 10 + x;
    painter.drawLine(QPointF(at, 10.5), QPointF(at, 21));
  }
  Symbols::paint(painter, QStringLiteral("plus"), QRectF(paper.center().x() - 10, paper.center().y() - 10, 20, 20),
                 front);
  painter.restore();
  if (hasFocus())
    paintFocusRing(painter, QRectF(rect()).adjusted(kMargin - 4, kMargin - 4, 4 - kMargin, 4 - kMargin), 9);
}

}  // namespace tarnwick
