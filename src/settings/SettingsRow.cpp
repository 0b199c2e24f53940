// SPDX-License-Identifier: MIT
#include "settings/SettingsRow.h"

#include "effects/Symbols.h"
#include "settings/SettingsText.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace tarnwick {

namespace {

class RowSymbol final : public QWidget {
 public:
  RowSymbol(QString symbol, QRgb color, QWidget* parent) : QWidget(parent), m_symbol(std::move(symbol)), m_color(color) {
    setFixedSize(18, 18);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    Symbols::paint(painter, m_symbol, rect(), m_color);
  }

 private:
  QString m_symbol;
  QColor m_color;
};

}  // namespace

SettingsRow::SettingsRow(const QString& title, const QString& help, QWidget* parent)
    : QWidget(parent), m_row(new QHBoxLayout(this)), m_lines(new QVBoxLayout) {
  m_row->setContentsMargins(13, 9, 13, 9);
  m_row->setSpacing(12);
  m_lines->setContentsMargins(0, 0, 0, 0);
  m_lines->setSpacing(0);
  m_lines->addStretch();
  m_lines->addWidget(new SettingsText(title, tokens::Type::RowTitle, tokens::kText));
  if (!help.isEmpty()) m_lines->addWidget(new SettingsText(help, tokens::Type::Help, tokens::kText3));
  m_lines->addStretch();
  m_row->addLayout(m_lines, 1);
  setMinimumHeight(46);
}

void SettingsRow::setSymbol(const QString& symbol, QRgb color) {
  m_row->insertWidget(0, new RowSymbol(symbol, color, this), 0, Qt::AlignVCenter);
}

void SettingsRow::setControl(QWidget* control, int overhang) {
  // Margins are not mirrored by themselves.
  const bool isMirrored = isRightToLeft();
  m_row->setContentsMargins(13 - (isMirrored ? overhang : 0), 9, 13 - (isMirrored ? 0 : overhang), 9);
  m_row->addWidget(control, 0, Qt::AlignVCenter);
}

SettingsText* SettingsRow::addLine(const QString& text, QRgb color) {
  auto* line = new SettingsText(text, tokens::Type::Help, color, this);
  m_lines->insertWidget(m_lines->count() - 1, line);
  return line;
}

}  // namespace tarnwick
