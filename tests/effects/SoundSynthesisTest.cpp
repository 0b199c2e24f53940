// SPDX-License-Identifier: MIT
#include "effects/SoundSynthesis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <deque>
#include <numeric>

namespace tarnwick::synthesis::test {
namespace {

/// Words that are the same in every run.
UniformSource::Words fixedWords() {
  return [state = quint64{0x9E3779B97F4A7C15}]() mutable {
    state = state * 6364136223846793005U + 1442695040888963407U;
    return state;
  };
}

UniformSource listed(std::deque<quint64> words) {
  return UniformSource([words = std::move(words)]() mutable {
    EXPECT_FALSE(words.empty());
    const auto word = words.front();
    words.pop_front();
    return word;
  });
}

TEST(UniformSource, drawsAllStepsAlikeWithBothEndsIncluded) {
  constexpr quint64 kTop = quint64{1} << 53;
  constexpr quint64 kFirstGood = 9007199254738945U;  // 2^64 modulo 2^53 + 1
  auto ends = listed({0, kFirstGood - 1, kTop, kTop + 1, kTop + 1 + kTop / 2, ~quint64{0}, kFirstGood});
  EXPECT_EQ(ends.between(-0.2, 0.2), 0.2) << "words that would favour some steps are passed over";
  EXPECT_EQ(ends.between(-0.2, 0.2), -0.2);
  EXPECT_EQ(ends.between(-1, 1), 0.0);
  EXPECT_EQ(ends.nextStep(), kFirstGood - 1);
  EXPECT_EQ(ends.nextStep(), kFirstGood);
}

TEST(UniformSource, theSystemsWordsStayInRangeAndDiffer) {
  UniformSource random;
  double sum = 0;
  double least = 1;
  double most = -1;
  constexpr int kDraws = 5000;
  for (int i = 0; i < kDraws; ++i) {
    const double value = random.between(-1, 1);
    sum += value;
    least = std::min(least, value);
    most = std::max(most, value);
  }
  EXPECT_GE(least, -1);
  EXPECT_LE(most, 1);
  EXPECT_LT(least, -0.99);
  EXPECT_GT(most, 0.99);
  EXPECT_LT(std::abs(sum / kDraws), 0.1);
}

struct Row {
  const char* name;
  Samples (*generate)(UniformSource&);
  std::size_t count;
  std::vector<std::pair<std::size_t, qint16>> samples;  // for the fixed words
  qint64 loudness;                                      // sum of magnitudes
};

class Sound : public testing::TestWithParam<Row> {};

TEST_P(Sound, hasTheExpectedSamplesForFixedWords) {
  UniformSource random(fixedWords());
  const auto samples = GetParam().generate(random);
  ASSERT_EQ(samples.size(), GetParam().count);
  for (const auto& [index, value] : GetParam().samples) EXPECT_EQ(samples[index], value) << "at " << index;
  const auto loudness = std::accumulate(samples.begin(), samples.end(), qint64{0},
                                        [](qint64 sum, qint16 sample) { return sum + std::abs(sample); });
  EXPECT_EQ(loudness, GetParam().loudness);
}

TEST_P(Sound, differsFromLaunchToLaunch) {
  UniformSource first;
  UniformSource second;
  EXPECT_NE(GetParam().generate(first), GetParam().generate(second));
}

TEST_P(Sound, fillsAnImageWithItsHeader) {
  UniformSource random(fixedWords());
  const auto samples = GetParam().generate(random);
  const auto image = createWav(kSampleRate, samples);
  const auto dataSize = static_cast<qsizetype>(2 * GetParam().count);
  ASSERT_EQ(image.size(), 44 + dataSize);
  const auto little = [](qsizetype value) {
    return QByteArray::number(value, 16).rightJustified(8, '0').insert(6, ' ').insert(4, ' ').insert(2, ' ').split(' ');
  };
  const auto hexOf = [&](qsizetype value) {
    const auto bytes = little(value);
    return bytes[3] + bytes[2] + bytes[1] + bytes[0];
  };
  // RIFF, size, WAVE, fmt, 16, PCM mono, 44100, 88200, 2 and 16, data, size
  const QByteArray expected = "52494646" + hexOf(36 + dataSize) + "57415645" "666d7420" "10000000" "01000100"
                              "44ac0000" "88580100" "02001000" "64617461" + hexOf(dataSize);
  EXPECT_EQ(image.left(44).toHex(), expected);
  for (const std::size_t index : {std::size_t{1}, GetParam().count / 2, GetParam().count - 1}) {
    const auto at = static_cast<qsizetype>(44 + 2 * index);
    const auto low = static_cast<unsigned char>(image[at]);
    const auto high = static_cast<unsigned char>(image[at + 1]);
    EXPECT_EQ(static_cast<qint16>(low | (high << 8)), samples[index]);
  }
}

// Reference values come from an independent calculation of the same formulas.
INSTANTIATE_TEST_SUITE_P(
    paper, Sound,
    testing::Values(Row{"stick", stick, 5292,
                        {{0, -1647}, {1, -1632}, {2, 2988}, {100, 16647}, {2646, 1203}, {4292, 289}, {5291, -8}},
                        11757268},
                    Row{"tear", tear, 9702,
                        {{0, 0}, {1, -2}, {2, -7}, {100, -135}, {4851, -12698}, {8702, -173}, {9701, 4}}, 40576304},
                    Row{"crush", crush, 16758,
                        {{0, 1535}, {1, -232}, {2, 1462}, {100, 7763}, {8379, -759}, {15758, 9}, {16757, 0}},
                        13218065}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Sounds, beginAsTheyMust) {
  for (int launch = 0; launch < 20; ++launch) {
    UniformSource random;
    EXPECT_EQ(tear(random)[0], 0);
    const auto grit = stick(random)[0];
    EXPECT_GE(grit, -5200);
    EXPECT_LE(grit, 5200);
  }
}

TEST(CrushNoise, isTheSameSequenceInEveryGeneration) {
  for (int generation = 0; generation < 2; ++generation) {
    CrushNoise noise;
    EXPECT_DOUBLE_EQ(noise.next(), 0.8160283164624191);
    EXPECT_DOUBLE_EQ(noise.next(), -0.7107943840582842);
    EXPECT_DOUBLE_EQ(noise.next(), 0.8625958924793162);
  }
}

}  // namespace
}  // namespace tarnwick::synthesis::test
