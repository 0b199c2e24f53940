// SPDX-License-Identifier: MIT
// Buses, notifications, power and sound, against real servers (the login manager is a mock on the system bus).
#include "Session.h"
#include "effects/SoundSynthesis.h"
#include "fakes/FakeServices.h"
#include "fakes/ManualTime.h"
#include "linux/LinuxPorts.h"
#include "linux/dbus/FreedesktopNotifications.h"
#include "linux/dbus/PortalHotKeys.h"
#include "linux/x11/X11Clients.h"
#include "platform/Audio.h"
#include "platform/CaptureWatch.h"
#include "platform/Instance.h"
#include "platform/Power.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QFile>
#include <QStandardPaths>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <functional>

namespace tarnwick {
namespace {

using namespace std::chrono_literals;
using test::holdsSoon;
using test::PeerProgram;

const QString kApplication = QStringLiteral("app.tarnwick.Tarnwick");

QString callRunning(const QString& method, const QStringList& arguments) {
  return test::run(QStringLiteral("gdbus"),
                   QStringList{QStringLiteral("call"), QStringLiteral("--session"), QStringLiteral("-d"), kApplication,
                               QStringLiteral("-o"), QStringLiteral("/app/tarnwick/Tarnwick"), QStringLiteral("-m"), method} +
                       arguments);
}

TEST(AChordOfThePortal, IsBoundAndReachesUs) {
  QProcess portal;
  portal.start(QStringLiteral("/usr/bin/python3"), {QStringLiteral(TARNWICK_PEER_FOLDER "/portal.py")});
  QByteArray lines;
  const auto says = [&](const QByteArray& line) {  // its words and its signals come on ways of their own
    return holdsSoon([&] { return (lines += portal.readAllStandardOutput()).endsWith(line + '\n'); });
  };
  ASSERT_TRUE(says("ready"));
  PortalHotKeys keys;
  int presses = 0;
  auto held = keys.registerChord(QStringLiteral("Meta+Shift+T"), [&] { ++presses; });
  EXPECT_EQ(held.status, 0);
  EXPECT_TRUE(holdsSoon([&] { return presses == 1; }));
  EXPECT_TRUE(says("LOGO+SHIFT+t")) << lines.constData();
  held.handle.cancel();
  held = keys.registerChord(QStringLiteral("Ctrl+Alt+B"), [&] { presses += 10; });
  EXPECT_TRUE(holdsSoon([&] { return presses == 11; })) << "another chord is bound in its stead";
  EXPECT_TRUE(says("CTRL+ALT+b")) << lines.constData();
  EXPECT_TRUE(keys.traits().isAvailable);
  portal.kill();
  portal.waitForFinished();
}

TEST(AChordOfThePortal, IsSaidToBeMissingWhereThePortalIs) {
  PortalHotKeys keys;
  const auto held = keys.registerChord(QStringLiteral("Meta+Shift+T"), [] {});
  EXPECT_TRUE(holdsSoon([&] { return !keys.traits().isAvailable; }));
  EXPECT_FALSE(keys.traits().reason.isEmpty());
}

TEST(TheInstance, IsOneAndServesTheOthers) {
  PeerProgram first;
  first.tell("acquire");
  ASSERT_TRUE(first.says(QStringLiteral("role first")));
  PeerProgram second;
  second.tell("acquire");
  ASSERT_TRUE(second.says(QStringLiteral("role second")));
  second.tell("forward list --json");
  EXPECT_TRUE(second.says(QStringLiteral("reply 3 outerr")));
  EXPECT_TRUE(first.says(QStringLiteral("command list --json")));
}

TEST(TheInstance, SpeaksTheStandardInterface) {
  PeerProgram program;
  program.tell("acquire");
  ASSERT_TRUE(program.says(QStringLiteral("role first")));
  callRunning(QStringLiteral("org.freedesktop.Application.Activate"), {QStringLiteral("{}")});
  EXPECT_TRUE(program.says(QStringLiteral("reopen")));
  callRunning(QStringLiteral("org.freedesktop.Application.ActivateAction"),
              {QStringLiteral("new-note"), QStringLiteral("[]"), QStringLiteral("{}")});
  EXPECT_TRUE(program.says(QStringLiteral("action new-note")));
  const auto reply = callRunning(QStringLiteral("app.tarnwick.Tarnwick1.Command"),
                                 {QStringLiteral("['toggle']"), QStringLiteral("text"), QStringLiteral("/tmp")});
  EXPECT_EQ(reply.trimmed(), u"(3, 'out', 'err')");
}

TEST(TheInstance, GivesItsNameBackWhenItEnds) {
  {
    PeerProgram first;
    first.tell("acquire");
    ASSERT_TRUE(first.says(QStringLiteral("role first")));
  }
  PeerProgram next;
  next.tell("forward status");
  EXPECT_TRUE(next.says(QStringLiteral("reply 1 tarnwick: not running")));
  next.tell("acquire");
  EXPECT_TRUE(next.says(QStringLiteral("role first")));
}

TEST(TheInstance, WorksWithoutABusAndHearsSignals) {
  auto environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("unix:path=/nonexistent"));
  PeerProgram program("peer", environment);
  program.tell("acquire");
  ASSERT_TRUE(program.says(QStringLiteral("role nobus")));
  kill(static_cast<pid_t>(program.pid()), SIGTERM);
  EXPECT_TRUE(program.says(QStringLiteral("ends")));
  EXPECT_FALSE(program.hasEnded()) << "the program decides how it ends";
}

class ADueNotification : public testing::Test {
 protected:
  /// The notification's window on the screen.
  [[nodiscard]] std::optional<QRect> onScreen() const {
    const XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(x.get(), xcb_query_tree(x.get(), x.root()), nullptr));
    if (!tree) return std::nullopt;
    const auto* windows = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
      const auto types = x.cardinals(windows[i], "_NET_WM_WINDOW_TYPE");
      const bool isNotification =
          std::find(types.begin(), types.end(), x.atom("_NET_WM_WINDOW_TYPE_NOTIFICATION")) != types.end();
      if (isNotification && x.isViewable(windows[i])) return x.geometry(windows[i]);
    }
    return std::nullopt;
  }
  test::ManualTime time;
  test::FakePower power;
  XcbConnection x;
};

TEST_F(ADueNotification, IsShownAndTellsWhenItIsClicked) {
  FreedesktopNotifications notifications(time, time, power);
  notifications.requestAuthorization();
  EXPECT_TRUE(notifications.traits().isAvailable);
  QStringList acted;
  const auto handle = notifications.onActedOn([&](const QString& identifier, const QString&) { acted << identifier; });
  notifications.add({QStringLiteral("id-due"), QStringLiteral("Due now"), QStringLiteral("a <b & c"), time.now().addSecs(60)});
  EXPECT_FALSE(onScreen());
  time.advance(1min);
  ASSERT_TRUE(holdsSoon([&] { return onScreen().has_value(); }));
  const auto place = onScreen()->center();
  test::xdotool(QStringLiteral("mousemove %1 %2 click 1").arg(place.x()).arg(place.y()));
  EXPECT_TRUE(holdsSoon([&] { return acted == QStringList{QStringLiteral("id-due")}; }));
  EXPECT_TRUE(holdsSoon([&] { return !onScreen(); }));
}

class PowerEvents : public testing::Test {
 protected:
  void SetUp() override {
    handle = ports.power().observe([this](PowerEvent event) { events.push_back(event); });
  }
  [[nodiscard]] bool got(PowerEvent event) const { return std::find(events.begin(), events.end(), event) != events.end(); }
  static void emitLogin(const QString& path, const QStringList& arguments) {
    test::run(QStringLiteral("gdbus"),
              QStringList{QStringLiteral("call"), QStringLiteral("--system"), QStringLiteral("-d"),
                          QStringLiteral("org.freedesktop.login1"), QStringLiteral("-o"), path, QStringLiteral("-m"),
                          QStringLiteral("org.freedesktop.DBus.Mock.EmitSignal")} +
                  arguments);
  }
  LinuxPorts ports;
  Registration handle;
  std::vector<PowerEvent> events;
};

TEST_F(PowerEvents, ComeWhenTheMachineWakesButNotWhenItGoesToSleep) {
  const auto sleep = [](const char* isDown) {
    emitLogin(QStringLiteral("/org/freedesktop/login1"),
              {QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PrepareForSleep"), QStringLiteral("b"),
               QStringLiteral("[<%1>]").arg(QLatin1String(isDown))});
  };
  sleep("true");
  sleep("false");
  ASSERT_TRUE(holdsSoon([&] { return !events.empty(); }));
  EXPECT_EQ(events, std::vector{PowerEvent::DidWake});
}

TEST_F(PowerEvents, ComeWhenTheSessionBecomesActive) {
  const auto active = [] {
    emitLogin(QStringLiteral("/org/freedesktop/login1/session/c1"),
              {QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"),
               QStringLiteral("sa{sv}as"),
               QStringLiteral("[<'org.freedesktop.login1.Session'>, <{'Active': <true>}>, <@as []>]")});
  };
  EXPECT_TRUE(holdsSoon([&] {
    if (!got(PowerEvent::SessionBecameActive)) active();
    return got(PowerEvent::SessionBecameActive);
  }));
}

TEST_F(PowerEvents, ComeWhenTheScreenSaverEnds) {
  const auto saver = [](bool isOn) {  // any sender: there are several screen savers
    auto signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/ScreenSaver"),
                                             QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("ActiveChanged"));
    signal << isOn;
    auto other = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("screen-saver"));
    other.send(signal);
  };
  saver(true);
  saver(false);
  ASSERT_TRUE(holdsSoon([&] { return !events.empty(); }));
  EXPECT_EQ(events, std::vector{PowerEvent::ScreensDidWake});
}

class Sound : public testing::Test {
 protected:
  void SetUp() override {
    recorder.start(QStringLiteral("parec"), {QStringLiteral("-d"), QStringLiteral("probe.monitor"), QStringLiteral("--raw"),
                                             QStringLiteral("--latency-msec=20"), QStringLiteral("--channels=1")});
    ASSERT_TRUE(holdsSoon([&] { return recorded() > 0; })) << "the recorder runs";
    ASSERT_TRUE(holdsSoon([&] { return ports.audio().traits().isAvailable; }));
  }
  void TearDown() override {
    recorder.kill();
    recorder.waitForFinished();
  }
  /// Samples so far.
  std::size_t recorded() {
    bytes += recorder.readAllStandardOutput();
    return static_cast<std::size_t>(bytes.size() / 2);
  }
  [[nodiscard]] int at(std::size_t index) const {
    return qFromLittleEndian<qint16>(bytes.constData() + static_cast<qsizetype>(2 * index));
  }
  [[nodiscard]] int peak(std::size_t from, std::size_t to) const {
    int loudest = 0;
    for (auto i = from; i < to; ++i) loudest = std::max(loudest, std::abs(at(i)));
    return loudest;
  }
  /// Whether the next tenth of a second brings a sound.
  bool isHeard() {
    const auto from = recorded();
    holdsSoon([&] { return recorded() > from + 4410; });
    return peak(from, recorded()) > 0;
  }
  /// What the server rendered ahead for the recorder it does not render again: a sound may lack its first milliseconds.
  static constexpr std::size_t kUnsure = 1000;
  /// The image up to `count`, as heard where it begins at a place of the recording: how much alike (1: in all but
  /// loudness), and how loud.
  struct Likeness {
    double shape = 0;
    double volume = 0;
  };
  [[nodiscard]] Likeness compare(const synthesis::Samples& image, std::size_t count, std::size_t from) const {
    double both = 0;
    double meant = 0;
    double heard = 0;
    for (std::size_t i = kUnsure; i < count; ++i) {
      both += static_cast<double>(image[i]) * at(from + i);
      meant += static_cast<double>(image[i]) * image[i];
      heard += static_cast<double>(at(from + i)) * at(from + i);
    }
    return heard > 0 ? Likeness{both / std::sqrt(meant * heard), both / meant} : Likeness{};
  }
  /// Where in this stretch of the recording, or shortly before it, the image begins.
  [[nodiscard]] std::size_t beginOf(const synthesis::Samples& image, std::size_t from, std::size_t to) const {
    constexpr std::size_t kEnough = kUnsure + 500;
    std::size_t best = from;
    double most = -1;
    for (auto place = from - std::min(from, kUnsure); place + kEnough < to; ++place) {
      if (const double shape = compare(image, kEnough, place).shape; shape > most) {
        most = shape;
        best = place;
      }
    }
    return best;
  }
  LinuxPorts ports;
  QProcess recorder;
  QByteArray bytes;
};

TEST_F(Sound, IsHeardAsItsImageIsAndASecondRequestRestartsIt) {
  synthesis::UniformSource random;
  const auto image = synthesis::crush(random);
  const auto player = ports.audio().prepare(synthesis::createWav(synthesis::kSampleRate, image));
  ASSERT_TRUE(player);
  const auto play = [&](double volume) {
    player->rewind();
    player->setVolume(volume);
    player->play();
  };
  ASSERT_TRUE(holdsSoon([&] {
    play(0.1);
    return isHeard();
  })) << "the stream opens";
  ASSERT_TRUE(holdsSoon([&] { return !isHeard(); })) << "and the sound ends";

  const auto asked = recorded();
  play(0.85);
  ASSERT_TRUE(holdsSoon([&] { return recorded() > asked + 4410 && peak(asked, recorded() - 4410) > 0; }));
  const auto again = recorded();
  play(0.3);
  ASSERT_TRUE(holdsSoon([&] { return recorded() > again + 3 * image.size(); }));

  const auto first = beginOf(image, asked, again);
  const auto second = beginOf(image, first + 2000, again + image.size());
  ASSERT_LT(second, first + image.size()) << "while the first was still to be heard";
  const auto cut = compare(image, std::min<std::size_t>(4000, second - first), first);
  EXPECT_GT(cut.shape, 0.999);
  EXPECT_NEAR(cut.volume, 0.85, 0.01);
  const auto whole = compare(image, image.size(), second);
  EXPECT_GT(whole.shape, 0.999) << "from its beginning, with nothing of the first under it";
  EXPECT_NEAR(whole.volume, 0.3, 0.01);
  EXPECT_EQ(peak(second + image.size(), second + 2 * image.size()), 0);
}

TEST_F(Sound, IsHeardTheFirstTimeTooWhileItsStreamOpens) {
  const auto isLoudAfter = [&](const std::function<void()>& play) {
    const auto from = recorded();
    play();
    return holdsSoon([&] {
      const auto now = recorded();
      return peak(from, now) > 3000;
    });
  };
  EXPECT_TRUE(isLoudAfter([&] { ports.audio().playStock(QStringLiteral("Pop")); }));
  ASSERT_TRUE(holdsSoon([&] { return !isHeard(); }));
  synthesis::UniformSource random;
  const auto player = ports.audio().prepare(synthesis::createWav(synthesis::kSampleRate, synthesis::tear(random)));
  EXPECT_TRUE(isLoudAfter([&] { player->play(); }));
}

TEST_F(Sound, OfNoWavImageCannotBePrepared) { EXPECT_FALSE(ports.audio().prepare("no sound")); }

class PipeWire : public testing::Test {
 protected:
  void SetUp() override {
    if (QStandardPaths::findExecutable(QStringLiteral("pipewire")).isEmpty()) GTEST_SKIP() << "no pipewire installed";
    daemon.start(QStringLiteral("pipewire"), QStringList());
    ASSERT_TRUE(holdsSoon([] { return QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/pipewire-0")); }));
  }
  void TearDown() override {
    daemon.terminate();
    daemon.waitForFinished();
  }
  static void makeNode(const QString& name, const QString& mediaClass) {
    test::run(QStringLiteral("pw-cli"),
              {QStringLiteral("create-node"), QStringLiteral("adapter"),
               QStringLiteral("{ factory.name=support.null-audio-sink node.name=%1 media.class=%2 object.linger=1 "
                              "audio.position=[MONO] adapter.auto-port-config={mode=dsp monitor=true} }")
                   .arg(name, mediaClass)});
  }
  /// Stand-ins that make no picture: something of the class of a compositor's stream, and somebody to read it.
  static void makeCast() {
    makeNode(QStringLiteral("cast"), QStringLiteral("Stream/Output/Video"));
    makeNode(QStringLiteral("reader"), QStringLiteral("Audio/Sink"));
    EXPECT_TRUE(holdsSoon([] {
      const auto ports = test::run(QStringLiteral("pw-link"), {QStringLiteral("-io")});
      return ports.contains(QStringLiteral("cast:monitor_MONO")) && ports.contains(QStringLiteral("reader:playback_MONO"));
    }));
  }
  static void link(QStringList options) {
    test::run(QStringLiteral("pw-link"),
              options << QStringLiteral("cast:monitor_MONO") << QStringLiteral("reader:playback_MONO"));
  }
  QProcess daemon;
};

TEST_F(PipeWire, TellsOfACastWhileSomebodyReadsItAndFollowsTheDaemon) {
  LinuxPorts ports;
  auto& watch = ports.captureWatch();
  const auto serves = [&] { return watch.traits().isAvailable && watch.exclusion() == CaptureExclusion::HiddenWhileSharing; };
  const auto isMissing = [&] { return !watch.traits().isAvailable && watch.exclusion() == CaptureExclusion::NotAvailable; };
  int changes = 0;
  const auto handle = watch.onChanged([&] { ++changes; });
  ASSERT_TRUE(holdsSoon(serves));
  for (const int round : {1, 2}) {
    makeCast();
    EXPECT_FALSE(watch.isCasting()) << round << ": nobody reads it";
    link({});
    EXPECT_TRUE(holdsSoon([&] { return watch.isCasting(); })) << round;
    link({QStringLiteral("-d")});
    EXPECT_TRUE(holdsSoon([&] { return !watch.isCasting(); })) << round << ": the reader went";
    link({});
    ASSERT_TRUE(holdsSoon([&] { return watch.isCasting(); })) << round;
    changes = 0;
    daemon.kill();
    daemon.waitForFinished();
    EXPECT_TRUE(holdsSoon([&] { return isMissing() && changes > 0; })) << round << ": the daemon is gone";
    EXPECT_FALSE(watch.isCasting()) << round << ": and no cast outlives it";
    daemon.start(QStringLiteral("pipewire"), QStringList());
    EXPECT_TRUE(holdsSoon(serves)) << round << ": and back";
  }
}

}  // namespace
}  // namespace tarnwick
