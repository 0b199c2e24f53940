// SPDX-License-Identifier: MIT
#include "board/NoteWallAccessible.h"

#include "board/NoteWall.h"

#include <array>

namespace tarnwick {
namespace {

constexpr std::array kParts{CardPart::Circle, CardPart::Edit, CardPart::ChangeColor, CardPart::Daily3,
                            CardPart::TearOff};

QRect onScreen(const NoteWall& wall, const QRectF& rect) {
  return {wall.mapToGlobal(rect.topLeft().toPoint()), rect.size().toSize()};
}

/// What note items and their buttons have in common.
class WallPiece : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  WallPiece(NoteWall* wall, const QUuid& id) : m_wall(wall), m_id(id) {}

  [[nodiscard]] bool isValid() const override { return m_wall && m_wall->indexOf(m_id) >= 0; }
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QWindow* window() const override { return m_wall ? m_wall->window()->windowHandle() : nullptr; }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }
  [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
  [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

 protected:
  [[nodiscard]] QRectF cardRect() const {
    const int index = m_wall ? m_wall->indexOf(m_id) : -1;
    return index < 0 ? QRectF() : m_wall->cardRect(index);
  }
  [[nodiscard]] TaskStickyCard* card() const { return m_wall ? m_wall->card(m_id) : nullptr; }
  [[nodiscard]] const QPointer<NoteWall>& wall() const { return m_wall; }
  [[nodiscard]] const QUuid& id() const { return m_id; }

 private:
  QPointer<NoteWall> m_wall;
  QUuid m_id;
};

class ToolPiece final : public WallPiece {
 public:
  ToolPiece(NoteWall* wall, const QUuid& id, CardPart part, QAccessible::Id parent)
      : WallPiece(wall, id), m_part(part), m_parent(parent) {}

  [[nodiscard]] QAccessibleInterface* parent() const override { return QAccessible::accessibleInterface(m_parent); }
  [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  [[nodiscard]] int childCount() const override { return 0; }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Button; }
  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name && card() ? card()->partName(m_part) : QString();
  }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state;
    state.invalid = !isValid();
    state.invisible = !isValid() || !wall()->isVisible();
    if (m_part == CardPart::Daily3 && card()) {
      state.checkable = true;
      state.checked = card()->face().isDaily3;
    }
    return state;
  }
  [[nodiscard]] QRect rect() const override {
    if (!isValid()) return {};
    QRectF place = card()->face().circleHitRect();
    if (m_part != CardPart::Circle) {
      place = CardParts::hoverBarSlot(card()->face().hoverBarRect(), 4,
                                      static_cast<int>(m_part) - static_cast<int>(CardPart::Edit),
                                      wall()->layoutDirection());
    }
    return onScreen(*wall(), place.translated(cardRect().topLeft()));
  }
  void doAction(const QString& name) override {
    if (name == pressAction() && isValid()) wall()->activate(id(), m_part);
  }

 private:
  CardPart m_part;
  QAccessible::Id m_parent;
};

class NotePiece final : public WallPiece {
 public:
  using WallPiece::WallPiece;
  ~NotePiece() override {
    for (const QAccessible::Id id : m_tools) QAccessible::deleteAccessibleInterface(id);
  }
  NotePiece(const NotePiece&) = delete;
  NotePiece& operator=(const NotePiece&) = delete;

  [[nodiscard]] QAccessibleInterface* parent() const override {
    return wall() ? QAccessible::queryAccessibleInterface(wall().data()) : nullptr;
  }
  [[nodiscard]] int childCount() const override { return static_cast<int>(kParts.size()); }
  [[nodiscard]] QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount() || !isValid()) return nullptr;
    if (m_tools.isEmpty()) {
      auto* self = const_cast<NotePiece*>(this);  // NOLINT: the framework's ids are for mutable objects
      for (const CardPart part : kParts) {
        m_tools.append(
            QAccessible::registerAccessibleInterface(new ToolPiece(wall(), id(), part, QAccessible::uniqueId(self))));
      }
    }
    return QAccessible::accessibleInterface(m_tools[index]);
  }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
    for (int i = 0; i < m_tools.size(); ++i) {
      if (QAccessible::accessibleInterface(m_tools[i]) == child) return i;
    }
    return -1;
  }
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
    for (int i = 0; i < childCount(); ++i) {
      if (auto* piece = child(i); piece && piece->rect().contains(x, y)) return piece;
    }
    return nullptr;
  }
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name && card() ? card()->accessibleName() : QString();
  }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state;
    state.invalid = !isValid();
    state.focusable = true;
    state.selectable = true;
    state.invisible = !isValid() || !wall()->isVisible();
    if (!isValid()) return state;
    state.selected = wall()->selection() == id();
    state.focused = state.selected && wall()->hasFocus();
    state.offscreen = !QRectF(wall()->rect()).intersects(cardRect());
    return state;
  }
  [[nodiscard]] QRect rect() const override { return isValid() ? onScreen(*wall(), cardRect()) : QRect(); }
  [[nodiscard]] QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
  void doAction(const QString& name) override {
    if (!isValid()) return;
    if (name == setFocusAction()) {
      wall()->setFocus();
      wall()->setSelection(id());
    } else if (name == pressAction()) {
      wall()->activate(id(), CardPart::Edit);
    }
  }

 private:
  mutable QList<QAccessible::Id> m_tools;
};

QAccessibleInterface* makeWall(const QString& /*className*/, QObject* object) {
  auto* wall = qobject_cast<NoteWall*>(object);
  return wall ? new NoteWallAccessible(wall) : nullptr;
}

}  // namespace

NoteWallAccessible::NoteWallAccessible(NoteWall* wall) : QAccessibleWidget(wall, QAccessible::List) {}

NoteWallAccessible::~NoteWallAccessible() {
  forget();
}

void NoteWallAccessible::install() {
  static const bool isInstalled = [] {
    QAccessible::installFactory(makeWall);
    return true;
  }();
  Q_UNUSED(isInstalled)
}

NoteWall* NoteWallAccessible::wall() const {
  return qobject_cast<NoteWall*>(object());
}

void NoteWallAccessible::forget() {
  for (const QAccessible::Id id : std::as_const(m_items)) QAccessible::deleteAccessibleInterface(id);
  m_items.clear();
}

void NoteWallAccessible::forgetGone() {
  for (auto it = m_items.begin(); it != m_items.end();) {
    if (wall()->indexOf(it.key()) >= 0) {
      ++it;
      continue;
    }
    QAccessible::deleteAccessibleInterface(it.value());
    it = m_items.erase(it);
  }
}

void NoteWallAccessible::notesChanged(NoteWall& wall) {
  auto* self = QAccessible::queryAccessibleInterface(&wall);
  if (auto* known = dynamic_cast<NoteWallAccessible*>(self)) known->forgetGone();
  if (!QAccessible::isActive()) return;
  QAccessibleEvent event(&wall, QAccessible::ObjectReorder);
  QAccessible::updateAccessibility(&event);
}

void NoteWallAccessible::selectionChanged(NoteWall& wall, int index) {
  if (index < 0 || !QAccessible::isActive()) return;
  for (const auto type : {QAccessible::Selection, QAccessible::Focus}) {
    QAccessibleEvent event(&wall, type);
    event.setChild(index);
    QAccessible::updateAccessibility(&event);
  }
}

int NoteWallAccessible::childCount() const {
  return wall() ? static_cast<int>(wall()->notes().size()) : 0;
}

QAccessibleInterface* NoteWallAccessible::child(int index) const {
  if (index < 0 || index >= childCount()) return nullptr;
  const QUuid id = wall()->notes()[static_cast<std::size_t>(index)]->id();
  const auto known = m_items.constFind(id);
  if (known != m_items.constEnd()) {
    if (auto* piece = QAccessible::accessibleInterface(*known)) return piece;
  }
  auto* piece = new NotePiece(wall(), id);
  m_items.insert(id, QAccessible::registerAccessibleInterface(piece));
  return piece;
}

int NoteWallAccessible::indexOfChild(const QAccessibleInterface* child) const {
  for (auto it = m_items.constBegin(); it != m_items.constEnd(); ++it) {
    if (QAccessible::accessibleInterface(it.value()) == child) return wall()->indexOf(it.key());
  }
  return -1;
}

QAccessibleInterface* NoteWallAccessible::childAt(int x, int y) const {
  return wall() ? child(wall()->indexAt(wall()->mapFromGlobal(QPoint(x, y)))) : nullptr;
}

QAccessibleInterface* NoteWallAccessible::focusChild() const {
  if (!wall() || !wall()->hasFocus() || !wall()->selection()) return nullptr;
  return child(wall()->indexOf(*wall()->selection()));
}

}  // namespace tarnwick
