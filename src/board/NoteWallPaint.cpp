// SPDX-License-Identifier: MIT
// How the wall is drawn: a card at rest is one ready picture; only what the pointer or the keys have lifted is put together.
#include "board/NoteWall.h"

#include "effects/BoardSurfaceView.h"
#include "effects/PixmapCache.h"
#include "effects/SoftShadow.h"
#include "effects/Tokens.h"
#include "model/Color.h"
#include "platform/Clock.h"
#include "platform/Workspace.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <functional>
#include <numbers>

namespace tarnwick {
namespace {

/// Paints what lies within a box with round corners. Clipping to a path is dear: that is done for the corners' rows alone,
/// and only for what reaches into a corner.
void paintRounded(QPainter& painter, const QRectF& rect, const QRect& box, int radius, const std::function<void()>& paint) {
  const auto within = [&](const QRect& band, const QPainterPath& path) {
    if (!rect.intersects(band)) return;
    painter.save();
    painter.setClipRect(band, Qt::IntersectClip);
    if (!path.isEmpty()) painter.setClipPath(path, Qt::IntersectClip);
    paint();
    painter.restore();
  };
  const bool isAtSide = rect.left() < box.left() + radius || rect.right() > box.right() - radius;
  const bool isAtEnd = rect.top() < box.top() + radius || rect.bottom() > box.bottom() - radius;
  if (!isAtSide || !isAtEnd) {
    within(box, {});
    return;
  }
  const auto cap = [&](int top, int above, int below) {
    // A path as high as the round needs on both sides; of its straight edge more than is seen, so that it does not fade.
    const QRect band(box.left(), top, box.width(), radius);
    within(band, roundedBox(QRectF(band.adjusted(0, above > 0 ? 0 : -radius, 0, below > 0 ? 0 : radius)), above, below));
  };
  cap(box.top(), radius, 0);
  within(box.adjusted(0, radius, 0, -radius), {});
  cap(box.bottom() + 1 - radius, 0, radius);
}

}  // namespace

void NoteWall::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.setLayoutDirection(layoutDirection());
  const QRect board = QRect(-pos(), parentWidget() ? parentWidget()->size() : size()).adjusted(1, 1, -1, -1);
  constexpr int kRadius = static_cast<int>(BoardSurfaceView::kRadius) - 1;
  painter.setClipRect(board & event->rect());

  if (m_notes.empty() && !m_emptyText.isEmpty()) {
    const QRectF free(0, m_topInset, width(), height() - m_topInset - m_bottomInset);
    painter.setFont(tokens::font(tokens::Type::Body));
    painter.setPen(QColor::fromRgb(tokens::kText3));
    painter.drawText(free.adjusted(kEdge, 0, -kEdge, -free.height() * 0.2), Qt::AlignCenter | Qt::TextWordWrap,
                     m_emptyText);
  }

  const auto now = m_services.clock.mediaTime();
  const auto [first, last] = visibleRange();
  for (int pass = 0; pass < 2; ++pass) {
    for (int i = first; i <= last; ++i) {
      const QRectF rect = cardRect(i).adjusted(-kSpill, -kSpill, kSpill, kSpill);
      if (!rect.intersects(event->rect())) continue;
      const QUuid& id = m_notes[static_cast<std::size_t>(i)]->id();
      if (isLifted(id) != (pass == 1)) continue;  // what is lifted lies over its neighbours
      paintRounded(painter, rect, board, kRadius, [&] { paintCard(painter, i, *card(id), now); });
    }
  }
  if (first <= last) updateBreath();

  if (m_offset > 0.5) {
    QLinearGradient shade(0, 0, 0, 10);
    shade.setColorAt(0, tokens::black(0.30 * std::min(1.0, m_offset / 10)));
    shade.setColorAt(1, tokens::black(0));
    const QRectF under(0, 0, width(), 10);
    paintRounded(painter, under, board, kRadius, [&] { painter.fillRect(under, shade); });
  }
  if (maxOffset() > 0 && m_hasPointer) {
    const double room = height() - m_bottomInset - 24;
    const double length = std::max(24.0, room * height() / contentHeight());
    const double top = 8 + (room - length) * m_offset / maxOffset();
    const double x = layoutDirection() == Qt::RightToLeft ? 4 : width() - 7;
    painter.setPen(Qt::NoPen);
    painter.setBrush(tokens::white(m_isThumbHeld ? 0.45 : 0.25));
    painter.drawRoundedRect(QRectF(x, top, 3, length), 1.5, 1.5);
  }
}

void NoteWall::paintCard(QPainter& painter, int index, TaskStickyCard& card, Glide::Time now) {
  const double opacity = card.opacity.at(now);
  if (opacity <= 0) return;
  const QRectF rect = cardRect(index);
  const QUuid& id = card.task()->id();
  const double lift = card.lift.at(now);
  const bool isDragged = m_press && m_press->isDragging && m_press->id == id;
  painter.setOpacity(opacity * (isDragged ? 0.35 : 1.0));
  const bool isAtRest = lift <= 0 && !isLifted(id) && card.tools.at(now) <= 0;
  if (isAtRest) {
    const auto& posed = card.posed(angleOf(card), deviceScale(painter));
    painter.drawPixmap(onPixel(rect.topLeft() + posed.corner, painter), posed.pixmap);
    if (!card.face().isSmoldering) return;
  }
  painter.translate(rect.left(), rect.top() - (m_hover == id ? 2 * lift : 0));
  painter.translate(TaskStickyCard::pivot());
  painter.rotate(angleOf(card));
  painter.translate(-TaskStickyCard::pivot());
  if (!isAtRest) paintLifted(painter, card, lift);
  if (card.face().isSmoldering) {
    const double wave =
        m_services.workspace.isMotionReduced() ? 0.5 : 0.5 + 0.5 * std::sin(2 * std::numbers::pi * m_breathPhase);
    card.face().sheet(PaperLift::Rest).paintEmberGlow(painter, 0.55 + 0.40 * wave);
  }
  if (!isAtRest) paintControls(painter, card, now);
}

void NoteWall::paintLifted(QPainter& painter, TaskStickyCard& card, double lift) {
  const auto paintFace = [&](PaperLift at) {
    const double margin = CardFace::margin(at);
    painter.drawPixmap(QPointF(-margin, -margin), card.pixmap(at, deviceScale(painter)));
  };
  const double full = painter.opacity();
  if (lift < 1) paintFace(PaperLift::Rest);
  if (lift > 0) {
    painter.setOpacity(full * lift);
    paintFace(PaperLift::Raised);
    painter.setOpacity(full);
  }
}

void NoteWall::paintControls(QPainter& painter, const TaskStickyCard& card, Glide::Time now) {
  const CardFace& face = card.face();
  const QUuid& id = card.task()->id();
  const bool isHovered = m_hover == id;
  const bool isCircleHot = isHovered && m_hotPart == CardPart::Circle;
  const bool isCircleHeld = m_press && m_press->id == id && m_press->hit.part == CardPart::Circle && isCircleHot;
  CardParts::paintCrushCircle(painter, face.circleCenter(), CardFace::kCircleDiameter, face.ink(),
                              isCircleHeld  ? CircleState::Pressed
                              : isCircleHot ? CircleState::Hover
                                            : CircleState::Rest);
  if (const double tools = card.tools.at(now); tools > 0) {
    static const QStringList kSymbols{QStringLiteral("pencil"), QStringLiteral("drop"), QStringLiteral("tally"),
                                      QStringLiteral("tear")};
    int hot = -1;
    if (isHovered && m_hotPart >= CardPart::Edit) hot = static_cast<int>(m_hotPart) - static_cast<int>(CardPart::Edit);
    const double full = painter.opacity();
    painter.setOpacity(full * tools);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Color::fromHex(face.colorHex));  // nothing of the foot shines through
    painter.drawRoundedRect(face.hoverBarRect(), 8, 8);
    CardParts::paintHoverBar(painter, face.hoverBarRect(), face.ink(), kSymbols, hot, 8);
    painter.setOpacity(full);
  }
  if (m_selection == id) {
    const QRectF ring = QRectF(0, 0, CardFace::kWidth, CardFace::kHeight).adjusted(-4, -4, 4, 4);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(tokens::black(0.55), 1));
    painter.drawRoundedRect(ring.adjusted(-1.5, -1.5, 1.5, 1.5), 9.5, 9.5);
    painter.setPen(QPen(tokens::black(0.35), 1));
    painter.drawRoundedRect(ring.adjusted(1.5, 1.5, -1.5, -1.5), 6.5, 6.5);
    painter.setPen(QPen(Qt::white, 2));
    painter.drawRoundedRect(ring, 8, 8);
  }
}

}  // namespace tarnwick
