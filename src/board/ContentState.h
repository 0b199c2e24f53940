// SPDX-License-Identifier: MIT
// The board's view state and the widgets that show it. Known to the board's own sources only.
#pragma once

#include "board/AddTaskView.h"
#include "board/AshesOverlay.h"
#include "board/BoardFilters.h"
#include "board/BoardQueries.h"
#include "board/BoardRail.h"
#include "board/BoardStrips.h"
#include "board/ContentView.h"
#include "board/NoteWall.h"
#include "board/PageCover.h"
#include "board/PlanNudgeView.h"
#include "board/StatsSlip.h"
#include "board/TaskNoteView.h"
#include "board/UndoKeyMonitor.h"
#include "board/UndoToast.h"

#include <functional>
#include <optional>
#include <utility>

namespace tarnwick {

/// A part of the board that is made when it is first needed: the first look at the board waits for none of them.
template <class Part>
class Later {
 public:
  explicit Later(std::function<Part*()> make) : m_make(std::move(make)) {}
  Part* operator->() { return get(); }
  Part* get() {
    if (!m_part) m_part = m_make();
    return m_part;
  }
  [[nodiscard]] Part* made() const { return m_part; }
  /// The part when it is shown, and what was made of it when it is not.
  Part* shown(bool isShown) { return isShown ? get() : m_part; }

 private:
  std::function<Part*()> m_make;
  Part* m_part = nullptr;  // owned by its parent widget
};

struct ContentView::Content {
  Content(ContentView& owner, const BoardServices& given);

  // Notes and settings come in.
  void reload();
  void refresh();
  void refreshClock();
  void armMinute();
  void scheduleReload();

  // What the user does.
  void setState(ViewState to);
  void selectBoard(const QString& name);
  void addBoard(const QString& name);
  void toggleSearch();
  void toggleTags();
  void toggleStats();
  void compose(const NoteDraft& draft);
  [[nodiscard]] NoteDraft blankDraft() const;
  void openAshes();
  void closeAshes();
  void revive(const TaskPtr& task);
  void sweep();
  void undo();
  void tearOff(const QUuid& id, const DesktopRect& from);
  [[nodiscard]] QStringList boardNames() const;
  [[nodiscard]] BoardMood mood() const;

  // Where things are.
  void connectAll();
  [[nodiscard]] SearchField* makeField();
  /// Over the wall, under what tells and fades.
  template <class Page>
  Page* page(Page* made) {
    made->hide();
    made->setGeometry(view.rect());
    made->stackUnder(toast);
    return made;
  }
  void layOut();
  void placeSlip();
  void orderTabs();
  [[nodiscard]] int wallTop() const;
  /// By what the user looks for; a board tab is no filter.
  [[nodiscard]] bool isFiltered() const;
  [[nodiscard]] bool showsNudge() const;
  [[nodiscard]] bool showsStrip() const;
  void crossFade(const std::function<void()>& change);

  ContentView& view;
  BoardServices services;
  ViewState state = ViewState::list;

  TaskList tasks;   // newest first
  TaskList active;  // on the wall
  struct Choice {
    BoardFilter filter;
    QDateTime tomorrow;
    bool operator==(const Choice&) const = default;
  };
  std::optional<Choice> choice;  // what `active` was chosen by
  // What follows from the notes alone; found once for each time they change.
  TaskList burned;
  QStringList usedBoards;
  int completed = 0;
  int burnable = 0;
  QString selectedBoard = kAllBoards;
  QStringList addedBoards;
  bool showBurned = false;
  bool showStats = false;
  bool showSearch = false;
  bool showTags = false;
  QString search;
  TaskTag selectedTag = TaskTag::none;
  bool hasBanner = false;
  int burnedLastNight = 0;
  bool isStale = false;  // notes changed while nobody looked

  NoteWall* wall;
  PlanNudgeView* nudge;
  StatsSlip* slip;
  AshesStrip* strip;
  Later<SearchField> field;
  TagRow* tagRow;
  UpdateBanner* banner;
  BoardRail* rail;
  Later<AddTaskView> composer;
  Later<TaskNoteView> editor;
  Later<AshesOverlay> ashes;
  UndoToast* toast;
  PageCover* cover;
  UndoKeyView* undoKey;
  Registration minute;
  Registration pendingReload;
  Registration screensWatch;
};

}  // namespace tarnwick
