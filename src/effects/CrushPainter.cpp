// SPDX-License-Identifier: MIT
#include "effects/CrushPainter.h"

#include "effects/SoftShadow.h"
#include "effects/Tokens.h"
#include "effects/WadArt.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

constexpr double kSheetSigma = 6;
constexpr double kBallSigma = 5;

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

bool isGroup(CrushLayerKind kind) { return kind == CrushLayerKind::Sheet || kind == CrushLayerKind::Ball; }

}  // namespace

CrushPainter::CrushPainter(CrushPlan plan, DesktopSize stage, const QImage& picture, double scale)
    : m_plan(std::move(plan)), m_stage(stage), m_picture(picture), m_scale(scale) {
  m_picture.setDevicePixelRatio(1);
  // On whole device pixels: an edge that is cut the same way whatever else clips the painter.
  const auto rim = toStagePixels(m_plan.hidden);
  const auto snapped = [scale](double edge) { return std::round(edge * scale) / scale; };
  m_hidden = QRectF(QPointF(snapped(rim.left()), snapped(rim.top())), QPointF(snapped(rim.right()), snapped(rim.bottom())));
  for (const auto& layer : m_plan.layers) {
    const auto body = centred(layer.size.width, layer.size.height);
    if (layer.kind == CrushLayerKind::Ball) {
      m_ball = WadArt::image(layer.color, kBallEdge, scale);
      const auto alpha = blurredAlpha(spread(body, kBallSigma), scale, kBallSigma,
                                      [&](QPainter& into) { into.drawImage(body, m_ball); });
      m_ballShadow = tinted(alpha, tokens::black(0.35), scale);
    } else if (layer.kind == CrushLayerKind::Sheet) {
      prepareSheetShadows(layer, body);
    }
  }
}

void CrushPainter::prepareSheetShadows(const CrushLayer& sheet, const QRectF& body) {
  constexpr int kSteps = 6;
  const double first = sheet.rest.cornerRadius;
  const double last = sheet.cornerRadius.isEmpty() ? first : sheet.cornerRadius.values.back();
  const double scale = m_scale / 2;  // a blur has no detail to lose
  for (int step = 0; step <= kSteps; ++step) {
    const double radius = between(first, last, static_cast<double>(step) / kSteps);
    const auto alpha = blurredAlpha(spread(body, kSheetSigma), scale, kSheetSigma, [&](QPainter& into) {
      QPainterPath path;
      path.addRoundedRect(body, radius, radius);
      into.fillPath(path, Qt::black);
    });
    m_sheetShadows.push_back({radius, tinted(alpha, tokens::black(0.28), scale)});
  }
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
    QPainterPath seen;
    seen.addRect(QRectF(0, 0, m_stage.width, m_stage.height));
    QPainterPath rim;
    rim.addRect(m_hidden);
    painter.setClipPath(seen.subtracted(rim), Qt::IntersectClip);
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
  // The next rounder one: a shadow sharper than its sheet would show at the corners.
  const auto rounder = std::find_if(m_sheetShadows.begin(), m_sheetShadows.end(),
                                    [&](const auto& shadow) { return shadow.radius >= state.cornerRadius - 1e-6; });
  const auto& shadow = rounder == m_sheetShadows.end() ? m_sheetShadows.back() : *rounder;
  painter.drawImage(spread(body, kSheetSigma).translated(0, 6), shadow.image);
  painter.setPen(Qt::NoPen);
  painter.setBrush(layer.color);
  painter.drawRoundedRect(body, state.cornerRadius, state.cornerRadius);
  if (!m_picture.isNull() && pictureOpacity > 0) {
    // As a brush and not as an image: the sheet's round corners stay smooth.
    QBrush brush(m_picture);
    brush.setTransform(QTransform::fromTranslate(body.left(), body.top())
                           .scale(body.width() / m_picture.width(), body.height() / m_picture.height()));
    painter.setOpacity(pictureOpacity);
    painter.setBrush(brush);
    painter.drawRoundedRect(body, state.cornerRadius, state.cornerRadius);
    painter.setOpacity(1);
  }
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(tokens::black(0.12), 0.5));
  painter.drawRoundedRect(body.adjusted(0.25, 0.25, -0.25, -0.25), state.cornerRadius, state.cornerRadius);
}

void CrushPainter::drawBall(QPainter& painter, const CrushLayerState& state) const {
  const auto body = centred(kBallEdge, kBallEdge);
  const double degrees = -qRadiansToDegrees(state.spin);
  painter.save();
  // The shadow turns with the ball but falls straight down.
  painter.translate(0, 3);
  painter.rotate(degrees);
  painter.drawImage(spread(body, kBallSigma), m_ballShadow);
  painter.restore();
  painter.rotate(degrees);
  painter.drawImage(body, m_ball);
}

}  // namespace tarnwick
