// SPDX-License-Identifier: MIT
// What paper costs to see: a board of twelve cards beside blitting as many ready pictures, and one more note window of
// each theme beside a translucent window with a text edit, both until they are painted on the screen.
#include "board/CardFace.h"
#include "board/ContentView.h"
#include "figures.h"
#include "linux/LinuxPorts.h"
#include "model/Color.h"
#include "platform/WindowServer.h"
#include "shell/ShellWorld.h"
#include "support/Desk.h"

#include <QApplication>
#include <QPainter>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include <functional>
#include <map>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

constexpr int kCards = 12;
constexpr int kRepaints = 201;
constexpr int kWindows = 15;  // of each kind

void measureBoard() {
  Desk desk;
  for (int i = 0; i < kCards; ++i) desk.add(u"Note %1 of the twelve, with a line of text"_s.arg(i));
  ContentView board(desk.services);
  board.show();
  QCoreApplication::processEvents();
  QImage screen(board.size(), QImage::Format_ARGB32_Premultiplied);
  screen.fill(Qt::black);
  QPixmap card(CardFace::kWidth, CardFace::kHeight);
  card.fill(QColor(255, 225, 105, 240));
  QPixmap surface(board.size());
  surface.fill(QColor(30, 34, 41, 250));
  const auto repaint = [&](int) { board.render(&screen, {}, {}, QWidget::DrawChildren); };
  const auto blit = [&](int) {
    QPainter painter(&screen);
    painter.drawPixmap(0, 0, surface);
    for (int i = 0; i < kCards; ++i) painter.drawPixmap(10 + i % 2 * 185, 10 + i / 2 * 62, card);
  };
  figures::compare("paint.board", kRepaints, repaint, "12-ready-pictures", blit, 3);
}

/// From the request until the window that it opens has been painted.
class Opening final : public QObject {
 public:
  Opening() { qApp->installEventFilter(this); }
  double operator()(const std::function<void()>& open) {
    m_isPainted = false;
    return figures::timed([&] {
      open();
      while (!m_isPainted) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    });
  }

 protected:
  bool eventFilter(QObject* /*object*/, QEvent* event) override {
    m_isPainted = m_isPainted || event->type() == QEvent::Paint;
    return false;
  }

 private:
  bool m_isPainted = false;
};

class BareNote final : public QWidget {
 public:
  explicit BareNote(const QString& text)
      : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* column = new QVBoxLayout(this);
    column->addWidget(new QPlainTextEdit(text, this));
    setGeometry(300, 200, 250, 230);
  }
};

/// The shell's own windows on the real desktop, its store and settings in memory.
class Notes final : public ShellWorld {
 public:
  explicit Notes(LinuxPorts& linuxPorts) {
    const ShellPorts real{linuxPorts.windowServer(), otherWindows, accessibility, capture};
    panel = std::make_unique<FloatingPanel>(services, real, std::make_unique<QWidget>());
  }
  /// The note is there and saved: only its window is wanted.
  TaskPtr written(PaperTheme theme, const QString& colorHex) {
    return note([&](TaskRecord& record) {
      record.text = text;
      record.colorHex = colorHex;
      record.paperThemeRaw = rawValue(theme);
      record.isTornOff = true;
    });
  }
  void open(const TaskPtr& task) { panel->tearOffTask(task, std::nullopt); }
  void close(const TaskPtr& task) {
    panel->closePanel(task->id());
    time.settle();
  }
  const QString text = u"Book the ferry back from the island for Sunday, before noon"_s;

 private:
  void TestBody() override {}
};

void settle() { QTest::qWait(60); }  // the window manager and the compositor have done their part

void measureWindows() {
  LinuxPorts linuxPorts;
  Notes notes(linuxPorts);
  Opening opening;
  std::vector<double> bare;
  std::map<PaperTheme, std::vector<double>> themed;
  for (int run = 0; run <= kWindows; ++run) {
    const auto keep = [run](std::vector<double>& costs, double cost) {
      if (run > 0) costs.push_back(cost);  // the first one is not a further one
    };
    {
      std::unique_ptr<BareNote> window;
      keep(bare, opening([&] {
             window = std::make_unique<BareNote>(notes.text);
             window->show();
           }));
      settle();
    }
    settle();
    for (const auto theme : kPaperThemes) {
      const auto task = notes.written(theme, kPaperPalette[static_cast<std::size_t>(run) % kPaperPalette.size()]);
      keep(themed[theme], opening([&] { notes.open(task); }));
      settle();
      notes.close(task);
      settle();
    }
  }
  for (const auto& [theme, costs] : themed) {
    const auto figure = "paint.window-" + rawValue(theme).toUtf8();
    figures::report(figure.constData(), figures::median(costs), "ms", figures::median(bare), "bare-note", 1.3);
  }
}

}  // namespace
}  // namespace tarnwick::test

int main(int argc, char** argv) {
  using namespace tarnwick;
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  test::measureBoard();
  test::measureWindows();
  return 0;
}
