// SPDX-License-Identifier: MIT
#include "settings/SettingsTabBar.h"

#include "effects/Controls.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QMouseEvent>
#include <QPainter>

namespace tarnwick {

namespace {
constexpr QSizeF kTab{84, 50};
constexpr int kPitch = 90;
constexpr int kRow = 72;
constexpr double kTilt = -.8;
}  // namespace

SettingsTabBar::SettingsTabBar(QWidget* parent) : QTabBar(parent) {
  setDrawBase(false);
  setExpanding(false);
  setUsesScrollButtons(false);
  setMouseTracking(true);
  setFocusPolicy(Qt::TabFocus);
  setElideMode(Qt::ElideNone);
}

void SettingsTabBar::addPane(const QString& symbol, const QString& label) {
  m_symbols.push_back(symbol);
  addTab(label);
}

QSize SettingsTabBar::tabSizeHint(int /*index*/) const { return {kPitch, kRow}; }

void SettingsTabBar::mouseMoveEvent(QMouseEvent* event) {
  m_hovered = tabAt(event->position().toPoint());
  update();
  QTabBar::mouseMoveEvent(event);
}

void SettingsTabBar::leaveEvent(QEvent* event) {
  m_hovered = -1;
  update();
  QTabBar::leaveEvent(event);
}

void SettingsTabBar::wheelEvent(QWheelEvent* event) { event->ignore(); }

void SettingsTabBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (int i = 0; i < count(); ++i) paintTab(painter, i);
}

void SettingsTabBar::paintTab(QPainter& painter, int index) const {
  const QRectF room(tabRect(index));
  const QRectF tab(room.center().x() - kTab.width() / 2, 12, kTab.width(), kTab.height());
  const bool isSelected = index == currentIndex();
  painter.save();
  painter.translate(tab.center());
  if (isSelected) painter.rotate(kTilt);
  const QRectF box(-kTab.width() / 2, -kTab.height() / 2, kTab.width(), kTab.height());
  QColor color(tokens::kText3);
  if (isSelected) {
    paintPaperLabel(painter, box, 5);
    color = QColor(tokens::kOnLabel);
  } else if (index == m_hovered) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(tokens::white(.08));
    painter.drawRoundedRect(box, 6, 6);
    color = QColor(tokens::kText2);
  }
  Symbols::paint(painter, m_symbols[static_cast<std::size_t>(index)], QRectF(-9.5, box.top() + 6, 19, 19), color);
  auto face = tokens::font(tokens::Type::RowTitle);
  face.setPixelSize(12);
  painter.setFont(face);
  painter.setPen(color);
  painter.drawText(QRectF(box.left(), box.top() + 28, box.width(), 17), static_cast<int>(Qt::AlignCenter),
                   tabText(index));
  if (isSelected && hasFocus()) paintFocusRing(painter, box, 5);
  painter.restore();
}

}  // namespace tarnwick
