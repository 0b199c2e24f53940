// SPDX-License-Identifier: MIT
// What a crush costs: pace of the frames on screen, painting of one frame, processor time of one flight beside bare
// moving pictures, and the synthesis of the three sounds at start.
#include "context/DockTrashLocator.h"
#include "effects/CrushOverlayWindow.h"
#include "effects/CrushToTrashAnimator.h"
#include "effects/SoundEngine.h"
#include "effects/SoundSynthesis.h"
#include "effects/WadArt.h"
#include "figures.h"
#include "linux/LinuxPorts.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "platform/Accessibility.h"
#include "platform/Clock.h"
#include "platform/DockPreferences.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

#include <QApplication>
#include <QEventLoop>
#include <QPaintEvent>
#include <QPainter>
#include <QTemporaryDir>

#include <cmath>
#include <cstdio>
#include <functional>
#include <vector>

#include <sys/resource.h>

namespace tarnwick {
namespace {

using namespace std::chrono_literals;
using figures::median;
using figures::quantile;
using figures::report;
using figures::timed;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr double kFrame = 1000.0 / 60;
constexpr int kRuns = 7;

double processorTime() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto milliseconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1000 + static_cast<double>(time.tv_usec) / 1000;
  };
  return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

class Stage final {
 public:
  explicit Stage(LinuxPorts& ports) : m_ports(ports) {}

  [[nodiscard]] double now() const { return Milliseconds(m_ports.clock().mediaTime()).count(); }
  void wait(std::chrono::milliseconds duration) {
    QEventLoop loop;
    const auto end = m_ports.scheduler().after(duration, [&] { loop.quit(); });
    loop.exec();
  }

 private:
  LinuxPorts& m_ports;
};

/// What any flight must paint: a ball, eight scraps and six puffs as ready pictures, dirty rectangles only.
class BareFlight final : public QWidget {
 public:
  explicit BareFlight(const QRect& geometry)
      : QWidget(nullptr, Qt::FramelessWindowHint | Qt::BypassWindowManagerHint | Qt::WindowTransparentForInput |
                             Qt::WindowStaysOnTopHint) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setGeometry(geometry);
    for (const int edge : {46, 6, 6, 6, 6, 6, 6, 6, 6, 5, 5, 5, 5, 5, 5}) {
      QPixmap picture(edge, edge);
      picture.fill(QColor(200, 160, 40, 220));
      m_pieces.push_back({picture, {}});
    }
  }
  void step(int number) {
    for (std::size_t i = 0; i < m_pieces.size(); ++i) {
      auto& piece = m_pieces[i];
      const int spread = static_cast<int>(i) * 14;
      update(QRect(piece.place, piece.picture.size()));
      piece.place = i == 0 ? QPoint(300 + 14 * number, 500 - 4 * number) : QPoint(300 + spread, 400 + 5 * number);
      update(QRect(piece.place, piece.picture.size()));
    }
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    for (const auto& piece : m_pieces) {
      if (event->region().intersects(QRect(piece.place, piece.picture.size()))) painter.drawPixmap(piece.place, piece.picture);
    }
  }

 private:
  struct Piece {
    QPixmap picture;
    QPoint place;
  };
  std::vector<Piece> m_pieces;
};

/// Moments at which a window was painted.
class PaintWatch final : public QObject {
 public:
  explicit PaintWatch(const Stage& stage) : m_stage(stage) {}
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint && (qobject_cast<CrushOverlayWindow*>(object) || dynamic_cast<BareFlight*>(object))) {
      moments.push_back(m_stage.now());
    }
    return false;
  }
  std::vector<double> moments;

 private:
  const Stage& m_stage;
};

void measurePainting(double scale, const char* figure, double target) {
  const CrushScene scene{{1920, 1080}, {300, 500, 250, 200}, {1700, 10, 48, 48}, QColor(0xFF, 0xE1, 0x69)};
  QImage picture(QSizeF(250 * scale, 200 * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::yellow);
  const CrushPainter flight(crushPlan(scene, 0), scene.stage, picture, scale);
  QImage screen(QSizeF(1920 * scale, 1080 * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  screen.setDevicePixelRatio(scale);
  screen.fill(Qt::transparent);
  std::vector<double> costs;
  for (int run = 0; run < kRuns; ++run) {
    auto last = frameAt(flight.plan(), 0);
    for (double t = kFrame / 1000; t < flight.plan().geometry.finish(); t += kFrame / 1000) {
      costs.push_back(timed([&] {
        auto next = frameAt(flight.plan(), t);
        const auto moved = flight.movedRegion(last, next);
        QPainter painter(&screen);
        painter.setClipRegion(moved);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(moved.boundingRect(), Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        flight.paint(painter, next, moved);
        last = std::move(next);
      }));
    }
  }
  report(figure, quantile(costs, 0.95), "ms", kFrame, "frame", target);
}

void measureSounds() {
  std::vector<double> costs;
  for (int run = 0; run < kRuns; ++run) {
    costs.push_back(timed([] {
      synthesis::UniformSource random;
      for (auto* generate : {synthesis::crush, synthesis::stick, synthesis::tear}) {
        if (synthesis::createWav(synthesis::kSampleRate, generate(random)).isEmpty()) std::abort();
      }
    }));
  }
  report("sound.synthesis", median(costs), "ms", kFrame, "frame", 0.5);
}

void measureBall() {
  const double first = timed([] { (void)WadArt::image(QColor(1, 2, 3), kBallEdge, 2); });
  report("crush.ball-first", first, "ms", kFrame, "frame", 2.5);
  std::vector<double> recoloured;
  for (int i = 0; i < kRuns; ++i) {
    recoloured.push_back(timed([i] { (void)WadArt::image(QColor(10 * i, 20, 30), kBallEdge, 2); }));
  }
  report("crush.ball-recoloured", median(recoloured), "ms", first, "first-ball", 0.2);
}

void measureFlights(LinuxPorts& ports, Stage& stage) {
  if (!ports.screens().isComposited() || ports.screens().all().empty()) {
    for (const char* figure : {"crush.frame-p95", "crush.frame-p99", "crush.start", "crush.cpu"}) {
      report(figure, 0, "ms", 0, "compositor", 1);
    }
    return;
  }
  const auto screen = ports.screens().all().front();
  QTemporaryDir folder;
  UserDefaults defaults(folder.filePath(QStringLiteral("defaults.json")), ports.clock());
  (void)defaults.setText(keys::kCrushTarget,
                         toText({screen.frame.maxX() - 100, screen.frame.minY() + 20, 48, 48}));
  DockTrashLocator trash({ports.accessibility(), ports.dockPreferences(), ports.screens(), ports.workspace()}, defaults);
  SoundEngine sound(ports.audio(), defaults);
  CrushToTrashAnimator animator({ports.screens(), ports.scheduler(), ports.clock(), ports.windowServer(), ports.haptics(),
                                 sound, trash});
  PaintWatch watch(stage);
  qApp->installEventFilter(&watch);
  QImage picture(250, 200, QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::yellow);
  std::vector<double> gaps;
  std::vector<double> starts;
  std::vector<double> costs;
  std::vector<double> bareGaps;
  std::vector<double> bareCosts;
  const auto keepGaps = [&](std::vector<double>& kept) {
    for (std::size_t i = 1; i < watch.moments.size(); ++i) kept.push_back(watch.moments[i] - watch.moments[i - 1]);
    watch.moments.clear();
    stage.wait(100ms);
  };
  for (int run = 0; run < kRuns; ++run) {  // in turns: the processor's pace changes
    QEventLoop loop;
    double before = processorTime();
    const double asked = stage.now();
    const auto flight =
        animator.play({150, 300, 250, 200}, QColor(0xFF, 0xE1, 0x69), picture, Motion::Full, [&] { loop.quit(); });
    loop.exec();
    costs.push_back(processorTime() - before);
    const auto lasted = std::chrono::milliseconds(std::lround(stage.now() - asked));
    if (!watch.moments.empty()) starts.push_back(watch.moments.front() - asked);
    keepGaps(gaps);
    before = processorTime();
    {
      BareFlight bare(ports.screens().space().toQt(screen.frame).toAlignedRect());
      bare.show();
      int number = 0;
      const auto frames = ports.scheduler().frames([&](auto) { bare.step(++number); });
      stage.wait(lasted);
    }
    bareCosts.push_back(processorTime() - before);
    keepGaps(bareGaps);
  }
  qApp->removeEventFilter(&watch);
  // On a machine that cannot even move the bare pictures in time, the flight says nothing.
  const auto pace = [&](const char* figure, double part, double most) {
    const double floor = quantile(bareGaps, part);
    const double value = quantile(gaps, part);
    std::printf("%s %.2f ms ratio=%.2f of=bare-flight target=%.0fms %s\n", figure, value, value / floor, most,
                floor > most ? "void" : value <= most ? "ok" : "short");
  };
  pace("crush.frame-p95", 0.95, 18);
  pace("crush.frame-p99", 0.99, 20);
  report("crush.start", median(starts), "ms", kFrame, "frame", 3);
  report("crush.cpu", median(costs), "ms", median(bareCosts), "bare-flight", 1.5);
}

}  // namespace
}  // namespace tarnwick

int main(int argc, char** argv) {
  using namespace tarnwick;
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  LinuxPorts ports;
  Stage stage(ports);
  measureBall();  // before anything else has painted one
  measurePainting(1, "crush.paint-p95", 0.25);
  measurePainting(2, "crush.paint-2x-p95", 0.5);
  measureSounds();
  measureFlights(ports, stage);
  return 0;
}
