// SPDX-License-Identifier: MIT
#include "effects/SoundSynthesis.h"

#include <QRandomGenerator>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <numbers>

namespace tarnwick::synthesis {

namespace {

constexpr quint64 kTopStep = quint64{1} << 53;

/// The generator is asked for many words at once: one system call instead of hundreds.
class SystemWords final {
 public:
  quint64 next() {
    if (m_used == m_words.size()) {
      QRandomGenerator::system()->generate(m_words.begin(), m_words.end());
      m_used = 0;
    }
    const quint64 high = m_words[m_used++];
    const quint64 low = m_words[m_used++];
    return (high << 32) | low;
  }

 private:
  std::array<quint32, 1024> m_words{};
  std::size_t m_used = m_words.size();
};

qint16 toSample(double value) {
  // A power of two on purpose: the largest double below 2^63 is still representable as an integer.
  constexpr double kLimit = 9223372036854775808.0;
  if (!std::isfinite(value) || value < -kLimit || value >= kLimit) qFatal("A sound sample is out of range");
  const auto whole = static_cast<qint64>(value);
  return static_cast<qint16>(std::clamp<qint64>(whole, std::numeric_limits<qint16>::min(),
                                                std::numeric_limits<qint16>::max()));
}

}  // namespace

UniformSource::UniformSource()
    : m_words([words = std::make_shared<SystemWords>()] { return words->next(); }) {}

quint64 UniformSource::nextStep() {
  constexpr quint64 kCount = kTopStep + 1;
  // 2^64 modulo the count: that many words at the low end would make some steps likelier than others.
  constexpr quint64 kRejected = (quint64{0} - kCount) % kCount;
  for (;;) {
    const quint64 word = m_words();
    if (word >= kRejected) return word % kCount;
  }
}

double UniformSource::between(double low, double high) {
  const quint64 step = nextStep();
  if (step == kTopStep) return high;
  return low + (high - low) * static_cast<double>(step) * 0x1p-53;
}

Samples stick(UniformSource& random) {
  Samples samples(5292);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double t = static_cast<double>(i) / 44100.0;
    const double envelope = std::exp(-42.0 * t);
    const double body = std::sin(t * 8796.45943005142) * 0.6 + std::sin(t * 1382.300767579509) * 0.4;
    const double grit = random.between(-0.2, 0.2);
    samples[i] = toSample(envelope * (body + grit) * 26000.0);
  }
  return samples;
}

Samples tear(UniformSource& random) {
  Samples samples(9702);
  double filtered = 0;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double t = static_cast<double>(i) / 9702.0;
    const double envelope = std::sin(std::numbers::pi * t);
    const double white = random.between(-1, 1);
    const double opening = 0.4 * t + 0.3;
    filtered = filtered * (1 - opening) + opening * white;
    samples[i] = toSample(envelope * filtered * 24000.0);
  }
  return samples;
}

double CrushNoise::next() {
  m_state = m_state * 6364136223846793005U + 1;
  return 2 * (static_cast<double>(m_state >> 32) / 4294967295.0) - 1;
}

Samples crush(UniformSource& random) {
  Samples samples(16758);
  double filtered = 0;
  CrushNoise noise;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double t = static_cast<double>(i) / 16758.0;
    const double envelope = std::pow(1 - t, 1.8);
    const double crackle = random.between(0, 1) > 0.88 ? 1.8 : 0.4;
    filtered = 0.72 * filtered + 0.28 * (noise.next() * crackle);
    const double crumple = std::sin(55.0 * t) * 0.4 + 0.6;
    samples[i] = toSample(crumple * (envelope * filtered) * 28000.0);
  }
  return samples;
}

QByteArray createWav(int sampleRate, std::span<const qint16> samples) {
  constexpr qint64 kMost = std::numeric_limits<qint32>::max();
  const qint64 byteRate = qint64{sampleRate} * 2;
  const qint64 dataSize = static_cast<qint64>(samples.size()) * 2;
  if (byteRate > kMost || dataSize + 36 > kMost) qFatal("A sound is too long for its image");

  QByteArray image;
  image.reserve(44 + dataSize);
  const auto text = [&](const char* four) { image.append(four, 4); };
  const auto number = [&](auto value) {
    const auto little = qToLittleEndian(value);
    image.append(reinterpret_cast<const char*>(&little), sizeof little);
  };
  text("RIFF");
  number(static_cast<quint32>(36 + dataSize));
  text("WAVE");
  text("fmt ");
  number(quint32{16});
  number(quint16{1});
  number(quint16{1});
  number(static_cast<quint32>(sampleRate));
  number(static_cast<quint32>(byteRate));
  number(quint16{2});
  number(quint16{16});
  text("data");
  number(static_cast<quint32>(dataSize));
  for (const qint16 sample : samples) number(sample);
  return image;
}

}  // namespace tarnwick::synthesis
