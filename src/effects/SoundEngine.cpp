// SPDX-License-Identifier: MIT
#include "effects/SoundEngine.h"

#include "effects/SoundSynthesis.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"

#include <utility>

namespace tarnwick {

namespace {

struct Sound {
  QString name;
  double volume;
  QString fallback;
  synthesis::Samples (*generate)(synthesis::UniformSource&);
};

/// In the order in which they are prepared.
const std::vector<Sound>& sounds() {
  static const std::vector<Sound> table{
      {QStringLiteral("crush"), 0.85, QStringLiteral("Pop"), synthesis::crush},
      {QStringLiteral("stick"), 0.7, QStringLiteral("Tink"), synthesis::stick},
      {QStringLiteral("tear"), 0.75, QStringLiteral("Purr"), synthesis::tear},
  };
  return table;
}

}  // namespace

SoundEngine::SoundEngine(Audio& audio, const UserDefaults& defaults) : m_audio(audio), m_defaults(defaults) {}

SoundEngine::~SoundEngine() = default;

bool SoundEngine::isEnabled() const { return m_defaults.booleanOrOn(keys::kSoundEffectsEnabled); }

void SoundEngine::prepare() {
  if (std::exchange(m_isPrepared, true)) return;
  synthesis::UniformSource random;
  for (const auto& sound : sounds()) {
    auto player = m_audio.prepare(synthesis::createWav(synthesis::kSampleRate, sound.generate(random)));
    if (player) {
      m_players[sound.name] = std::move(player);
    } else {
      m_players.erase(sound.name);
    }
  }
}

void SoundEngine::playLanding() {
  if (isEnabled()) m_audio.playStock(QStringLiteral("Pop"));
}

void SoundEngine::play(const QString& name) {
  if (!isEnabled()) return;
  prepare();
  for (const auto& sound : sounds()) {
    if (sound.name != name) continue;
    if (const auto found = m_players.find(name); found != m_players.end()) {
      found->second->rewind();
      found->second->setVolume(sound.volume);
      found->second->play();
    } else {
      m_audio.playStock(sound.fallback);
    }
  }
}

}  // namespace tarnwick
