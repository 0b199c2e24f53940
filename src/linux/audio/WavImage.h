// SPDX-License-Identifier: MIT
// A 16-bit PCM WAV image taken apart, and the short stock sounds, which are computed.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace tarnwick {

struct PcmSound {
  uint32_t rate = 44100;
  uint8_t channels = 1;
  std::vector<int16_t> samples;  // interleaved
};

/// Nothing when the image is damaged or of another form.
[[nodiscard]] std::optional<PcmSound> pcmFromWav(const QByteArray& wav);

/// "Tink", "Purr" or "Pop"; nothing for another name.
[[nodiscard]] std::optional<PcmSound> stockSound(const QString& name);

}  // namespace tarnwick
