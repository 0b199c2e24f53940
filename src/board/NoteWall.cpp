// SPDX-License-Identifier: MIT
#include "board/NoteWall.h"

#include "board/NoteWallAccessible.h"
#include "model/NotificationCenter.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"

#include <QThreadPool>

#include <cmath>
#include <functional>

namespace tarnwick {
namespace {

using namespace std::chrono_literals;

constexpr double kBottomSpace = 14;
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
  bool hasChanged = notes != m_notes;
  if (hasChanged) {
    m_notes = notes;
    m_indexes.clear();
    m_indexes.reserve(static_cast<int>(notes.size()));
    for (int i = 0; i < static_cast<int>(notes.size()); ++i)
      m_indexes.insert(notes[static_cast<std::size_t>(i)]->id(), i);
    if (m_hover && !m_indexes.contains(*m_hover)) m_hover.reset();
    if (m_press && !m_indexes.contains(m_press->id)) cancelPress();
    dropDistantCards();
    NoteWallAccessible::notesChanged(*this);
  }
  for (auto& [id, card] : m_cards) hasChanged |= card->refresh();
  scrollTo(m_offset);
  updateBreath();
  if (hasChanged) update();
}

void NoteWall::setMark(const QString& mark) {
  if (mark == m_mark) return;
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
  if (top == m_topInset && bottom == m_bottomInset) return;
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
    auto& shown = *card(m_notes[static_cast<std::size_t>(i)]->id());
    (void)shown.posed(angleOf(shown), devicePixelRatioF());
  }
}

void NoteWall::drawAhead() {
  std::vector<std::function<void()>> work;
  const auto [first, last] = visibleRange();
  // From the last one on: the first paint begins with the first.
  for (int i = last; i >= first; --i) {
    auto& shown = *card(m_notes[static_cast<std::size_t>(i)]->id());
    if (isLifted(shown.task()->id())) continue;  // it is put together anew
    if (auto drawing = shown.poseAhead(angleOf(shown), devicePixelRatioF())) work.push_back(std::move(drawing));
  }
  if (work.empty()) return;
  QThreadPool::globalInstance()->start([work = std::move(work)] {
    for (const auto& drawing : work) drawing();
  });
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
  transform.translate(TaskStickyCard::pivot().x(), TaskStickyCard::pivot().y());
  transform.rotate(angle);
  transform.translate(-TaskStickyCard::pivot().x(), -TaskStickyCard::pivot().y());
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

}  // namespace tarnwick
