// SPDX-License-Identifier: MIT
// The wall's answers to pointer, wheel and keys.
#include "board/BoardKeys.h"
#include "board/NoteWall.h"
#include "board/NoteWallAccessible.h"
#include "effects/Controls.h"
#include "effects/PlainToolTip.h"
#include "model/NotificationCenter.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"

#include <QActionGroup>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

namespace tarnwick {
namespace {

using namespace std::chrono_literals;

constexpr double kWheelStep = NoteWall::kRowPitch / 2;
constexpr double kThumbReach = 10;

/// The card that hangs on the pointer, also beyond the board's edge.
class DragSheet final : public QWidget {
 public:
  DragSheet(QPixmap pixmap, double opacity)
      : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint), m_pixmap(std::move(pixmap)), m_opacity(opacity) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_ShowWithoutActivating);
    resize((QSizeF(m_pixmap.size()) / m_pixmap.devicePixelRatio()).toSize());
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setOpacity(m_opacity);
    painter.drawPixmap(0, 0, m_pixmap);
  }

 private:
  QPixmap m_pixmap;
  double m_opacity;
};

}  // namespace

void NoteWall::activate(const QUuid& id, CardPart part, int line) {
  TaskStickyCard* target = card(id);
  const int index = indexOf(id);
  if (!target || index < 0) return;
  switch (part) {
    case CardPart::Circle:
      target->crush();
      break;
    case CardPart::Box:
      target->toggleLine(line);
      break;
    case CardPart::Edit:
      Q_EMIT editRequested(id);
      break;
    case CardPart::ChangeColor:
      target->cycleColor();
      break;
    case CardPart::Daily3:
      target->toggleDaily3();
      break;
    case CardPart::TearOff:
      Q_EMIT tearOffRequested(id, desktopRect(cardRect(index)));
      break;
    case CardPart::None:
    case CardPart::Paper:
      break;
  }
}

void NoteWall::setHover(const std::optional<QUuid>& id) {
  if (m_hover == id) return;
  const auto old = std::exchange(m_hover, id);
  m_toolsDelay.cancel();
  const auto now = m_services.clock.mediaTime();
  if (old) {
    if (const auto found = m_cards.find(*old); found != m_cards.end()) found->second->tools.start(0, now, 120ms);
    updateLift(*old);
    runFrames();
  }
  m_hotPart = CardPart::None;
  if (!id) return;
  updateLift(*id);
  m_toolsDelay = m_services.scheduler.after(250ms, [this, id] {
    m_toolsDelay.cancel();
    const auto found = m_cards.find(*id);
    if (found == m_cards.end() || m_hover != id) return;
    found->second->tools.start(1, m_services.clock.mediaTime(), 120ms);
    runFrames();
    updateCard(*id);
  });
}

void NoteWall::setHotPart(CardPart part) {
  if (m_hotPart == part) return;
  m_hotPart = part;
  setCursor(part > CardPart::Paper ? Qt::PointingHandCursor : Qt::ArrowCursor);
  if (m_hover) updateCard(*m_hover);
}

void NoteWall::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) {
    QWidget::mousePressEvent(event);
    return;
  }
  const QPointF point = event->position();
  const double fromEdge = layoutDirection() == Qt::RightToLeft ? point.x() : width() - point.x();
  if (maxOffset() > 0 && fromEdge < kThumbReach) {
    m_isThumbHeld = true;
    update();
    return;
  }
  const int index = indexAt(point);
  if (index < 0) {
    setSelection(std::nullopt);
    event->ignore();  // the panel is dragged by what is bare
    return;
  }
  const QUuid id = m_notes[static_cast<std::size_t>(index)]->id();
  TaskStickyCard* target = card(id);
  if (target->isCrushing()) {
    // Only the control can take a running crush back.
    if (target->face().circleHitRect().contains(toCard(index, point))) target->crush();
    return;
  }
  setHover(id);
  m_press = Press{id, target->hit(toCard(index, point)), point, point - cardRect(index).topLeft()};
  m_hotPart = m_press->hit.part;
  updateCard(id);
}

void NoteWall::mouseMoveEvent(QMouseEvent* event) {
  const QPointF point = event->position();
  m_hasPointer = true;
  if (m_isThumbHeld) {
    const double room = std::max(1.0, height() - m_bottomInset - 24 - 24.0);
    m_scroll.jumpTo(0);
    const double wanted = (point.y() - 20) / room * maxOffset();
    m_scroll.jumpTo(wanted);
    scrollTo(wanted);
    return;
  }
  if (m_press) {
    const QPointF way = point - m_press->at;
    if (!m_press->isDragging && std::hypot(way.x(), way.y()) > kDragThreshold) beginDrag(event->globalPosition());
    if (m_press->isDragging && m_dragSheet) {
      m_dragSheet->move(
          (event->globalPosition() - m_press->grip - QPointF(CardFace::kMargin, CardFace::kMargin)).toPoint());
      return;
    }
    const int index = indexOf(m_press->id);
    if (index >= 0) {
      const auto hit = card(m_press->id)->hit(toCard(index, point));
      setHotPart(hit.part == m_press->hit.part ? hit.part : CardPart::None);
    }
    return;
  }
  const int index = indexAt(point);
  if (index < 0) {
    setHover(std::nullopt);
    setCursor(Qt::ArrowCursor);
    return;
  }
  const QUuid id = m_notes[static_cast<std::size_t>(index)]->id();
  setHover(id);
  setHotPart(card(id)->hit(toCard(index, point)).part);
}

void NoteWall::mouseReleaseEvent(QMouseEvent* event) {
  if (m_isThumbHeld) {
    m_isThumbHeld = false;
    update();
    return;
  }
  if (event->button() != Qt::LeftButton || !m_press) return;
  if (m_press->isDragging) {
    endDrag(event->globalPosition());
    return;
  }
  const Press press = *std::exchange(m_press, std::nullopt);
  const int index = indexOf(press.id);
  if (index < 0) return;
  const auto hit = card(press.id)->hit(toCard(index, event->position()));
  updateCard(press.id);
  if (hit.part != press.hit.part || hit.line != press.hit.line) return;
  if (hit.part == CardPart::Paper) {
    setSelection(press.id);
  } else {
    activate(press.id, hit.part, hit.line);
  }
}

void NoteWall::mouseDoubleClickEvent(QMouseEvent* event) {
  const int index = indexAt(event->position());
  if (event->button() != Qt::LeftButton || index < 0) return;
  const QUuid id = m_notes[static_cast<std::size_t>(index)]->id();
  const auto hit = card(id)->hit(toCard(index, event->position()));
  if (hit.part == CardPart::Paper) {
    m_press.reset();
    Q_EMIT editRequested(id);
  } else {
    mousePressEvent(event);  // two quick presses on a box or a tool are two presses
  }
}

void NoteWall::beginDrag(const QPointF& globalPoint) {
  m_press->isDragging = true;
  m_hotPart = CardPart::None;
  TaskStickyCard* target = card(m_press->id);
  const bool isComposited = m_services.screens.isComposited();
  m_dragSheet = std::make_unique<DragSheet>(target->pixmap(PaperLift::Raised, devicePixelRatioF()),
                                            isComposited ? 0.92 : 1.0);
  m_dragSheet->move((globalPoint - m_press->grip - QPointF(CardFace::kMargin, CardFace::kMargin)).toPoint());
  if (!isComposited) {
    // No desktop behind shows through: only the paper itself is a window then.
    const QPolygonF paper = target->face().sheet(PaperLift::Rest).outline().toFillPolygon();
    m_dragSheet->setMask(QRegion(paper.translated(CardFace::kMargin, CardFace::kMargin).toPolygon()));
  }
  m_dragSheet->show();
  setCursor(Qt::ClosedHandCursor);
  updateCard(m_press->id);
}

void NoteWall::endDrag(const QPointF& globalPoint) {
  const Press press = *m_press;
  cancelPress();
  const QWidget* board = parentWidget() ? parentWidget() : this;
  const QPointF local = board->mapFromGlobal(globalPoint);
  if (QRectF(board->rect()).contains(local)) return;  // dropped back on the board
  const QRectF dropped(globalPoint - press.grip, QSizeF(CardFace::kWidth, CardFace::kHeight));
  Q_EMIT tearOffRequested(press.id, m_services.screens.space().fromQt(dropped));
}

void NoteWall::cancelPress() {
  m_dragSheet.reset();
  if (!m_press) return;
  const QUuid id = m_press->id;
  m_press.reset();
  setCursor(Qt::ArrowCursor);
  updateCard(id);
}

void NoteWall::leaveEvent(QEvent* event) {
  m_hasPointer = false;
  if (!m_press) setHover(std::nullopt);
  update();
  QWidget::leaveEvent(event);
}

void NoteWall::wheelEvent(QWheelEvent* event) {
  if (maxOffset() <= 0) {
    event->ignore();
    return;
  }
  const double way =
      event->pixelDelta().isNull() ? event->angleDelta().y() / 120.0 * kWheelStep : event->pixelDelta().y();
  m_scroll.jumpTo(m_offset - way);
  scrollTo(m_offset - way);
  setHover(std::nullopt);
  event->accept();
}

void NoteWall::keyPressEvent(QKeyEvent* event) {
  const auto key = static_cast<Qt::Key>(event->key());
  if (m_press && m_press->isDragging && key == Qt::Key_Escape) {
    cancelPress();
    return;
  }
  if (m_selection && (key == Qt::Key_Menu || (key == Qt::Key_F10 && event->modifiers().testFlag(Qt::ShiftModifier)))) {
    if (const int index = indexOf(*m_selection); index >= 0) {
      popUpMenu(*m_selection, mapToGlobal(cardRect(index).center().toPoint()));
      return;
    }
  }
  std::vector<QUuid> ids;
  ids.reserve(m_notes.size());
  for (const TaskPtr& note : m_notes) ids.push_back(note->id());
  const BoardKeyOutcome outcome = handleBoardKey(ids, m_selection, key, event->modifiers());
  if (!outcome.isHandled) {
    event->ignore();
    return;
  }
  if (outcome.crush) Q_EMIT m_services.center.crushTaskRequested(*outcome.crush);
  setSelection(outcome.selection);
  if (outcome.open) Q_EMIT editRequested(*outcome.open);
  event->accept();
}

void NoteWall::contextMenuEvent(QContextMenuEvent* event) {
  // The menu key means what is selected, wherever the pointer is.
  const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
  const int index = !isByKey ? indexAt(event->pos()) : m_selection ? indexOf(*m_selection) : -1;
  if (index < 0) {
    event->ignore();
    return;
  }
  popUpMenu(m_notes[static_cast<std::size_t>(index)]->id(),
            isByKey ? mapToGlobal(cardRect(index).center().toPoint()) : event->globalPos());
}

void NoteWall::popUpMenu(const QUuid& id, const QPoint& globalPoint) {
  cancelPress();
  setSelection(id);
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  styleMenu(*menu);
  const auto add = [&](const QString& text, CardPart part) {
    auto* action = menu->addAction(text);
    connect(action, &QAction::triggered, this, [this, id, part] { activate(id, part); });
    return action;
  };
  add(tr("Edit"), CardPart::Edit);
  add(tr("Change colour"), CardPart::ChangeColor);
  auto* daily = add(tr("Daily three"), CardPart::Daily3);
  daily->setCheckable(true);
  daily->setChecked(card(id) && card(id)->task()->isDaily3());
  auto* tags = menu->addMenu(tr("Tag"));
  styleMenu(*tags);
  auto* group = new QActionGroup(tags);
  const TaskTag current = card(id) ? card(id)->task()->tag() : TaskTag::none;
  for (const TaskTag tag : kTaskTags) {
    auto* action = tags->addAction(CardParts::tagName(tag));
    action->setCheckable(true);
    action->setChecked(tag == current);
    group->addAction(action);
    connect(action, &QAction::triggered, this, [this, id, tag] {
      if (auto* target = card(id)) target->setTag(tag);
    });
  }
  add(tr("Tear off"), CardPart::TearOff);
  menu->addSeparator();
  add(tr("Crush"), CardPart::Circle);
  menu->popup(globalPoint);
}

void NoteWall::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  // Coming in by Tab, the wall shows where it is.
  if ((event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) && !m_notes.empty() &&
      (!m_selection || indexOf(*m_selection) < 0)) {
    setSelection(m_notes.front()->id());
  }
  announceSelection();
  update();
}

void NoteWall::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

void NoteWall::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  scrollTo(m_offset);
}

void NoteWall::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  updateBreath();
}

void NoteWall::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  m_frames.cancel();
  m_breath.cancel();
  m_toolsDelay.cancel();
}

void NoteWall::announceSelection() {
  if (m_selection && hasFocus()) NoteWallAccessible::selectionChanged(*this, indexOf(*m_selection));
}

bool NoteWall::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::ToolTip: {
      const auto* help = static_cast<QHelpEvent*>(event);
      const int index = indexAt(help->pos());
      QString words;
      if (index >= 0) {
        const TaskStickyCard* target = card(m_notes[static_cast<std::size_t>(index)]->id());
        const auto hit = target->hit(toCard(index, help->pos()));
        words = target->partName(hit.part);
        if (hit.part == CardPart::Paper && target->face().body().isElided()) words = plainToolTip(target->face().text);
      }
      QToolTip::showText(help->globalPos(), words, this);
      return true;
    }
    case QEvent::ShortcutOverride: {
      // Arrows, Return and Escape belong to the wall while it has the keyboard, whatever shortcuts a window has.
      const auto* key = static_cast<QKeyEvent*>(event);
      if (key->key() == Qt::Key_Backspace || key->key() == Qt::Key_Delete) event->accept();
      break;
    }
    case QEvent::LayoutDirectionChange:
    case QEvent::PaletteChange:
    case QEvent::FontChange:
      refreshCards();
      break;
    default:
      break;
  }
  return QWidget::event(event);
}

}  // namespace tarnwick
