// SPDX-License-Identifier: MIT
// A flight into the Trash of a real panel, on a real screen, with the flight's own clock held at chosen moments.
#include "Session.h"
#include "context/DockTrashLocator.h"
#include "effects/CrushPlan.h"
#include "effects/CrushToTrashAnimator.h"
#include "effects/PaperSheet.h"
#include "effects/SoundEngine.h"
#include "effects/Tokens.h"
#include "fakes/FakeServices.h"
#include "fakes/ManualTime.h"
#include "linux/LinuxPorts.h"
#include "model/Color.h"
#include "model/UserDefaults.h"
#include "platform/Accessibility.h"
#include "platform/Screens.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cmath>

namespace tarnwick {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::holdsSoon;

const QColor kPaper(0xFF, 0x2E, 0x88);  // nothing else on the screen is of this hue
constexpr DesktopRect kNote{300, 420, 250, 230};

/// What of the paper's hue is on the screen.
struct Seen {
  int count = 0;
  QRect box;
};

class AFlightIntoTheTrash : public testing::Test {
 protected:
  AFlightIntoTheTrash() { QDir().mkpath(shots); }

  QImage screenshot(const QString& name) {
    const auto path = (name.startsWith(u'/') ? name : shots + u'/' + name) + u".png"_s;
    test::run(u"import"_s, {u"-window"_s, u"root"_s, path});
    return QImage(path);
  }
  /// Looks for the paper where no scrap flies any more.
  Seen look(const QString& name) {
    const auto image = screenshot(name);
    Seen seen;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor color = image.pixelColor(x, y);
        if (color.red() - color.green() < 60 || color.blue() < color.green() + 20) continue;
        ++seen.count;
        seen.box |= QRect(x, y, 1, 1);
      }
    }
    return seen;
  }
  /// Looks until the screen has caught up with what is wanted of it.
  Seen lookUntil(const QString& name, const std::function<bool(const Seen&)>& isAsWanted) {
    Seen seen;
    holdsSoon([&] {
      seen = look(name);
      return isAsWanted(seen);
    });
    return seen;
  }
  void expectSinkingInto(const QRectF& place, const QString& name) {
    const auto landed = lookUntil(name, [&](const Seen& seen) {
      return seen.count > 0 && seen.box.width() < 60 && seen.box.left() >= place.left();
    });
    EXPECT_GE(landed.box.left(), place.left());
    EXPECT_LE(landed.box.right(), place.right());
    EXPECT_NEAR(landed.box.center().x(), place.center().x(), 2);
    EXPECT_GT(landed.box.bottom(), place.top()) << "it is in the Trash";
    EXPECT_LT(landed.box.bottom(), place.center().y()) << "and hidden behind the rim";
  }
  void holdAt(std::chrono::milliseconds moment) {
    time.advance(moment - at);
    at = moment;
  }

  QTemporaryDir folder;
  QString shots = qEnvironmentVariable("TARNWICK_SHOTS", folder.path());
  LinuxPorts ports;
  test::ManualTime time;
  std::chrono::milliseconds at{0};
  UserDefaults defaults{folder.filePath(u"defaults.json"_s), time};
  test::FakeAudio audio;
  test::FakeHaptics haptics;
  SoundEngine sound{audio, defaults};
  DockTrashLocator trash{{ports.accessibility(), ports.dockPreferences(), ports.screens(), ports.workspace()}, defaults};
  CrushToTrashAnimator animator{
      {ports.screens(), time, time, ports.windowServer(), haptics, sound, trash}};
};

TEST_F(AFlightIntoTheTrash, EndsInThePanelsTrashButton) {
  std::optional<DesktopRect> button;
  ASSERT_TRUE(holdsSoon([&] { return (button = trash.axTrashFrame()).has_value(); })) << "the panel has a Trash";
  const auto screen = ports.screens().all().front();
  EXPECT_GT(button->minX(), screen.frame.maxX() - 120) << "it is the panel's last item";
  EXPECT_LE(button->maxY(), screen.visibleFrame.minY()) << "and lies in the panel's strip";
  const QRectF place = ports.screens().space().toQt(*button);
  ASSERT_EQ(look(u"0-before"_s).count, 0);

  int completions = 0;
  const auto flight = animator.play(kNote, kPaper, {}, Motion::Full, [&] { ++completions; });
  holdAt(50ms);
  const QRectF note = ports.screens().space().toQt(kNote);
  const auto sheet = lookUntil(u"1-sheet"_s, [](const Seen& seen) { return seen.count > 20000; });
  EXPECT_TRUE(note.toRect().adjusted(-16, -16, 16, 16).contains(sheet.box)) << "the sheet lies on the note";

  // 0.52 s of crumpling and, so far away, 0.72 s in the air: half of the way is above both ends
  holdAt(880ms);
  const auto ball = lookUntil(u"2-flight"_s, [&](const Seen& seen) { return seen.count > 0 && seen.box.width() < 60; });
  EXPECT_GT(ball.box.center().x(), note.right());
  EXPECT_LT(ball.box.center().x(), place.left());
  EXPECT_LT(ball.box.bottom(), place.top());

  holdAt(1290ms);  // 40 ms after the landing the ball sinks into the mouth
  expectSinkingInto(place, u"3-landing"_s);
  EXPECT_EQ(audio.log.filter(u"stock"_s), QStringList{u"stock Pop"_s});

  holdAt(1395ms);
  EXPECT_EQ(lookUntil(u"4-sunk"_s, [](const Seen& seen) { return seen.count == 0; }).count, 0);
  EXPECT_EQ(completions, 0);
  holdAt(1420ms);
  EXPECT_EQ(completions, 1);
  EXPECT_EQ(rectFromText(defaults.text(u"dockTrashFrame"_s).value_or(QString())), *button);
}

/// A plank dock, its icons 64 pixels large at each scale, with one program whose icon is a plain square, and its trash.
class Plank final {
 public:
  struct Setting {
    const char* side;
    int scale = 1;  // of its toolkit
    const char* zoom = "false";
    [[nodiscard]] bool isUpright() const { return side[0] == 'l' || side[0] == 'r'; }
  };
  Plank(const QString& folder, const Setting& setting) {
    QImage square(128, 128, QImage::Format_RGB32);
    square.fill(kSquare);
    square.save(folder + u"/square.png"_s);
    const auto config = qEnvironmentVariable("XDG_CONFIG_HOME");
    write(folder + u"/square.desktop"_s, "[Desktop Entry]\nType=Application\nName=Square\nExec=true\nIcon=" +
                                             folder.toUtf8() + "/square.png\n");
    const QByteArray item("[PlankDockItemPreferences]\nLauncher=");
    write(config + u"/plank/dock1/launchers/square.dockitem"_s, item + "file://" + folder.toUtf8() + "/square.desktop\n");
    write(config + u"/plank/dock1/launchers/trash.dockitem"_s, item + "docklet://trash\n");
    write(config + u"/glib-2.0/settings/keyfile"_s,
          "[net/launchpad/plank/docks/dock1]\nicon-size=" + QByteArray::number(64 / setting.scale) +
              "\nposition='" + setting.side + "'\nhide-mode='none'\nzoom-enabled=" + setting.zoom + "\n");
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"GSETTINGS_BACKEND"_s, u"keyfile"_s);
    environment.insert(u"GDK_SCALE"_s, QString::number(setting.scale));
    m_process.setProcessEnvironment(environment);
    m_process.start(u"plank"_s, QStringList());
  }
  ~Plank() {
    m_process.terminate();
    m_process.waitForFinished();
  }
  /// Where the square is in a picture of the screen.
  static QRect squareIn(const QImage& image) {
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixel(x, y) == kSquare.rgb()) box |= QRect(x, y, 1, 1);
      }
    }
    return box;
  }

 private:
  static constexpr QColor kSquare{0x12, 0xC4, 0x3A};
  static void write(const QString& path, const QByteArray& text) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }
  QProcess m_process;
};

class AFlightIntoPlank : public AFlightIntoTheTrash, public testing::WithParamInterface<Plank::Setting> {};

TEST_P(AFlightIntoPlank, EndsInItsTrash) {
  if (QStandardPaths::findExecutable(u"plank"_s).isEmpty()) GTEST_SKIP() << "no plank installed";
  const Plank plank(folder.path(), GetParam());
  QRect square;
  QRectF place;
  // Both icons are as large and stand in one column, or row.
  EXPECT_TRUE(holdsSoon([&] {
    square = Plank::squareIn(screenshot(u"5-plank"_s));
    place = ports.screens().space().toQt(trash.axTrashFrame().value_or(DesktopRect{}));
    const QPointF apart = place.center() - square.center();
    const double across = GetParam().isUpright() ? apart.x() : apart.y();
    const double along = GetParam().isUpright() ? apart.y() : apart.x();
    return std::abs(square.width() - 63) <= 1 && std::abs(square.height() - 63) <= 1 &&
           std::abs(place.width() - 64) <= 2 && std::abs(across) <= 2 && std::abs(std::abs(along) - 80) <= 3;
  })) << "the square is " << square.left() << ',' << square.top() << ' ' << square.width() << "; the Trash "
      << place.left() << ',' << place.top() << ' ' << place.width();

  const auto screen = ports.screens().all().front();
  const auto g = crushGeometry({screen.frame.size(), kNote, trash.trashFrame(), kPaper});
  const auto flight = animator.play(kNote, kPaper, {}, Motion::Full, [] {});
  holdAt(std::chrono::milliseconds(static_cast<int>(1000 * g.landing) + 50));
  expectSinkingInto(place, u"6-plank-landing"_s);
}

INSTANTIATE_TEST_SUITE_P(Settings, AFlightIntoPlank,
                         testing::Values(Plank::Setting{"left"}, Plank::Setting{"left", 2}, Plank::Setting{"left", 1, "true"},
                                         Plank::Setting{"right"}, Plank::Setting{"top"}, Plank::Setting{"bottom"}));

/// With TARNWICK_FRAMES set to a folder: the flight frame by frame, 25 in a second.
TEST_F(AFlightIntoTheTrash, CanBeLookedAtFrameByFrame) {
  const auto frames = qEnvironmentVariable("TARNWICK_FRAMES");
  if (frames.isEmpty()) GTEST_SKIP() << "nobody looks";
  ASSERT_TRUE(holdsSoon([&] { return trash.axTrashFrame().has_value(); }));
  const QRect screen = ports.screens().space().toQt(ports.screens().all().front().frame).toAlignedRect();
  QLabel wall;
  wall.setAttribute(Qt::WA_X11NetWmWindowTypeDesktop);
  wall.setGeometry(screen);
  QPixmap evening(screen.size());
  QPainter sky(&evening);
  QLinearGradient dusk(0, 0, 0, screen.height());
  dusk.setColorAt(0, QColor(0x4B, 0x6A, 0x75));
  dusk.setColorAt(1, QColor(0x26, 0x38, 0x3F));
  sky.fillRect(evening.rect(), dusk);
  sky.end();
  wall.setPixmap(evening);
  wall.show();

  const QColor paper(0xFF, 0xE1, 0x69);
  QImage picture(250, 230, QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  PaperSheet sheet;
  sheet.rect = picture.rect();
  sheet.colorHex = paper.name();
  sheet.kind = PaperKind::TornNote;
  sheet.hasShadow = false;
  sheet.paint(painter);
  painter.setFont(tokens::font(tokens::Type::NoteText));
  painter.setPen(Color::inkOnPaper(sheet.colorHex));
  painter.drawText(picture.rect().adjusted(24, 38, -60, -20), Qt::TextWordWrap, u"Call the baker about Saturday's cake"_s);
  painter.end();
  const auto flight = animator.play({740, 300, 250, 230}, paper, picture, Motion::Full, [] {});
  for (int frame = 0; animator.flightsUnderWay() > 0; ++frame) {
    QTest::qWait(60);  // the compositor's own time
    screenshot(frames + u"/%1"_s.arg(frame, 3, 10, QLatin1Char('0')));
    time.advance(40ms);
  }
}

}  // namespace
}  // namespace tarnwick
