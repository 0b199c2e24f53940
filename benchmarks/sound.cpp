// SPDX-License-Identifier: MIT
// How late a sound starts after the call, beside the sound server's own floor: what the server says of an open stream.
// One recording of the null sink tells how far apart a sound of that stream and one of ours are heard; how far apart they
// were asked for is known. The difference is ours to answer for. Void where the server owns to no delay at all, as it does
// of a stream that has run empty, and where the floor's sound lies in the very block that was recorded at the call.
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
#include <optional>
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

/// The recording, read on.
class Recorder final {
 public:
  Recorder() {
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
  [[nodiscard]] std::size_t count() const { return m_samples.size(); }
  /// The first loud sample from a position on; nothing when none came.
  [[nodiscard]] std::optional<std::size_t> onsetAfter(std::size_t position) const {
    const auto from = m_samples.begin() + static_cast<std::ptrdiff_t>(std::min(position, m_samples.size()));
    const auto loud = std::find_if(from, m_samples.end(), [](int sample) { return std::abs(sample) > kLoud; });
    if (loud == m_samples.end()) return std::nullopt;
    return static_cast<std::size_t>(loud - m_samples.begin());
  }

 private:
  void read() {
    const auto bytes = m_process.readAllStandardOutput();
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2) m_samples.push_back(qFromLittleEndian<qint16>(bytes.constData() + i));
  }
  QProcess m_process;
  std::vector<int> m_samples;
};

QByteArray burst() {
  QByteArray samples(4410 * 2, '\0');
  for (int i = 0; i < 4410; ++i) {
    qToLittleEndian<qint16>(i / 20 % 2 == 0 ? 9000 : -9000, samples.data() + static_cast<qsizetype>(2) * i);
  }
  return samples;
}

double median(std::vector<double> values) {
  if (values.empty()) return 0;
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

int measure(LinuxPorts& ports) {
  Recorder recorder;
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
  std::vector<double> floors;
  std::vector<double> delays;
  for (int run = 0; run < kRuns; ++run) {
    wait(ports, 400ms);
    const double latency = static_cast<double>(pa_simple_get_latency(stream, nullptr)) / 1000;
    const auto first = recorder.count();
    const double firstAsked = milliseconds(ports.clock());
    pa_simple_write(stream, sound.constData(), static_cast<std::size_t>(sound.size()), nullptr);
    wait(ports, 500ms);
    const auto second = recorder.count();
    const double secondAsked = milliseconds(ports.clock());
    player->rewind();
    player->setVolume(1);
    player->play();
    wait(ports, 500ms);
    const auto floorHeard = recorder.onsetAfter(first);
    const auto heard = recorder.onsetAfter(second);
    if (!floorHeard || !heard || *floorHeard >= second) continue;
    const double apart = static_cast<double>(*heard - *floorHeard) * 1000 / kRate;
    floors.push_back(latency);
    delays.push_back(latency + apart - (secondAsked - firstAsked));
  }
  pa_simple_free(stream);
  const double floor = median(floors);
  const double ours = median(delays);
  if (delays.size() < kRuns / 2 || floor <= 0) {
    std::puts("sound.start - ms ratio=- of=server target=2.00 void");
  } else {
    std::printf("sound.start %.2f ms ratio=%.2f of=server target=2.00 %s\n", ours, ours / floor,
                ours <= 2 * floor ? "ok" : "short");
  }
  return 0;
}

}  // namespace
}  // namespace tarnwick

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  tarnwick::LinuxPorts ports;
  return tarnwick::measure(ports);
}
