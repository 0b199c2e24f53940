// SPDX-License-Identifier: MIT
#include "board/CardParts.h"

#include "effects/PixmapCache.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "model/Color.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QIcon>
#include <QPainter>
#include <QPainterPath>

namespace tarnwick {
namespace {

constexpr double kCircleGrid = 20;  // the grid that the crumpled outline is drawn on

QPainterPath crumpledOutline() {
  static const QPolygonF points{{10, 1.6},    {13.3, 2.5},  {16.3, 4.2},  {18, 7.4},   {17.6, 10.9},
                                {16.5, 14.2}, {13.8, 16.8}, {10.1, 18.1}, {6.3, 17.3}, {3.4, 15.3},
                                {1.7, 12},    {1.9, 8.3},   {3.5, 5.1},   {6.4, 2.6}};
  QPainterPath path;
  path.addPolygon(points);
  path.closeSubpath();
  return path;
}

QPainterPath creases() {
  QPainterPath path;
  path.moveTo(6, 7);
  path.lineTo(9.2, 8.3);
  path.lineTo(13.6, 6.4);
  path.moveTo(9.2, 8.3);
  path.lineTo(7.8, 12.6);
  path.lineTo(11.2, 14.5);
  path.moveTo(9.2, 8.3);
  path.lineTo(13.1, 11);
  path.lineTo(14.5, 10.5);
  return path;
}

}  // namespace

void CardParts::paintCrushCircle(QPainter& painter, const QPointF& center, double diameter, const QColor& ink,
                                 CircleState state) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(center);
  if (state == CircleState::Rest) {
    painter.setPen(QPen(tokens::faded(ink, 0.72), 1.6));
    painter.setBrush(tokens::white(0.18));
    painter.drawEllipse(QPointF(0, 0), diameter / 2, diameter / 2);
    painter.restore();
    return;
  }
  const double scale = diameter / 16.4 * (state == CircleState::Pressed ? 0.86 : 1.0);
  painter.scale(scale, scale);
  painter.translate(-kCircleGrid / 2, -kCircleGrid / 2);
  const bool isPressed = state == CircleState::Pressed;
  painter.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(isPressed ? ink : tokens::faded(ink, 0.12));
  painter.drawPath(crumpledOutline());
  painter.strokePath(creases(),
                     QPen(isPressed ? tokens::white(0.75) : ink, 1.1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.restore();
}

namespace {
constexpr double kDueHeight = 19;
constexpr double kDueIcon = 11;
constexpr double kDueGap = 4;
constexpr double kDueLead = 6;
constexpr double kDueTrail = 7;
}  // namespace

double CardParts::dueLabelWidth(const DueLabel& label) {
  const QFontMetricsF metrics(tokens::font(tokens::Type::DueLabel));
  return kDueLead + kDueIcon + kDueGap + metrics.horizontalAdvance(label.text) +
         (label.repeats ? kDueGap + kDueIcon : 0) + kDueTrail;
}

QRectF CardParts::paintDueLabel(QPainter& painter, const QRectF& slot, const DueLabel& label, const QColor& ink,
                                Qt::LayoutDirection direction) {
  const bool isMirrored = direction == Qt::RightToLeft;
  const double width = std::min(slot.width(), dueLabelWidth(label));
  const QRectF rect(isMirrored ? slot.right() - width : slot.left(), slot.top() + (slot.height() - kDueHeight) / 2,
                    width, kDueHeight);
  const QColor front = label.isOverdue ? QColor(Qt::white) : ink;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(label.isOverdue ? QColor::fromRgb(tokens::kOverdue) : tokens::white(0.38));
  painter.drawRoundedRect(rect, 5, 5);
  if (!label.isOverdue) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(tokens::black(0.12), 0.5));
    painter.drawRoundedRect(rect.adjusted(0.25, 0.25, -0.25, -0.25), 4.75, 4.75);
  }
  const auto place = [&](double fromLead, double w) {
    return isMirrored ? QRectF(rect.right() - fromLead - w, rect.top(), w, rect.height())
                      : QRectF(rect.left() + fromLead, rect.top(), w, rect.height());
  };
  const auto icon = [&](const QString& name, double at) {
    const QRectF box = place(at, kDueIcon);
    Symbols::paint(painter, name, QRectF(box.left(), box.center().y() - kDueIcon / 2, kDueIcon, kDueIcon), front);
  };
  icon(label.isOverdue ? QStringLiteral("clock") : QStringLiteral("calendar"), kDueLead);
  const QFont font = tokens::font(tokens::Type::DueLabel);
  const double textAt = kDueLead + kDueIcon + kDueGap;
  const double textWidth = width - textAt - kDueTrail - (label.repeats ? kDueGap + kDueIcon : 0);
  painter.setFont(font);
  painter.setPen(front);
  const QString text = QFontMetricsF(font).elidedText(label.text, Qt::ElideRight, textWidth + 0.5);
  painter.drawText(place(textAt, textWidth).adjusted(-1, 0, 1, 0),
                   int(Qt::AlignVCenter) | int(isMirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::TextSingleLine, text);
  if (label.repeats) icon(QStringLiteral("repeat"), textAt + textWidth + kDueGap);
  painter.restore();
  return rect;
}

void CardParts::paintRibbon(QPainter& painter, const QPointF& topLeft, const QColor& ink, const QString& paperHex) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(topLeft);
  QPainterPath ribbon;
  ribbon.addPolygon(QPolygonF{{0, 0}, {15, 0}, {15, 21.5}, {7.5, 17}, {0, 21.5}});
  ribbon.closeSubpath();
  painter.fillPath(ribbon.translated(0.6, 1.2), tokens::black(0.25));
  painter.fillPath(ribbon, ink);
  painter.setPen(QPen(Color::blend(Color::fromHex(paperHex), Qt::white, 0.35), 1.5, Qt::SolidLine, Qt::RoundCap));
  for (const double x : {4.4, 7.5, 10.6}) painter.drawLine(QPointF(x, 4.5), QPointF(x, 11.5));
  painter.restore();
}

QRectF CardParts::hoverBarSlot(const QRectF& rect, int count, int index, Qt::LayoutDirection direction) {
  if (direction == Qt::RightToLeft) index = count - 1 - index;
  const double step = rect.width() / count;
  const QSizeF size(rect.height() >= 32 ? 34 : 30, rect.height() >= 32 ? 26 : 24);
  const QPointF center(rect.left() + step * (index + 0.5), rect.center().y());
  return {center.x() - size.width() / 2, center.y() - size.height() / 2, size.width(), size.height()};
}

void CardParts::paintHoverBar(QPainter& painter, const QRectF& rect, const QColor& ink, const QStringList& symbols,
                              int hot, double radius) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(tokens::faded(ink, 0.92));
  painter.drawRoundedRect(rect, radius, radius);
  const int count = static_cast<int>(symbols.size());
  for (int i = 0; i < count; ++i) {
    const QRectF slot = hoverBarSlot(rect, count, i, painter.layoutDirection());
    if (i == hot) {
      painter.setBrush(tokens::white(0.20));
      painter.drawRoundedRect(slot, 6, 6);
    }
    Symbols::paint(painter, symbols[i], QRectF(slot.center().x() - 7.5, slot.center().y() - 7.5, 15, 15),
                   QColor::fromRgb(tokens::kText));
  }
  painter.restore();
}

void CardParts::paintAppTile(QPainter& painter, const QRectF& rect, const QIcon& icon, const QColor& ink) {
  if (icon.isNull()) {
    Symbols::paint(painter, QStringLiteral("app"), rect.adjusted(1, 1, -1, -1), ink);
    return;
  }
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  const QPixmap pixmap = icon.pixmap(rect.size().toSize(), deviceScale(painter));
  painter.drawPixmap(rect, pixmap, QRectF(pixmap.rect()));
  painter.restore();
}

QColor CardParts::tagColor(TaskTag tag) {
  switch (tag) {
    case TaskTag::none:
      return {};
    case TaskTag::red:
      return QColor::fromRgb(0xE5484D);
    case TaskTag::orange:
      return QColor::fromRgb(0xF08A24);
    case TaskTag::yellow:
      return QColor::fromRgb(0xEBC51E);
    case TaskTag::green:
      return QColor::fromRgb(0x2FB573);
    case TaskTag::blue:
      return QColor::fromRgb(0x3B82F6);
    case TaskTag::pink:
      return QColor::fromRgb(0xEC5FA0);
  }
  return {};
}

QString CardParts::tagName(TaskTag tag) {
  const auto tr = [](const char* text) { return QCoreApplication::translate("tarnwick::CardParts", text); };
  switch (tag) {
    case TaskTag::none:
      return tr("No tag");
    case TaskTag::red:
      return tr("Red");
    case TaskTag::orange:
      return tr("Orange");
    case TaskTag::yellow:
      return tr("Yellow");
    case TaskTag::green:
      return tr("Green");
    case TaskTag::blue:
      return tr("Blue");
    case TaskTag::pink:
      return tr("Pink");
  }
  return {};
}

}  // namespace tarnwick
