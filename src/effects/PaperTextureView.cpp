// SPDX-License-Identifier: MIT
#include "effects/PaperTextureView.h"

#include "effects/PaperRandom.h"
#include "effects/Tokens.h"
#include "model/Color.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tarnwick {

namespace {

enum class Run { Across, Down };

// A hair line whose middle lies at `at`. On an upright painter it takes whole device pixels and keeps its weight
// through its opacity, so that every rule of a note looks the same.
void paintRule(QPainter& painter, Run run, double at, double length, double width, QColor color) {
  const QTransform& transform = painter.deviceTransform();
  if (transform.type() > QTransform::TxScale) {
    painter.setPen(QPen(color, width));
    painter.drawLine(run == Run::Across ? QLineF(0, at, length, at) : QLineF(at, 0, at, length));
    return;
  }
  const double scale = run == Run::Across ? transform.m22() : transform.m11();
  const double shift = run == Run::Across ? transform.dy() : transform.dx();
  const double thickness = std::max(1.0, std::round(width * scale));
  const double first = std::floor(at * scale + shift - thickness / 2 + .5);
  const double from = (first - shift) / scale;
  color.setAlphaF(static_cast<float>(std::min(1.0, static_cast<double>(color.alphaF()) * width * scale / thickness)));
  const QRectF bar(from, 0, thickness / scale, length);
  const QRectF lying(0, from, length, thickness / scale);
  painter.fillRect(run == Run::Across ? lying : bar, color);
}

QPolygonF roughInset(const QSizeF& size, double inset, PaperRandom& random) {
  constexpr double kStep = 9;
  constexpr double kWobble = .65;
  const double right = size.width() - inset;
  const double bottom = size.height() - inset - 1;
  const auto off = [&] { return random.between(-kWobble, kWobble); };
  QPolygonF edge;
  for (double x = inset; x < right; x += kStep) {
    edge << QPointF(x, inset + off());
  }
  for (double y = inset; y < bottom; y += kStep) {
    edge << QPointF(right + off(), y);
  }
  for (double x = right; x > inset; x -= kStep) {
    edge << QPointF(x, bottom + off());
  }
  for (double y = bottom; y > inset; y -= kStep) {
    edge << QPointF(inset + off(), y);
  }
  return edge;
}

}  // namespace

void PaperTextureView::paint(QPainter& painter) const {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  switch (theme) {
    case PaperTheme::plain: break;
    case PaperTheme::graph: paintGraph(painter); break;
    case PaperTheme::lined: paintLined(painter); break;
    case PaperTheme::parchment: paintParchment(painter); break;
    case PaperTheme::construction: paintConstruction(painter); break;
  }
  painter.restore();
}

void PaperTextureView::paintGraph(QPainter& painter) const {
  constexpr double kPitch = 16;
  const QColor line = tokens::black(.07);
  for (double x = kPitch; x < size.width(); x += kPitch) {
    paintRule(painter, Run::Down, x, size.height(), .75, line);
  }
  for (double y = kPitch; y < size.height(); y += kPitch) {
    paintRule(painter, Run::Across, y, size.width(), .75, line);
  }
}

void PaperTextureView::paintLined(QPainter& painter) const {
  for (double y = 26; y < size.height(); y += 20) {
    paintRule(painter, Run::Across, y, size.width(), .8, tokens::black(.09));
  }
  const double margin = direction == Qt::RightToLeft ? size.width() - 20 : 20;
  paintRule(painter, Run::Down, margin, size.height(), 1.0, tokens::faded(QColor(0xFF, 0x6B, 0x6B), .18));
}

void PaperTextureView::paintParchment(QPainter& painter) const {
  constexpr int kSpecks = 60;
  PaperRandom random(seed);
  painter.setPen(Qt::NoPen);
  for (int i = 0; i < kSpecks; ++i) {
    const QPointF at(random.next() * size.width(), random.next() * size.height());
    const double radius = random.between(.4, 1.3);
    painter.setBrush(tokens::black(random.between(.05, .14)));
    painter.drawEllipse(at, radius, radius);
  }
}

void PaperTextureView::paintConstruction(QPainter& painter) const {
  PaperRandom random(seed);
  const QPolygonF inner = roughInset(size, frame, random);
  QPainterPath board;
  board.setFillRule(Qt::OddEvenFill);
  board.addRect(-2, -2, size.width() + 4, size.height() + 6);
  board.addPolygon(inner);
  board.closeSubpath();
  painter.fillPath(board, Color::blend(Color::fromHex(paperHex), QColor(0x12, 0x0C, 0x09), .83));
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(tokens::black(.35), 1));
  painter.drawPolygon(inner.translated(0, .7));
  painter.setPen(QPen(tokens::white(.22), .5));
  painter.drawPolygon(inner);
  const int fibres = static_cast<int>(std::lround(size.width() * size.height() / 260));
  for (int i = 0; i < fibres; ++i) {
    const QPointF from(random.next() * size.width(), random.next() * size.height());
    const double angle = random.next() * 2 * std::numbers::pi;
    const double length = random.between(3, 10);
    const double bend = random.between(-2, 2);
    const QPointF reach(std::cos(angle) * length, std::sin(angle) * length);
    QPainterPath fibre(from);
    fibre.quadTo(from + reach / 2 + QPointF(-bend, bend), from + reach);
    const QColor color = random.next() < .55 ? tokens::black(.13) : tokens::white(.30);
    painter.strokePath(fibre, QPen(color, .6));
  }
}

}  // namespace tarnwick
