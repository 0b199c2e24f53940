// SPDX-License-Identifier: MIT
#include "board/BoardMenu.h"

namespace tarnwick {
namespace {

QString label(BoardMood mood) {
  switch (mood) {
    case BoardMood::obsidian:
      return BoardMenu::tr("Obsidian");
    case BoardMood::corkboard:
      return BoardMenu::tr("Corkboard");
    case BoardMood::drafting:
      return BoardMenu::tr("Drafting Table");
    case BoardMood::acrylic:
      return BoardMenu::tr("Acrylic");
  }
  return {};
}

}  // namespace

BoardMenu::BoardMenu(BoardMood current, QWidget* parent) : StickyMenu(parent) {
  setHeading(tr("Surface"), QStringLiteral("board"));
  for (const BoardMood mood : kBoardMoods) {
    connect(addChoice(label(mood), mood == current), &QAction::triggered, this, [this, mood] { Q_EMIT moodChosen(mood); });
  }
  addSeparator();
  connect(addAction(tr("Ashes")), &QAction::triggered, this, &BoardMenu::ashesChosen);
}

}  // namespace tarnwick
