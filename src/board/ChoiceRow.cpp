// SPDX-License-Identifier: MIT
#include "board/ChoiceRow.h"

#include "effects/PlainToolTip.h"

#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QToolTip>

namespace tarnwick {
namespace {

class ChoiceItem final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  ChoiceItem(ChoiceRow* row, int index) : m_row(row), m_index(index) {}

  [[nodiscard]] bool isValid() const override { return m_row && m_index < m_row->count(); }
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QWindow* window() const override { return m_row ? m_row->window()->windowHandle() : nullptr; }
  [[nodiscard]] QAccessibleInterface* parent() const override {
    return m_row ? QAccessible::queryAccessibleInterface(m_row.data()) : nullptr;
  }
  [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  [[nodiscard]] int childCount() const override { return 0; }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  [[nodiscard]] QAccessible::Role role() const override { return m_row ? m_row->itemRole() : QAccessible::RadioButton; }
  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name && isValid() ? m_row->itemName(m_index) : QString();
  }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state;
    state.invalid = !isValid();
    state.invisible = !isValid() || !m_row->isVisible();
    if (!isValid()) return state;
    const bool isCurrent = m_row->current() == m_index;
    state.focusable = true;
    state.selectable = true;
    state.selected = isCurrent;
    state.checkable = role() == QAccessible::RadioButton;
    state.checked = state.checkable && isCurrent;
    state.focused = isCurrent && m_row->hasFocus();
    return state;
  }
  [[nodiscard]] QRect rect() const override {
    if (!isValid()) return {};
    const QRect local = m_row->itemRect(m_index).toAlignedRect();
    return {m_row->mapToGlobal(local.topLeft()), local.size()};
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }
  [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
  [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }
  void doAction(const QString& name) override {
    if (name == pressAction() && isValid()) m_row->choose(m_index);
  }

 private:
  QPointer<ChoiceRow> m_row;
  int m_index;
};

class ChoiceList final : public QAccessibleWidget {
 public:
  explicit ChoiceList(ChoiceRow* row)
      : QAccessibleWidget(row,
                          row->itemRole() == QAccessible::PageTab ? QAccessible::PageTabList : QAccessible::Grouping) {}
  ~ChoiceList() override {
    for (const QAccessible::Id id : m_items) QAccessible::deleteAccessibleInterface(id);
  }
  ChoiceList(const ChoiceList&) = delete;
  ChoiceList& operator=(const ChoiceList&) = delete;

  [[nodiscard]] int childCount() const override { return row() ? row()->count() : 0; }
  [[nodiscard]] QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    while (m_items.size() <= index) {
      m_items.append(QAccessible::registerAccessibleInterface(new ChoiceItem(row(), static_cast<int>(m_items.size()))));
    }
    return QAccessible::accessibleInterface(m_items[index]);
  }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
    for (int i = 0; i < m_items.size(); ++i) {
      if (QAccessible::accessibleInterface(m_items[i]) == child) return i;
    }
    return -1;
  }
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
    return row() ? child(row()->indexAt(row()->mapFromGlobal(QPoint(x, y)))) : nullptr;
  }
  [[nodiscard]] QAccessibleInterface* focusChild() const override {
    return row() && row()->hasFocus() ? child(row()->current()) : nullptr;
  }

 private:
  [[nodiscard]] ChoiceRow* row() const { return qobject_cast<ChoiceRow*>(object()); }
  mutable QList<QAccessible::Id> m_items;
};

QAccessibleInterface* makeChoiceList(const QString& /*className*/, QObject* object) {
  auto* row = qobject_cast<ChoiceRow*>(object);
  return row ? new ChoiceList(row) : nullptr;
}

void installOnce() {
  static const bool isInstalled = [] {
    QAccessible::installFactory(makeChoiceList);
    return true;
  }();
  Q_UNUSED(isInstalled)
}

}  // namespace

ChoiceRow::ChoiceRow(const QString& accessibleName, QWidget* parent) : QWidget(parent) {
  installOnce();
  setAccessibleName(accessibleName);
  setFocusPolicy(Qt::TabFocus);
  setMouseTracking(true);
}

void ChoiceRow::setCurrent(int index) {
  if (index == m_current) return;
  m_current = index;
  currentMoved();
  update();
  if (hasFocus() && QAccessible::isActive() && index >= 0) {
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(index);
    QAccessible::updateAccessibility(&event);
  }
}

int ChoiceRow::indexAt(const QPointF& point) const {
  for (int i = 0; i < count(); ++i) {
    if (itemRect(i).contains(point)) return i;
  }
  return -1;
}

void ChoiceRow::choose(int index) {
  if (index < 0 || index >= count()) return;
  setCurrent(index);
  Q_EMIT chosen(index);
}

QRectF ChoiceRow::mirrored(const QRectF& rect) const {
  if (layoutDirection() != Qt::RightToLeft) return rect;
  return {width() - rect.right(), rect.top(), rect.width(), rect.height()};
}

void ChoiceRow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setLayoutDirection(layoutDirection());
  paintGround(painter);
  for (int i = 0; i < count(); ++i) {
    paintItem(painter, i, {i == m_current, i == m_hover, i == m_pressed && i == m_hover, hasFocus() && i == m_current});
  }
  paintOver(painter);
}

void ChoiceRow::mousePressEvent(QMouseEvent* event) {
  const int index = event->button() == Qt::LeftButton ? indexAt(event->position()) : -1;
  if (index < 0) {
    event->ignore();
    return;
  }
  m_pressed = m_hover = index;
  update();
}

void ChoiceRow::mouseMoveEvent(QMouseEvent* event) {
  const int index = indexAt(event->position());
  if (index != m_hover) {
    m_hover = index;
    update();
  }
}

void ChoiceRow::mouseReleaseEvent(QMouseEvent* event) {
  const int pressed = std::exchange(m_pressed, -1);
  update();
  if (pressed >= 0 && indexAt(event->position()) == pressed) choose(pressed);
}

void ChoiceRow::leaveEvent(QEvent* event) {
  m_hover = -1;
  update();
  QWidget::leaveEvent(event);
}

void ChoiceRow::keyPressEvent(QKeyEvent* event) {
  const int towardsEnd = layoutDirection() == Qt::RightToLeft ? -1 : 1;
  int wanted = m_current;
  switch (event->key()) {
    case Qt::Key_Left:
      wanted -= towardsEnd;
      break;
    case Qt::Key_Right:
      wanted += towardsEnd;
      break;
    case Qt::Key_Home:
      wanted = 0;
      break;
    case Qt::Key_End:
      wanted = count() - 1;
      break;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      choose(m_current);
      return;
    default:
      event->ignore();
      return;
  }
  wanted = std::clamp(wanted, 0, std::max(0, count() - 1));
  if (wanted != m_current) choose(wanted);
}

void ChoiceRow::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void ChoiceRow::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

bool ChoiceRow::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const int index = indexAt(help->pos());
    QToolTip::showText(help->globalPos(), index < 0 ? QString() : plainToolTip(itemName(index)), this);
    return true;
  }
  return QWidget::event(event);
}

}  // namespace tarnwick
