// SPDX-License-Identifier: MIT
#include "linux/audio/WavImage.h"

#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tarnwick {

namespace {

constexpr double kTau = 2 * std::numbers::pi;

template <typename Wave>
PcmSound synthesised(double seconds, Wave wave) {
  PcmSound sound;
  const auto count = static_cast<size_t>(seconds * sound.rate);
  sound.samples.reserve(count);
  for (size_t i = 0; i < count; ++i) {
    const double value = std::clamp(wave(static_cast<double>(i) / sound.rate), -1.0, 1.0);
    sound.samples.push_back(static_cast<int16_t>(std::lround(value * 32000)));
  }
  return sound;
}

/// Rises within the attack, then falls to a third within each `fall` seconds.
double envelope(double t, double attack, double fall) { return std::min(t / attack, 1.0) * std::exp(-t / fall); }

}  // namespace

std::optional<PcmSound> pcmFromWav(const QByteArray& wav) {
  if (!wav.startsWith("RIFF") || wav.mid(8, 4) != "WAVE") return std::nullopt;
  PcmSound sound;
  bool hasFormat = false;
  for (qsizetype at = 12; at + 8 <= wav.size();) {
    const auto name = wav.mid(at, 4);
    const auto size = static_cast<qsizetype>(qFromLittleEndian<quint32>(wav.constData() + at + 4));
    const auto* body = wav.constData() + at + 8;
    const auto left = wav.size() - at - 8;
    if (name == "fmt " && size >= 16 && left >= 16) {
      sound.channels = static_cast<uint8_t>(qFromLittleEndian<quint16>(body + 2));
      sound.rate = qFromLittleEndian<quint32>(body + 4);
      const bool isPcm16 = qFromLittleEndian<quint16>(body) == 1 && qFromLittleEndian<quint16>(body + 14) == 16;
      hasFormat = isPcm16 && (sound.channels == 1 || sound.channels == 2) && sound.rate >= 8000 && sound.rate <= 192000;
    } else if (name == "data" && hasFormat) {
      const auto bytes = std::min(size, left) / (2 * sound.channels) * (2 * sound.channels);
      if (bytes == 0) return std::nullopt;
      sound.samples.resize(static_cast<size_t>(bytes / 2));
      for (size_t i = 0; i < sound.samples.size(); ++i) sound.samples[i] = qFromLittleEndian<qint16>(body + 2 * i);
      return sound;
    }
    at += 8 + size + (size & 1);
  }
  return std::nullopt;
}

std::optional<PcmSound> stockSound(const QString& name) {
  if (name == u"Tink") {  // a small bell: two partials that do not fit each other
    return synthesised(0.16, [](double t) {
      return 0.34 * envelope(t, 0.001, 0.030) * std::sin(kTau * 2637 * t) +
             0.16 * envelope(t, 0.001, 0.016) * std::sin(kTau * 5920 * t);
    });
  }
  if (name == u"Pop") {  // a bubble: the pitch climbs as it closes
    return synthesised(0.09, [](double t) {
      return 0.55 * envelope(t, 0.003, 0.022) * std::sin(kTau * (420 * t + 2600 * t * t));
    });
  }
  if (name == u"Purr") {  // a low tone that flutters
    return synthesised(0.45, [](double t) {
      const double flutter = 0.55 + 0.45 * std::sin(kTau * 24 * t);
      const double body = std::sin(kTau * 155 * t) + 0.35 * std::sin(kTau * 310 * t);
      const double ends = std::min({t / 0.04, (0.45 - t) / 0.16, 1.0});
      return 0.30 * flutter * ends * body;
    });
  }
  return std::nullopt;
}

}  // namespace tarnwick
