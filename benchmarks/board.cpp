// SPDX-License-Identifier: MIT
// What the board costs with very many notes beside few: a step of scrolling, a key in the search, opening.
#include "board/ContentView.h"
#include "board/NoteWall.h"
#include "figures.h"
#include "support/Desk.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <memory>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr int kRuns = 41;

// A board with notes on it, shown.
class Board {
 public:
  explicit Board(int notes) {
    for (int i = 0; i < notes; ++i) {
      auto record = Desk::record(u"Note %1 of the many, with a line of text"_s.arg(i));
      record.createdAt = m_desk.time.now().addSecs(-i);
      m_desk.notes().insert(std::move(record));
    }
    if (!m_desk.notes().save()) std::abort();
    m_view = std::make_unique<ContentView>(m_desk.services);
    m_screen = QImage(m_view->size(), QImage::Format_ARGB32_Premultiplied);
    m_view->show();
    frame();
  }

  void repaint() { m_view->render(&m_screen, {}, {}, QWidget::DrawChildren); }

  void scroll(int run) {
    auto& wall = *m_view->findChild<NoteWall*>();
    QWheelEvent wheel(QPointF(100, 200), wall.mapToGlobal(QPointF(100, 200)), {}, {0, run % 40 < 20 ? -40 : 40},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&wall, &wheel);
    frame();
  }

  void beginSearch() {
    QTest::keyClick(m_view.get(), Qt::Key_F, Qt::ControlModifier);
    frame();
  }

  void search(int run) {
    QTest::keyClick(m_view->findChild<QLineEdit*>(), run % 2 == 0 ? Qt::Key_N : Qt::Key_Backspace);
    frame();
  }

  void endSearch() { QTest::keyClick(m_view.get(), Qt::Key_Escape); }

  void open() {
    m_view->hide();
    m_view->show();
    frame();
  }

 private:
  void frame() {
    m_desk.time.advance(17ms);
    QCoreApplication::processEvents();
    repaint();
  }

  Desk m_desk;
  std::unique_ptr<ContentView> m_view;
  QImage m_screen;
};

}  // namespace
}  // namespace tarnwick::test

int main(int argc, char** argv) {
  using namespace tarnwick::test;
  using tarnwick::figures::compare;
  QApplication application(argc, argv);
  Board few(20);
  Board many(10000);
  compare("board.scroll", kRuns, [&](int run) { many.scroll(run); }, "20-notes", [&](int run) { few.scroll(run); }, 1.5);
  few.beginSearch();
  many.beginSearch();
  compare("board.search", kRuns, [&](int run) { many.search(run); }, "20-notes", [&](int run) { few.search(run); }, 1.5);
  few.endSearch();
  many.endSearch();
  compare("board.open", kRuns, [&](int) { many.open(); }, "20-notes", [&](int) { few.open(); }, 1.5);
  return 0;
}
