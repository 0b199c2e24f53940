// SPDX-License-Identifier: MIT
// A board on a desk of fakes, shown on the offscreen platform and driven by real events.
#pragma once

#include "board/AshesOverlay.h"
#include "board/BoardRail.h"
#include "board/BoardTabs.h"
#include "board/ChecklistEdit.h"
#include "board/ContentView.h"
#include "board/NoteForm.h"
#include "board/NoteWall.h"
#include "board/OptionChip.h"
#include "board/PlanNudgeView.h"
#include "board/UndoToast.h"
#include "support/Desk.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QImage>
#include <QPainter>
#include <QTest>

namespace tarnwick::test {

class BoardHarness : public testing::Test {
 protected:
  using Milliseconds = std::chrono::milliseconds;

  ContentView& open() {
    if (!m_board) {
      m_host = std::make_unique<QWidget>();
      m_host->setAttribute(Qt::WA_TranslucentBackground);
      m_board = new ContentView(desk.services, m_host.get());
      m_host->resize(ContentView::kSide, ContentView::kSide);
      m_host->show();
      m_host->activateWindow();
      EXPECT_TRUE(QTest::qWaitForWindowActive(m_host.get()));
      m_board->takeFocus();
      settle();
    }
    return *m_board;
  }
  [[nodiscard]] QWidget& host() { return *m_host; }
  void close() {
    m_host.reset();
    m_board = nullptr;
  }
  /// Lets animations end and deferred deletions happen.
  void settle(Milliseconds time = Milliseconds(400)) {
    desk.time.advance(time);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
  }
  template <typename T>
  [[nodiscard]] T& find() {
    auto* found = open().template findChild<T*>();
    EXPECT_TRUE(found);
    return *found;
  }
  [[nodiscard]] NoteWall& wall() { return find<NoteWall>(); }
  [[nodiscard]] NoteForm& form() {
    for (auto* found : open().findChildren<NoteForm*>()) {
      if (found->isVisible()) return *found;
    }
    ADD_FAILURE() << "no form is shown";
    return find<NoteForm>();
  }
  /// The button that assistive technology calls by this name, among those that are shown.
  [[nodiscard]] QAbstractButton* button(const QString& name) {
    for (auto* found : open().findChildren<QAbstractButton*>()) {
      if (found->isVisible() &&
          (found->accessibleName() == name || (found->accessibleName().isEmpty() && found->text() == name)))
        return found;
    }
    return nullptr;
  }
  void click(const QString& name) {
    auto* found = button(name);
    ASSERT_TRUE(found) << name.toStdString();
    QTest::mouseClick(found, Qt::LeftButton);
    settle();
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QWidget* target = QApplication::focusWidget() ? QApplication::focusWidget() : m_host.get();
    QTest::keyClick(target, key, modifiers);
    settle();
  }
  void type(const QString& text) {
    QTest::keyClicks(QApplication::focusWidget(), text);
    settle();
  }
  /// The pointer comes to rest on a card.
  void hover(const TaskPtr& task, const QPointF& inCard) {
    const QPointF at = pointOn(task, inCard);
    QMouseEvent move(QEvent::MouseMove, at, wall().mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&wall(), &move);
  }
  /// Where a part of a card is, in the wall.
  [[nodiscard]] QPoint pointOn(const TaskPtr& task, const QPointF& inCard) {
    const int index = wall().indexOf(task->id());
    return (wall().cardRect(index).topLeft() + inCard).toPoint();
  }
  void choose(QAbstractButton& chip, const QString& entry) {
    QTest::mouseClick(&chip, Qt::LeftButton, {}, QPoint(20, 18));
    chooseFromMenu(entry);
  }
  /// The menu that a right press on that place of the widget brings.
  void chooseAt(QWidget& widget, const QPoint& at, const QString& entry) {
    QContextMenuEvent asks(QContextMenuEvent::Mouse, at, widget.mapToGlobal(at));
    QApplication::sendEvent(&widget, &asks);
    chooseFromMenu(entry);
  }
  void chooseFromMenu(const QString& entry) {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    for (auto* action : menu->actions()) {
      if (action->text() != entry) continue;
      QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
      settle();
      m_host->activateWindow();  // as a window manager does once the menu is gone
      EXPECT_TRUE(QTest::qWaitForWindowActive(m_host.get()));
      return;
    }
    ADD_FAILURE() << "no entry " << entry.toStdString();
    menu->close();
  }
  [[nodiscard]] QStringList shownTexts() {
    QStringList texts;
    for (const auto& task : wall().notes()) texts << task->text();
    return texts;
  }

  Desk desk;

 private:
  std::unique_ptr<QWidget> m_host;
  ContentView* m_board = nullptr;
};

}  // namespace tarnwick::test
