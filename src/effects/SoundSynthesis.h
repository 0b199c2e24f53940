// SPDX-License-Identifier: MIT
// The paper sounds as numbers: three generators and the WAV image that carries their samples. Pure but for the random
// words that are handed in.
#pragma once

#include <QByteArray>

#include <functional>
#include <span>
#include <vector>

namespace tarnwick::synthesis {

inline constexpr int kSampleRate = 44100;

using Samples = std::vector<qint16>;

/// Uniform doubles out of uniform 64-bit words.
class UniformSource final {
 public:
  using Words = std::function<quint64()>;

  /// Words of the system's cryptographic generator.
  UniformSource();
  explicit UniformSource(Words words) : m_words(std::move(words)) {}

  /// An integer in 0 to 2^53, both included.
  [[nodiscard]] quint64 nextStep();
  /// A real of the closed range.
  [[nodiscard]] double between(double low, double high);

 private:
  Words m_words;
};

[[nodiscard]] Samples stick(UniformSource& random);
[[nodiscard]] Samples tear(UniformSource& random);
[[nodiscard]] Samples crush(UniformSource& random);

/// The fixed noise under the crush sound: the same sequence for every generation.
class CrushNoise final {
 public:
  /// -1 to 1.
  [[nodiscard]] double next();

 private:
  quint64 m_state = 123456789;
};

/// 16-bit mono PCM, a 44-byte header and the samples.
[[nodiscard]] QByteArray createWav(int sampleRate, std::span<const qint16> samples);

}  // namespace tarnwick::synthesis
