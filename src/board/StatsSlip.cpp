// SPDX-License-Identifier: MIT
#include "board/StatsSlip.h"

#include "board/InkButton.h"
#include "effects/PixmapCache.h"
#include "effects/SoftShadow.h"
#include "effects/Tokens.h"
#include "effects/WadArt.h"
#include "model/Color.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>

namespace tarnwick {
namespace {

QFont sized(tokens::Type role, int pixels, QFont::Weight weight) {
  QFont font = tokens::font(role);
  font.setPixelSize(pixels);
  font.setWeight(weight);
  return font;
}

/// With digits of one width, which not every face brings along.
void paintNumber(QPainter& painter, const QRectF& place, const QString& digits) {
  const QFontMetricsF metrics(painter.font());
  double cell = 0;
  for (char16_t digit = u'0'; digit <= u'9'; ++digit) cell = std::max(cell, metrics.horizontalAdvance(QChar(digit)));
  double x = place.center().x() - cell * static_cast<double>(digits.size()) / 2;
  for (const QChar digit : digits) {
    painter.drawText(QRectF(x, place.top(), cell, place.height()), Qt::AlignCenter, digit);
    x += cell;
  }
}

}  // namespace

StatsSlip::StatsSlip(QWidget* parent)
    : QWidget(parent),
      m_close(new InkButton(QStringLiteral("close"), tr("Close stats"), InkButton::Plate::None, this)) {
  m_close->setFixedSize(26, 26);
  connect(m_close, &QAbstractButton::clicked, this, &StatsSlip::closeRequested);
  setAccessibleName(tr("Crush Momentum"));
}

void StatsSlip::setStats(const BoardStats& stats) {
  if (stats == m_stats && !accessibleDescription().isEmpty()) return;
  m_stats = stats;
  setAccessibleDescription(QStringLiteral("%1 %2, %3 %4, %5 %6")
                               .arg(tr("Crushed"))
                               .arg(stats.crushed)
                               .arg(tr("Turned to Ashes"))
                               .arg(stats.turnedToAshes)
                               .arg(tr("Active on Wall"))
                               .arg(stats.activeOnWall));
  update();
}

void StatsSlip::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  m_close->move(layoutDirection() == Qt::RightToLeft ? 24 : width() - 24 - 26, 14);
}

namespace {

void paintBalls(QPainter& painter, double scale) {
  const auto ball = [&](const QString& paper, double x, double y, double size) {
    painter.drawImage(QRectF(x, y, size, size), WadArt::image(Color::fromHex(paper), size, scale));
  };
  ball(kPaperPalette[4], 2, 9, 20);
  ball(kPaperPalette[1], 29, 9, 20);
  ball(kPaperPalette[0], 14, 4, 25);
}

void paintHeap(QPainter& painter) {
  QPainterPath heap(QPointF(4, 28));
  heap.quadTo(10, 22, 15, 22);
  heap.quadTo(20, 22, 23, 16);
  heap.quadTo(27, 13, 30, 17);
  heap.quadTo(33, 21, 37, 20);
  heap.quadTo(42, 20, 48, 28);
  painter.fillPath(heap, QColor::fromRgb(0x5A5651));
  QPainterPath front(QPointF(12, 28));
  front.quadTo(18, 24, 23, 24);
  front.quadTo(29, 24, 33, 21);
  front.quadTo(38, 20, 42, 28);
  painter.fillPath(front, QColor::fromRgb(0x3B3835));
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor::fromRgb(tokens::kEmber));
  painter.drawEllipse(QPointF(26, 22.5), 1.3, 1.3);
  painter.setBrush(QColor::fromRgb(0xFF8A4A));
  painter.drawEllipse(QPointF(33, 25), 1, 1);
  QPainterPath smoke(QPointF(25, 12));
  smoke.quadTo(22, 9, 25, 7);
  smoke.quadTo(28, 5, 25, 2);
  painter.strokePath(smoke, QPen(QColor::fromRgb(0x8D8781), 1.2, Qt::SolidLine, Qt::RoundCap));
}

void paintTwoNotes(QPainter& painter) {
  const auto note = [&](const QString& paper, const QRectF& rect, double angle) {
    painter.save();
    painter.translate(rect.center());
    painter.rotate(angle);
    painter.setPen(QPen(tokens::black(0.15), 1));
    painter.setBrush(Color::fromHex(paper));
    painter.drawRoundedRect(QRectF(-rect.width() / 2, -rect.height() / 2, rect.width(), rect.height()), 1.8, 1.8);
    painter.restore();
  };
  note(kPaperPalette[3], {9, 6, 19, 19}, -7);
  note(kPaperPalette[0], {22, 5, 20, 20}, 6);
  painter.setPen(QPen(QColor::fromRgb(tokens::kOnAccent), 1.4, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(27, 11), QPointF(37, 12));
  painter.drawLine(QPointF(27, 15), QPointF(34, 15.7));
}

}  // namespace

void StatsSlip::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  const double w = 362;
  const double h = kHeight;
  painter.translate(width() / 2.0, 4 + h / 2);
  painter.rotate(-0.4);
  painter.translate(-w / 2, -h / 2);
  QPainterPath paper(QPointF(0, 0));
  paper.lineTo(w, 0);
  paper.lineTo(w, h);
  constexpr int kTeeth = 52;
  for (int k = 0; k < kTeeth; ++k) {
    const double x = w - w / kTeeth * k;
    paper.lineTo(x - w / (2 * kTeeth), h - 4.5);
    paper.lineTo(std::max(0.0, x - w / kTeeth), h);
  }
  paper.closeSubpath();
  paintShadow(painter, QStringLiteral("stats-slip"), {0, 0},
              std::vector<ShadowLayer>{{paper, 5, 5, 0.35}, {paper, 1, 1.2, 0.40}});
  QLinearGradient fill(0, 0, 0, h);
  fill.setColorAt(0, QColor::fromRgb(0xFFFAEC));
  fill.setColorAt(1, QColor::fromRgb(0xEFE5CC));
  painter.fillPath(paper, fill);
  const QColor ink = QColor::fromRgb(tokens::kOnLabel);
  const QColor ink2 = QColor::fromRgb(tokens::kOnLabel2);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const int side = int(isMirrored ? Qt::AlignRight : Qt::AlignLeft) | int(Qt::AlignVCenter);
  QPen dashes(tokens::faded(ink, 0.35), 1);
  dashes.setDashPattern({2, 3});
  painter.setPen(dashes);
  painter.drawLine(QPointF(16, 57.5), QPointF(w - 16, 57.5));
  painter.setPen(ink);
  painter.setFont(sized(tokens::Type::PanelTitle, 15, QFont::Bold));
  painter.drawText(QRectF(16, 10, w - 32, 22), side, tr("Crush Momentum"));
  painter.setPen(ink2);
  painter.setFont(sized(tokens::Type::Help, 12, QFont::Medium));
  painter.drawText(QRectF(16, 32, w - 32, 18), side, tr("Crush notes to clear them. Leftovers burn at midnight."));

  const std::array<std::pair<int, QString>, 3> columns{std::pair{m_stats.crushed, tr("Crushed")},
                                                       std::pair{m_stats.turnedToAshes, tr("Turned to Ashes")},
                                                       std::pair{m_stats.activeOnWall, tr("Active on Wall")}};
  const double step = (w - 16) / 3;
  for (int i = 0; i < 3; ++i) {
    const int column = isMirrored ? 2 - i : i;
    const QRectF place(8 + column * step, 62, step, 80);
    painter.save();
    painter.translate(place.center().x() - 26, place.top());
    if (i == 0) paintBalls(painter, deviceScale(painter));
    if (i == 1) paintHeap(painter);
    if (i == 2) paintTwoNotes(painter);
    painter.restore();
    painter.setPen(ink);
    painter.setFont(tokens::font(tokens::Type::StatsNumber));
    const auto& [count, words] = columns[static_cast<std::size_t>(i)];
    paintNumber(painter, QRectF(place.left(), place.top() + 30, step, 30), QString::number(count));
    painter.setPen(ink2);
    painter.setFont(tokens::font(tokens::Type::DueLabel));
    painter.drawText(QRectF(place.left(), place.top() + 60, step, 15), Qt::AlignCenter, words);
  }
}

}  // namespace tarnwick
