// SPDX-License-Identifier: MIT
#include "linux/audio/WavImage.h"

#include <QDataStream>
#include <QIODevice>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace tarnwick {
namespace {

QByteArray wav(quint16 format, quint16 channels, quint32 rate, quint16 bits, const QByteArray& data, quint32 dataSize) {
  QByteArray image;
  QDataStream out(&image, QIODevice::WriteOnly);
  out.setByteOrder(QDataStream::LittleEndian);
  out.writeRawData("RIFF", 4);
  out << quint32(36 + data.size());
  out.writeRawData("WAVEfmt ", 8);
  out << quint32(16) << format << channels << rate << quint32(rate * channels * bits / 8) << quint16(channels * bits / 8)
      << bits;
  out.writeRawData("data", 4);
  out << dataSize;
  out.writeRawData(data.constData(), static_cast<int>(data.size()));
  return image;
}

const QByteArray kThreeSamples("\x01\x00\xff\x7f\x00\x80", 6);

TEST(AWavImage, GivesItsSamples) {
  const auto sound = pcmFromWav(wav(1, 1, 44100, 16, kThreeSamples, 6));
  ASSERT_TRUE(sound);
  EXPECT_EQ(sound->rate, 44100U);
  EXPECT_EQ(sound->samples, (std::vector<int16_t>{1, 32767, -32768}));
}

TEST(AWavImage, ThatIsCutShortGivesWhatIsThere) {
  const auto sound = pcmFromWav(wav(1, 2, 48000, 16, kThreeSamples, 4000));
  ASSERT_TRUE(sound);
  EXPECT_EQ(sound->samples.size(), 2U);  // whole frames only
}

TEST(AWavImage, OfAnotherFormIsRefused) {
  EXPECT_FALSE(pcmFromWav({}));
  EXPECT_FALSE(pcmFromWav("RIFF"));
  EXPECT_FALSE(pcmFromWav(wav(3, 1, 44100, 32, kThreeSamples, 6)));
  EXPECT_FALSE(pcmFromWav(wav(1, 1, 44100, 8, kThreeSamples, 6)));
  EXPECT_FALSE(pcmFromWav(wav(1, 6, 44100, 16, kThreeSamples, 6)));
  EXPECT_FALSE(pcmFromWav(wav(1, 1, 1, 16, kThreeSamples, 6)));
  EXPECT_FALSE(pcmFromWav(wav(1, 1, 44100, 16, {}, 0)));
  EXPECT_FALSE(pcmFromWav(QByteArray(5000, '\xff').prepend("RIFF1234WAVE")));
}

class AStockSound : public testing::TestWithParam<QString> {};
TEST_P(AStockSound, IsShortAudibleAndEndsSoftly) {
  const auto sound = stockSound(GetParam());
  ASSERT_TRUE(sound);
  const auto loudness = [](auto from, auto to) {
    int peak = 0;
    for (; from != to; ++from) peak = std::max(peak, std::abs(static_cast<int>(*from)));
    return peak;
  };
  const auto& samples = sound->samples;
  EXPECT_LT(samples.size(), 44100U / 2);
  EXPECT_GT(loudness(samples.begin(), samples.end()), 5000);
  EXPECT_LT(loudness(samples.begin(), samples.end()), 30000);
  EXPECT_LT(loudness(samples.end() - 50, samples.end()), 600);
}
INSTANTIATE_TEST_SUITE_P(Names, AStockSound,
                         testing::Values(QStringLiteral("Tink"), QStringLiteral("Purr"), QStringLiteral("Pop")));

TEST(StockSounds, AreOnlyTheOnesWithAName) { EXPECT_FALSE(stockSound(QStringLiteral("Moo"))); }

}  // namespace
}  // namespace tarnwick
