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
#include <vector>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr int kRuns = 41;

double medianOf(const std::function<void(int)>& work) {
  std::vector<double> costs;
  for (int run = 0; run < kRuns; ++run) {
    QElapsedTimer timer;
    timer.start();
    work(run);
    costs.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
  }
  std::sort(costs.begin(), costs.end());
  return costs[costs.size() / 2];
}

void report(const char* figure, double value, double floor, const char* of, double target) {
  const double ratio = value / floor;
  std::printf("board.%s %.3f ms ratio=%.2f of=%s target=%.2f %s\n", figure, value, ratio, of, target,
              ratio <= target ? "ok" : "short");
}

struct Costs {
  double scroll = 0;
  double search = 0;
  double open = 0;
  double repaint = 0;
};

Costs costsWith(int notes) {
  Desk desk;
  for (int i = 0; i < notes; ++i) {
    auto record = Desk::record(u"Note %1 of the many, with a line of text"_s.arg(i));
    record.createdAt = desk.time.now().addSecs(-i);
    desk.notes().insert(std::move(record));
  }
  if (!desk.notes().save()) std::abort();
  ContentView board(desk.services);
  QImage screen(board.size(), QImage::Format_ARGB32_Premultiplied);
  const auto paint = [&] {
    desk.time.advance(17ms);
    QCoreApplication::processEvents();
    board.render(&screen, {}, {}, QWidget::DrawChildren);
  };
  board.show();
  paint();
  auto& wall = *board.findChild<NoteWall*>();
  Costs costs;
  costs.repaint = medianOf([&](int) { board.render(&screen, {}, {}, QWidget::DrawChildren); });
  costs.scroll = medianOf([&](int run) {
    QWheelEvent wheel(QPointF(100, 200), wall.mapToGlobal(QPointF(100, 200)), {}, {0, run % 40 < 20 ? -40 : 40}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&wall, &wheel);
    paint();
  });
  QTest::keyClick(&board, Qt::Key_F, Qt::ControlModifier);
  paint();
  auto* field = board.findChild<QLineEdit*>();
  costs.search = medianOf([&](int run) {
    run % 2 == 0 ? QTest::keyClick(field, Qt::Key_N) : QTest::keyClick(field, Qt::Key_Backspace);
    paint();
  });
  QTest::keyClick(&board, Qt::Key_Escape);
  costs.open = medianOf([&](int) {
    board.hide();
    board.show();
    paint();
  });
  return costs;
}

double blitting(int cards) {
  QPixmap card(CardFace::kWidth, CardFace::kHeight);
  card.fill(QColor(255, 225, 105, 240));
  QImage screen(ContentView::kSide, ContentView::kSide, QImage::Format_ARGB32_Premultiplied);
  screen.fill(Qt::black);
  QPixmap surface(ContentView::kSide, ContentView::kSide);
  surface.fill(QColor(30, 34, 41, 250));
  return medianOf([&](int) {
    QPainter painter(&screen);
    painter.drawPixmap(0, 0, surface);
    for (int i = 0; i < cards; ++i) painter.drawPixmap(10 + i % 2 * 185, 10 + i / 2 * 62, card);
  });
}

}  // namespace
}  // namespace tarnwick::test

int main(int argc, char** argv) {
  using namespace tarnwick::test;
  QApplication application(argc, argv);
  const auto few = costsWith(20);
  const auto many = costsWith(10000);
  const auto twelve = costsWith(12);
  report("scroll", many.scroll, few.scroll, "20-notes", 1.5);
  report("search", many.search, few.search, "20-notes", 1.5);
  report("open", many.open, few.open, "20-notes", 1.5);
  report("repaint", twelve.repaint, blitting(12), "12-ready-pictures", 3);
  return 0;
}
