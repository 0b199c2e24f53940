// SPDX-License-Identifier: MIT
#include "effects/CrushPainter.h"

#include "effects/SoftShadow.h"
#include "effects/Tokens.h"
#include "effects/WadArt.h"
#include "model/Color.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

constexpr double kSheetSigma = 6;
constexpr double kBallSigma = 5;
constexpr double kHairline = 0.5;
constexpr double kHairlineAlpha = 0.12;

QRectF centred(double width, double height) { return {-width / 2, -height / 2, width, height}; }

QRectF spread(const QRectF& rect, double sigma) {
  const double reach = 3 * sigma;
  return rect.adjusted(-reach, -reach, reach, reach);
}

void place(QPainter& painter, QPointF centre, const LayerTransform& transform) {
  painter.translate(centre);
  // Anticlockwise with y up is clockwise's opposite with y down.
  painter.rotate(-qRadiansToDegrees(transform.rotation));
  painter.scale(transform.scaleX, transform.scaleY);
}

/// Without what lies outside the sheet's round corners.
QImage roundedPicture(const QImage& picture, const QSizeF& sheet, double radius) {
  QImage rounded = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  rounded.setDevicePixelRatio(1);
  QPainterPath corners;  // what only one of the two covers
  corners.addRect(QRectF({0, 0}, sheet));
  corners.addRoundedRect(QRectF({0, 0}, sheet), radius, radius);
  QPainter painter(&rounded);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
  painter.scale(rounded.width() / sheet.width(), rounded.height() / sheet.height());
  painter.fillPath(corners, Qt::black);
  return rounded;
}

/// Draws what is transparent at its edges: smoothing those would double the price.
void drawSoft(QPainter& painter, const QRectF& place, const QImage& image) {
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.drawImage(place, image);
  painter.setRenderHint(QPainter::Antialiasing);
}

/// Draws a shadow without the part that its sheet will cover in any case.
void drawAround(QPainter& painter, const QRectF& place, const QImage& shadow, const QRectF& sheet, double radius) {
  const double in = radius * (1 - M_SQRT1_2) + 1;  // where the corner's arc is nearest to the middle
  const QRectF covered = sheet.adjusted(in, in, -in, -in);
  if (covered.isEmpty()) {
    drawSoft(painter, place, shadow);
    return;
  }
  const QSizeF detail(shadow.width() / place.width(), shadow.height() / place.height());
  const QRectF sides[] = {{place.topLeft(), QPointF(place.right(), covered.top())},
                          {QPointF(place.left(), covered.bottom()), place.bottomRight()},
                          {QPointF(place.left(), covered.top()), covered.bottomLeft()},
                          {covered.topRight(), QPointF(place.right(), covered.bottom())}};
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (const auto& side : sides) {
    const auto from = side.translated(-place.topLeft());
    painter.drawImage(side, shadow, {from.x() * detail.width(), from.y() * detail.height(), from.width() * detail.width(),
                                     from.height() * detail.height()});
  }
  painter.setRenderHint(QPainter::Antialiasing);
}

bool isGroup(CrushLayerKind kind) { return kind == CrushLayerKind::Sheet || kind == CrushLayerKind::Ball; }

}  // namespace

CrushPainter::CrushPainter(CrushPlan plan, DesktopSize stage, const QImage& picture, double scale)
    : m_plan(std::move(plan)), m_stage(stage), m_scale(scale) {
  // On whole device pixels: an edge that is cut the same way whatever else clips the painter.
  const auto rim = toStagePixels(m_plan.hidden);
  const auto snapped = [scale](double edge) { return std::round(edge * scale) / scale; };
  m_hidden = QRectF(QPointF(snapped(rim.left()), snapped(rim.top())), QPointF(snapped(rim.right()), snapped(rim.bottom())));
  QPainterPath hidden;
  hidden.addRect(m_hidden);
  m_seen.addRect(QRectF(0, 0, m_stage.width, m_stage.height));
  m_seen = m_seen.subtracted(hidden);
  for (const auto& layer : m_plan.layers) {
    const auto body = centred(layer.size.width, layer.size.height);
    if (layer.kind == CrushLayerKind::Ball) {
      m_ball = WadArt::image(layer.color, kBallEdge, scale);
      const auto alpha = blurredAlpha(spread(body, kBallSigma), scale, kBallSigma,
                                      [&](QPainter& into) { into.drawImage(body, m_ball); });
      m_ballShadow = tinted(alpha, tokens::black(0.35), scale);
    } else if (layer.kind == CrushLayerKind::Sheet) {
      prepareSheet(layer, body, picture);
    }
  }
}

void CrushPainter::prepareSheet(const CrushLayer& sheet, const QRectF& body, const QImage& picture) {
  constexpr int kSteps = 6;
  const auto& radii = sheet.cornerRadius;
  const double first = sheet.rest.cornerRadius;
  const double last = radii.isEmpty() ? first : radii.values.back();
  const auto& fade = m_plan.pictureOpacity;
  const double seen = fade.isEmpty() || radii.isEmpty() ? first : radii.sample(fade.begin + fade.duration);
  const double scale = m_scale / 2;  // a blur has no detail to lose
  for (int step = 0; step <= kSteps; ++step) {
    const double radius = between(first, last, static_cast<double>(step) / kSteps);
    const auto alpha = blurredAlpha(spread(body, kSheetSigma), scale, kSheetSigma, [&](QPainter& into) {
      into.setPen(Qt::NoPen);
      into.setBrush(Qt::black);
      into.drawRoundedRect(body, radius, radius);
    });
    const bool hasPicture = !picture.isNull() && (m_sheets.empty() || m_sheets.back().radius < seen);
    m_sheets.push_back({radius, tinted(alpha, tokens::black(0.28), scale),
                        hasPicture ? roundedPicture(picture, body.size(), radius) : QImage()});
  }
}

const CrushPainter::Rounded& CrushPainter::roundedFor(double radius) const {
  const auto rounder = std::find_if(m_sheets.begin(), m_sheets.end(),
                                    [&](const auto& sheet) { return sheet.radius >= radius - 1e-6; });
  return rounder == m_sheets.end() ? m_sheets.back() : *rounder;
}

QRectF CrushPainter::toStagePixels(const DesktopRect& rect) const {
  return DesktopSpace(m_stage.height).toQt(rect);
}

QRegion CrushPainter::movedRegion(const CrushFrame& from, const CrushFrame& to) const {
  const QRect stage = QRectF(0, 0, m_stage.width, m_stage.height).toAlignedRect();
  QRegion region;
  for (const auto& bounds : movedBounds(m_plan, from, to)) {
    region += toStagePixels(bounds).toAlignedRect().intersected(stage);
  }
  return region;
}

void CrushPainter::paint(QPainter& painter, const CrushFrame& frame, const QRegion& exposed) const {
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  for (std::size_t i = 0; i < m_plan.layers.size(); ++i) {
    const auto& layer = m_plan.layers[i];
    const auto bounds = layer.boundsIn(frame.layers[i]);
    if (bounds.isEmpty() || !exposed.intersects(toStagePixels(bounds).toAlignedRect())) continue;
    paintLayer(painter, layer, frame.layers[i], frame.pictureOpacity);
  }
}

void CrushPainter::paintLayer(QPainter& painter, const CrushLayer& layer, const CrushLayerState& state,
                              double pictureOpacity) const {
  const QPointF centre = DesktopSpace(m_stage.height).toQt(state.position);
  const auto drawGroup = [&](QPainter& into) {
    place(into, centre, state.transform);
    if (layer.kind == CrushLayerKind::Sheet) {
      drawSheet(into, layer, state, pictureOpacity);
    } else {
      drawBall(into, state);
    }
  };

  painter.save();
  // Clipping to a path costs more than the ball itself: only while it is at the rim.
  if (layer.kind == CrushLayerKind::Ball && toStagePixels(layer.boundsIn(state)).intersects(m_hidden)) {
    painter.setClipPath(m_seen, Qt::IntersectClip);
  }
  if (isGroup(layer.kind) && state.opacity < 1) {
    // Faded as one picture: the shadow must not shine through its own paper.
    const auto box = toStagePixels(layer.boundsIn(state)).toAlignedRect();
    QImage group(QSizeF(box.size() * m_scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    group.setDevicePixelRatio(m_scale);
    group.fill(Qt::transparent);
    QPainter into(&group);
    into.setRenderHints(painter.renderHints());
    into.translate(-box.topLeft());
    drawGroup(into);
    into.end();
    painter.setOpacity(state.opacity);
    painter.drawImage(box.topLeft(), group);
  } else if (isGroup(layer.kind)) {
    drawGroup(painter);
  } else {
    place(painter, centre, state.transform);
    painter.setOpacity(state.opacity);
    const auto body = centred(layer.size.width, layer.size.height);
    if (layer.kind == CrushLayerKind::Ring) {
      constexpr double kLine = 1.5;
      painter.setPen(QPen(tokens::white(0.65), kLine));
      painter.setBrush(tokens::white(0.07));
      painter.drawEllipse(body.adjusted(1, 1, -1, -1));
    } else {
      painter.setPen(Qt::NoPen);
      painter.setBrush(layer.color);
      painter.drawRoundedRect(body, state.cornerRadius, state.cornerRadius);
    }
  }
  painter.restore();
}

void CrushPainter::drawSheet(QPainter& painter, const CrushLayer& layer, const CrushLayerState& state,
                             double pictureOpacity) const {
  const auto body = centred(layer.size.width, layer.size.height);
  const auto& rounded = roundedFor(state.cornerRadius);
  drawAround(painter, spread(body, kSheetSigma).translated(0, 6), rounded.shadow, body, state.cornerRadius);
  // The hairline is what a slightly larger sheet leaves of itself: a stroke of that width costs four times as much.
  painter.setPen(Qt::NoPen);
  painter.setBrush(Color::blend(layer.color, Qt::black, kHairlineAlpha));
  painter.drawRoundedRect(body, state.cornerRadius, state.cornerRadius);
  painter.setBrush(layer.color);
  const double inner = std::max(0.0, state.cornerRadius - kHairline);
  painter.drawRoundedRect(body.adjusted(kHairline, kHairline, -kHairline, -kHairline), inner, inner);
  if (!rounded.picture.isNull() && pictureOpacity > 0) {
    painter.setOpacity(pictureOpacity);
    drawSoft(painter, body, rounded.picture);
    painter.setOpacity(1);
  }
}

void CrushPainter::drawBall(QPainter& painter, const CrushLayerState& state) const {
  const auto body = centred(kBallEdge, kBallEdge);
  const double degrees = -qRadiansToDegrees(state.spin);
  painter.save();
  // The shadow turns with the ball but falls straight down.
  painter.translate(0, 3);
  painter.rotate(degrees);
  drawSoft(painter, spread(body, kBallSigma), m_ballShadow);
  painter.restore();
  painter.rotate(degrees);
  drawSoft(painter, body, m_ball);
}

}  // namespace tarnwick
