// SPDX-License-Identifier: MIT
#include "board/BoardStrips.h"

#include "effects/AshLedge.h"
#include "effects/Controls.h"
#include "effects/PixmapCache.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "model/Color.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace tarnwick {
namespace {

QFont sized(tokens::Type role, double pixels, QFont::Weight weight) {
  QFont font = tokens::font(role);
  // Half sizes exist in the look; Qt's pixel sizes are whole, points at 72 per inch are not.
  font.setPixelSize(static_cast<int>(std::lround(pixels)));
  font.setWeight(weight);
  return font;
}

/// A quiet word on an accent-tinted plate.
class AccentChip final : public PaintedButton {
 public:
  explicit AccentChip(QWidget* parent) : PaintedButton(parent) {
    setFont(sized(tokens::Type::RowTitle, 13, QFont::DemiBold));
    setHalo({7, 7, 0, 0, 0, 0});
  }
  [[nodiscard]] QSize sizeHint() const override {
    return {static_cast<int>(std::ceil(QFontMetricsF(font()).horizontalAdvance(text()))) + 20, 24};
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor accent = QColor::fromRgb(tokens::kAccent);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isDown() || isHovered() ? accent : tokens::faded(accent, 0.16));
    painter.drawRoundedRect(rect(), 7, 7);
    painter.setFont(font());
    painter.setPen(isDown() || isHovered() ? QColor::fromRgb(tokens::kOnAccent) : accent);
    painter.drawText(rect(), Qt::AlignCenter, text());
  }
};

}  // namespace

// Update banner

UpdateBanner::UpdateBanner(QWidget* parent)
    : QWidget(parent),
      m_get(new AccentChip(this)),
      m_close(new ToolButton(QStringLiteral("close"), tr("Dismiss"), ToolButton::Plate::None, this)) {
  m_close->setFixedSize(24, 24);
  connect(m_get, &QAbstractButton::clicked, this, &UpdateBanner::downloadRequested);
  connect(m_close, &QAbstractButton::clicked, this, &UpdateBanner::dismissed);
}

QList<QWidget*> UpdateBanner::stops() const {
  return {m_get, m_close};
}

void UpdateBanner::setVersion(const QString& version) {
  if (version == m_version) return;
  m_version = version;
  m_get->setText(tr("Get %1").arg(version));
  m_get->resize(m_get->sizeHint());
  setAccessibleName(tr("Tarnwick %1 is ready").arg(version));
  resizeEvent(nullptr);
  update();
}

void UpdateBanner::resizeEvent(QResizeEvent* event) {
  if (event) QWidget::resizeEvent(event);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const QSize get = m_get->sizeHint();
  const auto x = [&](int at, int w) { return isMirrored ? width() - at - w : at; };
  m_close->move(x(width() - 10 - 24, 24), 6);
  m_get->setGeometry(x(width() - 10 - 24 - 8 - get.width(), get.width()), 6, get.width(), 24);
}

void UpdateBanner::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect().adjusted(1, 0, -1, 0), tokens::black(0.32));
  painter.fillRect(QRectF(1, 0, width() - 2, 1), tokens::white(0.08));
  painter.fillRect(QRectF(1, height() - 1, width() - 2, 1), tokens::white(0.05));
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  Symbols::paint(painter, QStringLiteral("download"), QRectF(isMirrored ? width() - 30 : 16, 11, 14, 14),
                 QColor::fromRgb(tokens::kText));
  const QFont font = sized(tokens::Type::RowTitle, 13, QFont::DemiBold);
  painter.setFont(font);
  painter.setPen(QColor::fromRgb(tokens::kText));
  const double room = width() - 38 - 10 - 24 - 8 - m_get->width() - 8;
  const QRectF text = isMirrored ? QRectF(width() - 38 - room, 0, room, height()) : QRectF(38, 0, room, height());
  painter.drawText(text, int(Qt::AlignVCenter) | int(isMirrored ? Qt::AlignRight : Qt::AlignLeft),
                   QFontMetricsF(font).elidedText(tr("Tarnwick %1 is ready").arg(m_version), Qt::ElideRight, room));
}

// Ashes strip

AshesStrip::AshesStrip(QWidget* parent) : PaintedButton(parent) {}

QSize AshesStrip::sizeHint() const {
  return {390, static_cast<int>(AshLedge::kHeight + AshLedge::kRise)};
}

void AshesStrip::setCount(int count) {
  const QString words = tr("%1 burned last night · Revive").arg(count);
  if (words == text()) return;
  setText(words);
  setAccessibleName(text());
  update();
}

bool AshesStrip::hitButton(const QPoint& point) const {
  return point.y() >= AshLedge::kRise;
}

void AshesStrip::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  // The ledge follows the board's round corners.
  QPainterPath clip;
  clip.addRoundedRect(QRectF(1, height() - 390 + 1, width() - 2, 388), 25, 25);
  painter.setClipPath(clip);
  painter.drawPixmap(0, 0, AshLedge::pixmap(width(), deviceScale(painter)));
  const QFont font = sized(tokens::Type::RowTitle, 12, QFont::DemiBold);
  const QColor ember = QColor::fromRgb(tokens::kEmber);
  const QColor color = isHovered() ? Color::blend(ember, Qt::white, 0.18) : ember;
  const double words = QFontMetricsF(font).horizontalAdvance(text());
  const double all = 14 + 6 + words;
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const double left = (width() - all) / 2;
  const QRectF row(left, height() - 7 - 16 + (isDown() ? 1 : 0), all, 16);
  Symbols::paint(painter, QStringLiteral("flame"),
                 QRectF(isMirrored ? row.right() - 14 : row.left(), row.top() + 1, 14, 14), color);
  painter.setFont(font);
  painter.setPen(color);
  painter.drawText(isMirrored ? row.adjusted(-2, 0, -20, 0) : row.adjusted(20, 0, 2, 0), Qt::AlignVCenter, text());
  if (hasFocus()) paintFocusRing(painter, row.adjusted(-10, -4, 10, 4), 8);
}

}  // namespace tarnwick
