// SPDX-License-Identifier: MIT
#include "board/ContentView.h"

#include "board/Ashes.h"
#include "board/BoardKeys.h"
#include "board/BoardMenu.h"
#include "board/ContentState.h"
#include "board/DeskDuties.h"
#include "board/TornNotes.h"
#include "context/ContextEngine.h"
#include "effects/BoardSurfaceView.h"
#include "effects/Controls.h"
#include "effects/PixmapCache.h"
#include "effects/Tokens.h"
#include "model/NotificationCenter.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "model/store/ModelContainer.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"
#include "settings/UpdateChecker.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QThreadPool>

#include <utility>

namespace tarnwick {
namespace {

using namespace std::chrono_literals;

constexpr qint64 kMinuteMs = 60'000;
constexpr qint64 kPastMinuteMs = 50;

BoardMood boardMood(const UserDefaults& defaults) {
  const auto stored = defaults.text(keys::kBoardMood).value_or(QString());
  return fromRawValue<BoardMood>(stored).value_or(BoardMood::obsidian);
}

}  // namespace

void ContentView::Content::reload() {
  pendingReload.cancel();
  isStale = false;
  tasks = newestFirst(services.container.mainContext().fetchTasks());
  choice.reset();
  burned = burnedTasks(tasks);
  usedBoards = boards(tasks);
  completed = completedTasksCount(tasks);
  burnable = burnableTonight(tasks);
  refresh();
}

void ContentView::Content::scheduleReload() {
  if (view.isVisible()) {
    reload();
    return;
  }
  isStale = true;
  // Drawn ahead, so that the board drops with its cards on it.
  pendingReload = services.scheduler.after(400ms, [this] {
    reload();
    wall->prepare();
  });
}

void ContentView::Content::refresh() {
  const QDateTime now = services.clock.now();
  const Calendar calendar = Calendar::of(services.clock);
  BoardFilter filter;
  filter.selectedBoard = selectedBoard;
  filter.search = search;
  filter.showTags = showTags ? TagFilter::On : TagFilter::Off;
  filter.selectedTag = selectedTag;
  filter.gitRoot = services.context.snapshot().gitRoot;
  if (const Choice wanted{filter, Task::startOfTomorrow(now, calendar)}; choice != wanted) {
    active = activeTasks(tasks, filter, now, calendar);
    choice = wanted;
  }
  wall->setMark(showSearch ? search : QString());
  wall->setNotes(active);
  wall->setEmptyText(active.empty() && isFiltered() ? ContentView::tr("No notes match.") : QString());
  rail->setTabs(boardNames(), selectedBoard);
  const auto mode = fromRawValue<NoteDisplayMode>(services.defaults.text(keys::kNoteDisplayMode).value_or(QString()));
  rail->setDisplayMode(mode.value_or(NoteDisplayMode::alwaysOnTop));
  slip->setStats({completed, static_cast<int>(burned.size()), static_cast<int>(active.size())});
  if (showBurned) ashes->setBurned(burned);
  const auto release = services.updates.bannerRelease();
  if (release) banner->setVersion(release->version);
  hasBanner = release.has_value();
  refreshClock();
}

void ContentView::Content::refreshClock() {
  const QDateTime now = services.clock.now();
  const Calendar calendar = Calendar::of(services.clock);
  const DailyBurn burns = dailyBurn(services.defaults);
  const int burning = burns == DailyBurn::On ? burnable : 0;
  rail->setCountdown(burning, burnCountdown(burning, now, calendar));
  burnedLastNight = ashesFromLastNight(burned, now, calendar);
  strip->setCount(burnedLastNight);
  nudge->setNudge(planNudge(now, calendar, burns), PlanNudgeView::skyAt(calendar.hour(now)));
  nudge->setMood(mood());
  wall->refreshCards();
  layOut();
}

void ContentView::Content::armMinute() {
  const qint64 past = services.clock.now().toMSecsSinceEpoch() % kMinuteMs;
  // Just past the full minute: whole minutes left are one fewer from there on.
  minute = services.scheduler.after(std::chrono::milliseconds(kMinuteMs - past + kPastMinuteMs), [this] {
    armMinute();
    refresh();  // what sleeps may wake at midnight
  });
}

BoardMood ContentView::Content::mood() const { return boardMood(services.defaults); }

QStringList ContentView::Content::boardNames() const {
  return withKept(usedBoards, addedBoards + QStringList{selectedBoard});
}

NoteDraft ContentView::Content::blankDraft() const {
  NoteDraft draft = NoteDraft::forNewNote(services.defaults);
  if (selectedBoard != kAllBoards && selectedBoard != kFocusBoard) draft.board = selectedBoard;
  return draft;
}

void ContentView::Content::crossFade(const std::function<void()>& change) {
  if (!view.isVisible()) {
    change();
    return;
  }
  cover->drop();
  // Not grab(): that lays the window's colour under the round corners.
  QPixmap page = clearPixmap(view.size(), view.devicePixelRatioF());
  view.render(&page, {}, {}, QWidget::DrawChildren);
  change();
  cover->fade(page, services.workspace.isMotionReduced() ? 120ms : 220ms);
}

void ContentView::Content::setState(ViewState to) {
  if (state == to) return;
  state = to;
  if (to != ViewState::list) wall->rest();
  layOut();
  Q_EMIT view.viewStateChanged();
}

void ContentView::Content::compose(const NoteDraft& draft) {
  QStringList names = boardNames();
  names.removeAll(kAllBoards);
  names.removeAll(kFocusBoard);
  closeAshes();
  crossFade([&] {
    composer->begin(draft, names);
    setState(ViewState::add);
  });
  composer->takeFocus();
}

void ContentView::Content::selectBoard(const QString& name) {
  selectedBoard = name;
  refresh();
}

void ContentView::Content::addBoard(const QString& name) {
  if (!boardNames().contains(name)) addedBoards.append(name);
  selectBoard(name);
}

void ContentView::Content::toggleSearch() {
  showSearch = !showSearch;
  rail->searchTool().setChecked(showSearch);
  if (!showSearch) {
    search.clear();
    field->setText(QString());
  }
  refresh();
  if (!showSearch) return;
  orderTabs();
  field->edit().setFocus();
}

void ContentView::Content::toggleTags() {
  showTags = !showTags;
  rail->tagsTool().setChecked(showTags);
  refresh();
}

void ContentView::Content::toggleStats() {
  showStats = !showStats;
  rail->statsTool().setChecked(showStats);
  refresh();
}

void ContentView::Content::openAshes() {
  if (showBurned) return;
  crossFade([&] {
    showBurned = true;
    ashes->setBurned(burned);
    layOut();
  });
  ashes->takeFocus();
}

void ContentView::Content::closeAshes() {
  if (!showBurned) return;
  crossFade([&] {
    showBurned = false;
    layOut();
  });
  wall->setFocus();
}

void ContentView::Content::revive(const TaskPtr& task) {
  (void)reviveNotes(services.container.mainContext(), {task}, services.reminders, services.clock.now());
  ashes->takeFocus();
}

void ContentView::Content::sweep() {
  const TaskList gone = burned;  // the save empties the list
  (void)sweepNotes(services.container.mainContext(), gone, services.torn ? services.torn() : nullptr,
                   services.defaults);
  ashes->takeFocus();
}

void ContentView::Content::undo() {
  if (undoLastCrush(services)) toast->show(UndoToast::Kind::Restored);
}

void ContentView::Content::tearOff(const QUuid& id, const DesktopRect& from) {
  TornNotes* torn = services.torn ? services.torn() : nullptr;
  const TaskPtr task = services.container.mainContext().findTask(id);
  if (torn && task) torn->tearOffTask(task, from);
}

ContentView::ContentView(const BoardServices& services, QWidget* parent) : QWidget(parent), m_services(services) {
  setFixedSize(kSide, kSide);
  setAccessibleName(tr("Board"));
}

void ContentView::prepare() {
  if (m_content) return;
  m_content = std::make_unique<Content>(*this, m_services);
  m_content->connectAll();
  m_content->orderTabs();
  m_content->reload();
}

ContentView::Content& ContentView::content() {
  prepare();
  return *m_content;
}

ContentView::~ContentView() = default;

ContentView::ViewState ContentView::viewState() const {
  return m_content ? m_content->state : ViewState::list;
}

void ContentView::showComposer() {
  if (content().state == ViewState::add) {
    content().composer->takeFocus();
    return;
  }
  content().compose(content().blankDraft());
}

void ContentView::showList() {
  content().closeAshes();
  if (content().state == ViewState::list) return;
  content().crossFade([this] { content().setState(ViewState::list); });
  content().wall->setFocus();
}

void ContentView::showEditor(const TaskPtr& task) {
  if (!task) return;
  QStringList names = content().boardNames();
  names.removeAll(kAllBoards);
  names.removeAll(kFocusBoard);
  content().closeAshes();
  content().crossFade([&] {
    content().editor->begin(task, names);
    content().setState(ViewState::edit);
  });
  content().editor->takeFocus();
}

void ContentView::showAshes() {
  showList();
  content().openAshes();
}

void ContentView::showNote(const QUuid& id) {
  auto& shown = content();
  if (shown.state != ViewState::list) return;
  shown.closeAshes();
  if (shown.isStale) shown.reload();
  const auto isShown = [&] { return std::ranges::any_of(shown.active, [&](const auto& task) { return task->id() == id; }); };
  if (!isShown()) {
    if (shown.showSearch) shown.toggleSearch();
    if (shown.showTags) shown.toggleTags();
    shown.selectBoard(kAllBoards);
  }
  if (isShown()) shown.wall->setSelection(id);
}

void ContentView::takeFocus() {
  switch (content().state) {
    case ViewState::list:
      content().showBurned ? content().ashes->takeFocus() : content().wall->setFocus(Qt::OtherFocusReason);
      break;
    case ViewState::add:
      content().composer->takeFocus();
      break;
    case ViewState::edit:
      content().editor->takeFocus();
      break;
  }
}

void ContentView::drawAhead() const {
  QThreadPool::globalInstance()->start([mood = boardMood(m_services.defaults), size = size(), scale = devicePixelRatioF()] {
    (void)BoardSurfaceView::pixmap(mood, GlassVariant::soft, size, scale);
    CardFace any;  // for the paper's shadow and grain, and the letters
    any.text = QStringLiteral("A");
    (void)any.pixmap(PaperLift::Rest, scale);
  });
}

void ContentView::setVisible(bool isVisible) {
  if (isVisible) {
    // While this thread builds the board, others draw what will lie on it.
    if (!std::exchange(m_wasShown, true)) drawAhead();
    prepare();  // before its children are shown: those made now are
    if (m_content->isStale) m_content->reload();
    m_content->wall->drawAhead();
  }
  QWidget::setVisible(isVisible);
}

void ContentView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const auto& services = content().services;
  const bool isComposited = services.screens.isComposited();
  if (!isComposited) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgb(0x1E2229));
    painter.drawRoundedRect(rect(), BoardSurfaceView::kRadius, BoardSurfaceView::kRadius);
  }
  painter.drawPixmap(
      0, 0,
      BoardSurfaceView::pixmap(m_content->mood(), GlassVariant::soft, size(), deviceScale(painter)));
  if (!isComposited) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), BoardSurfaceView::kRadius - 0.5,
                            BoardSurfaceView::kRadius - 0.5);
  }
}

void ContentView::keyPressEvent(QKeyEvent* event) {
  const bool isList = content().state == ViewState::list;
  if (hasCommand(event->modifiers()) && !event->modifiers().testFlag(Qt::ShiftModifier)) {
    if (event->key() == Qt::Key_N) {
      showComposer();
      return;
    }
    if (event->key() == Qt::Key_F && isList && !content().showBurned) {
      content().showSearch ? content().field->edit().setFocus() : content().toggleSearch();
      return;
    }
  }
  if (event->key() == Qt::Key_Escape && isList && content().showBurned) {
    content().closeAshes();
    return;
  }
  QWidget::keyPressEvent(event);
}

void ContentView::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (content().state != ViewState::list || content().showBurned) return;
  auto* menu = new BoardMenu(content().mood(), this);
  connect(menu, &BoardMenu::moodChosen, this, [this](BoardMood mood) {
    (void)m_services.defaults.setText(keys::kBoardMood, rawValue(mood));
  });
  connect(menu, &BoardMenu::ashesChosen, this, &ContentView::showAshes);
  menu->popup(event->globalPos());
}

void ContentView::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (content().isStale) {
    content().reload();
  } else {
    content().refresh();
  }
  content().armMinute();
}

void ContentView::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (!m_content) return;
  content().minute.cancel();
  content().cover->drop();
  content().wall->rest();
}

void ContentView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (m_content) m_content->layOut();
}

void ContentView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::LayoutDirectionChange && m_content) m_content->layOut();
}

}  // namespace tarnwick
