// SPDX-License-Identifier: MIT
// How late a sound starts after the call, beside the sound server's own floor: a stream of its simple client that is open
// already. Both are counted in samples of a recording of the null sink, from what it held at the call to the end of the
// block in which the sound is first heard: the server renders whole blocks, so one block is the least.
#include "effects/SoundSynthesis.h"
#include "figures.h"
#include "linux/LinuxPorts.h"
#include "platform/Audio.h"
#include "platform/Scheduler.h"

#include <QApplication>
#include <QEventLoop>
#include <QProcess>
#include <QtEndian>

#include <algorithm>
#include <functional>
#include <optional>
#include <vector>

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
  /// Milliseconds from a position to the end of the block with the first loud sample from there; nothing when none came.
  [[nodiscard]] std::optional<double> delayFrom(std::size_t position) const {
    const auto from = m_samples.begin() + static_cast<std::ptrdiff_t>(std::min(position, m_samples.size()));
    const auto loud = std::find_if(from, m_samples.end(), [](int sample) { return std::abs(sample) > kLoud; });
    if (loud == m_samples.end()) return std::nullopt;
    return (static_cast<double>(loud - from) + figures::median(m_blocks)) * 1000 / kRate;
  }

 private:
  void read() {
    const auto bytes = m_process.readAllStandardOutput();
    m_blocks.push_back(static_cast<double>(bytes.size()) / 2);
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2) m_samples.push_back(qFromLittleEndian<qint16>(bytes.constData() + i));
  }
  QProcess m_process;
  std::vector<int> m_samples;
  std::vector<double> m_blocks;  // samples of each reading
};

QByteArray burst() {
  QByteArray samples(4410 * 2, '\0');
  for (int i = 0; i < 4410; ++i) {
    qToLittleEndian<qint16>(i / 20 % 2 == 0 ? 9000 : -9000, samples.data() + static_cast<qsizetype>(2) * i);
  }
  return samples;
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
    figures::report("sound.start", 0, "ms", 0, "server", 2);
    return 0;
  }
  const auto sound = burst();
  const auto delayOf = [&](const std::function<void()>& play) {
    std::vector<double> delays;
    for (int run = 0; run < kRuns; ++run) {
      wait(ports, 400ms);
      const auto asked = recorder.count();
      play();
      wait(ports, 500ms);
      if (const auto delay = recorder.delayFrom(asked)) delays.push_back(*delay);
    }
    return figures::median(delays);
  };
  const double floor = delayOf([&] {
    pa_simple_write(stream, sound.constData(), static_cast<std::size_t>(sound.size()), nullptr);
  });
  const double ours = delayOf([&] {
    player->rewind();
    player->setVolume(1);
    player->play();
  });
  pa_simple_free(stream);
  figures::report("sound.start", ours, "ms", floor, "server", 2);
  return 0;
}

}  // namespace
}  // namespace tarnwick

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  tarnwick::LinuxPorts ports;
  return tarnwick::measure(ports);
}
