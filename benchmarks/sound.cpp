// SPDX-License-Identifier: MIT
// How late a sound starts after the call, beside the sound server's own floor. Both are judged by the position of their
// first loud sample in one recording of the null sink, against marks of when each was asked for.
#include "effects/SoundSynthesis.h"
#include "linux/LinuxPorts.h"
#include "platform/Audio.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"

#include <QApplication>
#include <QEventLoop>
#include <QProcess>
#include <QtEndian>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include <pulse/error.h>
#include <pulse/simple.h>

namespace tarnwick {
namespace {

using namespace std::chrono_literals;
constexpr int kRate = 44100;
constexpr int kRuns = 9;
constexpr int kLoud = 1200;

void wait(LinuxPorts& ports, std::chrono::milliseconds duration) {
  QEventLoop loop;
  const auto end = ports.scheduler().after(duration, [&] { loop.quit(); });
  loop.exec();
}

double milliseconds(const Clock& clock) { return std::chrono::duration<double, std::milli>(clock.mediaTime()).count(); }

/// The recording, read on: what it holds is placed in time by the moment of its last sample.
class Recorder final {
 public:
  explicit Recorder(const Clock& clock) : m_clock(clock) {
    m_process.start(QStringLiteral("parec"),
                    {QStringLiteral("-d"), QStringLiteral("probe.monitor"), QStringLiteral("--raw"),
                     QStringLiteral("--latency-msec=5"), QStringLiteral("--channels=1"), QStringLiteral("--rate=44100")});
    QObject::connect(&m_process, &QProcess::readyReadStandardOutput, &m_process, [this] { read(); });
  }
  ~Recorder() {
    m_process.kill();
    m_process.waitForFinished();
  }
  [[nodiscard]] bool runs() const { return !m_samples.empty(); }
  /// Sample that is being recorded now, by the smallest delay seen between the clock and the stream.
  [[nodiscard]] double position() const { return (milliseconds(m_clock) - m_start) * kRate / 1000; }
  [[nodiscard]] std::size_t count() const { return m_samples.size(); }
  /// Milliseconds from the position to the first loud sample after it; negative when none came.
  [[nodiscard]] double delayAfter(double position) const {
    for (auto i = static_cast<std::size_t>(std::max(0.0, position)); i < m_samples.size(); ++i) {
      if (std::abs(m_samples[i]) > kLoud) return (static_cast<double>(i) - position) * 1000 / kRate;
    }
    return -1;
  }

 private:
  void read() {
    const auto bytes = m_process.readAllStandardOutput();
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2) m_samples.push_back(qFromLittleEndian<qint16>(bytes.constData() + i));
    const double start = milliseconds(m_clock) - static_cast<double>(m_samples.size()) * 1000 / kRate;
    m_start = m_samples.size() < kRate / 2 ? start : std::min(m_start, start);
  }
  const Clock& m_clock;
  QProcess m_process;
  std::vector<int> m_samples;
  double m_start = 0;
};

QByteArray burst() {
  QByteArray samples(4410 * 2, '\0');
  for (int i = 0; i < 4410; ++i) {
    qToLittleEndian<qint16>(i / 20 % 2 == 0 ? 9000 : -9000, samples.data() + static_cast<qsizetype>(2) * i);
  }
  return samples;
}

double median(std::vector<double> values) {
  std::erase_if(values, [](double value) { return value < 0; });
  if (values.empty()) return -1;
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

std::vector<double> delays(LinuxPorts& ports, Recorder& recorder, const std::function<void()>& play) {
  std::vector<double> found;
  for (int run = 0; run < kRuns; ++run) {
    wait(ports, 400ms);
    const double asked = recorder.position();
    play();
    wait(ports, 500ms);
    found.push_back(recorder.delayAfter(asked));
  }
  return found;
}

int measure(LinuxPorts& ports) {
  Recorder recorder(ports.clock());
  const auto wav = synthesis::createWav(kRate, [] {
    synthesis::Samples samples(4410);
    for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = i / 20 % 2 == 0 ? 9000 : -9000;
    return samples;
  }());
  const auto player = ports.audio().prepare(wav);
  wait(ports, 3000ms);  // until the null sink renders small blocks

  // The floor: a stream of the server's own simple client that is open already.
  const pa_sample_spec format{PA_SAMPLE_S16LE, kRate, 1};
  const pa_buffer_attr buffer{UINT32_MAX, 882, UINT32_MAX, UINT32_MAX, UINT32_MAX};
  auto* stream = pa_simple_new(nullptr, "bench", PA_STREAM_PLAYBACK, "probe", "floor", &format, nullptr, &buffer, nullptr);
  if (!stream || !player || !recorder.runs()) {
    std::puts("sound.start 0 ms ratio=- of=server target=2.00 void");
    return 0;
  }
  const auto sound = burst();
  const double floor = median(delays(ports, recorder, [&] {
    pa_simple_write(stream, sound.constData(), static_cast<std::size_t>(sound.size()), nullptr);
  }));
  const double ours = median(delays(ports, recorder, [&] {
    player->rewind();
    player->setVolume(1);
    player->play();
  }));
  pa_simple_free(stream);
  const bool isVoid = floor <= 0 || ours < 0;
  std::printf("sound.start %.2f ms ratio=%.2f of=server target=2.00 %s\n", ours, ours / floor,
              isVoid ? "void" : ours <= 2 * floor ? "ok" : "short");
  return 0;
}

}  // namespace
}  // namespace tarnwick

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  tarnwick::LinuxPorts ports;
  return tarnwick::measure(ports);
}
