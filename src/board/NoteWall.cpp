// SPDX-License-Identifier: MIT
#include "board/NoteWall.h"

#include "board/NoteWallAccessible.h"
#include "effects/BoardSurfaceView.h"
#include "effects/PixmapCache.h"
#include "effects/Tokens.h"
#include "model/Color.h"
#include "model/NotificationCenter.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <numbers>

namespace tarnwick {
namespace {

using namespace std::chrono_literals;

constexpr double kBottomSpace = 14;
constexpr double kSpill = 38;  // how far a tilted card's shadow, ring and flag reach beyond its paper
constexpr auto kBreathTick = 83ms;
constexpr double kBreathPeriod = 2.4;

}  // namespace

NoteWall::NoteWall(const BoardServices& services, QWidget* parent) : QWidget(parent), m_services(services) {
  NoteWallAccessible::install();
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Notes"));
  setContextMenuPolicy(Qt::DefaultContextMenu);
  connect(&services.center, &NotificationCenter::crushTaskRequested, this, [this](const QUuid& id) {
    if (auto* found = card(id)) found->crush();
  });
}

NoteWall::~NoteWall() {
  m_cards.clear();
}

void NoteWall::setNotes(const TaskList& notes) {
  m_notes = notes;
  m_indexes.clear();
  m_indexes.reserve(static_cast<int>(notes.size()));
  for (int i = 0; i < static_cast<int>(notes.size()); ++i)
    m_indexes.insert(notes[static_cast<std::size_t>(i)]->id(), i);
  if (m_hover && !m_indexes.contains(*m_hover)) m_hover.reset();
  if (m_press && !m_indexes.contains(m_press->id)) cancelPress();
  dropDistantCards();
  for (auto& [id, card] : m_cards) card->refresh();
  scrollTo(m_offset);
  updateBreath();
  NoteWallAccessible::notesChanged(*this);
  update();
}

void NoteWall::setMark(const QString& mark) {
  m_mark = mark;
  for (auto& [id, card] : m_cards) card->setAppearance(appearance());
  update();
}

void NoteWall::setEmptyText(const QString& text) {
  if (text == m_emptyText) return;
  m_emptyText = text;
  setAccessibleDescription(text);
  update();
}

void NoteWall::setInsets(int top, int bottom) {
  m_topInset = top;
  m_bottomInset = bottom;
  scrollTo(m_offset);
  update();
}

void NoteWall::setSelection(const std::optional<QUuid>& id) {
  if (m_selection == id) return;
  const auto old = std::exchange(m_selection, id);
  if (old) updateLift(*old);
  if (id) {
    updateLift(*id);
    if (const int index = indexOf(*id); index >= 0) reveal(index);
  }
  announceSelection();
  Q_EMIT selectionChanged();
  update();
}

void NoteWall::refreshCards() {
  for (auto& [id, card] : m_cards) {
    card->setAppearance(appearance());
    if (card->refresh()) updateCard(id);
  }
  updateBreath();
}

void NoteWall::prepare() {
  const auto [first, last] = visibleRange();
  for (int i = first; i <= last; ++i) {
    (void)card(m_notes[static_cast<std::size_t>(i)]->id())->pixmap(PaperLift::Rest, devicePixelRatioF());
  }
}

void NoteWall::rest() {
  cancelPress();
  setHover(std::nullopt);
  for (auto& [id, card] : m_cards) card->abortCrush();
}

TaskStickyCard::Appearance NoteWall::appearance() const {
  // Dark text on white and the reverse is what a desktop set to more contrast gives its windows.
  const auto contrast = [](const QColor& a, const QColor& b) { return std::abs(a.lightnessF() - b.lightnessF()); };
  const bool isStark = contrast(palette().color(QPalette::WindowText), palette().color(QPalette::Window)) > 0.98f;
  return {m_mark, layoutDirection(), isStark};
}

std::unique_ptr<TaskStickyCard> NoteWall::makeCard(const TaskPtr& task) {
  const QUuid id = task->id();
  auto card = std::make_unique<TaskStickyCard>(m_services, task, [this, id] {
    const int index = indexOf(id);
    return index < 0 ? DesktopRect{} : desktopRect(cardRect(index));
  });
  card->setAppearance(appearance());
  if (isLifted(id)) card->lift.jumpTo(1);
  connect(card.get(), &TaskStickyCard::crushingChanged, this, [this, id] {
    const auto found = m_cards.find(id);
    if (found == m_cards.end()) return;
    TaskStickyCard& changed = *found->second;
    if (changed.isCrushing()) {
      changed.opacity.jumpTo(0);
    } else {
      changed.opacity.start(1, m_services.clock.mediaTime(), 200ms);
      runFrames();
      dropDistantCards();
    }
    update();
  });
  return card;
}

TaskStickyCard* NoteWall::card(const QUuid& id) {
  if (const auto found = m_cards.find(id); found != m_cards.end()) return found->second.get();
  const int index = indexOf(id);
  if (index < 0) return nullptr;
  auto& place = m_cards[id];
  place = makeCard(m_notes[static_cast<std::size_t>(index)]);
  return place.get();
}

int NoteWall::indexOf(const QUuid& id) const {
  return m_indexes.value(id, -1);
}

void NoteWall::dropDistantCards() {
  constexpr int kSpareRows = 3;
  auto [first, last] = visibleRange();
  first -= kSpareRows * kColumns;
  last += kSpareRows * kColumns;
  for (auto it = m_cards.begin(); it != m_cards.end();) {
    const int index = indexOf(it->first);
    const bool isNear = index >= first && index <= last;
    if (it->second->isCrushing() || isNear) {
      ++it;
      continue;
    }
    // A card may be on the stack of what led here: its own crush has just saved.
    it->second.release()->deleteLater();
    it = m_cards.erase(it);
  }
}

double NoteWall::contentHeight() const {
  const auto rows = (static_cast<double>(m_notes.size()) + kColumns - 1) / kColumns;
  const double cards = m_notes.empty() ? 0 : std::floor(rows) * kRowPitch - (kRowPitch - CardFace::kHeight);
  return m_topInset + kFirstRow + cards + kBottomSpace + m_bottomInset;
}

double NoteWall::maxOffset() const {
  return std::max(0.0, contentHeight() - height());
}

QRectF NoteWall::cardRect(int index) const {
  int column = index % kColumns;
  if (layoutDirection() == Qt::RightToLeft) column = kColumns - 1 - column;
  const double row = index / kColumns;  // NOLINT: rows are whole
  return {kEdge + column * (CardFace::kWidth + kColumnGap), m_topInset + kFirstRow + row * kRowPitch - m_offset,
          CardFace::kWidth, CardFace::kHeight};
}

std::pair<int, int> NoteWall::visibleRange() const {
  const double top = m_offset - m_topInset - kFirstRow - kSpill;
  const int firstRow = std::max(0, static_cast<int>(std::floor((top - CardFace::kHeight) / kRowPitch)) + 1);
  const int lastRow = static_cast<int>(std::floor((top + 2 * kSpill + height()) / kRowPitch));
  return {firstRow * kColumns, std::min(static_cast<int>(m_notes.size()) - 1, lastRow * kColumns + kColumns - 1)};
}

int NoteWall::indexAt(const QPointF& point) const {
  const auto [first, last] = visibleRange();
  for (int i = first; i <= last; ++i) {
    if (cardRect(i).contains(point)) return i;
  }
  return -1;
}

QPointF NoteWall::toCard(int index, const QPointF& point) const {
  const QRectF rect = cardRect(index);
  const auto found = m_cards.find(m_notes[static_cast<std::size_t>(index)]->id());
  const double angle = found == m_cards.end() ? 0 : angleOf(*found->second);
  QTransform transform;
  transform.translate(rect.width() * 0.5, rect.height() * 0.4);
  transform.rotate(angle);
  transform.translate(-rect.width() * 0.5, -rect.height() * 0.4);
  return transform.inverted().map(point - rect.topLeft());
}

bool NoteWall::isLifted(const QUuid& id) const {
  return m_selection == id || m_hover == id;
}

double NoteWall::angleOf(const TaskStickyCard& card) const {
  if (!m_services.screens.isComposited() && m_services.workspace.isMotionReduced()) return 0;
  return card.naturalAngle() * (1 - card.lift.at(m_services.clock.mediaTime()));
}

DesktopRect NoteWall::desktopRect(const QRectF& rect) const {
  const QPointF topLeft = mapToGlobal(rect.topLeft());
  return m_services.screens.space().fromQt(QRectF(topLeft, rect.size()));
}

void NoteWall::updateCard(const QUuid& id) {
  const int index = indexOf(id);
  if (index >= 0) update(cardRect(index).adjusted(-kSpill, -kSpill, kSpill, kSpill).toAlignedRect());
}

void NoteWall::updateLift(const QUuid& id) {
  const auto found = m_cards.find(id);
  if (found == m_cards.end()) return;
  TaskStickyCard& card = *found->second;
  const double target = isLifted(id) ? 1 : 0;
  if (m_services.workspace.isMotionReduced()) {
    card.lift.jumpTo(target);
  } else {
    card.lift.start(target, m_services.clock.mediaTime(), 120ms);
    runFrames();
  }
  updateCard(id);
}

void NoteWall::runFrames() {
  if (m_frames.isHeld() || !isVisible()) return;
  m_frames = m_services.scheduler.frames([this](std::chrono::nanoseconds now) {
    bool isMoving = m_scroll.isRunning(now);
    if (isMoving || m_scroll.at(now) != m_scroll.target()) scrollTo(m_scroll.at(now));
    for (const auto& [id, card] : m_cards) {
      if (card->lift.isRunning(now) || card->tools.isRunning(now) || card->opacity.isRunning(now)) isMoving = true;
      updateCard(id);
    }
    if (!isMoving) m_frames.cancel();
  });
}

void NoteWall::updateBreath() {
  bool isWanted = isVisible() && !m_services.workspace.isMotionReduced();
  if (isWanted) {
    const auto [first, last] = visibleRange();
    isWanted = false;
    for (int i = first; i <= last && !isWanted; ++i) {
      const auto found = m_cards.find(m_notes[static_cast<std::size_t>(i)]->id());
      isWanted = found != m_cards.end() && found->second->face().isSmoldering;
    }
  }
  if (!isWanted) {
    m_breath.cancel();
    return;
  }
  if (m_breath.isHeld()) return;
  m_breath = m_services.scheduler.every(kBreathTick, [this] {
    m_breathPhase = std::fmod(m_breathPhase + 0.083 / kBreathPeriod, 1.0);
    for (const auto& [id, card] : m_cards) {
      if (!card->face().isSmoldering) continue;
      const int index = indexOf(id);
      if (index < 0) continue;
      const QRectF rect = cardRect(index);
      update(QRectF(rect.left() - 8, rect.bottom() - 26, rect.width() + 16, 36).toAlignedRect());
    }
  });
}

void NoteWall::scrollTo(double offset) {
  const double clamped = std::clamp(offset, 0.0, maxOffset());
  if (clamped != m_offset) {
    m_offset = clamped;
    dropDistantCards();
    update();
  }
  if (!m_scroll.isRunning(m_services.clock.mediaTime())) m_scroll.jumpTo(m_offset);
  Q_EMIT scrolled(m_offset);
}

void NoteWall::reveal(int index) {
  const QRectF rect = cardRect(index);
  const double floor = height() - m_bottomInset - 8;
  double wanted = m_offset;
  if (rect.top() < kFirstRow) wanted = m_offset + rect.top() - kFirstRow;
  if (rect.bottom() > floor) wanted = m_offset + rect.bottom() - floor;
  if (index < kColumns && wanted < m_offset) wanted = 0;
  wanted = std::clamp(wanted, 0.0, maxOffset());
  if (wanted == m_offset) return;
  if (m_services.workspace.isMotionReduced() || !isVisible()) {
    m_scroll.jumpTo(wanted);
    scrollTo(wanted);
    return;
  }
  m_scroll.jumpTo(m_offset);
  m_scroll.start(wanted, m_services.clock.mediaTime(), 120ms);
  runFrames();
}

void NoteWall::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.setLayoutDirection(layoutDirection());
  QPainterPath clip;
  clip.addRoundedRect(QRectF(-pos(), QSizeF(parentWidget() ? parentWidget()->size() : size())).adjusted(1, 1, -1, -1),
                      BoardSurfaceView::kRadius - 1, BoardSurfaceView::kRadius - 1);
  painter.setClipPath(clip);
  painter.setClipRect(event->rect(), Qt::IntersectClip);

  if (m_notes.empty() && !m_emptyText.isEmpty()) {
    const QRectF free(0, m_topInset, width(), height() - m_topInset - m_bottomInset);
    painter.setFont(tokens::font(tokens::Type::Body));
    painter.setPen(QColor::fromRgb(tokens::kText3));
    painter.drawText(free.adjusted(kEdge, 0, -kEdge, -free.height() * 0.2), Qt::AlignCenter | Qt::TextWordWrap,
                     m_emptyText);
  }

  const auto now = m_services.clock.mediaTime();
  const auto [first, last] = visibleRange();
  int raised = -1;
  for (int pass = 0; pass < 2; ++pass) {
    for (int i = first; i <= last; ++i) {
      const QRectF rect = cardRect(i);
      if (!rect.adjusted(-kSpill, -kSpill, kSpill, kSpill).intersects(event->rect())) continue;
      const QUuid& id = m_notes[static_cast<std::size_t>(i)]->id();
      if (isLifted(id) != (pass == 1)) continue;  // what is lifted lies over its neighbours
      raised = i;
      paintCard(painter, i, *card(id), now);
    }
  }
  if (raised >= 0 || first <= last) updateBreath();

  if (m_offset > 0.5) {
    QLinearGradient shade(0, 0, 0, 10);
    shade.setColorAt(0, tokens::black(0.30 * std::min(1.0, m_offset / 10)));
    shade.setColorAt(1, tokens::black(0));
    painter.fillRect(QRectF(0, 0, width(), 10), shade);
  }
  if (maxOffset() > 0 && m_hasPointer) {
    const double room = height() - m_bottomInset - 24;
    const double length = std::max(24.0, room * height() / contentHeight());
    const double top = 8 + (room - length) * m_offset / maxOffset();
    const double x = layoutDirection() == Qt::RightToLeft ? 4 : width() - 7;
    painter.setPen(Qt::NoPen);
    painter.setBrush(tokens::white(m_isThumbHeld ? 0.45 : 0.25));
    painter.drawRoundedRect(QRectF(x, top, 3, length), 1.5, 1.5);
  }
}

void NoteWall::paintCard(QPainter& painter, int index, TaskStickyCard& card, Glide::Time now) {
  const double opacity = card.opacity.at(now);
  if (opacity <= 0) return;
  const QRectF rect = cardRect(index);
  const QUuid& id = card.task()->id();
  const double lift = card.lift.at(now);
  const CardFace& face = card.face();
  const double scale = deviceScale(painter);
  const bool isDragged = m_press && m_press->isDragging && m_press->id == id;

  painter.save();
  painter.setOpacity(opacity * (isDragged ? 0.35 : 1.0));
  const bool isHovered = m_hover == id;
  painter.translate(rect.left(), rect.top() - (isHovered ? 2 * lift : 0));
  painter.translate(rect.width() * 0.5, rect.height() * 0.4);
  painter.rotate(angleOf(card));
  painter.translate(-rect.width() * 0.5, -rect.height() * 0.4);
  const QPointF corner(-CardFace::kMargin, -CardFace::kMargin);
  const double full = painter.opacity();
  if (lift < 1) painter.drawPixmap(corner, card.pixmap(PaperLift::Rest, scale));
  if (lift > 0) {
    painter.setOpacity(full * lift);
    painter.drawPixmap(corner, card.pixmap(PaperLift::Raised, scale));
    painter.setOpacity(full);
  }
  if (face.isSmoldering) {
    const double wave =
        m_services.workspace.isMotionReduced() ? 0.5 : 0.5 + 0.5 * std::sin(2 * std::numbers::pi * m_breathPhase);
    face.sheet(PaperLift::Rest).paintEmberGlow(painter, 0.55 + 0.40 * wave);
  }
  const bool isCircleHot = isHovered && m_hotPart == CardPart::Circle;
  const bool isCircleHeld = m_press && m_press->id == id && m_press->hit.part == CardPart::Circle && isCircleHot;
  CardParts::paintCrushCircle(painter, face.circleCenter(), CardFace::kCircleDiameter, face.ink(),
                              isCircleHeld  ? CircleState::Pressed
                              : isCircleHot ? CircleState::Hover
                                            : CircleState::Rest);
  if (const double tools = card.tools.at(now); tools > 0) {
    static const QStringList kSymbols{QStringLiteral("pencil"), QStringLiteral("drop"), QStringLiteral("tally"),
                                      QStringLiteral("tear")};
    int hot = -1;
    if (isHovered && m_hotPart >= CardPart::Edit) hot = static_cast<int>(m_hotPart) - static_cast<int>(CardPart::Edit);
    painter.setOpacity(full * tools);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Color::fromHex(face.colorHex));  // nothing of the foot shines through
    painter.drawRoundedRect(face.hoverBarRect(), 8, 8);
    CardParts::paintHoverBar(painter, face.hoverBarRect(), face.ink(), kSymbols, hot, 8);
    painter.setOpacity(full);
  }
  if (m_selection == id) {
    const QRectF ring = QRectF(0, 0, rect.width(), rect.height()).adjusted(-4, -4, 4, 4);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(tokens::black(0.55), 1));
    painter.drawRoundedRect(ring.adjusted(-1.5, -1.5, 1.5, 1.5), 9.5, 9.5);
    painter.setPen(QPen(tokens::black(0.35), 1));
    painter.drawRoundedRect(ring.adjusted(1.5, 1.5, -1.5, -1.5), 6.5, 6.5);
    painter.setPen(QPen(Qt::white, 2));
    painter.drawRoundedRect(ring, 8, 8);
  }
  painter.restore();
}

}  // namespace tarnwick
