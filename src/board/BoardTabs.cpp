// SPDX-License-Identifier: MIT
#include "board/BoardTabs.h"

#include "board/BoardQueries.h"
#include "effects/Controls.h"
#include "effects/PixmapCache.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>

namespace tarnwick {
namespace {

constexpr double kPadding = 9;
constexpr double kGap = 4;
constexpr double kMaxText = 96;
constexpr double kTally = 12;
constexpr double kTallyGap = 4;
constexpr double kFade = 18;
constexpr double kEdge = 3;  // room for a turned label and the focus ring

}  // namespace

BoardTabs::BoardTabs(QWidget* parent) : ChoiceRow(tr("Boards"), parent) {
  setFixedHeight(32);
}

void BoardTabs::setTabs(const QStringList& names, const QString& selected) {
  const auto index = std::max<qsizetype>(0, names.indexOf(selected));
  if (names == m_names && index == current()) return;
  m_names = names;
  m_widths.clear();
  updateGeometry();
  setCurrent(static_cast<int>(index));
  reveal(current());
  update();
}

QString BoardTabs::itemName(int index) const {
  const QString& name = m_names[index];
  if (name == kAllBoards) return tr("All");
  if (name == kFocusBoard) return tr("Focus");
  return name;
}

double BoardTabs::widthOf(int index) const {
  const QFont font = tokens::font(tokens::Type::RowTitle);
  if (m_widths.size() != m_names.size() || m_measured != font) {
    m_measured = font;
    m_widths.clear();
    const QFontMetricsF metrics(font);
    for (int i = 0; i < count(); ++i) {
      const double text = std::min(kMaxText, std::ceil(metrics.horizontalAdvance(itemName(i))));
      m_widths.append(text + 2 * kPadding + (m_names[i] == kFocusBoard ? kTally + kTallyGap : 0));
    }
  }
  return m_widths[index];
}

int BoardTabs::contentWidth() const {
  double width = 2 * kEdge;
  for (int i = 0; i < count(); ++i) width += widthOf(i) + (i > 0 ? kGap : 0);
  return static_cast<int>(std::ceil(width));
}

QRectF BoardTabs::itemRect(int index) const {
  double x = kEdge - m_offset;
  for (int i = 0; i < index; ++i) x += widthOf(i) + kGap;
  return mirrored(QRectF(x, (height() - 26) / 2.0, widthOf(index), 26));
}

void BoardTabs::scrollTo(double offset) {
  m_offset = std::clamp(offset, 0.0, std::max(0.0, static_cast<double>(contentWidth() - width())));
  update();
}

void BoardTabs::reveal(int index) {
  if (index < 0 || index >= count()) return;
  double left = kEdge;
  for (int i = 0; i < index; ++i) left += widthOf(i) + kGap;
  const double right = left + widthOf(index);
  if (left - kFade < m_offset) scrollTo(left - kFade);
  if (right + kFade > m_offset + width()) scrollTo(right + kFade - width());
}

void BoardTabs::currentMoved() {
  reveal(current());
}

void BoardTabs::resizeEvent(QResizeEvent* event) {
  ChoiceRow::resizeEvent(event);
  scrollTo(m_offset);
  reveal(current());
}

void BoardTabs::wheelEvent(QWheelEvent* event) {
  const QPoint way = event->pixelDelta().isNull() ? event->angleDelta() / 3 : event->pixelDelta();
  scrollTo(m_offset - (std::abs(way.x()) > std::abs(way.y()) ? way.x() : way.y()));
  event->accept();
}

void BoardTabs::paintEvent(QPaintEvent* event) {
  if (contentWidth() <= width()) {
    ChoiceRow::paintEvent(event);
    return;
  }
  // The cut ends fade: painted apart, then thinned.
  QPainter out(this);
  QPixmap strip = clearPixmap(size(), deviceScale(out));
  QPainter painter(&strip);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setLayoutDirection(layoutDirection());
  for (int i = 0; i < count(); ++i) paintItem(painter, i, {i == current(), false, false, hasFocus() && i == current()});
  painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
  QLinearGradient mask(0, 0, width(), 0);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const bool isCutAtLead = m_offset > 0.5;
  const bool isCutAtTrail = m_offset < contentWidth() - width() - 0.5;
  const bool isCutLeft = isMirrored ? isCutAtTrail : isCutAtLead;
  const bool isCutRight = isMirrored ? isCutAtLead : isCutAtTrail;
  mask.setColorAt(0, isCutLeft ? Qt::transparent : Qt::black);
  mask.setColorAt(kFade / width(), Qt::black);
  mask.setColorAt(1 - kFade / width(), Qt::black);
  mask.setColorAt(1, isCutRight ? Qt::transparent : Qt::black);
  painter.fillRect(rect(), mask);
  painter.end();
  out.drawPixmap(0, 0, strip);
}

void BoardTabs::paintItem(QPainter& painter, int index, const ItemState& state) {
  const QRectF rect = itemRect(index);
  if (rect.right() < -8 || rect.left() > width() + 8) return;
  QColor ink = QColor::fromRgb(tokens::kText2);
  painter.save();
  if (state.isCurrent) {
    paintPaperLabel(painter, rect, 4, -1.2);
    ink = QColor::fromRgb(tokens::kOnLabel);
    painter.translate(rect.center());
    painter.rotate(-1.2);
    painter.translate(-rect.center());
  } else if (state.isHovered) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(tokens::white(state.isPressed ? 0.05 : 0.08));
    painter.drawRoundedRect(rect, 6, 6);
  }
  QRectF text = rect.adjusted(kPadding, 0, -kPadding, 0);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  if (m_names[index] == kFocusBoard) {
    const QRectF tally(isMirrored ? text.right() - kTally : text.left(), rect.center().y() - kTally / 2, kTally,
                       kTally);
    Symbols::paint(painter, QStringLiteral("tally"), tally, ink);
    isMirrored ? text.setRight(text.right() - kTally - kTallyGap) : text.setLeft(text.left() + kTally + kTallyGap);
  }
  const QFont font = tokens::font(tokens::Type::RowTitle);
  painter.setFont(font);
  painter.setPen(ink);
  painter.drawText(text.adjusted(-1, 0, 1, 0), int(Qt::AlignCenter) | Qt::TextSingleLine,
                   QFontMetricsF(font).elidedText(itemName(index), Qt::ElideRight, text.width() + 1));
  painter.restore();
  if (state.hasFocus) paintFocusRing(painter, rect.adjusted(-1, -1, 1, 1), 6);
}

}  // namespace tarnwick
