// SPDX-License-Identifier: MIT
// How the board is put together: its widgets, what they are connected to, where they stand and in which order they get
// the keyboard.
#include "board/BoardTabs.h"
#include "board/ContentState.h"
#include "board/InkButton.h"
#include "context/ContextEngine.h"
#include "effects/AshLedge.h"
#include "effects/BoardSurfaceView.h"
#include "effects/Controls.h"
#include "effects/SoundEngine.h"
#include "model/NotificationCenter.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "model/store/ModelContainer.h"
#include "platform/Screens.h"
#include "settings/UpdateChecker.h"

namespace tarnwick {
namespace {

constexpr int kEdge = 14;
constexpr int kRail = static_cast<int>(BoardSurfaceView::kRailHeight);
constexpr int kBannerHeight = 36;
constexpr int kFieldHeight = 30;
constexpr int kSlipRoom = 166;   // what the slip takes from the top of the wall
constexpr int kSlipSpread = 10;  // around the slip, for its turn and shadow

}  // namespace

ContentView::Content::Content(ContentView& owner, const BoardServices& given)
    : view(owner),
      services(given),
      wall(new NoteWall(services, &owner)),
      nudge(new PlanNudgeView(&owner)),
      slip(new StatsSlip(wall)),
      strip(new AshesStrip(&owner)),
      field([this] { return makeField(); }),
      tagRow(new TagRow(&owner)),
      banner(new UpdateBanner(&owner)),
      rail(new BoardRail(&owner)),
      composer([this] {
        return page(new AddTaskView(services, {[this] { view.showList(); }, [this] { view.showList(); }}, &view));
      }),
      editor([this] { return page(new TaskNoteView(services, [this] { view.showList(); }, &view)); }),
      ashes([this] {
        return page(new AshesOverlay(
            {[this] { closeAshes(); }, [this](const TaskPtr& task) { revive(task); }, [this] { sweep(); }}, &view));
      }),
      toast(new UndoToast(services.clock, services.scheduler, services.workspace, &owner)),
      cover(new PageCover(services.clock, services.scheduler, &owner)),
      undoKey(new UndoKeyView(&owner)) {
  nudge->hide();  // until the wall is known to be empty
}

SearchField* ContentView::Content::makeField() {
  auto* made = new SearchField(&view);
  made->hide();
  made->stackUnder(tagRow);
  connect(made, &SearchField::textChanged, &view, [this](const QString& text) {
    search = text;
    refresh();
  });
  connect(made, &SearchField::closeRequested, &view, [this] { toggleSearch(); });
  return made;
}

void ContentView::Content::connectAll() {
  undoKey->onUndo = [this] { undo(); };
  connect(&services.container, &ModelContainer::didSave, &view, [this] { scheduleReload(); });
  connect(&services.defaults, &UserDefaults::changed, &view, [this](const QString& key) {
    refresh();
    if (key == keys::kBoardMood) view.update();
  });
  connect(&services.context, &ContextEngine::snapshotChanged, &view, [this] { refresh(); });
  connect(&services.updates, &UpdateChecker::changed, &view, [this] { refresh(); });
  connect(&services.center, &NotificationCenter::showAddTask, &view, &ContentView::showComposer);
  connect(&services.center, &NotificationCenter::crushDidComplete, &view,
          [this] {
            scheduleReload();  // without a save too: in memory the note is finished
            toast->show(UndoToast::Kind::Crushed);
          });
  screensWatch = services.screens.onChanged([this] { view.update(); });

  connect(rail, &BoardRail::boardChosen, &view, [this](const QString& name) {
    if (name != selectedBoard) services.sound.playStick();
    selectBoard(name);
  });
  connect(rail, &BoardRail::boardAdded, &view, [this](const QString& name) {
    services.sound.playStick();
    addBoard(name);
  });
  connect(rail, &BoardRail::newNoteRequested, &view, &ContentView::showComposer);
  connect(rail, &BoardRail::displayModeChosen, &view, [this](NoteDisplayMode mode) {
    (void)services.defaults.setText(keys::kNoteDisplayMode, rawValue(mode));
    Q_EMIT services.center.noteDisplayModeChanged();
  });
  connect(&rail->searchTool(), &QAbstractButton::clicked, &view, [this] { toggleSearch(); });
  connect(&rail->tagsTool(), &QAbstractButton::clicked, &view, [this] { toggleTags(); });
  connect(&rail->statsTool(), &QAbstractButton::clicked, &view, [this] { toggleStats(); });
  connect(slip, &StatsSlip::closeRequested, &view, [this] { toggleStats(); });
  connect(tagRow, &ChoiceRow::chosen, &view, [this] {
    selectedTag = tagRow->tag();
    refresh();
  });
  connect(banner, &UpdateBanner::downloadRequested, &view, [this] { services.updates.openDownload(); });
  connect(banner, &UpdateBanner::dismissed, &view, [this] { services.updates.dismissBanner(); });
  connect(strip, &QAbstractButton::clicked, &view, [this] { openAshes(); });
  connect(nudge, &PlanNudgeView::slotChosen, &view, [this](const QString& colorHex) {
    NoteDraft draft = blankDraft();
    draft.colorHex = colorHex;
    draft.isDaily3 = true;
    compose(draft);
  });
  connect(wall, &NoteWall::editRequested, &view,
          [this](const QUuid& id) { view.showEditor(services.container.mainContext().findTask(id)); });
  connect(wall, &NoteWall::tearOffRequested, &view,
          [this](const QUuid& id, const DesktopRect& from) { tearOff(id, from); });
  connect(wall, &NoteWall::scrolled, &view, [this] { placeSlip(); });
}

void ContentView::Content::orderTabs() {
  QList<QWidget*> order{wall};
  order << &slip->closeButton() << nudge->stops() << rail->stops();
  if (field.made()) order << &field->edit();
  order << tagRow << banner->stops() << strip;
  for (int i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

int ContentView::Content::wallTop() const {
  int top = kRail;
  if (hasBanner) top += kBannerHeight;
  if (showSearch && showTags) return top + 66;
  return showSearch || showTags ? top + 36 : top;
}

bool ContentView::Content::isFiltered() const {
  return !search.isEmpty() || (showTags && selectedTag != TaskTag::none);
}

bool ContentView::Content::showsNudge() const {
  return active.empty() && !isFiltered() && !showStats;
}

bool ContentView::Content::showsStrip() const {
  return burnedLastNight > 0;
}

void ContentView::Content::placeSlip() {
  slip->setGeometry(0, static_cast<int>(12 - kSlipSpread - wall->scrollOffset()), view.width(),
                    StatsSlip::kHeight + 2 * kSlipSpread);
}

void ContentView::Content::layOut() {
  const int width = view.width();
  const int height = view.height();
  const bool isList = state == ViewState::list && !showBurned;
  rail->setGeometry(0, 0, width, kRail);
  int y = kRail;
  banner->setGeometry(0, y, width, kBannerHeight);
  if (hasBanner) y += kBannerHeight;
  if (auto* made = field.shown(showSearch)) {
    made->setGeometry(kEdge - 2, y + 3 - 2, width - 2 * kEdge + 4, kFieldHeight + 4);
  }
  tagRow->setGeometry(kEdge, y + (showSearch ? 36 : 3), width - 2 * kEdge, kFieldHeight);
  const int top = wallTop();
  wall->setGeometry(0, top, width, height - top);
  wall->setInsets(showStats ? kSlipRoom : 0, showsStrip() ? static_cast<int>(AshLedge::kHeight) : 0);
  placeSlip();
  nudge->setGeometry(view.rect());
  nudge->setShift(top - kRail);
  const QSize ledge = strip->sizeHint();
  strip->setGeometry(0, height - ledge.height(), width, ledge.height());

  // The keyboard leaves what goes before Qt hands it to a neighbour.
  const QWidget* focused = view.focusWidget();
  if (isList) wall->show();
  const auto show = [&](QWidget* widget, bool isShown) {
    if (!isShown && isList && focused && (widget == focused || widget->isAncestorOf(focused)))
      wall->setFocus(Qt::OtherFocusReason);
    widget->setVisible(isShown);
  };
  const auto showLater = [&](auto& part, bool isShown) {
    if (auto* made = part.shown(isShown)) show(made, isShown);
  };
  showLater(composer, state == ViewState::add);
  showLater(editor, state == ViewState::edit);
  showLater(ashes, state == ViewState::list && showBurned);
  show(rail, isList);
  show(slip, isList && showStats);
  show(nudge, isList && showsNudge());
  showLater(field, isList && showSearch);
  show(tagRow, isList && showTags);
  show(banner, isList && hasBanner);
  show(strip, isList && showsStrip());
  show(wall, isList);
  toast->raise();
}

}  // namespace tarnwick
