// SPDX-License-Identifier: MIT
#include "board/CardFace.h"

#include "effects/StampBadge.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "model/Color.h"
#include "model/StickyChecklist.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QTransform>

#include <cmath>

namespace tarnwick {
namespace {

constexpr double kFootGap = 6;
constexpr double kAppTile = 16;
constexpr double kLock = 13;
constexpr double kBurntRise = 15;  // keeps what stands at the foot out of the burnt edge

double counterWidth(const QString& counter) {
  return counter.isEmpty() ? 0 : QFontMetricsF(tokens::font(tokens::Type::DueLabel)).horizontalAdvance(counter);
}

}  // namespace

QString CardFace::key() const {
  return QStringList{
      text,
      colorHex,
      rawValue(theme),
      rawValue(stamp),
      rawValue(tag),
      due ? due->text + QLatin1Char(due->isOverdue ? '!' : '.') + QLatin1Char(due->repeats ? 'r' : '-') : QString(),
      appID,
      repository,
      QString::number((isPrivate ? 1 : 0) | (isDaily3 ? 2 : 0) | (isSmoldering ? 4 : 0) | (hasMoreContrast ? 8 : 0) |
                      (direction == Qt::RightToLeft ? 16 : 0)),
      mark}
      .join(QChar(0x1F));
}

QColor CardFace::ink() const {
  return Color::inkOnPaper(colorHex);
}

PaperSheet CardFace::sheet(PaperLift lift) const {
  PaperSheet sheet;
  sheet.rect = QRectF(0, 0, kWidth, kHeight);
  sheet.colorHex = colorHex;
  sheet.theme = theme;
  sheet.kind = PaperKind::Card;
  sheet.lift = lift;
  sheet.edge = isSmoldering ? PaperEdge::Smoldering : PaperEdge::Clean;
  sheet.seed = seed;
  sheet.direction = direction;
  return sheet;
}

QRectF CardFace::footRect() const {
  const double lead = theme == PaperTheme::lined ? 25 : theme == PaperTheme::construction ? 12 : 10;
  const double trail = theme == PaperTheme::construction ? 12 : 10;
  const double bottom = theme == PaperTheme::construction ? 12 : 9;
  const double left = direction == Qt::RightToLeft ? trail : lead;
  return {left, kHeight - bottom - 20 - (isSmoldering ? kBurntRise : 0), kWidth - lead - trail, 20};
}

QRectF CardFace::hoverBarRect() const {
  return {8, kHeight - 7 - 28 - (isSmoldering ? kBurntRise : 0), kWidth - 16, 28};
}

bool CardFace::hasTrailingFoot() const {
  return !appID.isEmpty() || !repository.isEmpty() || isPrivate || StickyChecklist::hasChecklist(text);
}

bool CardFace::isStampRaised() const {
  if (hasTrailingFoot()) return true;
  return due && CardParts::dueLabelWidth(*due) + StampBadgeView::size(stamp).width() + 4 > footRect().width();
}

QPointF CardFace::stampCenter() const {
  const QSizeF badge = StampBadgeView::size(stamp);
  const double x = direction == Qt::RightToLeft ? 10 + badge.width() / 2 : kWidth - 10 - badge.width() / 2;
  const double bottom = kHeight - (isStampRaised() ? 33 + (isSmoldering ? kBurntRise : 0) : 11);
  return {x, bottom - badge.height() / 2};
}

QPolygonF CardFace::stampShape() const {
  constexpr double kAside = 3;
  const QSizeF badge = StampBadgeView::size(stamp);
  QTransform turn = QTransform::fromTranslate(stampCenter().x(), stampCenter().y());
  turn.rotate(stampAngle());
  const double halfWidth = badge.width() / 2 + kAside;
  return turn.map(QPolygonF(QRectF(-halfWidth, -badge.height() / 2, 2 * halfWidth, badge.height())));
}

QPointF CardFace::bodyOrigin() const {
  const double lead = theme == PaperTheme::lined ? 27 : theme == PaperTheme::construction ? 14 : 12;
  const double top = theme == PaperTheme::lined ? 8 : theme == PaperTheme::construction ? 13 : 11;
  const double trail = theme == PaperTheme::construction ? 13 : 11;
  return {direction == Qt::RightToLeft ? trail : lead, top};
}

StickyChecklistBody CardFace::body() const {
  const double lead = theme == PaperTheme::lined ? 27 : theme == PaperTheme::construction ? 14 : 12;
  const double trail = theme == PaperTheme::construction ? 13 : 11;
  StickyChecklistBody::Style style;
  style.font = tokens::font(tokens::Type::CardText);
  style.ink = ink();
  style.lineHeight = theme == PaperTheme::lined ? 20 : tokens::lineHeight(tokens::Type::CardText);
  style.width = kWidth - lead - trail;
  style.firstLineInset = isDaily3 ? 46 : 24;
  const bool hasFoot = due || hasTrailingFoot();
  // A fourth line would run into a raised stamp, and on the wide rules of lined paper into the foot.
  const bool isCrowded = (stamp != TaskStamp::none && isStampRaised()) ||
                         ((theme == PaperTheme::lined || theme == PaperTheme::construction) && hasFoot);
  style.maxLines = isCrowded ? 3 : 4;
  style.mark = mark;
  style.direction = direction;
  if (stamp != TaskStamp::none) style.keepOut = stampShape().translated(-bodyOrigin());
  if (hasMoreContrast) style.doneOpacity = 0.75;
  return {text, style};
}

QPointF CardFace::circleCenter() const {
  return {direction == Qt::RightToLeft ? kCircleInset : kWidth - kCircleInset, kCircleInset};
}

QRectF CardFace::circleHitRect() const {
  const QPointF center = circleCenter();
  return {center.x() - kCircleHit / 2, center.y() - kCircleHit / 2, kCircleHit, kCircleHit};
}

QPixmap CardFace::pixmap(PaperLift lift, double scale) const {
  const double around = margin(lift);
  const QSizeF size(kWidth + 2 * around, kHeight + 2 * around);
  QPixmap pixmap((size * scale).toSize());
  pixmap.setDevicePixelRatio(scale);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
  painter.setLayoutDirection(direction);
  painter.translate(around, around);
  const bool isMirrored = direction == Qt::RightToLeft;

  if (tag != TaskTag::none) {
    const QColor color = CardParts::tagColor(tag);
    const QRectF flag(isMirrored ? -7 : kWidth + 7 - 22, 40, 22, 12);
    QLinearGradient gradient(flag.topLeft(), flag.bottomLeft());
    gradient.setColorAt(0, Color::blend(color, Qt::white, 0.18));
    gradient.setColorAt(1, color);
    painter.setPen(Qt::NoPen);
    painter.setBrush(tokens::black(0.30));
    painter.drawRoundedRect(flag.translated(0, 1), 3, 3);
    painter.setBrush(gradient);
    painter.drawRoundedRect(flag, 3, 3);
  }
  sheet(lift).paint(painter);
  const QColor front = ink();
  if (isDaily3) CardParts::paintRibbon(painter, {isMirrored ? 34.0 : kWidth - 34 - 15, -3}, front, colorHex);
  body().paint(painter, bodyOrigin());
  if (stamp != TaskStamp::none) {
    StampBadgeView::paint(painter, stamp, stampCenter(), stampAngle());
  }
  paintFoot(painter, footRect());
  return pixmap;
}

void CardFace::paintFoot(QPainter& painter, const QRectF& foot) const {
  const bool isMirrored = direction == Qt::RightToLeft;
  const QColor front = ink();
  double trailing = 0;
  const auto fromTrail = [&](double width, double height) {
    const double x = isMirrored ? foot.left() + trailing : foot.right() - trailing - width;
    trailing += width + kFootGap;
    return QRectF(x, foot.center().y() - height / 2, width, height);
  };
  if (isPrivate) Symbols::paint(painter, QStringLiteral("lock"), fromTrail(kLock, kLock), front);
  if (!repository.isEmpty()) Symbols::paint(painter, QStringLiteral("branch"), fromTrail(kLock, kLock), front);
  if (!appID.isEmpty()) CardParts::paintAppTile(painter, fromTrail(kAppTile, kAppTile), appIcon, front);
  const QString counter = StickyChecklistBody::counter(text);
  if (!counter.isEmpty()) {
    painter.setFont(tokens::font(tokens::Type::DueLabel));
    painter.setPen(tokens::faded(front, hasMoreContrast ? 0.75 : 0.45));
    painter.drawText(fromTrail(std::ceil(counterWidth(counter)) + 1, 20), Qt::AlignCenter, counter);
  }
  if (due) {
    const QRectF slot(isMirrored ? foot.left() + trailing : foot.left(), foot.top(), foot.width() - trailing,
                      foot.height());
    CardParts::paintDueLabel(painter, slot, *due, front, direction);
  }
}

}  // namespace tarnwick
