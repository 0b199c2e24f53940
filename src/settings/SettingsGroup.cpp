// SPDX-License-Identifier: MIT
#include "settings/SettingsGroup.h"

#include "effects/Tokens.h"

#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

namespace tarnwick {

namespace {
constexpr double kRadius = 11;
}

SettingsGroup::SettingsGroup(QWidget* parent) : QWidget(parent), m_rows(new QVBoxLayout(this)) {
  m_rows->setContentsMargins(0, 0, 0, 0);
  m_rows->setSpacing(0);
}

void SettingsGroup::addRow(QWidget* row) { m_rows->addWidget(row); }

void SettingsGroup::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF plate(rect());
  QPainterPath outline;
  outline.addRoundedRect(plate, kRadius, kRadius);
  painter.fillPath(outline, QColor(tokens::kGroup));

  painter.save();
  painter.setClipPath(outline);
  painter.setPen(QPen(tokens::white(.06), 1));
  painter.setBrush(Qt::NoBrush);
  // Taller than the plate, so that only its top edge catches light.
  painter.drawRoundedRect(plate.adjusted(-.5, .5, .5, 40), kRadius, kRadius);
  for (int i = 1; i < m_rows->count(); ++i) {
    const auto* row = m_rows->itemAt(i)->widget();
    if (row->isHidden()) continue;
    painter.fillRect(QRectF(0, row->y(), width(), 1), tokens::white(.07));
  }
  painter.restore();

  painter.setPen(QPen(tokens::black(.35), 1));
  painter.drawRoundedRect(plate.adjusted(.5, .5, -.5, -.5), kRadius, kRadius);
}

}  // namespace tarnwick
