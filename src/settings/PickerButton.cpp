// SPDX-License-Identifier: MIT
#include "settings/PickerButton.h"

#include "effects/Controls.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QActionGroup>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>

#include <algorithm>

namespace tarnwick {

namespace {

QIcon iconOf(const PickerButton::Option& option, double scale) {
  QPixmap pixmap(QSizeF(20 * scale, 20 * scale).toSize());
  pixmap.setDevicePixelRatio(scale);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  option.picture(painter, QRectF(0, 1, 20, 18));
  return QIcon(pixmap);
}

}  // namespace

PickerButton::PickerButton(const QString& name, std::vector<Option> options, QWidget* parent)
    : PlateButton(name, parent), m_name(name), m_options(std::move(options)), m_menu(new QMenu(this)) {
  styleMenu(*m_menu);
  auto* group = new QActionGroup(this);
  for (std::size_t i = 0; i < m_options.size(); ++i) {
    auto* action = m_menu->addAction(iconOf(m_options[i], devicePixelRatioF()), m_options[i].label);
    action->setCheckable(true);
    group->addAction(action);
    connect(action, &QAction::triggered, this, [this, i] {
      choose(i);
      Q_EMIT picked(value());
    });
  }
  connect(this, &QPushButton::clicked, this, &PickerButton::open);
  choose(0);
}

void PickerButton::setValue(const QString& value) {
  const auto found = std::find_if(m_options.begin(), m_options.end(),
                                  [&](const Option& option) { return option.value == value; });
  choose(found == m_options.end() ? 0 : static_cast<std::size_t>(found - m_options.begin()));
}

void PickerButton::choose(std::size_t index) {
  m_current = index;
  m_menu->actions().at(static_cast<qsizetype>(index))->setChecked(true);
  setAccessibleName(tr("%1: %2", "name of a picker, chosen value").arg(m_name, word()));
  updateGeometry();
  update();
}

void PickerButton::open() {
  m_menu->setActiveAction(m_menu->actions().at(static_cast<qsizetype>(m_current)));
  m_menu->popup(mapToGlobal(QPoint(4, height())));
}

void PickerButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up) {
    open();
    return;
  }
  PlateButton::keyPressEvent(event);
}

void PickerButton::paintLeading(QPainter& painter, const QRectF& box) const {
  painter.save();
  m_options[m_current].picture(painter, box);
  painter.restore();
}

void PickerButton::paintTrailing(QPainter& painter, const QRectF& box) const {
  Symbols::paint(painter, QStringLiteral("chevron"), box, QColor(tokens::kText2));
}

}  // namespace tarnwick
