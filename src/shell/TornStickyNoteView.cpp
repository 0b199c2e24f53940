// SPDX-License-Identifier: MIT
#include "shell/TornStickyNoteView.h"

#include "board/CardRules.h"
#include "effects/PaperShredView.h"
#include "effects/SoundEngine.h"
#include "model/NotificationCenter.h"
#include "model/StickyChecklist.h"
#include "model/store/ModelContainer.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"
#include "shell/HoverBridge.h"
#include "shell/NoteEditPlate.h"
#include "shell/NoteSpots.h"

#include <QContextMenuEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tarnwick {

using namespace std::chrono_literals;

namespace {

constexpr auto kPeelTime = 160ms;
constexpr auto kBarFade = 120ms;
constexpr auto kBarDelay = 250ms;
constexpr auto kRest = 1s;
constexpr double kPeelStep = (TornNoteFace::kLiftedPeel - TornNoteFace::kRestingPeel) / 8;

}  // namespace

TornStickyNoteView::TornStickyNoteView(TaskPtr task, const BoardServices& services, const HoverBridge& hover,
                                       Window window)
    : m_services(services),
      m_task(std::move(task)),
      m_hover(hover),
      m_window(std::move(window)),
      m_crush(services, m_task, crushView()) {
  buildSpots();
  connect(&m_hover, &HoverBridge::changed, this, &TornStickyNoteView::hoverChanged);
  connect(&m_crush, &NoteCrush::isCrushingChanged, this, &TornStickyNoteView::crushingChanged);
  connect(&m_crush, &NoteCrush::aborted, this, [this] { m_window.fadeIn(); });
  connect(&m_services.center, &NotificationCenter::taskDidUpdate, this, [this](const QUuid& id) {
    if (id == m_task->id()) refresh();
  });
  connect(&m_services.container, &ModelContainer::didSave, this, [this] {
    if (m_task->record() != m_shown) refresh();  // most saves are another note's
  });
  refresh();
}

TornStickyNoteView::~TornStickyNoteView() = default;

NoteCrush::TornNote TornStickyNoteView::crushView() {
  NoteCrush::TornNote view;
  view.windowFrame = [this]() -> std::optional<DesktopRect> { return m_window.frame(); };
  view.hideWindow = [this] { m_window.setAlpha(0); };
  view.pointer = [this] { return m_window.pointer(); };
  view.picture = [this] { return picture([this](QPainter& painter) { paintFlat(painter); }).toImage(); };
  view.onRedock = [this] { m_window.redock(); };
  return view;
}

NoteEditPlate& TornStickyNoteView::editPlate() {
  if (!m_editPlate) {
    m_editPlate = new NoteEditPlate(m_services.scheduler, this);
    m_editPlate->hide();
    connect(m_editPlate, &NoteEditPlate::saveRequested, this, &TornStickyNoteView::saveEdit);
    connect(m_editPlate, &NoteEditPlate::cancelRequested, this, &TornStickyNoteView::cancelEdit);
  }
  return *m_editPlate;
}

std::chrono::nanoseconds TornStickyNoteView::mediaTime() const { return m_services.clock.mediaTime(); }

void TornStickyNoteView::buildSpots() {
  m_textSpot = new NoteTextSpot(this);
  connect(m_textSpot, &NoteTextSpot::clicked, this, &TornStickyNoteView::toggleLineAt);
  connect(m_textSpot, &NoteTextSpot::editRequested, this, [this](const QPointF& point) {
    const auto line = m_body.checklistLineAt(point + QPointF(m_textSpot->pos()) - m_face.textRect().topLeft() +
                                             QPointF(0, m_scroll));
    if (line < 0) beginEditing();
  });
  connect(m_textSpot, &NoteTextSpot::keyboardEditRequested, this, &TornStickyNoteView::beginEditing);
  connect(m_textSpot, &NoteTextSpot::scrolled, this, &TornStickyNoteView::scrollBy);
  connect(m_textSpot, &NoteTextSpot::stepped, this, &TornStickyNoteView::walkRows);
  connect(m_textSpot, &NoteTextSpot::toggled, this, &TornStickyNoteView::toggleCurrentRow);
  connect(m_textSpot, &NoteTextSpot::focusChanged, this, &TornStickyNoteView::lookChanged);

  m_circle = new NoteSpot(tr("Crush note"), 14, this);
  connect(m_circle, &QAbstractButton::clicked, this, &TornStickyNoteView::crush);
  const std::array names{tr("Put back on board"), tr("Edit"), tr("Change colour"), tr("Add to daily three"), tr("Private")};
  for (size_t i = 0; i < names.size(); ++i) m_tools[i] = new NoteSpot(names[i], 6, this);
  connect(m_tools[Redock], &QAbstractButton::clicked, this, [this] { m_window.redock(); });
  connect(m_tools[Edit], &QAbstractButton::clicked, this, &TornStickyNoteView::beginEditing);
  connect(m_tools[Colour], &QAbstractButton::clicked, this, &TornStickyNoteView::cycleColor);
  connect(m_tools[Daily], &QAbstractButton::clicked, this, &TornStickyNoteView::toggleDaily3);
  connect(m_tools[Private], &QAbstractButton::clicked, this, &TornStickyNoteView::togglePrivate);
  m_tools[Daily]->setCheckable(false);
  m_circle->onLookChanged = [this] { lookChanged(); };
  for (auto* tool : m_tools) tool->onLookChanged = [this] { lookChanged(); };
}

TornNoteFace TornStickyNoteView::currentFace() const {
  const auto now = m_services.clock.now();
  const auto calendar = Calendar::of(m_services.clock);
  TornNoteFace face;
  if (!m_hover.isTucked()) face.size = QSizeF(size());
  face.text = m_task->text();
  face.colorHex = m_task->colorHex();
  face.theme = m_task->paperTheme();
  face.stamp = m_task->stamp();
  if (const auto& due = m_task->dueDate()) {
    face.due = CardParts::DueLabel{dueLabel(*due, now, calendar), isOverdue(*m_task, *due, now, calendar),
                                   m_task->recurrence() != Recurrence::none};
  }
  face.counter = StickyChecklistBody::counter(face.text);
  face.isPrivate = m_task->isPrivate();
  face.isDaily3 = m_task->isDaily3();
  face.seed = paperSeed(m_task->id());
  face.isComposited = m_services.screens.isComposited();
  face.tilt = m_isEditing || !face.isComposited ? 0 : tornTilt(m_task->id());
  face.direction = layoutDirection();
  return face;
}

void TornStickyNoteView::refresh() {
  m_shown = m_task->record();
  m_face = currentFace();
  m_body = m_face.body();
  if (const auto& bundleID = m_task->record().pinnedBundleID) {
    m_appIcon = m_services.workspace.identity(*bundleID).second;
  }
  QString name = m_face.text;
  if (m_face.isPrivate) name = tr("%1, private").arg(name);
  m_textSpot->setAccessibleName(name);
  layOut();
  planLabelRefresh();
  update();
}

void TornStickyNoteView::planLabelRefresh() {
  // The label changes at midnight and the plate turns red at the due moment; an undated note never changes by itself.
  m_labelRefresh.cancel();
  if (!m_task->dueDate()) return;
  const auto now = m_services.clock.now();
  const auto calendar = Calendar::of(m_services.clock);
  auto next = calendar.startOfDay(calendar.day(now).addDays(1));
  if (const auto due = m_task->dueDate()->addMSecs(1); due > now && due < next) next = due;
  m_labelRefresh = m_services.scheduler.after(std::chrono::milliseconds(std::max<qint64>(now.msecsTo(next), 1000)),
                                              [this] { refresh(); });
}

void TornStickyNoteView::layOut() {
  const bool isTab = m_hover.isTucked();
  const bool showsNote = !isTab && !m_isEditing;
  if (m_editPlate || m_isEditing) editPlate().setVisible(!isTab && m_isEditing);
  m_textSpot->setVisible(showsNote);
  m_circle->setVisible(showsNote);
  for (auto* tool : m_tools) tool->setVisible(showsNote);
  if (isTab) return;
  m_textSpot->setInk(m_face.ink());
  m_circle->setInk(m_face.ink());
  for (auto* tool : m_tools) tool->setInk(Qt::white);  // the bar is ink itself
  if (m_editPlate) m_editPlate->setGeometry(m_face.paperRect().toAlignedRect());
  m_textSpot->setGeometry(m_face.textRect().adjusted(-6, -6, 6, 6).toAlignedRect());
  m_circle->setGeometry(m_face.circleHitRect().toAlignedRect());
  m_circle->raise();
  for (int i = 0; i < ToolCount; ++i) {
    const auto slot = CardParts::hoverBarSlot(m_face.hoverBarRect(), ToolCount, i, m_face.direction);
    m_tools[static_cast<size_t>(i)]->setGeometry(slot.toAlignedRect());
  }
  scrollBy(0);
  if (m_window.setMask) {
    m_window.setMask(m_face.isComposited ? QRegion() : m_face.mask());
  }
}

void TornStickyNoteView::setDashed(bool isDashed) {
  if (m_isDashed == isDashed) return;
  m_isDashed = isDashed;
  update();
}

void TornStickyNoteView::resizeEvent(QResizeEvent* event) {
  if (!m_hover.isTucked()) {
    m_face.size = QSizeF(size());
    m_body = m_face.body();
  }
  layOut();
  QWidget::resizeEvent(event);
}

void TornStickyNoteView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::FontChange) refresh();
  QWidget::changeEvent(event);
}

void TornStickyNoteView::showEvent(QShowEvent* event) {
  refresh();
  QWidget::showEvent(event);
}

void TornStickyNoteView::contextMenuEvent(QContextMenuEvent* event) { event->accept(); }

void TornStickyNoteView::beginEditing() {
  if (m_crush.isCrushing()) return;
  m_isEditing = true;
  m_face = currentFace();
  layOut();
  editPlate().begin(m_task->text(), m_face.ink());
  m_editPlate->setGeometry(m_face.paperRect().toAlignedRect());
  update();
}

bool TornStickyNoteView::hasSaveError() const {
  return m_isEditing && m_editPlate->saveState() == SaveState::Failed;
}

void TornStickyNoteView::saveEdit() {
  if (!m_isEditing) return;
  const QString text = m_editPlate->draft().trimmed();
  if (text.isEmpty()) return;
  const QString old = m_task->text();
  m_task->set(&TaskRecord::text, text);
  if (!m_services.container.mainContext().save()) {
    m_task->set(&TaskRecord::text, old);
    m_editPlate->setSaveState(SaveState::Failed);
    return;
  }
  cancelEdit();
  Q_EMIT m_services.center.taskDidUpdate(m_task->id());
}

void TornStickyNoteView::cancelEdit() {
  if (!m_isEditing) return;
  m_isEditing = false;
  m_editPlate->setSaveState(SaveState::Fine);
  refresh();
  m_textSpot->setFocus();
}

void TornStickyNoteView::save() { (void)m_services.container.mainContext().save(); }

void TornStickyNoteView::togglePrivate() {
  m_task->set(&TaskRecord::isPrivate, m_task->isPrivate() ? std::nullopt : std::optional(true));
  save();
  Q_EMIT m_services.center.taskDidUpdate(m_task->id());
}

void TornStickyNoteView::cycleColor() {
  tarnwick::cycleColor(*m_task);
  m_services.sound.playStick();
  save();
  refresh();
}

void TornStickyNoteView::toggleDaily3() {
  tarnwick::toggleDaily3(*m_task);
  m_services.sound.playStick();
  save();
  refresh();
}

void TornStickyNoteView::toggleLineAt(const QPointF& point) {
  const auto line = m_body.checklistLineAt(point + QPointF(m_textSpot->pos()) - m_face.textRect().topLeft() +
                                           QPointF(0, m_scroll));
  if (line < 0) return;
  StickyChecklistBody::toggleLine(*m_task, line, m_services.container.mainContext());
  refresh();
}

std::vector<int> TornStickyNoteView::checklistRows() const {
  std::vector<int> rows;
  const auto lines = StickyChecklist::lines(m_task->text());
  for (int i = 0; i < lines.size(); ++i) {
    if (StickyChecklist::isChecklistLine(lines[i])) rows.push_back(i);
  }
  return rows;
}

void TornStickyNoteView::walkRows(int rows) {
  const auto lines = checklistRows();
  if (lines.empty()) {
    scrollBy(rows * 20);
    return;
  }
  const auto current = std::ranges::find(lines, m_currentRow);
  const auto last = static_cast<int>(lines.size()) - 1;
  const int index = current == lines.end() ? (rows > 0 ? 0 : last)
                                           : std::clamp(static_cast<int>(current - lines.begin()) + rows, 0, last);
  m_currentRow = lines[static_cast<size_t>(index)];
  const auto text = StickyChecklist::lines(m_task->text())[m_currentRow];
  m_textSpot->setAccessibleDescription(StickyChecklist::isDoneLine(text)
                                           ? tr("%1, done").arg(StickyChecklist::label(text))
                                           : StickyChecklist::label(text));
  update();
}

void TornStickyNoteView::toggleCurrentRow() {
  if (!std::ranges::count(checklistRows(), m_currentRow)) return;
  StickyChecklistBody::toggleLine(*m_task, m_currentRow, m_services.container.mainContext());
  refresh();
}

void TornStickyNoteView::scrollBy(double distance) {
  const double most = std::max(0.0, m_body.height() - m_face.textRect().height());
  const double scroll = std::clamp(m_scroll + distance, 0.0, most);
  if (scroll == m_scroll) return;
  m_scroll = scroll;
  update();
}

void TornStickyNoteView::hoverChanged() {
  if (m_hover.isHovered()) {
    m_barDelay = m_services.scheduler.after(kBarDelay, [this] {
      m_isBarDue = true;
      lookChanged();
    });
  } else {
    m_barDelay.cancel();
    m_isBarDue = false;
  }
  const bool showsPlate = m_editPlate && m_editPlate->isVisible();
  if (m_face.size != QSizeF(size()) || showsPlate == m_hover.isTucked()) m_face = currentFace();
  layOut();
  lookChanged();
}

bool TornStickyNoteView::isBarWanted() const {
  if (m_hover.isTucked() || m_isEditing || m_crush.isCrushing()) return false;
  const bool hasKeyboard = std::ranges::any_of(m_tools, [](const NoteSpot* tool) { return tool->isRinged(); });
  return (m_hover.isHovered() && m_isBarDue) || hasKeyboard;
}

void TornStickyNoteView::lookChanged() {
  const bool isStill = m_services.workspace.isMotionReduced();
  const bool isLifted = m_circle->isVisible() && m_circle->underMouse() && !isStill;
  m_peel.start(isLifted ? TornNoteFace::kLiftedPeel : TornNoteFace::kRestingPeel, mediaTime(), kPeelTime);
  m_bar.start(isBarWanted() ? 1 : 0, mediaTime(), kBarFade);
  animate();
  update();
}

bool TornStickyNoteView::isMoving() const {
  const auto now = mediaTime();
  return m_peel.isRunning(now) || m_bar.isRunning(now) || !m_shredPicture.isNull();
}

void TornStickyNoteView::animate() {
  if (m_frames.isHeld() || !isVisible() || !isMoving()) return;
  m_frames = m_services.scheduler.frames([this](std::chrono::nanoseconds) { step(); });
}

void TornStickyNoteView::step() {
  update();
  if (!isMoving()) m_frames.cancel();
}

void TornStickyNoteView::crushingChanged() {
  m_shredPicture = {};
  if (m_crush.isCrushing()) m_bar = Tween(0);  // the tools do not go the way of the note
  if (m_crush.isShredding() && !m_services.workspace.isMotionReduced()) {
    auto level = m_face;
    level.tilt = 0;
    std::swap(level, m_face);
    m_shredPicture = picture([this](QPainter& painter) { paintNote(painter); });
    std::swap(level, m_face);
    m_shredStart = mediaTime();
  }
  lookChanged();
}

QPixmap TornStickyNoteView::picture(const std::function<void(QPainter&)>& paint) {
  const double scale = devicePixelRatioF();
  QPixmap pixmap((QSizeF(size()) * scale).toSize());
  pixmap.setDevicePixelRatio(scale);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  paint(painter);
  return pixmap;
}

void TornStickyNoteView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (!m_shredPicture.isNull()) {
    const double way = std::chrono::duration<double>(mediaTime() - m_shredStart) / PaperShredView::kDuration;
    PaperShredView::paint(painter, QRectF(rect()), m_shredPicture, m_face.tilt, std::clamp(way, 0.0, 1.0));
    return;
  }
  paintNote(painter);
  // The window keeps what it shows: a picture of the paper beside it would double what a note takes.
  m_rest = m_services.scheduler.after(kRest, [this] { m_sheet = {}; });
}

void TornStickyNoteView::paintNote(QPainter& painter) {
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  if (m_hover.isTucked()) {
    m_face.paintTab(painter, m_appIcon, m_sheet);
    return;
  }
  const auto now = mediaTime();
  const double peel = std::round(m_peel.value(now) / kPeelStep) * kPeelStep;
  const double bar = m_bar.value(now);
  painter.save();
  painter.setTransform(m_face.turn(), true);
  m_face.paintPaper(painter, peel, m_sheet);
  if (!m_isEditing) {
    paintWriting(painter, bar);
    if (bar > 0) paintBar(painter, bar);
  }
  if (m_isDashed && !m_face.isComposited) {
    painter.setPen(QPen(m_face.ink(), 1.5, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(m_face.paperRect().adjusted(2, 2, -2, -2), 4, 4);
  }
  painter.restore();
  m_face.paintTape(painter);
}

void TornStickyNoteView::paintWriting(QPainter& painter, double bar) {
  m_face.paintText(painter, m_body, m_scroll);
  m_face.paintFoot(painter, bar);
  auto state = CircleState::Rest;
  if (m_circle->isDown() || m_crush.isCrushing()) {
    state = CircleState::Pressed;
  } else if (m_circle->underMouse() || m_circle->isRinged()) {
    state = CircleState::Hover;
  }
  CardParts::paintCrushCircle(painter, m_face.circleCenter(), TornNoteFace::kCircleDiameter, m_face.ink(), state);
}

void TornStickyNoteView::paintFlat(QPainter& painter) {
  if (m_hover.isTucked()) {
    paintNote(painter);
    return;
  }
  m_face.paintFlatPaper(painter);
  paintWriting(painter, 0);
}

void TornStickyNoteView::paintBar(QPainter& painter, double opacity) {
  int hot = -1;
  for (int i = 0; i < ToolCount; ++i) {
    const auto* tool = m_tools[static_cast<size_t>(i)];
    if (tool->underMouse() || tool->isRinged()) hot = i;
  }
  painter.save();
  painter.setOpacity(opacity);
  CardParts::paintHoverBar(painter, m_face.hoverBarRect(), m_face.ink(), m_face.hoverBarSymbols(), hot,
                           TornNoteFace::kBarRadius);
  painter.restore();
}

}  // namespace tarnwick
