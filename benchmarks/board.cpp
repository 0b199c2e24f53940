// SPDX-License-Identifier: MIT
// What the board costs with very many notes beside few: a step of scrolling, a key in the search, opening; and its repaint
// beside as many ready pictures.
#include "board/CardFace.h"
#include "board/ContentView.h"
#include "board/NoteWall.h"
#include "support/Desk.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPainter>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr int kRuns = 41;

using Work = std::function<void(int run)>;

double costOf(const Work& work, int run) {
  QElapsedTimer timer;
  timer.start();
  work(run);
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// The median cost of each, taken in turns: what else the machine does meets both.
void report(const char* figure, const Work& work, const char* of, const Work& floorWork, double target) {
  std::vector<double> values;
  std::vector<double> floors;
  for (int run = 0; run < kRuns; ++run) {
    floors.push_back(costOf(floorWork, run));
    values.push_back(costOf(work, run));
  }
  std::ranges::sort(values);
  std::ranges::sort(floors);
  const double value = values[kRuns / 2];
  const double ratio = value / floors[kRuns / 2];
  std::printf("board.%s %.3f ms ratio=%.2f of=%s target=%.2f %s\n", figure, value, ratio, of, target,
              ratio <= target ? "ok" : "short");
}

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

// As many pictures as cards, over one of the board.
class Pictures {
 public:
  explicit Pictures(int cards) : m_cards(cards) {
    m_card.fill(QColor(255, 225, 105, 240));
    m_surface.fill(QColor(30, 34, 41, 250));
    m_screen.fill(Qt::black);
  }

  void paint() {
    QPainter painter(&m_screen);
    painter.drawPixmap(0, 0, m_surface);
    for (int i = 0; i < m_cards; ++i) painter.drawPixmap(10 + i % 2 * 185, 10 + i / 2 * 62, m_card);
  }

 private:
  int m_cards;
  QPixmap m_card{QSize(CardFace::kWidth, CardFace::kHeight)};
  QPixmap m_surface{ContentView::kSide, ContentView::kSide};
  QImage m_screen{ContentView::kSide, ContentView::kSide, QImage::Format_ARGB32_Premultiplied};
};

}  // namespace
}  // namespace tarnwick::test

int main(int argc, char** argv) {
  using namespace tarnwick::test;
  QApplication application(argc, argv);
  Board few(20);
  Board many(10000);
  report("scroll", [&](int run) { many.scroll(run); }, "20-notes", [&](int run) { few.scroll(run); }, 1.5);
  few.beginSearch();
  many.beginSearch();
  report("search", [&](int run) { many.search(run); }, "20-notes", [&](int run) { few.search(run); }, 1.5);
  few.endSearch();
  many.endSearch();
  report("open", [&](int) { many.open(); }, "20-notes", [&](int) { few.open(); }, 1.5);
  Board twelve(12);
  Pictures pictures(12);
  report("repaint", [&](int) { twelve.repaint(); }, "12-ready-pictures", [&](int) { pictures.paint(); }, 3);
  return 0;
}
