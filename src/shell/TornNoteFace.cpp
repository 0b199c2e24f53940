// SPDX-License-Identifier: MIT
#include "shell/TornNoteFace.h"

#include "effects/PixmapCache.h"
#include "effects/StampBadge.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "model/Color.h"
#include "model/StickyChecklist.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

constexpr double kSide = 10;
constexpr double kAbove = 16;
constexpr double kBelow = 18;
constexpr double kFootHeight = 20;
constexpr double kFootGap = 8;
constexpr double kTapeTeeth = 4;
constexpr double kLock = 13;
constexpr double kStampTrail = 40;  // of a stamp that stands in the foot's line, clear of the corner
constexpr double kRaisedStampRoom = 74;
constexpr double kBarHeight = 32;
constexpr double kStampScale = 1.1;
constexpr double kStampAngle = -6;
constexpr double kGrabOutside = 7;
constexpr double kGrabInside = 4;
constexpr double kGrabCorner = 14;

}  // namespace

QColor TornNoteFace::ink() const { return Color::inkOnPaper(colorHex); }

QRectF TornNoteFace::paperRect() const {
  return {kSide, kAbove, size.width() - 2 * kSide, size.height() - kAbove - kBelow};
}

QRectF TornNoteFace::tapeRect() const { return {(size.width() - 82) / 2, 3, 82, 24}; }

QRectF TornNoteFace::mirrored(const QRectF& rect) const {
  if (direction == Qt::LeftToRight) return rect;
  return {size.width() - rect.right(), rect.y(), rect.width(), rect.height()};
}

QRectF TornNoteFace::textRect() const {
  const auto paper = paperRect();
  QMarginsF inset(14, 22, 14, 46);
  if (theme == PaperTheme::lined) inset = {28, 29, 14, 46};
  if (theme == PaperTheme::construction) inset = {19, 24, 19, 48};
  if (isStampRaised()) inset.setBottom(kRaisedStampRoom);
  return mirrored(paper.marginsRemoved(inset));
}

QPointF TornNoteFace::circleCenter() const {
  const auto paper = paperRect();
  const bool isFramed = theme == PaperTheme::construction;
  const double in = isFramed ? 29 : 24;
  const double down = isFramed ? 34 : 32;
  return mirrored({paper.right() - in - 1, paper.top() + down - 1, 2, 2}).center();
}

QRectF TornNoteFace::circleHitRect() const {
  QRectF hit(0, 0, kCircleHit, kCircleHit);
  hit.moveCenter(circleCenter());
  return hit;
}

QRectF TornNoteFace::footRect() const {
  const auto paper = paperRect();
  double left = 12;
  double right = 34;
  double bottom = 12;
  if (theme == PaperTheme::lined) left = 26;
  if (theme == PaperTheme::construction) left = right = bottom = 17;
  return mirrored({paper.left() + left, paper.bottom() - bottom - kFootHeight, paper.width() - left - right, kFootHeight});
}

bool TornNoteFace::isStampRaised() const {
  if (stamp == TaskStamp::none) return false;
  const auto foot = footRect();
  double used = 0;
  if (due) used += CardParts::dueLabelWidth(*due) + kFootGap;
  if (!counter.isEmpty()) {
    used += QFontMetricsF(tokens::font(tokens::Type::DueLabel)).horizontalAdvance(counter) + 1 + kFootGap;
  }
  if (isPrivate) used += kLock + kFootGap;
  const double lead = direction == Qt::RightToLeft ? paperRect().right() - foot.right() : foot.left() - paperRect().left();
  const double width = StampBadgeView::size(stamp).width() * kStampScale;
  return lead + used > paperRect().width() - kStampTrail - width;
}

QRectF TornNoteFace::hoverBarRect() const {
  const auto paper = paperRect();
  return {paper.left() + 10, paper.bottom() - 9 - kBarHeight, paper.width() - 20, kBarHeight};
}

QStringList TornNoteFace::hoverBarSymbols() const {
  return {QStringLiteral("redock"), QStringLiteral("pencil"), QStringLiteral("drop"), QStringLiteral("tally"),
          isPrivate ? QStringLiteral("lock") : QStringLiteral("lockOpen")};
}

QTransform TornNoteFace::turn() const {
  const auto paper = paperRect();
  QTransform transform;
  transform.translate(paper.center().x(), paper.top());
  transform.rotate(tilt);
  transform.translate(-paper.center().x(), -paper.top());
  return transform;
}

StickyChecklistBody TornNoteFace::body() const {
  StickyChecklistBody::Style style;
  style.font = tokens::font(tokens::Type::NoteText);
  style.lineHeight = tokens::lineHeight(tokens::Type::NoteText);
  style.ink = ink();
  style.width = textRect().width();
  style.firstLineInset = kCircleDiameter + 8;
  style.boxSize = 15;
  style.rowGap = 3;
  style.direction = direction;
  return {text, style};
}

Qt::Edges TornNoteFace::edgesAt(const QPointF& point) const {
  const auto paper = paperRect();
  if (!paper.adjusted(-kGrabOutside, -kGrabOutside, kGrabOutside, kGrabOutside).contains(point)) return {};
  const auto near = [&](double inside) {
    Qt::Edges edges;
    if (point.x() <= paper.left() + inside) edges |= Qt::LeftEdge;
    if (point.x() >= paper.right() - inside) edges |= Qt::RightEdge;
    if (point.y() <= paper.top() + inside) edges |= Qt::TopEdge;
    if (point.y() >= paper.bottom() - inside) edges |= Qt::BottomEdge;
    return edges;
  };
  // The tape holds the top: it drags.
  if (tapeRect().contains(point)) return {};
  const auto onEdge = near(kGrabInside);
  if (!onEdge) return {};
  const auto around = near(kGrabCorner);
  const bool isCorner = (around & (Qt::LeftEdge | Qt::RightEdge)) && (around & (Qt::TopEdge | Qt::BottomEdge));
  return isCorner ? around : onEdge;
}

QRegion TornNoteFace::mask() const {
  QRegion region(sheet(paperRect(), PaperKind::TornNote, kRestingPeel).outline().toFillPolygon().toPolygon());
  // Without transparency the tape is cut straight: between its teeth would be black.
  return region + QRegion(tapeRect().adjusted(kTapeTeeth, 0, -kTapeTeeth, 0).toAlignedRect());
}

PaperSheet TornNoteFace::sheet(const QRectF& rect, PaperKind kind, double peel) const {
  PaperSheet paper;
  paper.rect = rect;
  paper.colorHex = colorHex;
  paper.theme = theme;
  paper.kind = kind;
  paper.peel = peel;
  paper.seed = seed;
  paper.direction = direction;
  paper.hasShadow = isComposited;
  if (!isComposited) paper.edgeOpacity = .35;
  return paper;
}

void TornNoteFace::paintSheet(QPainter& painter, const PaperSheet& paper, const QSizeF& area, PaintedSheet& last) const {
  const double scale = deviceScale(painter);
  const QString look = QStringLiteral("%1/%2/%3x%4/%5/%6/%7/%8/%9")
                           .arg(colorHex, rawValue(theme))
                           .arg(area.width())
                           .arg(area.height())
                           .arg(paper.peel)
                           .arg(scale)
                           .arg(seed)
                           .arg(int(isComposited))
                           .arg(int(direction) * 10 + int(paper.kind));
  if (last.look != look) {
    last = {look, clearPixmap(area, scale)};
    QPainter onto(&last.picture);
    onto.setRenderHint(QPainter::Antialiasing);
    paper.paint(onto);
  }
  painter.drawPixmap(QPointF(0, 0), last.picture);
}

void TornNoteFace::paintPaper(QPainter& painter, double peel, PaintedSheet& last) const {
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform, !qFuzzyIsNull(tilt));
  painter.setRenderHint(QPainter::Antialiasing, false);  // next to nothing is at the picture's edges
  paintSheet(painter, sheet(paperRect(), PaperKind::TornNote, peel), size, last);
  painter.restore();
}

void TornNoteFace::paintFlatPaper(QPainter& painter) const {
  auto paper = sheet(QRectF(QPointF(0, 0), size), PaperKind::TornNote, 0);
  paper.hasShadow = false;
  paper.paint(painter);
}

void TornNoteFace::paintText(QPainter& painter, const StickyChecklistBody& body, double scroll) const {
  const auto area = textRect();
  const double hidden = std::max(0.0, body.height() - area.height());
  painter.save();
  if (hidden > 0) {
    // Whole lines only: a cut one is hard to read and looks broken.
    const double line = tokens::lineHeight(tokens::Type::NoteText);
    const double seen = std::max(line, std::floor(area.height() / line) * line);
    painter.setClipRect(QRectF(area.left() - 2, area.top(), area.width() + 4, seen), Qt::IntersectClip);
  }
  body.paint(painter, area.topLeft() - QPointF(0, scroll));
  painter.restore();
  if (hidden <= 0) return;
  const double length = std::max(18.0, area.height() * area.height() / body.height());
  const double top = area.top() + (area.height() - length) * std::clamp(scroll / hidden, 0.0, 1.0);
  const double x = direction == Qt::LeftToRight ? paperRect().right() - 8 : paperRect().left() + 4;
  painter.save();
  painter.setPen(Qt::NoPen);
  painter.setBrush(tokens::faded(ink(), .35));
  painter.drawRoundedRect(QRectF(x, top, 4, length), 2, 2);
  painter.restore();
}

void TornNoteFace::paintFoot(QPainter& painter, double barOpacity) const {
  const auto paper = paperRect();
  const bool isRightToLeft = direction == Qt::RightToLeft;
  if (stamp != TaskStamp::none) {
    const auto badge = StampBadgeView::size(stamp) * kStampScale;
    const bool isRaised = barOpacity > 0 || isStampRaised();
    const QRectF place(paper.right() - (isRaised ? 16 : kStampTrail) - badge.width(),
                       paper.bottom() - (isRaised ? 52 : 16) - badge.height(), badge.width(), badge.height());
    painter.save();
    painter.translate(mirrored(place).center());
    painter.scale(kStampScale, kStampScale);
    StampBadgeView::paint(painter, stamp, {0, 0}, kStampAngle);
    painter.restore();
  }
  if (barOpacity >= 1) return;
  painter.save();
  painter.setOpacity(painter.opacity() * (1 - barOpacity));
  auto rest = footRect();
  const auto take = [&](double width) {
    const QRectF slot(isRightToLeft ? rest.right() - width : rest.left(), rest.top(), width, rest.height());
    if (isRightToLeft) {
      rest.setRight(rest.right() - width - kFootGap);
    } else {
      rest.setLeft(rest.left() + width + kFootGap);
    }
    return slot;
  };
  if (due) {
    const double width = std::min(CardParts::dueLabelWidth(*due), rest.width() - 30);
    CardParts::paintDueLabel(painter, take(width), *due, ink(), direction);
  }
  if (!counter.isEmpty()) {
    painter.setFont(tokens::font(tokens::Type::DueLabel));
    painter.setPen(tokens::faded(ink(), .45));
    painter.drawText(take(QFontMetricsF(painter.font()).horizontalAdvance(counter) + 1), Qt::AlignCenter, counter);
  }
  if (isPrivate) {
    const auto slot = take(kLock);
    Symbols::paint(painter, QStringLiteral("lock"), {slot.left(), slot.center().y() - kLock / 2, kLock, kLock}, ink());
  }
  painter.restore();
}

void TornNoteFace::paintTape(QPainter& painter) const {
  WashiTapeView::paint(painter, tapeRect(), colorHex, seed, isComposited ? -1.5 : 0);
}

void TornNoteFace::paintTab(QPainter& painter, const QIcon& appIcon, PaintedSheet& last) const {
  const auto paper = tabPaperRect();
  paintSheet(painter, sheet(paper, PaperKind::Tab, 0), {210, 46}, last);
  const bool isRightToLeft = direction == Qt::RightToLeft;
  const auto mirroredInTab = [&](const QRectF& rect) {
    return isRightToLeft ? QRectF(paper.left() + paper.right() - rect.right(), rect.y(), rect.width(), rect.height()) : rect;
  };
  const double middle = paper.center().y();
  CardParts::paintAppTile(painter, mirroredInTab({paper.left() + 9, middle - 10, 20, 20}), appIcon, ink());
  // The tape lies at the right whichever way the text runs.
  const double trailing = isRightToLeft ? 9 : 22;
  double right = paper.right() - trailing;
  if (isRightToLeft) right = paper.right() - 9;
  QRectF line(paper.left() + 37, paper.top(), right - paper.left() - 37, paper.height());
  if (isPrivate) {
    const QRectF lock(line.right() - 13, middle - 6.5, 13, 13);
    Symbols::paint(painter, QStringLiteral("lock"), mirroredInTab(lock), ink());
    line.setRight(lock.left() - 8);
  }
  line = mirroredInTab(line);
  if (isRightToLeft) line.setRight(std::min(line.right(), paper.right() - 37));
  painter.setFont(tokens::font(tokens::Type::RowTitle));
  painter.setPen(ink());
  QString first = text;
  for (const auto& candidate : StickyChecklist::lines(text)) {
    first = StickyChecklist::isChecklistLine(candidate) ? StickyChecklist::label(candidate) : candidate.trimmed();
    if (!first.isEmpty()) break;
  }
  const auto elided = QFontMetricsF(painter.font()).elidedText(first, Qt::ElideRight, line.width());
  painter.drawText(line, Qt::AlignVCenter | (isRightToLeft ? Qt::AlignRight : Qt::AlignLeft), elided);
  WashiTapeView::paint(painter, {paper.right() - 22, paper.top() + 7, 26, 24}, colorHex, seed, isComposited ? 3 : 0);
}

}  // namespace tarnwick
